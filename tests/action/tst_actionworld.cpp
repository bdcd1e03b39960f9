#include "console.h"
#include "testmain.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QCheckBox>

/** The console on simulated cameras: two of the standard world's are reached by its start values. */
class TestActionWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoCamerasAnswer()
    {
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        MoxSim::resetWorld();
        Console console(MoxCam_GetSystem(), 1);
        console.findChild<QCheckBox *>(QStringLiteral("cbRequestAck"))->setChecked(true);
        for (const int total : {2, 4}) // the second send is a real one, too
            QCOMPARE(console.send(total), QStringLiteral("[OK] 192.168.10.10\n[OK] 192.168.10.11\n"));
    }
};

MOX_TEST_MAIN(TestActionWorld)
#include "tst_actionworld.moc"
