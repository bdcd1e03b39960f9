#include "devicerecord.h"

namespace MoxSdk {

std::string displayName(const DeviceRecord &record)
{
    std::string name = record.vendor;
    const auto append = [&](const std::string &part) {
        if (!name.empty() && !part.empty())
            name += ' ';
        name += part;
    };
    append(record.model);
    append(record.serialNumber.empty() ? std::string() : '(' + record.serialNumber + ')');
    return name;
}

std::string dotted(std::uint32_t address)
{
    return std::to_string(address >> 24) + '.' + std::to_string(address >> 16 & 0xFF) + '.'
        + std::to_string(address >> 8 & 0xFF) + '.' + std::to_string(address & 0xFF);
}

} // namespace MoxSdk
