// The rule of dotted addresses, and the two dialogs whose fields follow it.
#include "connectbyipdialog.h"
#include "ip4validator.h"
#include "setipdialog.h"
#include "testmain.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include <random>

namespace {

/** The rule once more, said by patterns: four numbers from 0 to 255, however they are written, or gaps, or nothing. */
QValidator::State rule(const QString &text)
{
    static const QString number = QStringLiteral("\\s*(\\+?0*(\\d|[1-9]\\d|1\\d\\d|2[0-4]\\d|25[0-5])|-0+)\\s*");
    static const QRegularExpression complete(QStringLiteral("\\A((%1)(\\.(%1)){3})?\\z").arg(number));
    static const QRegularExpression partial(QStringLiteral("\\A(%1|\\s*)(\\.(%1|\\s*)){0,3}\\z").arg(number));
    if (complete.match(text).hasMatch())
        return QValidator::Acceptable;
    return partial.match(text).hasMatch() ? QValidator::Intermediate : QValidator::Invalid;
}

QLineEdit *field(const QDialog &dialog, const char *name)
{
    return dialog.findChild<QLineEdit *>(QLatin1String(name) + QStringLiteral("LineEdit"));
}

QPushButton *okOf(const QDialog &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

} // namespace

class TestIpDialogs : public QObject
{
    Q_OBJECT

private:
    std::mt19937 random{20240531};

    int below(int limit) { return std::uniform_int_distribution<>(0, limit - 1)(random); }
    QString randomText(int length)
    {
        // Mostly what addresses are made of, so that the verdicts are mixed.
        static const QString alphabet = QStringLiteral("01234567890125250123....... -+aä２相");
        QString text;
        while (length-- > 0)
            text += alphabet.at(below(alphabet.size()));
        return text;
    }
    /** Types, pastes or deletes at random; the field takes an edit exactly when the rule calls its outcome possible. */
    bool edit(QLineEdit *line)
    {
        const QString before = line->text();
        const int at = below(before.size() + 1);
        QString wanted = before;
        line->setCursorPosition(at);
        if (const int way = below(3); way < 2) {
            const QString text = randomText(way == 0 ? 1 : 1 + below(5));
            wanted.insert(at, text);
            QApplication::clipboard()->setText(text);
            way == 0 ? line->insert(text) : line->paste();
        } else if (at < before.size()) {
            const int length = 1 + below(before.size() - at);
            wanted.remove(at, length);
            line->setSelection(at, length);
            line->del();
        }
        const bool possible = rule(wanted) != QValidator::Invalid;
        refused += !possible;
        return line->text() == (possible ? wanted : before);
    }
    int refused = 0;

private Q_SLOTS:
    void validator()
    {
        const IP4Validator validator(nullptr);
        const auto stateOf = [&](const QString &text) {
            QString input = text;
            int pos = 1;
            const QValidator::State state = validator.validate(input, pos);
            return input == text && pos == 1 ? int(state) : -1;
        };
        const std::map<QValidator::State, std::vector<const char *>> table = {
            {QValidator::Acceptable, {"", "192.168.1.5", "0.0.0.0", "255.255.255.255", "1.2.3. 4", "+1.-0.007.4"}},
            {QValidator::Intermediate, {"192.168.1.", "1..2.3", "...", ".", " ", "7", "255.255", "1.2.3. ", " .2.3.4"}},
            {QValidator::Invalid,
             {"192.168.1.256", "1.2.3.4.5", "a.1", "....", "-1", "1.2.3.0x4", "1 2.3.4.5", "1,2", "99999999999.1"}}};
        for (const auto &[state, texts] : table) {
            for (const char *text : texts)
                QVERIFY2(stateOf(QString::fromLatin1(text)) == state && rule(QString::fromLatin1(text)) == state, text);
        }
        for (int i = 0; i < 20000; ++i) {
            const QString text = randomText(below(15));
            QVERIFY2(stateOf(text) == rule(text), qPrintable(text));
        }
    }

