#include "packeddescription.h"

#include <Base/GCException.h>

#include <cerrno>
#include <cstdlib>
#include <strings.h>
#include <utility>
#include <zlib.h>

namespace MoxSdk {

namespace {

constexpr unsigned long long longestDescription = 16 << 20;

[[noreturn]] void refuse()
{
    throw RUNTIME_EXCEPTION("the camera's description cannot be unpacked");
}

// Archives have the lowest byte of a number first. What they say of themselves may be wrong everywhere.
std::uint32_t number(const std::string &archive, std::size_t at, std::size_t size)
{
    if (at > archive.size() || size > archive.size() - at)
        refuse();
    std::uint32_t result = 0;
    for (std::size_t i = size; i > 0; --i)
        result = result << 8 | static_cast<std::uint8_t>(archive[at + i - 1]);
    return result;
}

/** At most @p length bytes, however many the packed ones would make. */
std::string inflated(std::string packed, std::size_t length)
{
    std::string text(length, '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef *>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    // Archives hold the bare stream, without a header.
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        refuse();
    const int result = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    if (result != Z_STREAM_END)
        refuse();
    text.resize(stream.total_out);
    return text;
}

std::string unzip(const std::string &archive)
{
    // The record at the end, which padding may follow, leads to the directory, and that to the one file. The header in
    // front of the file may leave its lengths open.
    const std::size_t end = archive.rfind("PK\5\6");
    if (end == std::string::npos)
        refuse();
    const std::size_t entry = number(archive, end + 16, 4);
    if (number(archive, entry, 4) != 0x02014b50)
        refuse();
    const std::uint32_t method = number(archive, entry + 10, 2);
    const std::size_t packedLength = number(archive, entry + 20, 4);
    const std::size_t length = number(archive, entry + 24, 4);
    const std::size_t file = number(archive, entry + 42, 4);
    if (number(archive, file, 4) != 0x04034b50)
        refuse();
    const std::size_t data = file + 30 + number(archive, file + 26, 2) + number(archive, file + 28, 2);
    if (data > archive.size() || packedLength > archive.size() - data || length > longestDescription)
        refuse();
    std::string packed = archive.substr(data, packedLength);
    if (method == 0)
        return packed;
    if (method != Z_DEFLATED)
        refuse();
    return inflated(std::move(packed), length);
}

std::optional<unsigned long long> hexNumber(const std::string &text)
{
    char *end = nullptr;
    errno = 0;
    const unsigned long long number = std::strtoull(text.c_str(), &end, 16);
    const auto length = static_cast<std::size_t>(end - text.c_str());
    if (length == 0 || errno == ERANGE || text.find_first_not_of(' ', length) != std::string::npos)
        return std::nullopt;
    return number;
}

} // namespace

std::optional<DescriptionPlace> parseDescriptionUrl(const std::string &url)
{
    const std::string text = url.substr(0, url.find('\0'));
    const std::size_t first = text.find(';');
    const std::size_t second = first == std::string::npos ? first : text.find(';', first + 1);
    if (second == std::string::npos || ::strncasecmp(text.c_str(), "local:", 6) != 0)
        return std::nullopt;
    const auto address = hexNumber(text.substr(first + 1, second - first - 1));
    // The version of the schema may follow the length.
    const auto length = hexNumber(text.substr(second + 1, text.find('?', second) - second - 1));
    if (!address || !length || *length == 0 || *length > longestDescription)
        return std::nullopt;
    return DescriptionPlace{*address, static_cast<std::size_t>(*length)};
}

std::string unpackDescription(std::string bytes)
{
    if (bytes.compare(0, 2, "PK") == 0)
        bytes = unzip(bytes);
    bytes.resize(bytes.find_last_not_of('\0') + 1);
    return bytes;
}

} // namespace MoxSdk
