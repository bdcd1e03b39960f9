// Queries for the URLs of a GenTL port: the input is a byte for the question, one for the room that the caller has, and
// the URLs that the port tells, a line for each.
#include "fuzzer.h"
#include "iport.h"
#include "stringformat.h"

#include <cstring>
#include <memory>
#include <system_error>

using namespace MoxCTI;

namespace {

class Port final : public IPort
{
public:
    void Read(std::uint64_t, void *, unsigned long *size) override { *size = 0; }
    void Write(std::uint64_t, const void *, unsigned long *size) override { *size = 0; }
    void GetPortInfo(int, int *, void *, unsigned long *) override { }
    std::vector<GenICamUrl> GetPortURLs() override { return urls; }

    std::vector<GenICamUrl> urls;
};

/** Asks for the size, then into a buffer of @p room bytes that is not one byte larger. */
template<class Query> std::string ask(unsigned long room, Query query)
{
    unsigned long needed = 0;
    query(nullptr, &needed);
    MOX_FUZZ_CHECK(needed > 0);
    const auto buffer = std::make_unique<char[]>(room);
    unsigned long size = room;
    bool isRefused = false;
    try {
        query(buffer.get(), &size);
    } catch (const std::system_error &) {
        isRefused = true;
    }
    MOX_FUZZ_CHECK(size == needed && isRefused == (room < needed));
    return isRefused ? std::string() : std::string(buffer.get(), needed);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 1024)
        return -1;
    MoxFuzz::Input input(data, size);
    const unsigned question = input.byte();
    const unsigned long room = input.byte() + 1ul; // 0 would be no limit
    Port port;
    std::string all;
    while (!input.isAtEnd()) {
        GenICamUrl record;
        record.url = input.until('\n');
        record.fileVersionMajor = static_cast<std::uint8_t>(record.url.size());
        all += record.url;
        port.urls.push_back(record);
    }
    MOX_FUZZ_CHECK(port.IPort::GetURL(0xffffffff) == all);
    unsigned int count = 0;
    port.GetNumPortURLs(&count);
    MOX_FUZZ_CHECK(count == port.urls.size());

    const unsigned int index = question % 8;
    if (index >= port.urls.size()) {
        try {
            port.IPort::GetURL(index);
            MOX_FUZZ_CHECK(false);
        } catch (const std::system_error &) { }
        return 0;
    }
    const std::string &url = port.urls[index].url;
    MOX_FUZZ_CHECK(port.IPort::GetURL(index) == url);
    const std::string inBuffer = ask(room, [&](char *buffer, unsigned long *s) { port.GetURL(index, buffer, s); });
    MOX_FUZZ_CHECK(inBuffer.empty() || inBuffer == std::string(url.c_str(), url.size() + 1));
    const int command = int(question / 8 % 6);
    int type = 0;
    ask(room, [&](char *buffer, unsigned long *s) { port.GetPortURLInfo(index, command, &type, buffer, s); });
    MOX_FUZZ_CHECK(type == (command == UrlInfoUrl ? InfoTypeString : InfoTypeUInt32));

    // A text is made whole, whatever its length, up to its first zero.
    MOX_FUZZ_CHECK(string_format("%s", all.c_str()) == all.c_str());
    MOX_FUZZ_CHECK(string_format("%*s|", int(room), all.c_str()).size()
                   == std::max<std::size_t>(room, std::strlen(all.c_str())) + 1);
    return 0;
}
