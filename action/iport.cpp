#include "iport.h"

#include "gentlerror.h"
#include "stringformat.h"

#include <cstring>

using namespace GenTL;

namespace MoxCTI {

namespace {

constexpr unsigned int allUrls = 0xffffffff;

std::system_error failure(GC_ERROR_LIST code, const std::string &text)
{
    return {make_error_code(code), text};
}

const GenICamUrl &urlAt(const std::vector<GenICamUrl> &urls, unsigned int index)
{
    if (index >= urls.size())
        throw failure(GC_ERR_INVALID_INDEX, string_format("URL Index %ld is out of range", static_cast<long>(index)));
    return urls[index];
}

void deliver(const void *value, std::size_t valueSize, void *buffer, unsigned long *piSize)
{
    // It is the size that is checked, under the name of the buffer.
    _tli_check_parameter(piSize, failure(GC_ERR_INVALID_PARAMETER, "iDst is an invalid pointer"));
    const unsigned long given = *piSize;
    *piSize = valueSize;
    if (!buffer)
        return;
    // A size of 0 is no limit: the caller vouches for the buffer.
    if (given != 0 && given < valueSize)
        throw failure(GC_ERR_BUFFER_TOO_SMALL, "Invalid Buffer Size");
    std::memcpy(buffer, value, valueSize);
}

} // namespace

std::string IPort::GetURL(unsigned int index)
{
    const std::vector<GenICamUrl> urls = GetPortURLs();
    if (index != allUrls)
        return urlAt(urls, index).url;
    std::string all;
    for (const GenICamUrl &record : urls)
        all += record.url;
    return all;
}

void IPort::GetURL(unsigned int index, char *iDst, unsigned long *piSize)
{
    const std::string url = GetURL(index);
    deliver(url.c_str(), url.size() + 1, iDst, piSize);
}

void IPort::GetNumPortURLs(unsigned int *iNumURLs)
{
    _tli_check_parameter(iNumURLs, failure(GC_ERR_INVALID_PARAMETER, "iNumURLs is an invalid pointer"));
    *iNumURLs = static_cast<unsigned int>(GetPortURLs().size());
}

void IPort::GetPortURLInfo(unsigned int index, int infoCmd, int *piType, void *pBuffer, unsigned long *piSize)
{
    const std::vector<GenICamUrl> urls = GetPortURLs();
    const GenICamUrl &record = urlAt(urls, index);
    std::uint32_t number = 0;
    switch (infoCmd) {
    case UrlInfoUrl:
        break;
    case UrlInfoSchemaVersionMajor:
        number = record.schemaVersionMajor;
        break;
    case UrlInfoSchemaVersionMinor:
        number = record.schemaVersionMinor;
        break;
    case UrlInfoFileVersionMajor:
        number = record.fileVersionMajor;
        break;
    case UrlInfoFileVersionMinor:
        number = record.fileVersionMinor;
        break;
    case UrlInfoFileVersionSubminor:
        number = record.fileVersionSubminor;
        break;
    default:
        throw failure(GC_ERR_NOT_IMPLEMENTED, string_format("Unknown URL_INFO_CMD %d", infoCmd));
    }
    const bool isText = infoCmd == UrlInfoUrl;
    if (piType)
        *piType = isText ? InfoTypeString : InfoTypeUInt32;
    if (isText)
        deliver(record.url.c_str(), record.url.size() + 1, pBuffer, piSize);
    else
        deliver(&number, sizeof(number), pBuffer, piSize);
}

} // namespace MoxCTI
