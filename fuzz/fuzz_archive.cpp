// How a camera holds its description: the input is what its memory gives, a packed description or the register that tells
// where one lies.
#include "fuzzer.h"
#include "network/packeddescription.h"

#include <Base/GCException.h>
#include <zlib.h>

#include <cctype>

namespace {

void append(std::string &archive, std::size_t value, int size)
{
    for (int i = 0; i < size; ++i)
        archive.push_back(static_cast<char>(value >> (8 * i)));
}

std::string deflated(const std::string &text)
{
    std::string packed(compressBound(uLong(text.size())) + 64, '\0');
    z_stream stream{};
    deflateInit2(&stream, 6, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const int result = deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    MOX_FUZZ_CHECK(result == Z_STREAM_END);
    return packed;
}

/** An archive of one file, as a camera's maker makes it. */
std::string zipped(const std::string &text, bool isDeflated)
{
    const std::string packed = isDeflated ? deflated(text) : text;
    const std::size_t method = isDeflated ? 8 : 0;
    const std::string name = "a.xml";
    const auto checksum = crc32(0, reinterpret_cast<const Bytef *>(text.data()), uInt(text.size()));
    const auto facts = [&](std::string &archive) {
        append(archive, 20, 2); // version
        append(archive, 0, 2);
        append(archive, method, 2);
        append(archive, 0, 4); // time
        append(archive, checksum, 4);
        append(archive, packed.size(), 4);
        append(archive, text.size(), 4);
        append(archive, name.size(), 2);
        append(archive, 0, 2);
    };
    std::string archive = "PK\3\4";
    facts(archive);
    archive += name + packed;
    const std::size_t directory = archive.size();
    archive += "PK\1\2";
    append(archive, 20, 2);
    facts(archive);
    archive.append(14, '\0'); // no comment, first disk, attributes; the file is at the begin
    archive += name;
    const std::size_t length = archive.size() - directory;
    archive += "PK\5\6";
    append(archive, 0, 4);
    append(archive, 1, 2);
    append(archive, 1, 2);
    append(archive, length, 4);
    append(archive, directory, 4);
    append(archive, 0, 2);
    return archive;
}

std::string withoutPadding(const std::string &text)
{
    return text.substr(0, text.find_last_not_of('\0') + 1);
}

void checkUnpacking(const std::string &bytes)
{
    try {
        const std::string text = MoxSdk::unpackDescription(bytes);
        MOX_FUZZ_CHECK(text.size() <= std::size_t(16) << 20);
        MOX_FUZZ_CHECK(text.empty() || text.back() != '\0');
        if (bytes.compare(0, 2, "PK") != 0)
            MOX_FUZZ_CHECK(text == withoutPadding(bytes));
    } catch (const GenICam_3_0::RuntimeException &) {
        MOX_FUZZ_CHECK(bytes.compare(0, 2, "PK") == 0);
    }
    MOX_FUZZ_CHECK(MoxSdk::unpackDescription(zipped(bytes, true)) == withoutPadding(bytes));
    MOX_FUZZ_CHECK(MoxSdk::unpackDescription(zipped(bytes, false)) == withoutPadding(bytes));
    MOX_FUZZ_CHECK(MoxSdk::unpackDescription(zipped(bytes, true) + std::string(7, '\0')) == withoutPadding(bytes));
}

void checkUrl(const std::string &url)
{
    const auto place = MoxSdk::parseDescriptionUrl(url);
    if (!place)
        return;
    MOX_FUZZ_CHECK(place->length > 0 && place->length <= std::size_t(16) << 20);
    char written[80];
    std::snprintf(written, sizeof written, "Local:a.zip;%llX;%zx", static_cast<unsigned long long>(place->address),
                  place->length);
    for (const std::string &again : {std::string(written), std::string(written) + "?SchemaVersion=1.1.0"}) {
        const auto same = MoxSdk::parseDescriptionUrl(again);
        MOX_FUZZ_CHECK(same && same->address == place->address && same->length == place->length);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 4096)
        return -1;
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    checkUnpacking(bytes);
    checkUrl(bytes);
    return 0;
}
