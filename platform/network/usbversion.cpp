#include "usbversion.h"

#include <fstream>

namespace MoxSdk {

namespace {

std::string firstLine(const std::filesystem::path &path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

// " 3.20" for the decimal digits 0x0320.
std::uint32_t parseVersion(const std::string &text)
{
    std::uint32_t version = 0;
    for (const char digit : text) {
        if (digit >= '0' && digit <= '9')
            version = version << 4 | static_cast<std::uint32_t>(digit - '0');
        else if (digit != ' ' && digit != '.')
            return 0;
    }
    return version;
}

} // namespace

std::uint32_t usbVersion(const std::filesystem::path &devices, const DeviceRecord &record)
{
    std::error_code failure;
    for (std::filesystem::directory_iterator at(devices, failure), end; !failure && at != end; at.increment(failure)) {
        const std::filesystem::path &device = at->path();
        if (firstLine(device / "serial") == record.serialNumber && firstLine(device / "product") == record.model)
            return parseVersion(firstLine(device / "version"));
    }
    return 0;
}

} // namespace MoxSdk
