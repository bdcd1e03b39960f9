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

} // namespace MoxSdk
