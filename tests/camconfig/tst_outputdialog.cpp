#include "bindingscene.h"
#include "moxcamconfigoutputdialog.h"
#include "testmain.h"

using namespace MoxTest;

class TestOutputDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bindings()
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
        checkBindings<MoxGui::MoxCamConfigOutputDialog>(bindings, bindings.size());
        MoxGui::MoxCamConfigOutputDialog dialog(nullptr);
        dialog.show();
        QVERIFY(!child<QWidget>(dialog, "cmBoxDepth")->isVisible());
    }
};

MOX_TEST_MAIN(TestOutputDialog)
#include "tst_outputdialog.moc"
