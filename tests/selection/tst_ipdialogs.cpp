#include "connectbyipdialog.h"
#include "ip4validator.h"
#include "setipdialog.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class TestIpDialogs : public QObject
{
    Q_OBJECT

private:
    static QLineEdit *field(const QDialog &dialog, const char *name)
    {
        return dialog.findChild<QLineEdit *>(QLatin1String(name) + QStringLiteral("LineEdit"));
    }

private Q_SLOTS:
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
        row("neighbour", "192.168.1.128 255.255.255.0 192.168.1.129 255.255.255.0", ok);
        row("lowest host", "192.168.1.128 255.255.255.0 192.168.1.0 255.255.255.0", ok);
        row("highest host", "192.168.1.128 255.255.255.0 192.168.1.255 255.255.255.0", ok);
        row("adapter's own", "192.168.1.128 255.255.255.0 192.168.1.128 255.255.255.0", wrongIp);
        row("first byte 0", "0.1.2.4 255.0.0.0 0.1.2.3 255.0.0.0", wrongIp);
        row("first byte 1", "1.1.2.4 255.0.0.0 1.0.0.0 255.0.0.0", ok);
        row("first byte 255", "255.1.2.4 255.0.0.0 255.255.255.255 255.0.0.0", ok);
        row("next net", "192.168.1.128 255.255.255.0 192.168.2.1 255.255.255.0", wrongNet);
        row("other mask, same net", "192.168.1.128 255.255.255.0 192.168.1.129 255.255.255.128", wrongMask);
        row("other mask, adapter's own", "192.168.1.128 255.255.255.0 192.168.1.128 255.255.0.0", wrongMask);
        row("other mask, other net", "192.168.1.128 255.255.255.0 10.0.0.1 255.0.0.0", wrongMask);
        row("no mask, far address", "192.168.1.128 0.0.0.0 10.0.0.1 0.0.0.0", ok);
        row("no mask, first byte 0", "192.168.1.128 0.0.0.0 0.0.0.1 0.0.0.0", wrongIp);
        row("full mask", "192.168.1.128 255.255.255.255 192.168.1.129 255.255.255.255", wrongNet);
        row("full mask, adapter's own", "192.168.1.128 255.255.255.255 192.168.1.128 255.255.255.255", wrongIp);
        row("0x80 and 0x81 apart", "192.168.1.128 255.255.255.129 192.168.1.129 255.255.255.129", wrongNet);
        row("0x80 and 0x81 together", "192.168.1.128 255.255.255.128 192.168.1.129 255.255.255.128", ok);
        row("empty address", "192.168.1.128 255.255.255.0  255.255.255.0", wrongNet);
        row("half typed", "192.168.1.128 255.255.255.0 192.168.1. 255.255.255.", ok);
    }

    void verdict()
    {
        SetIpDialog dialog(nullptr);
        const auto *status = dialog.findChild<QLabel *>(QStringLiteral("ipStatusLabel"));
        QFETCH(QStringList, addresses);
        QFETCH(QString, text);
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
            dialog.setGateway(0x0A0B0C0D); // takes no part
            QCOMPARE(status->text(), text);
            QCOMPARE(status->styleSheet(),
                     ok ? QStringLiteral("color: rgb(0, 192, 0);") : QStringLiteral("color: rgb(255, 0, 0);"));
            QCOMPARE(dialog.isConfigurationOk(), ok);
            QVERIFY(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
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
        const auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QVERIFY(ok->isEnabled()); // also with nothing in the field
        QTest::keyClicks(field(dialog, "ipAddress"), QStringLiteral("10.0.0."));
        QVERIFY(!ok->isEnabled());
        QTest::keyClicks(field(dialog, "ipAddress"), QStringLiteral("256"));
        QCOMPARE(dialog.ipAddress(), QStringLiteral("10.0.0.25"));
        QVERIFY(ok->isEnabled());
        dialog.setIPAddress(QStringLiteral("nonsense")); // stored by hand: shown, but not to be accepted
        QCOMPARE(dialog.ipAddress(), QStringLiteral("nonsense"));
        QVERIFY(!ok->isEnabled());
        dialog.setIPAddress(QString());
        QVERIFY(ok->isEnabled());
    }
};

MOX_TEST_MAIN(TestIpDialogs)
#include "tst_ipdialogs.moc"
