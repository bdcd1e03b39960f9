#include "bindingscene.h"
#include "dialogscene.h"
#include "moxcamconfigcolordialog.h"
#include "testmain.h"

using namespace MoxTest;
using ColorDialog = MoxGui::MoxCamConfigColorDialog;

static const Bindings bindings{{"RedCoefficient", {"spBoxRed", "pushBtnRedUnity", "grBoxStatistics"}},
                               {"GreenCoefficient", {"spBoxGreen", "pushBtnGreenUnity"}},
                               {"BlueCoefficient", {"spBoxBlue", "pushBtnBlueUnity"}},
                               {"BalanceWhiteAuto", {"cmBoxWhiteBalance"}},
                               {"AutoTrackingSpeed", {"cmBoxTrackingSpeed"}}};

static QString statistics(const ColorDialog &dialog)
{
    QStringList texts;
    for (const char *label : {"lblRedCoef", "lblGreenCoef", "lblBlueCoef"})
        texts << child<QLabel>(dialog, label)->text();
    return texts.join(QLatin1Char(' '));
}

class TestColorDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binds() { checkBindings<ColorDialog>(bindings, bindings.size() + 3); }
    void coefficients()
    {
        ColorDialog dialog(nullptr);
        QCOMPARE(statistics(dialog), QStringLiteral("4095 4095 4095"));
        BoundCamera camera(dialog, bindings);
        auto &red = camera.feature<FakeInt>("RedCoefficient"), &green = camera.feature<FakeInt>("GreenCoefficient");
        red.max = green.max = camera.feature<FakeInt>("BlueCoefficient").max = INT64_MAX;
        QVERIFY(dialog.SetDevice(&camera) && dialog.SetDevice(&camera));
        QCOMPARE(statistics(dialog), QStringLiteral("0 0 0"));
        dialog.show();
        for (const QByteArray color : {"Red", "Green", "Blue"}) {
            auto *button = child<QPushButton>(dialog, "pushBtn" + color + "Unity");
            QCOMPARE(connectionsOf(button, SIGNAL(clicked(bool))), 1);
            button->click();
            type(child<QtMoxSpinBox>(dialog, "spBox" + color)->spinBox(), 300); // Return clicks no button
            QCOMPARE(camera.feature<FakeInt>((color + "Coefficient").constData()).writes, (Writes{256, 300}));
        }
        red.writable = green.writable = false; // as while the camera balances by itself
        red.change(-7);
        QCOMPARE(statistics(dialog), QStringLiteral("-7 300 300"));
        green.change(5000000000);
        QCOMPARE(statistics(dialog), QStringLiteral("-7 5000000000 300"));
        QCOMPARE(child<QtMoxSpinBox>(dialog, "spBoxGreen")->value(), INT_MAX);

        const auto sinks = green.sinks;
        QCOMPARE(sinks.size(), 2);
        green.readable = false;
        green.change(1);
        FakeBoolean noInteger;
        noInteger.name = "GreenCoefficient";
        for (MoxGenParam::ParamEventSink *sink : sinks)
            sink->OnParameterUpdate(&noInteger);
        QCOMPARE(statistics(dialog), QStringLiteral("-7 5000000000 300"));
        green.readable = true;
        QVERIFY(!dialog.SetDevice(nullptr));
        green.tell(); // the subscription is still there
        QCOMPARE(statistics(dialog), QStringLiteral("-7 5000000000 300"));
    }
};

MOX_TEST_MAIN(TestColorDialog)
#include "tst_colordialog.moc"
