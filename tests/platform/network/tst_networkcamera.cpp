// The whole way to a camera of another maker: the camera program of Aravis on the loopback adapter.
#include "../../../platform/device/deviceinfo.h"
#include "../../../platform/genapi/nodemapfactory.h"
#include "../../../platform/network/networkbackend.h"
#include "cameraprogram.h"

#include <QTest>

#include <algorithm>
#include <cstring>

using namespace MoxSdk;

class TestNetworkCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opened()
    {
        if (!MoxTest::CameraProgram::isInstalled())
            QSKIP("The camera program of aravis-tools is not installed");
        MoxTest::CameraProgram program(QStringLiteral("MOX-TEST-1"));
        QVERIFY(program.start(QStringLiteral(MOX_FRAMEAB_DESCRIPTION)));
        const auto backend = createNetworkBackend();
        const auto interfaces = backend->interfaces();
        QCOMPARE(interfaces, backend->interfaces());
        QCOMPARE(interfaces.back()->GetID(), "U3V::USB");
        const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                        [](Interface *one) { return std::strcmp(one->GetID(), "GEV::lo") == 0; });
        QVERIFY(found != interfaces.end());
        const auto camera = [&]() -> DeviceInfo * {
            (*found)->ReDiscoverDevices(nullptr, 200);
            for (std::size_t i = 0; i < (*found)->deviceCount(); ++i) {
                if (std::strcmp((*found)->listedDevice(i)->GetSerialNumber(), "MOX-TEST-1") == 0)
                    return (*found)->listedDevice(i);
            }
            return nullptr;
        };
        QTRY_VERIFY_WITH_TIMEOUT(camera(), 20000);
        QCOMPARE(camera()->GetID(), "Aravis-Fake-MOX-TEST-1-127.0.0.1");
        QTRY_COMPARE(camera()->GetAccessStatus(), int(MoxCam::AccessReadWrite));

        DeviceRecord record = camera()->record();
        auto link = (*found)->openLink(record);
        QTRY_COMPARE(camera()->GetAccessStatus(), int(MoxCam::AccessNoAccess));
        QVERIFY_EXCEPTION_THROWN((*found)->openLink(record), GenICam::AccessException);
        {
            const auto nodeMap = MoxGenApi::createNodeMap(link->description(), link->port(), "camera");
            const GenApi::CEnumerationPtr frame = nodeMap->GetNode("FrameAB_Selector");
            const GenApi::CIntegerPtr lineTime = nodeMap->GetNode("Frame_LineTime");
            // Each frame has registers of its own; the program's memory starts out as zeros there.
            frame->FromString("FrameB");
            lineTime->SetValue(4321);
            QCOMPARE(lineTime->GetValue(false, true), std::int64_t(4321));
            frame->FromString("FrameA");
            QCOMPARE(lineTime->GetValue(), std::int64_t(0));
        }
        link.reset();
        QTRY_COMPARE(camera()->GetAccessStatus(), int(MoxCam::AccessReadWrite));
        QVERIFY((*found)->openLink(record));
        record.ipAddress = 0xcb007107;
        QVERIFY_EXCEPTION_THROWN((*found)->openLink(record), GenICam::RuntimeException);
    }
};

QTEST_GUILESS_MAIN(TestNetworkCamera)
#include "tst_networkcamera.moc"
