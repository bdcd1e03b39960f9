#include "gentlerror.h"
#include "iport.h"
#include "stringformat.h"
#include "testmain.h"

#include <functional>

namespace {

struct Port final : public MoxCTI::IPort
{
    void Read(std::uint64_t, void *, unsigned long *) override { }
    void Write(std::uint64_t, const void *, unsigned long *) override { }
    std::vector<MoxCTI::GenICamUrl> GetPortURLs() override { return urls; }
    void GetPortInfo(int, int *, void *, unsigned long *) override { }

    std::vector<MoxCTI::GenICamUrl> urls{{"", 1, 2, 3, 4, 0xabcd, "a.xml"}, {"", 0, 0, 0, 0, 0, "b"}};
};

/** The code and the text of what @p action throws; 0 for nothing. */
QByteArray failure(const std::function<void()> &action)
{
    try {
        action();
    } catch (const std::system_error &err) {
        return QByteArray::number(err.code().value()) + ' ' + err.code().category().name() + ' ' + err.what();
    }
    return "0";
}

} // namespace

class TestPortHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts()
    {
        const QByteArray unknown = "Unknown error code: ";
        for (const int code : {1, -1000, -1022, -9999})
            QCOMPARE(tli_category().message(code).c_str(), unknown + QByteArray::number(code));
        QCOMPARE(tli_category().message(-10000), std::string("Custom error code: -10000"));
        QCOMPARE(tli_category().message(0), std::string("No error"));
        QCOMPARE(tli_category().message(-1020), std::string("A requested resource is exhausted."));
        for (const int length : {0, 98, 99, 100, 100000}) // and one more
            QCOMPARE(string_format("%*s%s", length, "", "|"), std::string(std::size_t(length), ' ') + '|');
        QCOMPARE(string_format("a%cb", 0), std::string("a"));
        const wchar_t noCharacter[] = {wchar_t(0x80000000), 0};
        QVERIFY_EXCEPTION_THROWN(string_format("%ls", noCharacter), std::bad_alloc);
    }

    void buffers()
    {
        const QByteArray url("a.xml", 6);
        const auto number = [](std::uint32_t value) { return QByteArray(reinterpret_cast<char *>(&value), 4); };
        const struct
        {
            int info; // -1 stands for GetURL
            unsigned long given;
            QByteArray bytes; // null where no buffer is given, and empty where none arrive
        } queries[] = {{-1, 3, {}},       {-1, 0, url},      {-1, 5, ""},           {-1, 6, url}, {0, 5, ""},
                       {0, 6, url},       {1, 1, {}},        {1, 0, number(1)},     {2, 3, ""},   {2, 4, number(2)},
                       {3, 9, number(3)}, {4, 4, number(4)}, {5, 4, number(0xabcd)}};
        for (const auto &query : queries) {
            Port port;
            QByteArray buffer(20, '#');
            char *place = query.bytes.isNull() ? nullptr : buffer.data();
            unsigned long size = query.given;
            int type = query.info > 0 ? 1 : 5;
            const QByteArray failed = failure([&] {
                if (query.info == -1)
                    return port.GetURL(0, place, &size);
                port.GetPortURLInfo(0, query.info, &type, place, &size);
            });
            const bool fits = !place || !query.bytes.isEmpty();
            QCOMPARE(failed.left(32), QByteArray(fits ? "0" : "-1016 gentl Invalid Buffer Size:"));
            QVERIFY(size == (query.info > 0 ? 4 : 6) && type == (query.info ? 5 : 1));
            QCOMPARE(buffer, query.bytes + QByteArray(20 - query.bytes.size(), '#'));
        }
    }

    void failures()
    {
        Port port;
        unsigned int count = 0;
        port.GetNumPortURLs(&count);
        QVERIFY(count == 2 && port.GetURL(0xffffffff) == "a.xmlb");
        const QByteArray index =
            " is out of range: A provided index referencing a Producer internal object is out of bounds";
        QCOMPARE(failure([&] { port.GetURL(2); }), "-1017 gentl URL Index 2" + index);
        QCOMPARE(failure([&] { port.GetPortURLInfo(0xffffffff, 6, nullptr, nullptr, nullptr); }),
                 "-1017 gentl URL Index 4294967295" + index); // before all else
        QCOMPARE(failure([&] { port.GetPortURLInfo(0, 6, nullptr, nullptr, nullptr); }),
                 QByteArray("-1003 gentl Unknown URL_INFO_CMD 6: Requested operation not implemented"));
        const QByteArray pointer = " is an invalid pointer: One of the parameter given was not valid or out of range";
        for (const std::uintptr_t bits : {std::uintptr_t(0), ~std::uintptr_t(0)}) {
            auto *size = reinterpret_cast<unsigned long *>(bits);
            int type = 0;
            QCOMPARE(failure([&] { port.GetNumPortURLs(reinterpret_cast<unsigned int *>(bits)); }),
                     "-1009 gentl iNumURLs" + pointer);
            QCOMPARE(failure([&] { port.GetURL(0, nullptr, size); }), "-1009 gentl iDst" + pointer);
            QCOMPARE(failure([&] { port.GetPortURLInfo(0, 5, &type, nullptr, size); }), "-1009 gentl iDst" + pointer);
            QCOMPARE(type, 5); // stored before
        }
        port.urls.clear();
        QCOMPARE(port.GetURL(0xffffffff), std::string());
    }
};

MOX_TEST_MAIN(TestPortHelpers)
#include "tst_porthelpers.moc"
