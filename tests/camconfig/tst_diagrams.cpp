// The diagrams, at the density of the screen.
#include "diagram.h"
#include "testmain.h"

class TestDiagrams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** As many pixels as the screen has, in the same room. */
    void areSharp()
    {
        QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
        const int scale = qRound(qApp->devicePixelRatio());
        for (const char *name : {"pulseimage", "strobeBothExp", "strobe1Exp_strobe2Read", "strobe1Read_strobe2Exp",
                                 "strobeBothRead", "wdr"}) {
            const QString path = QStringLiteral(":/images/%1").arg(QLatin1String(name));
            const QImage file(path + (scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale))
                              + QStringLiteral(".bmp"));
            QVERIFY2(!file.isNull(), name);
            const QPixmap shown = MoxGui::diagram(path + QStringLiteral(".bmp"));
            QCOMPARE(shown.devicePixelRatio(), qreal(scale));
            QCOMPARE(shown.size(), QImage(path + QStringLiteral(".bmp")).size() * scale);
            QVERIFY2(shown.toImage().convertToFormat(QImage::Format_RGB32)
                         == file.convertToFormat(QImage::Format_RGB32),
                     name);
        }
    }
};

MOX_TEST_MAIN(TestDiagrams)
#include "tst_diagrams.moc"
