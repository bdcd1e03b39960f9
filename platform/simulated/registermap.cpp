#include "registermap.h"

#include <glib.h>

#include <memory>
#include <sstream>
#include <stdexcept>

namespace MoxSdk {

namespace {

std::int64_t number(const std::string &text)
{
    std::size_t used = 0;
    std::int64_t result = 0;
    try {
        // Unsigned, since hexadecimal constants use all bits; a minus sign still gives the negative number.
        result = static_cast<std::int64_t>(std::stoull(text, &used, 0));
    } catch (const std::exception &) {
        used = 0;
    }
    if (used == 0 || used != text.size())
        throw std::runtime_error("not a number: " + text);
    return result;
}

std::vector<std::string> words(const std::string &text)
{
    std::istringstream stream(text);
    std::vector<std::string> result;
    for (std::string word; stream >> word;)
        result.push_back(word);
    return result;
}

/** Collects register nodes while the text is walked. Nodes of other kinds pass by. */
struct Reader
{
    std::vector<Register> registers;
    // The node that is open, and the structure that it stands in.
    Register node;
    Register structure;
    std::string nodeElement;
    bool inStructure = false;
    bool hasAddress = false;
    int lsb = -1;
    int msb = -1;
    std::string powerUp;
    std::string text;

    static bool isRegister(const std::string &element)
    {
        return element == "IntReg" || element == "MaskedIntReg" || element == "FloatReg" || element == "StringReg"
            || element == "Register" || element == "StructReg" || element == "StructEntry";
    }

    void start(const std::string &element, const gchar **names, const gchar **values)
    {
        text.clear();
        const auto attribute = [&](const char *name) {
            for (int i = 0; names[i]; ++i) {
                if (name == std::string(names[i]))
                    return std::string(values[i]);
            }
            return std::string();
        };
        if (isRegister(element))
            open(element, attribute("Name"));
        else if (nodeElement.empty())
            return;
        else if (element == "Firmware")
            takeFacts(attribute);
        else if (element == "pIndex" && !attribute("Offset").empty())
            node.stride = number(attribute("Offset"));
    }

    void open(const std::string &element, const std::string &name)
    {
        node = inStructure ? structure : Register();
        node.name = name;
        if (element == "FloatReg")
            node.kind = Register::Kind::Float;
        else if (element == "StringReg")
            node.kind = Register::Kind::Text;
        else if (element == "Register")
            node.kind = Register::Kind::Bytes;
        hasAddress = inStructure;
        lsb = msb = -1;
        powerUp.clear();
        nodeElement = element;
    }

    template<typename Attribute> void takeFacts(const Attribute &attribute)
    {
        powerUp = attribute("PowerUp");
        node.minimum = attribute("Min");
        node.maximum = attribute("Max");
        if (!attribute("Inc").empty())
            node.increment = number(attribute("Inc"));
        for (const std::string &word : words(attribute("Values")))
            node.values.push_back(number(word));
        if (!attribute("Banks").empty())
            node.banks = static_cast<int>(number(attribute("Banks")));
        node.inUserSets = attribute("UserSet") == "Yes";
        node.isCommand = attribute("Command") == "Yes";
        node.isKept = attribute("Keep") == "Yes";
    }

    void end(const std::string &element)
    {
        if (nodeElement.empty()) {
            // The entries of a structure stand between its registers' facts and its own end.
            if (element == "StructReg")
                inStructure = false;
            return;
        }
        if (element == "Address") {
            node.address += number(text);
            hasAddress = true;
        } else if (element == "Length") {
            node.length = number(text);
        } else if (element == "AccessMode") {
            node.writable = text != "RO";
        } else if (element == "Endianess") {
            node.bigEndian = text == "BigEndian";
        } else if (element == "Sign") {
            node.isSigned = text == "Signed";
        } else if (element == "LSB" || element == "Bit") {
            lsb = static_cast<int>(number(text));
        }
        if (element == "MSB" || element == "Bit")
            msb = static_cast<int>(number(text));
        if (element == "Endianess" && nodeElement == "StructReg") {
            structure = node;
            inStructure = true;
            nodeElement.clear();
        } else if (element == nodeElement) {
            close();
        }
    }

    void close()
    {
        placeBits();
        // The text of a string is one power up value with all its blanks; numbers may differ from bank to bank.
        if (node.kind == Register::Kind::Text && !powerUp.empty())
            node.powerUp = {powerUp};
        else
            node.powerUp = words(powerUp);
        // A register at a computed address has no place of its own and lies in another one.
        if (hasAddress)
            registers.push_back(node);
        nodeElement.clear();
    }

    void placeBits()
    {
        const int width = static_cast<int>(8 * node.length);
        if (lsb < 0 || msb < 0) {
            node.bits = static_cast<unsigned>(width);
            return;
        }
        // Big endian descriptions count bits from the most significant one.
        const int low = node.bigEndian ? width - 1 - std::max(lsb, msb) : std::min(lsb, msb);
        const int high = node.bigEndian ? width - 1 - std::min(lsb, msb) : std::max(lsb, msb);
        node.shift = static_cast<unsigned>(low);
        node.bits = static_cast<unsigned>(high - low + 1);
    }
};

/** Runs a step of the reader; exceptions must not cross the parser, which is C. */
template<typename Step> void guarded(GError **error, const Step &step)
{
    try {
        step();
    } catch (const std::exception &exception) {
        g_set_error_literal(error, G_MARKUP_ERROR, G_MARKUP_ERROR_INVALID_CONTENT, exception.what());
    }
}

const GMarkupParser parser = {
    [](GMarkupParseContext *, const gchar *element, const gchar **names, const gchar **values, gpointer reader,
       GError **error) { guarded(error, [&] { static_cast<Reader *>(reader)->start(element, names, values); }); },
    [](GMarkupParseContext *, const gchar *element, gpointer reader, GError **error) {
        guarded(error, [&] { static_cast<Reader *>(reader)->end(element); });
    },
    [](GMarkupParseContext *, const gchar *text, gsize length, gpointer reader, GError **) {
        static_cast<Reader *>(reader)->text.append(text, length);
    },
    nullptr,
    nullptr,
};

} // namespace

RegisterMap::RegisterMap(const std::string &description)
{
    Reader reader;
    const std::unique_ptr<GMarkupParseContext, decltype(&g_markup_parse_context_free)> context(
        g_markup_parse_context_new(&parser, GMarkupParseFlags(0), &reader, nullptr), g_markup_parse_context_free);
    GError *error = nullptr;
    if (!g_markup_parse_context_parse(context.get(), description.data(), static_cast<gssize>(description.size()),
                                      &error)
        || !g_markup_parse_context_end_parse(context.get(), &error)) {
        const std::string reason = error->message;
        g_error_free(error);
        throw std::runtime_error(reason);
    }
    m_registers = std::move(reader.registers);
    for (std::size_t i = 0; i < m_registers.size(); ++i)
        m_byName.emplace(m_registers[i].name, i);
}

const Register *RegisterMap::find(const std::string &name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : &m_registers[found->second];
}

} // namespace MoxSdk
