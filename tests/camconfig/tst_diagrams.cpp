// The diagrams, at the density of the screen.
#include "diagram.h"
#include "testmain.h"

class TestDiagrams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isSharp_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"pulseimage", "strobeBothExp", "strobe1Exp_strobe2Read", "strobe1Read_strobe2Exp",
                                 "strobeBothRead", "wdr"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void isSharp();
};

/** As many pixels as the screen has, in the same room. */
void TestDiagrams::isSharp()
{
    QFETCH(QString, name);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QString path = QStringLiteral(":/images/%1.bmp").arg(name);
    const int scale = qRound(qApp->devicePixelRatio());
    const QImage file(scale == 1 ? path : QStringLiteral(":/images/%1@%2x.bmp").arg(name).arg(scale));
    QVERIFY(!file.isNull());

    const QPixmap shown = MoxGui::diagram(path);
    QCOMPARE(shown.devicePixelRatio(), qreal(scale));
    QCOMPARE(shown.size(), QImage(path).size() * scale);
    QVERIFY(shown.toImage().convertToFormat(QImage::Format_RGB32) == file.convertToFormat(QImage::Format_RGB32));
}

MOX_TEST_MAIN(TestDiagrams)
#include "tst_diagrams.moc"
