// The demo from outside.

#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/** What a run of the program gave. */
struct Run
{
    int exitCode = -1;
    QString output;
    QString errors;
};

Run runDemo(const QStringList &arguments)
{
    QProcess program;
    program.start(QStringLiteral(MOXDEMO_PROGRAM), arguments);
    if (!program.waitForFinished(-1) /* CTest has a limit */ || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void list()
    {
        const Run run = runDemo({QStringLiteral("--list")});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.errors, QString());
        QCOMPARE(
            run.output,
            QStringLiteral(
                "Simulated network adapter [Sim::GEV0]\n"
                "    Moxara MX-4K-AB (000001) [Moxara_MX-4K-AB_000001], read and write\n"
                "    Moxara MX-2K-M (000002) [Moxara_MX-2K-M_000002], no access\n"
                "    Moxara MX-2K-M (000003) [Moxara_MX-2K-M_000003], subnet mismatch\n" // the fourth does not answer
                "Simulated USB host [Sim::U3V0]\n"
                "    Moxara MX-2K-C U3 (000005) [Moxara_MX-2K-C_U3_000005], read and write\n"
                "    Moxara MX-2K-C U3 (000006) [Moxara_MX-2K-C_U3_000006], read and write\n"
                "Simulated frame grabber [Sim::CL0]\n"
                "    no cameras\n"));
    }

    void refusals()
    {
        const Run unread =
            runDemo({QStringLiteral("--list"), QStringLiteral("--description"), QStringLiteral("/missing.xml")});
        QCOMPARE(unread.exitCode, 1);
        QVERIFY(unread.errors.contains(QLatin1String("moxdemo: The description /missing.xml ")));
        QCOMPARE(unread.output, QString());
        const Run unspoken = runDemo({QStringLiteral("--language"), QStringLiteral("fr")});
        QCOMPARE(unspoken.exitCode, 1);
        QVERIFY(unspoken.errors.contains(QLatin1String("moxdemo: no translation into fr\n")));
    }

    void screenshots()
    {
        const QTemporaryDir directory;
        const QString out = directory.filePath(QStringLiteral("made/here"));
        const Run run = runDemo({QStringLiteral("--screenshots"), out});
        QCOMPARE(run.exitCode, 0);
        QStringList files = run.output.trimmed().split(QLatin1Char('\n'));
        files.removeAll(out + QStringLiteral("/selector-real.png")); // where a camera is connected
        // German and Chinese, as far as this build has them and there is a font.
        const bool translated = QFileInfo(QStringLiteral(MOXDEMO_PROGRAM))
                                    .dir()
                                    .exists(QStringLiteral("../translations/moxcameraguiapi_de.qm"));
        const bool chinese = translated && QFontDatabase().writingSystems().contains(QFontDatabase::SimplifiedChinese);
        for (const char *name : {"/config", "/config-frameab"}) {
            QCOMPARE(QFileInfo::exists(out + QLatin1String(name) + QLatin1String("-de.png")), translated);
            QCOMPARE(QFileInfo::exists(out + QLatin1String(name) + QLatin1String("-zh.png")), chinese);
        }
        QCOMPARE(files.size(), 51 + 2 * translated + 2 * chinese);
        for (const QString &file : qAsConst(files)) {
            const QImage image(file);
            QVERIFY2(file.startsWith(out) && image.width() >= 200 && image.height() >= 40, qPrintable(file));
        }
        for (const char *other :
             {"/selector-polling.png", "/selector-usb.png", "/selector-empty.png", "/selector-dark.png"})
            QVERIFY2(QImage(out + QLatin1String("/selector.png")) != QImage(out + QLatin1String(other)), other);
        QVERIFY(QImage(out + QLatin1String("/selector-stranded.png"))
                != QImage(out + QLatin1String("/selector-repaired.png")));
        // The address that they connect to is not left behind in the user's settings.
        QVERIFY(
            !QFile::exists(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Moxara/MoxCameraGuiApi.conf")));

        QFile blocker(directory.filePath(QStringLiteral("file")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        QCOMPARE(runDemo({QStringLiteral("--screenshots"), blocker.fileName()}).exitCode, 1);
    }
};

MOX_TEST_MAIN(TestProgram)
#include "tst_program.moc"