    void conversion()
    {
        const std::pair<const char *, quint32> table[] = {{"192.168.1.5", 0xC0A80105},
                                                          {"255.255.255.255", 0xFFFFFFFF},
                                                          {"", 0},
                                                          {"1.2.3", 66051},
                                                          {"1.2.3.4.5", 0x02030405},
                                                          {"1.2.4.257", 0x01020501},
                                                          {"a.-1..7", 0x07},
                                                          {" 1.2 . 3.4", 0x01020304}};
        for (const auto &[text, address] : table)
            QCOMPARE(IP4Validator::getIp(QString::fromLatin1(text)), address);
        QCOMPARE(IP4Validator::getIpStr(0xFF000A80), QStringLiteral("255.0.10.128"));
        for (int i = 0; i < 1000; ++i) {
            const quint32 address = random();
            QCOMPARE(IP4Validator::getIp(IP4Validator::getIpStr(address)), address);
        }
    }

    void verdict_data()
    {
        QTest::addColumn<QStringList>("addresses"); // adapter's and its mask, camera's and its mask
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const char *addresses, const char *text) {
            QTest::newRow(name) << QString::fromLatin1(addresses).split(QLatin1Char(' ')) << QString::fromLatin1(text);
        };
        const char *ok = "IP Configuration OK";
        const char *wrongMask = "Subnet mask mismatch!";
        const char *wrongIp = "Incorrect IP address!";
        const char *wrongNet = "Subnet IP mismatch!";
        row("lowest host", "192.168.1.128 255.255.255.0 192.168.1.0 255.255.255.0", ok);
        row("highest host", "192.168.1.128 255.255.255.0 192.168.1.255 255.255.255.0", ok);
        row("first byte 0", "0.1.2.4 255.0.0.0 0.1.2.3 255.0.0.0", wrongIp);
        row("first byte 1", "1.1.2.4 255.0.0.0 1.0.0.0 255.0.0.0", ok);
        row("first byte 255", "255.1.2.4 255.0.0.0 255.255.255.255 255.0.0.0", ok);
        row("other mask, adapter's own", "192.168.1.128 255.255.255.0 192.168.1.128 255.255.0.0", wrongMask);
        row("no mask, far address", "192.168.1.128 0.0.0.0 10.0.0.1 0.0.0.0", ok);
        row("no mask, first byte 0", "192.168.1.128 0.0.0.0 0.0.0.1 0.0.0.0", wrongIp);
        row("full mask", "192.168.1.128 255.255.255.255 192.168.1.129 255.255.255.255", wrongNet);
        row("full mask, adapter's own", "192.168.1.128 255.255.255.255 192.168.1.128 255.255.255.255", wrongIp);
        row("0x80 and 0x81 apart", "192.168.1.128 255.255.255.129 192.168.1.129 255.255.255.129", wrongNet);
        row("0x80 and 0x81 together", "192.168.1.128 255.255.255.128 192.168.1.129 255.255.255.128", ok);
    }

    void verdict()
    {
        SetIpDialog dialog(nullptr);
        const auto *status = dialog.findChild<QLabel *>(QStringLiteral("ipStatusLabel"));
        QFETCH(QStringList, addresses);
        QFETCH(QString, text);
        // None of these three is connected.
        dialog.setGateway(0x0A0B0C0D);
        dialog.setNicIPAddress(IP4Validator::getIp(addresses[0]));
        dialog.setNicNetmask(IP4Validator::getIp(addresses[1]));
        QCOMPARE(status->text(), QStringLiteral("TextLabel"));
        QVERIFY(!dialog.isConfigurationOk());
        const bool ok = text.endsWith(QLatin1String("OK"));
        // Each of the two fields brings the verdict with its own change.
        for (const char *last : {"ipAddress", "subnetMask"}) {
            field(dialog, last)->setText(QStringLiteral("9"));
            field(dialog, "ipAddress")->setText(addresses[2]);
            field(dialog, "subnetMask")->setText(addresses[3]);
            QCOMPARE(status->text(), text);
            QCOMPARE(status->styleSheet(),
                     ok ? QStringLiteral("color: rgb(0, 192, 0);") : QStringLiteral("color: rgb(255, 0, 0);"));
            QCOMPARE(dialog.isConfigurationOk(), ok);
            QVERIFY(okOf(dialog)->isEnabled());
        }
    }

