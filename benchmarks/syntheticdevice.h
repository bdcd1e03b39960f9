// A device of any number of features for benchmarks: its description and its port.
#ifndef MOXBENCH_SYNTHETICDEVICE_H
#define MOXBENCH_SYNTHETICDEVICE_H

#include <GenApi/GenApi.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <unordered_map>

namespace MoxBench {

/** Where the maxima of integers begin. */
constexpr std::int64_t maximaAddress = 0x100000;

/** Memory that counts how often it is accessed: all zero, and ones where the maxima are. */
class CountingPort : public GenApi::IPort
{
public:
    GenApi::EAccessMode GetAccessMode() const override { return GenApi::RW; }
    void Read(void *buffer, std::int64_t address, std::int64_t length) override
    {
        ++accesses;
        auto *bytes = static_cast<unsigned char *>(buffer);
        for (std::int64_t i = 0; i < length; ++i) {
            const auto found = m_memory.find(address + i);
            bytes[i] = found != m_memory.end() ? found->second : address < maximaAddress ? 0 : 1;
        }
    }
    void Write(const void *buffer, std::int64_t address, std::int64_t length) override
    {
        ++accesses;
        for (std::int64_t i = 0; i < length; ++i)
            m_memory[address + i] = static_cast<const unsigned char *>(buffer)[i];
    }

    long accesses = 0;

private:
    std::unordered_map<std::int64_t, unsigned char> m_memory;
};

/**
 * Ten features a category; an integer with a maximum that another register holds, a float through a converter, an
 * enumeration, a boolean on one bit, in turn; every tenth one is polled, every fifth is for experts or gurus.
 */
inline std::string syntheticDescription(int features)
{
    std::ostringstream xml;
    xml << "<RegisterDescription><Category Name=\"Root\">";
    for (int group = 0; group < features / 10; ++group)
        xml << "<pFeature>Group" << group << "</pFeature>";
    xml << "</Category><Port Name=\"Device\"/>";
    for (int i = 0; i < features; ++i) {
        if (i % 10 == 0) {
            xml << "<Category Name=\"Group" << i / 10 << "\">";
            for (int j = i; j < std::min(i + 10, features); ++j)
                xml << "<pFeature>F" << j << "</pFeature>";
            xml << "</Category>";
        }
        const std::string head = "Name=\"F" + std::to_string(i) + "\"><ToolTip>tip</ToolTip><DisplayName>Feature "
            + std::to_string(i) + "</DisplayName>"
            + (i % 5 < 4        ? ""
                   : i % 10 < 5 ? "<Visibility>Expert</Visibility>"
                                : "<Visibility>Guru</Visibility>");
        const std::string value = "<pValue>R" + std::to_string(i) + "</pValue>";
        switch (i % 4) {
        case 0:
            xml << "<Integer " << head << value << "<pMax>M" << i << "</pMax></Integer><IntReg Name=\"M" << i
                << "\"><Address>" << maximaAddress + 8 * i
                << "</Address><Length>4</Length><AccessMode>RO</AccessMode><pPort>Device</pPort></IntReg>";
            break;
        case 1:
            xml << "<Float " << head << "<pValue>C" << i << "</pValue></Float><Converter Name=\"C" << i
                << "\"><FormulaTo>FROM*100</FormulaTo><FormulaFrom>TO/100</FormulaFrom>" << value << "</Converter>";
            break;
        case 2:
            xml << "<Enumeration " << head << "<EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
                << "<EnumEntry Name=\"On\"><Value>1</Value></EnumEntry>" << value << "</Enumeration>";
            break;
        default:
            xml << "<Boolean " << head << value << "</Boolean>";
        }
        xml << "<MaskedIntReg Name=\"R" << i << "\"><Address>" << 8 * i
            << "</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
            << (i % 10 ? "" : "<PollingTime>1000</PollingTime>") << "<LSB>0</LSB><MSB>" << (i % 4 == 3 ? 0 : 15)
            << "</MSB></MaskedIntReg>";
    }
    xml << "</RegisterDescription>";
    return xml.str();
}

} // namespace MoxBench

#endif
