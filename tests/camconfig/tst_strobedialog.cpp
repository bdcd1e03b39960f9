#include "bindingscene.h"
#include "datarow.h"
#include "moxcamconfigstrobedialog.h"
#include "testmain.h"

using namespace MoxTest;
using StrobeDialog = MoxGui::MoxCamConfigStrobeDialog;

static const Bindings bindings{{"Strobe1Mode", {"cmBoxStrobe1Mode"}},     {"Strobe2Mode", {"cmBoxStrobe2Mode"}},
                               {"Strobe1Reference", {"cmBoxStrobe1Ref"}}, {"Strobe2Reference", {"cmBoxStrobe2Ref"}},
                               {"OUT1Polarity", {"cmBoxOut1Polarity"}},   {"OUT2Polarity", {"cmBoxOut2Polarity"}},
                               {"OUT1Selector", {"cmBoxOut1Selector"}},   {"OUT2Selector", {"cmBoxOut2Selector"}},
                               {"Strobe1Delay", {"spBoxStrobe1Delay"}},   {"Strobe2Delay", {"spBoxStrobe2Delay"}},
                               {"Strobe1Width", {"spBoxStrobe1Width"}},   {"Strobe2Width", {"spBoxStrobe2Width"}}};

/** The name of the picture on show. */
static QByteArray picture(const StrobeDialog &dialog)
{
    const QImage shown = child<QLabel>(dialog, "lblStrobeImage")->property("pixmap").value<QPixmap>().toImage();
    for (const char *name : {"strobeBothExp", "strobe1Exp_strobe2Read", "strobe1Read_strobe2Exp", "strobeBothRead"}) {
        const QImage image(QStringLiteral(":/images/%1.bmp").arg(QLatin1String(name)));
        if (!image.isNull() && image.convertToFormat(shown.format()) == shown)
            return name;
    }
    return "none";
}

class TestStrobeDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binds() { checkBindings<StrobeDialog>(bindings, bindings.size()); }
    void pictures_data()
    {
        columns<int, int, QByteArray>("reference1", "reference2", "shown");
        row("both exposure", 0, 0, "strobeBothExp");
        row("1 exposure", 0, 1, "strobe1Exp_strobe2Read");
        row("2 exposure", 1, 0, "strobe1Read_strobe2Exp");
        row("1 other case, 2 exposure", 3, 0, "strobe1Read_strobe2Exp");
        row("others", 2, 3, "strobeBothRead");
    }
    void pictures()
    {
        QFETCH(int, reference1);
        QFETCH(int, reference2);
        QFETCH(QByteArray, shown);
        StrobeDialog dialog(nullptr);
        QCOMPARE(picture(dialog), "strobeBothExp");
        auto *combo1 = child<QComboBox>(dialog, "cmBoxStrobe1Ref"),
             *combo2 = child<QComboBox>(dialog, "cmBoxStrobe2Ref");
        for (const bool byUser : {true, false}) {
            BoundCamera camera(dialog, bindings);
            for (int i : {2, 3})
                camera.setEntries(bindings[i].param, words("ExposureStart ReadoutStart Line exposurestart"));
            QVERIFY(dialog.SetDevice(&camera));
            QCOMPARE(picture(dialog), "strobeBothExp");
            if (byUser) {
                combo1->setCurrentIndex(reference1);
                combo2->setCurrentIndex(reference2);
            } else {
                camera.features[3]->change(reference2);
                camera.features[2]->change(reference1);
            }
            QCOMPARE(picture(dialog), shown);
            // Without one of the references, or while it cannot be set, the picture stays.
            camera.features[2]->writable = false;
            camera.features[2]->tell();
            camera.features[2]->change(!reference1);
            QCOMPARE(picture(dialog), shown);
            camera.features[2]->writable = true;
            camera.hidden = "Strobe2Reference";
            QVERIFY(dialog.SetDevice(&camera));
            QCOMPARE(picture(dialog), shown);
            combo1->setCurrentIndex(reference1);
            QVERIFY(!dialog.SetDevice(nullptr));
            QCOMPARE(picture(dialog), shown);
        }
    }
};

MOX_TEST_MAIN(TestStrobeDialog)
#include "tst_strobedialog.moc"
