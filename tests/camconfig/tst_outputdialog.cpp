#include "bindingscene.h"
#include "dialogscene.h"
#include "moxcamconfigoutputdialog.h"
#include "testmain.h"

#include <QStandardItemModel>

using namespace MoxTest;
using OutputDialog = MoxGui::MoxCamConfigOutputDialog;

class TestOutputDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binds()
    {
        const Bindings bindings{{"PixelFormat", {"cmBoxPixelFormat"}},
                                {"SensorADCBitDepth11", {"cmBoxTaps"}},
                                {"SensorADCBitDepth", {"cmBoxDepth"}},
                                {"TestPattern", {"cmBoxTestMode"}},
                                {"LUTSelector", {"cmBoxLut"}},
                                {"DefectPixelCorrection", {"cmBoxDpc"}},
                                {"HotPixelCorrection", {"cmBoxHpc"}},
                                {"DefectPixelThreshold", {"spBoxDpcDynThres"}},
                                {"HotPixelThreshold", {"spBoxHpcDynThres"}},
                                {"LUTEnable", {"chBoxEnableLut"}},
                                {"ReverseX", {"chBoxHorMirror"}},
                                {"ReverseY", {"chBoxVerMirror"}}};
        checkBindings<OutputDialog>(bindings, bindings.size());
    }
    void liveCamera();
};

void TestOutputDialog::liveCamera()
{
    const LiveCamera camera(MoxSim::Model::Color);
    OutputDialog dialog(camera.device.get());
    dialog.show();
    QVERIFY(!child<QWidget>(dialog, "groupBox")->isVisible());
    for (const QByteArray which : {"Dpc", "Hpc"}) {
        auto *mode = child<QComboBox>(dialog, "cmBox" + which);
        const auto *threshold = child<QtMoxSpinBox>(dialog, "spBox" + which + "DynThres");
        QCOMPARE(threshold->leftLabelText(), QStringLiteral("Dyn.Thres.:"));
        for (const char *text : {"Static", "Dynamic", "Off", "StaticDynamic"}) {
            mode->setCurrentText(QLatin1String(text));
            QCOMPARE(threshold->isEnabled(), QByteArray(text).endsWith("Dynamic"));
        }
    }
    // A format of 12 bits needs that depth, which a hidden control sets.
    const auto *formats = child<QComboBox>(dialog, "cmBoxPixelFormat");
    const QStandardItem *item =
        qobject_cast<QStandardItemModel *>(formats->model())->findItems(QStringLiteral("BayerRG12")).first();
    for (const int depth : {0, 1, 0}) {
        child<QComboBox>(dialog, "cmBoxDepth")->setCurrentIndex(depth);
        QCOMPARE(item->isEnabled(), depth == 1);
    }
}

MOX_TEST_MAIN(TestOutputDialog)
#include "tst_outputdialog.moc"
