#include "datarow.h"
#include "selectorscene.h"
#include "testmain.h"

#include <QPointer>

using namespace MoxTest;
using Change = std::function<void(Scene &)>;
using Rows = QList<int>;
Q_DECLARE_METATYPE(Change)

constexpr int noBracket = -1; // the bracket behind the interface's type

class TestInfoPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gigEVision_data()
    {
        columns<Change, Rows>("change", "missing"); // of the two panels' rows one after the other, the last one first
        const auto add = [](const char *name, const Rows &missing, const Change &change) {
            row(name, change, missing);
        };
        const auto refused = [&](const char *name, const Rows &missing) {
            add(name, missing, [name](Scene &s) { s.gigeParams.refused = name; });
        };
        add("everything", {}, [](Scene &) {});
        refused("GevDeviceMACAddress", {7});
        refused("GevInterfaceMACAddress", {14});
        refused("GevInterfaceSubnetIPAddress", {15});
        refused("GevInterfaceSubnetMask", {16});
        refused("GevInterfaceTransport", {noBracket});
        refused("DeviceSelector", {10, 9, 8, 7});
        add("IP address", {8}, [](Scene &s) { s.g2->refusedAddress = &s.g2->ipAddress; });
        add("netmask", {9}, [](Scene &s) { s.g2->refusedAddress = &s.g2->netmask; });
        add("gateway", {10}, [](Scene &s) { s.g2->refusedAddress = &s.g2->gateway; });
        const Rows network{noBracket, 16, 15, 14, 10, 9, 8, 7};
        add("parameters", network, [](Scene &s) { s.gige->parametersError = -1; });
        add("null parameters", network, [](Scene &s) { s.gige->parameters = nullptr; });
    }

    void gigEVision()
    {
        QStringList rows =
            "Display name: Camera|Vendor: Maker|Model: |Serial number: 0001|Version: 1.0|"
            "User name: Küche|Access status: ReadWrite|MAC Address: 0A:00:00:00:00:FF|"
            "IP Address: 192.168.1.10|Netmask: 255.255.255.0|Gateway: 0.0.0.0|"
            "Description: Adapter|Type: GigE Vision [Socket]|Version: 2.0|"
            "MAC Address: 00:1A:2B:3C:4D:5E|IP Address: 192.168.1.128|Netmask: 255.255.255.0"_s.split(QLatin1Char('|'));
        QFETCH(Change, change);
        QFETCH(Rows, missing);
        for (int row : missing)
            row == noBracket ? static_cast<void>(rows[12] = "Type: GigE Vision"_s) : rows.removeAt(row);

        Scene scene;
        scene.g2->userName = "Küche";
        scene.g2->modelName = std::nullopt;
        change(scene);
        scene.select("g2"_s);
        QCOMPARE(Scene::texts(scene.devicePanel) + Scene::texts(scene.interfacePanel), rows);
        if (missing.isEmpty())
            QCOMPARE(scene.gigeParams.calls.join(QLatin1Char(' ')),
                     "DeviceSelector=1 GevDeviceMACAddress GevInterfaceTransport GevInterfaceMACAddress "
                     "GevInterfaceSubnetIPAddress GevInterfaceSubnetMask"_s);
    }

    void statusAndTransport()
    {
        const std::map<int, QString> status = {
            {1, "ReadWrite"_s}, {2, "ReadOnly"_s}, {3, "NO ACCESS"_s}, {1001, "IP Subnet Mismatch"_s}};
        const std::map<int, QString> transport = {
            {1, "USB3 Vision"_s}, {2, "GigE Vision"_s}, {3, "CameraLink"_s}, {4, "CoaXPress"_s}, {5, "HD-SDI"_s}};
        for (int code : {0, 1, 2, 3, 4, 5, 6, 1001}) {
            Scene scene;
            scene.u1->accessStatus = code;
            scene.usb->type = code;
            scene.select("u1"_s);
            const QModelIndex item = Scene::value(scene.devicePanel, "Access status"_s);
            const bool bad = code == 3 || code == 1001;
            QCOMPARE(item.data().toString(), status.count(code) ? status.at(code) : "Unknown"_s);
            QCOMPARE(item.data(Qt::BackgroundRole), bad ? QVariant(QBrush(Qt::red)) : QVariant());
            QCOMPARE(scene.ok->isEnabled(), !bad);
            QCOMPARE(scene.setIp->isEnabled(), code == 2);
            QCOMPARE(Scene::value(scene.interfacePanel, "Type"_s).data().toString(),
                     transport.count(code) ? transport.at(code) : "Custom"_s);
            QCOMPARE(scene.interfacePanel->model()->rowCount(), 3);
            // A refill alone enables Ok, whatever the status.
            scene.ok->setEnabled(false);
            scene.d->FillInfo(scene.tree->currentIndex());
            QVERIFY(scene.ok->isEnabled());
        }
    }

    void usbVersion_data()
    {
        columns<Change, QString, bool>("change", "text", "red"); // without a text there is no row
        const auto version = [](std::int64_t value, const char *text, bool red) {
            const Change change = [=](Scene &s) { s.usbParams.numbers["DeviceUSBVersionDetected"] = {7, value}; };
            row(text, change, QString::fromLatin1(text), red);
        };
        version(0x02FF, "0x02ff", true);
        version(0x0300, "0x0300", false);
        version(0x1ABCD, "0x1abcd", false);
        version(1, "0x0001", true);
        version(0, "", false);
        const auto none = [](const char *name, const Change &change) { row(name, change, QString(), false); };
        none("no parameters", [](Scene &s) { s.usb->parameters = nullptr; });
        none("no such parameter", [](Scene &s) { s.usbParams.numbers.erase("DeviceUSBVersionDetected"); });
        none("camera not selected", [](Scene &s) { s.usbParams.refused = "DeviceSelector"; });
        const Change refused = [](Scene &s) { s.usbParams.refused = "DeviceUSBVersionDetected"; };
        row("value counts, not the result", refused, "0x0210"_s, true);
    }

    void usbVersion()
    {
        Scene scene;
        QFETCH(Change, change);
        QFETCH(QString, text);
        QFETCH(bool, red);
        change(scene);
        scene.select("u2"_s);
        const QModelIndex item = Scene::value(scene.devicePanel, "USB Version"_s);
        QCOMPARE(item.data().toString(), text);
        QCOMPARE(item.data(Qt::ForegroundRole), red ? QVariant(QBrush(Qt::red)) : QVariant());
        QCOMPARE(item.row(), text.isEmpty() ? -1 : 6);
    }

    // What is retired lives until control is back in the event loop, as the signal of a view may be on the stack.
    void replacing()
    {
        Scene scene;
        scene.select("g1"_s);
        const QPointer<QAbstractItemModel> device = scene.devicePanel->model();
        const QPointer<QAbstractItemModel> interface = scene.interfacePanel->model();
        QObject::connect(scene.devicePanel, &QTreeView::expanded, scene.dialog.get(), [&] {
            scene.select("u1"_s);
            scene.select("g2"_s);
        });
        Q_EMIT scene.devicePanel->expanded(device->index(0, 0));
        QVERIFY(device && interface);
        QTRY_COMPARE(scene.dialog->findChildren<QStandardItemModel *>().size(), 2);
        QVERIFY(!device && !interface);
        QCOMPARE(Scene::value(scene.devicePanel, "MAC Address"_s).data().toString(), "0A:00:00:00:00:FF"_s);

        scene.select("U"_s);
        QVERIFY(scene.devicePanel->model());
        QTRY_VERIFY(!scene.devicePanel->model());
        QCOMPARE(Scene::texts(scene.interfacePanel).first(), "Description: Host"_s);
        QVERIFY(!scene.ok->isEnabled() && !scene.setIp->isEnabled());

        scene.select("g1"_s);
        scene.d->rescan();
        scene.d->FillInfo(QModelIndex()); // twice is no harm
        QTRY_VERIFY(!scene.devicePanel->model() && !scene.interfacePanel->model());
        QVERIFY(scene.dialog->findChildren<QStandardItemModel *>().isEmpty());
    }

    void widths()
    {
        Scene scene;
        scene.select("g1"_s);
        const auto widths = [&] {
            return qMakePair(scene.devicePanel->columnWidth(0), scene.interfacePanel->columnWidth(0));
        };
        // The boundary in the middle at first.
        QCOMPARE(widths(),
                 qMakePair(scene.devicePanel->viewport()->width() / 2, scene.interfacePanel->viewport()->width() / 2));
        scene.devicePanel->setColumnWidth(0, 77);
        scene.interfacePanel->setColumnWidth(0, 88);
        scene.select("u1"_s);
        QCOMPARE(widths(), qMakePair(77, 88));
        scene.select("G"_s);
        QTRY_VERIFY(!scene.devicePanel->model());
        scene.interfacePanel->setColumnWidth(0, 99);
        scene.d->rescan();
        QTRY_VERIFY(!scene.interfacePanel->model());
        scene.d->rescan(); // a panel without a model has no width to remember
        scene.select("g2"_s);
        QCOMPARE(widths(), qMakePair(77, 99));
        // Both panels have handles in their bodies.
        for (const QTreeView *panel : {scene.devicePanel, scene.interfacePanel}) {
            const QRect cell = panel->visualRect(panel->model()->index(1, 0));
            QTest::mouseMove(panel->viewport(), QPoint(cell.right(), cell.center().y()));
            QTRY_COMPARE(panel->viewport()->cursor().shape(), Qt::SplitHCursor);
        }
    }
};

MOX_TEST_MAIN(TestInfoPanels)
#include "tst_infopanels.moc"
