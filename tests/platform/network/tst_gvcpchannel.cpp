// Register accesses over packets: alignment, refusals, patience, control.
#include "../../../platform/network/gvcpchannel.h"
#include "gvcpresponder.h"

#include <Base/GCException.h>

#include <datarow.h>

using namespace MoxSdk;
using namespace MoxTest;

namespace {

std::unique_ptr<GvcpChannel> open(GvcpResponder &responder)
{
    auto channel = std::make_unique<GvcpChannel>(loopback(), 0x7f000001, responder.port);
    responder.takeCommands();
    return channel;
}

/** What came in since the last call: code, address, and the length of a memory access. */
QByteArray taken(GvcpResponder &responder)
{
    QString list;
    for (const Command &command : responder.takeCommands())
        list += QStringLiteral("%1@%2+%3 ").arg(command.code, 0, 16).arg(command.address, 0, 16).arg(command.length);
    return list.trimmed().toLatin1();
}

/** An intercept of all accesses to the memory behind the bootstrap registers. */
GvcpResponder::Intercept beyondBootstrap(const std::function<Packets(const Command &)> &answers)
{
    return [answers](const Command &command) {
        return command.address < 0x1000 ? std::nullopt : std::optional(answers(command));
    };
}

} // namespace

class TestGvcpChannel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void alignment_data()
    {
        columns<int, int, QByteArray, QByteArray>("address", "length", "reading", "writing");
        row("inside a word", 0x1005, 2, "84@1004+4", "84@1004+4 86@1004+4");
        row("ends inside", 0x1004, 5, "84@1004+8", "84@1008+4 86@1004+8");
        row("both", 0x1007, 2, "84@1004+8", "84@1004+4 84@1008+4 86@1004+8");
        row("a whole block", 0x1000, 512, "84@1000+512", "86@1000+512");
        row("three blocks", 0x1002, 1026, "84@1000+512 84@1200+512 84@1400+4",
            "84@1000+4 86@1000+512 86@1200+512 86@1400+4");
    }
    void alignment()
    {
        QFETCH(int, address);
        QFETCH(int, length);
        GvcpResponder responder;
        std::string memory(2048, '\0');
        for (std::size_t i = 0; i < memory.size(); ++i)
            memory[i] = char(i * 7 % 251);
        responder.setBytes(0x1000, memory);
        const auto channel = open(responder);

        std::string buffer(std::size_t(length) + 1, '#');
        channel->read(buffer.data(), std::uint64_t(address), std::size_t(length));
        QCOMPARE(buffer, memory.substr(std::size_t(address - 0x1000), std::size_t(length)) + '#');
        QTEST(taken(responder), "reading");

        buffer.assign(std::size_t(length), 'x');
        channel->write(buffer.data(), std::uint64_t(address), std::size_t(length));
        memory.replace(std::size_t(address - 0x1000), std::size_t(length), buffer);
        QCOMPARE(responder.bytes(0x1000, memory.size()), memory);
        QTEST(taken(responder), "writing");
    }

    void wordByWord()
    {
        GvcpResponder responder([](const Command &command) -> std::optional<Packets> {
            if (command.code != ReadMemory && command.code != WriteMemory)
                return std::nullopt;
            return Packets{acknowledge(std::uint16_t(command.code + 1), command.id, {}, 0x8001)};
        });
        responder.setBytes(0x1000, "abcdefgh");
        const auto channel = open(responder);
        channel->write("XYZ", 0x1003, 3);
        std::string buffer(8, '\0');
        channel->read(buffer.data(), 0x1000, 8);
        QCOMPARE(buffer, std::string("abcXYZgh"));
    }

    void addressesEndAt32Bits()
    {
        GvcpResponder responder;
        const auto channel = open(responder);
        char byte = 0;
        QVERIFY_EXCEPTION_THROWN(channel->read(&byte, std::uint64_t(1) << 32, 1), GenICam_3_0::OutOfRangeException);
        QVERIFY_EXCEPTION_THROWN(channel->write(&byte, 0xffffffff, 2), GenICam_3_0::OutOfRangeException);
        QCOMPARE(taken(responder), QByteArray());
        channel->read(&byte, 0xffffffff, 1);
        QCOMPARE(taken(responder), QByteArray("84@fffc+4"));
    }

    void refusals()
    {
        std::atomic<int> status{0};
        GvcpResponder responder(beyondBootstrap([&status](const Command &command) {
            return Packets{acknowledge(std::uint16_t(command.code + 1), command.id, Packet(7), std::uint16_t(status))};
        }));
        const auto channel = open(responder);
        std::uint32_t word = 0;
        for (int denial : {Gvcp::WriteProtect, Gvcp::AccessDenied}) {
            status = denial;
            QVERIFY_EXCEPTION_THROWN(channel->read(&word, 0x1000, 4), GenICam_3_0::AccessException);
        }
        // The first of these is a success with a byte too few.
        for (int failure : {0, int(Gvcp::InvalidAddress)}) {
            status = failure;
            QVERIFY_EXCEPTION_THROWN(channel->read(&word, 0x1000, 4), GenICam_3_0::RuntimeException);
        }
    }

    void silence()
    {
        GvcpResponder responder(beyondBootstrap([](const Command &command) {
            // None of these is the answer: it is of another command, for another request, or no packet at all.
            return Packets{acknowledge(0x81, command.id, Packet(8)), acknowledge(0x85, command.id ^ 0x4000, Packet(8)),
                           Packet{1}};
        }));
        const auto channel = open(responder);
        std::uint32_t word = 0;
        QVERIFY_EXCEPTION_THROWN(channel->read(&word, 0x1000, 4), GenICam_3_0::TimeoutException);
        const auto commands = responder.takeCommands();
        QCOMPARE(commands.size(), std::size_t(3));
        for (const Command &again : commands)
            QCOMPARE(again.packet, commands[0].packet);
        QVERIFY(channel->isAlive());
    }

    void pending()
    {
        // The camera asks for a second, and is not asked again in that second.
        GvcpResponder responder(beyondBootstrap([asked = 0](const Command &command) mutable {
            return ++asked == 1 ? Packets{acknowledge(0x89, command.id, {0, 0, 0x03, 0xe8})}
                                : Packets{acknowledge(0x87, command.id, Packet(4))};
        }));
        const auto channel = open(responder);
        const auto start = std::chrono::steady_clock::now();
        channel->write("abcd", 0x1000, 4);
        QVERIFY(std::chrono::steady_clock::now() - start >= std::chrono::seconds(1));
        QCOMPARE(taken(responder), QByteArray("86@1000+4 86@1000+4"));

        // One that never stops asking is given up, without another try.
        GvcpResponder endless(beyondBootstrap([](const Command &command) {
            return Packets(100, acknowledge(0x89, command.id, {0, 0, 0xff, 0xff}));
        }));
        const auto slow = open(endless);
        QVERIFY_EXCEPTION_THROWN(slow->write("abcd", 0x1000, 4), GenICam_3_0::TimeoutException);
        QCOMPARE(taken(endless), QByteArray("86@1000+4"));
    }

    void control()
    {
        GvcpResponder responder;
        const auto privilege = [&] { return int(responder.bytes(Gvcp::ControlChannelPrivilege, 4)[3]); };
        responder.setPrivilege(1);
        QVERIFY_EXCEPTION_THROWN(open(responder), GenICam_3_0::AccessException);
        QCOMPARE(taken(responder), QByteArray("80@a00+0"));

        responder.setPrivilege(0);
        auto channel = open(responder);
        QCOMPARE(privilege(), 2);
        QCOMPARE(channel->alivePeriod().count(), 500);
        QVERIFY(channel->isAlive());
        // A camera that was restarted answers, but not to this channel.
        responder.setPrivilege(0);
        QVERIFY(!channel->isAlive());

        responder.setPrivilege(2);
        channel.reset();
        QCOMPARE(privilege(), 0);
    }

    void descriptions_data()
    {
        columns<QByteArray, QByteArray, QByteArray>("urls", "memory", "description"); // null: it fails
        const QByteArray xml = "<RegisterDescription>" + QByteArray(40, 'x') + "</RegisterDescription>";
        const QByteArray zip = QByteArray::fromHex(
            "504b03041400000008000000215c181ef8431e0000005300000005000000642e786d6cb3094a4dcf2c2e492d72492d4e2eca2c28c9"
            "cccfb3ab2012d8e863d30d00504b010214031400000008000000215c181ef8431e0000005300000005000000000000000000000080"
            "0100000000642e786d6c504b0506000000000100010033000000410000000000");
        const auto changed = [&](int at, const char *bytes) { return QByteArray(zip).replace(at, 4, bytes, 4); };
        const QByteArray none;
        row("schema, blanks, other case", "LOCAL:a b.xml; 2000; 60 ?SchemaVersion=1.1.0", xml, xml);
        row("in the second place", "File:a.xml|Local:a.xml;2000;53", xml, xml);
        row("archive, padded", "Local:a.zip;2000;9a", zip, xml);
        row("archive, directory elsewhere", "Local:a.zip;2000;8a", changed(0x84, "\xff\xff\xff\xff"), none);
        row("archive, file elsewhere", "Local:a.zip;2000;8a", changed(0x6b, "\x80\0\0\0"), none);
        row("archive, long name", "Local:a.zip;2000;8a", changed(0x1a, "\xff\xff\0\0"), none);
        row("archive, packed beyond the end", "Local:a.zip;2000;8a", changed(0x55, "\xff\xff\xff\xff"), none);
        row("archive, unpacked too long", "Local:a.zip;2000;8a", changed(0x59, "\1\0\0\1"), none);
        row("archive, more inside than it says", "Local:a.zip;2000;8a", changed(0x59, "\x52\0\0\0"), none);
        row("archive cut short", "Local:a.zip;2000;40", zip.left(0x40), none);
        row("no length", "Local:a.xml;2000", xml, none);
        row("number too large", "Local:a.xml;12345678901234567;10", xml, none);
    }
    void descriptions()
    {
        QFETCH(QByteArray, urls);
        QFETCH(QByteArray, memory);
        QFETCH(QByteArray, description);
        GvcpResponder responder;
        responder.setBytes(Gvcp::FirstDescriptionUrl, urls.split('|').first().toStdString());
        responder.setBytes(Gvcp::SecondDescriptionUrl, urls.split('|').mid(1).join().toStdString());
        responder.setBytes(0x2000, memory.toStdString());
        const auto channel = open(responder);
        if (description.isNull())
            QVERIFY_EXCEPTION_THROWN(channel->description(), GenICam_3_0::RuntimeException);
        else
            QCOMPARE(QByteArray::fromStdString(channel->description()), description);
    }
};

QTEST_GUILESS_MAIN(TestGvcpChannel)
#include "tst_gvcpchannel.moc"
