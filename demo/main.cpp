// moxdemo: a small camera application that opens every family of the library.

#include "appearance.h"
#include "cameras.h"
#include "mainwindow.h"
#include "options.h"
#include "screenshots.h"

#include <QApplication>
#include <QIcon>
#include <QTextStream>
#include <QTimer>

#include <cstring>

using namespace MoxDemo;

namespace {

/** What only prints needs no display. This is told before the arguments are parsed, which needs an application. */
std::unique_ptr<QCoreApplication> createApplication(int &argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        for (const char *option : {"--list", "--help", "-h", "--version", "-v"}) {
            if (!std::strcmp(argv[i], option))
                return std::make_unique<QCoreApplication>(argc, argv);
        }
    }
    return std::make_unique<QApplication>(argc, argv);
}

/** Plugs the files into the first simulated interface; false, with the reason printed, when one cannot be used. */
bool addDescriptions(const QStringList &files)
{
    for (const QString &file : files) {
        const Outcome added = addDescription(MoxSim::interfaces().front(), file);
        if (!added.ok) {
            QTextStream(stderr) << "moxdemo: " << added.text << '\n';
            return false;
        }
    }
    return true;
}

int showMainWindow(MoxCam::System *system, const Options &options)
{
    const QLocale locale = options.language.isEmpty() ? QLocale() : QLocale(options.language);
    const Translation translation(locale);
    if (!options.language.isEmpty() && !translation.isFound() && locale.language() != QLocale::English) {
        QTextStream(stderr) << "moxdemo: no translation into " << options.language << '\n';
        return 1;
    }
    QLocale::setDefault(locale); // numbers and dates too
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/moxicon.ico")));
    MainWindow window(system, options.poll);
    if (!options.descriptions.isEmpty()) // the last of them is the one to look at
        window.setChosenCamera(cameraWithId(system, MoxSim::cameras(MoxSim::interfaces().front()).back()));
    window.show();
    if (options.family)
        QTimer::singleShot(0, &window, [&] { window.open(*options.family); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const std::unique_ptr<QCoreApplication> application = createApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("moxdemo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MOXDEMO_VERSION));

    const Options options = parseOptions(QCoreApplication::arguments());
    if (options.exitCode) {
        QTextStream(*options.exitCode ? stderr : stdout) << options.message;
        return *options.exitCode;
    }

    MoxSim::resetWorld();
    MoxSim::setWorlds(options.worlds);
    if (!addDescriptions(options.descriptions))
        return 1;

    // Released last, after every dialog.
    const SdkPointer<MoxCam::System> system(MoxCam_GetSystem());
    if (!system) {
        QTextStream(stderr) << "moxdemo: the camera SDK cannot start\n";
        return 1;
    }
    if (options.list) {
        QTextStream(stdout) << listing(discover(system.get()));
        return 0;
    }
    std::optional<DarkWindows> dark;
    if (options.dark)
        dark.emplace();
    if (!options.screenshots.isEmpty()) // English, but for the pictures of other languages
        return takeScreenshots(system.get(), options.screenshots) ? 0 : 1;
    return showMainWindow(system.get(), options);
}