    void fields()
    {
        SetIpDialog dialog(nullptr);
        dialog.setMACAddress(0xFFFF001A2B3C4D5Eull);
        dialog.setNicMACAddress(0x0Aull);
        dialog.setIPAddress(0xC0A80105);
        dialog.setNetmask(0xFFFFFF00);
        dialog.setGateway(0xFFFFFFFF);
        QCOMPARE(field(dialog, "macAddress")->text(), QStringLiteral("00:1A:2B:3C:4D:5E"));
        QCOMPARE(field(dialog, "nicMac")->text(), QStringLiteral("00:00:00:00:00:0A"));
        QCOMPARE(dialog.ipAddress(), 0xC0A80105u);
        QCOMPARE(dialog.Netmask(), 0xFFFFFF00u);
        QCOMPARE(dialog.Gateway(), 0xFFFFFFFFu);
        const QPalette own = dialog.palette();
        for (const QLineEdit *edit : dialog.findChildren<QLineEdit *>()) {
            QCOMPARE(edit->isReadOnly(), !edit->validator());
            QCOMPARE(edit->palette().brush(QPalette::Active, QPalette::Base),
                     QBrush(own.color(edit->isReadOnly() ? QPalette::Disabled : QPalette::Active, QPalette::Base)));
        }

        // At every show the host part is ready to be replaced.
        for (int show = 0; show < 2; ++show) {
            dialog.show();
            QCOMPARE(dialog.focusWidget(), field(dialog, "ipAddress"));
            QCOMPARE(field(dialog, "ipAddress")->selectedText(), show ? QStringLiteral("77") : QStringLiteral("5"));
            QTest::keyClicks(dialog.focusWidget(), QStringLiteral("77.x"));
            QCOMPARE(field(dialog, "ipAddress")->text(), QStringLiteral("192.168.1.77"));
            field(dialog, "defaultGateway")->setFocus();
            dialog.hide();
        }
    }

    void connectByIp()
    {
        ConnectByIpDialog dialog(nullptr);
        QVERIFY(okOf(dialog)->isEnabled()); // also with nothing in the field
        dialog.setIPAddress(QStringLiteral("nonsense")); // stored by hand: shown, but not to be accepted
        QCOMPARE(dialog.ipAddress(), QStringLiteral("nonsense"));
        QVERIFY(!okOf(dialog)->isEnabled());
    }

    // Whatever is typed and pasted, what the dialogs say agrees with what their fields hold.
    void randomEdits()
    {
        SetIpDialog setIp(nullptr);
        ConnectByIpDialog connectByIp(nullptr);
        setIp.setNicIPAddress(0xC0A80180);
        setIp.setNicNetmask(0xFFFFFF00);
        const auto *status = setIp.findChild<QLabel *>(QStringLiteral("ipStatusLabel"));
        std::map<QString, int> verdicts;
        for (int i = 0; i < 6000; ++i) {
            if (i % 25 == 0) {
                setIp.setNetmask(i % 100 ? 0xFFFFFF00 : 0);
                setIp.setIPAddress(i % 50 ? 0xC0A80180 : 0xC0A80119);
                connectByIp.setIPAddress(i % 50 ? QStringLiteral("192.168.1.25") : QString());
            }
            QVERIFY(edit(field(connectByIp, "ipAddress")));
            QCOMPARE(okOf(connectByIp)->isEnabled(), rule(connectByIp.ipAddress()) == QValidator::Acceptable);
            const char *const names[] = {"ipAddress", "ipAddress", "subnetMask", "defaultGateway"};
            QVERIFY(edit(field(setIp, names[below(4)])));
            const quint32 ip = setIp.ipAddress();
            const bool sameNet = (ip & setIp.Netmask()) == 0xC0A80100;
            const char *expected = setIp.Netmask() != 0xFFFFFF00   ? "Subnet mask mismatch!"
                : !sameNet                                         ? "Subnet IP mismatch!"
                : ip == 0xC0A80180 /* whose first byte is not 0 */ ? "Incorrect IP address!"
                                                                   : "IP Configuration OK";
            QCOMPARE(status->text(), QLatin1String(expected));
            QCOMPARE(setIp.isConfigurationOk(), status->text().endsWith(QLatin1String("OK")));
            QVERIFY(okOf(setIp)->isEnabled());
            ++verdicts[status->text()];
        }
        QCOMPARE(verdicts.size(), std::size_t(4));
        QVERIFY(refused > 1000 && refused < 11000);
    }
};

MOX_TEST_MAIN(TestIpDialogs)
#include "tst_ipdialogs.moc"
