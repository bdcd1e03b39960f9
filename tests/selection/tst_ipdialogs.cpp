// The rule of dotted addresses, and the two dialogs whose fields follow it.
#include "connectbyipdialog.h"
#include "datarow.h"
#include "ip4validator.h"
#include "setipdialog.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace MoxTest;

static QLineEdit *field(const QDialog &dialog, const char *name)
{
    return dialog.findChild<QLineEdit *>(QLatin1String(name) + QStringLiteral("LineEdit"));
}

static QPushButton *okOf(const QDialog &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

class TestIpDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void validator()
    {
        const IP4Validator validator(nullptr);
        const std::map<QValidator::State, std::vector<const char *>> table = {
            {QValidator::Acceptable, {"", "192.168.1.5", "0.0.0.0", "255.255.255.255", "1.2.3. 4", "+1.-0.007.4"}},
            {QValidator::Intermediate, {"192.168.1.", "1..2.3", "...", ".", " ", "7", "255.255", "1.2.3. ", " .2.3.4"}},
            {QValidator::Invalid,
             {"192.168.1.256", "1.2.3.4.5", "a.1", "....", "-1", "1.2.3.0x4", "1 2.3.4.5", "1,2", "99999999999.1"}}};
        for (const auto &[state, texts] : table) {
            for (const char *text : texts) {
                QString input = QString::fromLatin1(text);
                int pos = 1;
                QVERIFY2(validator.validate(input, pos) == state, text);
                QVERIFY2(input == QLatin1String(text) && pos == 1, text);
            }
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
    }

    void verdict_data()
    {
        columns<QByteArray, QByteArray>("addresses", "text"); // adapter's and its mask, camera's and its mask
        const char *ok = "IP Configuration OK";
        const char *wrongMask = "Subnet mask mismatch!";
        const char *wrongIp = "Incorrect IP address!";
        const char *wrongNet = "Subnet IP mismatch!";
        row("highest host", "192.168.1.128 255.255.255.0 192.168.1.255 255.255.255.0", ok);
        row("first byte 0", "0.1.2.4 255.0.0.0 0.1.2.3 255.0.0.0", wrongIp);
        row("first byte 1", "1.1.2.4 255.0.0.0 1.0.0.0 255.0.0.0", ok);
        row("other mask, adapter's own", "192.168.1.128 255.255.255.0 192.168.1.128 255.255.0.0", wrongMask);
        row("no mask, far address", "192.168.1.128 0.0.0.0 10.0.0.1 0.0.0.0", ok);
        row("full mask", "192.168.1.128 255.255.255.255 192.168.1.129 255.255.255.255", wrongNet);
        row("full mask, adapter's own", "192.168.1.128 255.255.255.255 192.168.1.128 255.255.255.255", wrongIp);
        row("0x80 and 0x81 apart", "192.168.1.128 255.255.255.129 192.168.1.129 255.255.255.129", wrongNet);
        row("0x80 and 0x81 together", "192.168.1.128 255.255.255.128 192.168.1.129 255.255.255.128", ok);
    }

    void verdict()
    {
        QFETCH(QByteArray, addresses);
        QFETCH(QByteArray, text);
        const QStringList given = QString::fromLatin1(addresses).split(QLatin1Char(' '));
        SetIpDialog dialog(nullptr);
        const auto *status = dialog.findChild<QLabel *>(QStringLiteral("ipStatusLabel"));
        // None of these three is connected.
        dialog.setGateway(0x0A0B0C0D);
        dialog.setNicIPAddress(IP4Validator::getIp(given[0]));
        dialog.setNicNetmask(IP4Validator::getIp(given[1]));
        QCOMPARE(status->text(), QStringLiteral("TextLabel"));
        QVERIFY(!dialog.isConfigurationOk());
        const bool ok = text.endsWith("OK");
        field(dialog, "ipAddress")->setText(given[2]);
        field(dialog, "subnetMask")->setText(given[3]);
        // Each of the two fields brings the verdict with its own change.
        for (const char *changed : {"ipAddress", "subnetMask"}) {
            const QString whole = field(dialog, changed)->text();
            field(dialog, changed)->setText(QStringLiteral("9"));
            QVERIFY(!dialog.isConfigurationOk());
            field(dialog, changed)->setText(whole);
            QCOMPARE(status->text(), QString::fromLatin1(text));
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
        dialog.setIPAddress(0xC0A80105);
        QCOMPARE(field(dialog, "macAddress")->text(), QStringLiteral("00:1A:2B:3C:4D:5E"));
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
        field(dialog, "ipAddress")->clear();
        QTest::keyClicks(field(dialog, "ipAddress"), QStringLiteral("1.2.3x.256"));
        QCOMPARE(dialog.ipAddress(), QStringLiteral("1.2.3.25"));
        QVERIFY(okOf(dialog)->isEnabled());
    }
};

MOX_TEST_MAIN(TestIpDialogs)
#include "tst_ipdialogs.moc"
