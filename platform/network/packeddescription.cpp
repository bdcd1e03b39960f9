#include "packeddescription.h"

#include <Base/GCException.h>

#include <arv.h>
#include <cerrno>
#include <cstdlib>
#include <memory>

namespace MoxSdk {

namespace {

constexpr unsigned long long longestDescription = 16 << 20;

std::string unzip(const std::string &archive)
{
    const std::unique_ptr<ArvZip, decltype(&arv_zip_free)> zip(arv_zip_new(archive.data(), archive.size()),
                                                               &arv_zip_free);
    // The archive holds the one file.
    const GSList *files = zip ? arv_zip_get_file_list(zip.get()) : nullptr;
    if (!files)
        throw RUNTIME_EXCEPTION("the camera's description cannot be unpacked");
    const char *name = arv_zip_file_get_name(static_cast<ArvZipFile *>(files->data));
    std::size_t length = 0;
    const std::unique_ptr<char, decltype(&g_free)> text(static_cast<char *>(arv_zip_get_file(zip.get(), name, &length)),
                                                        &g_free);
    if (!text)
        throw RUNTIME_EXCEPTION("the camera's description cannot be unpacked");
    return std::string(text.get(), length);
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
    if (second == std::string::npos || g_ascii_strncasecmp(text.c_str(), "local:", 6) != 0)
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
