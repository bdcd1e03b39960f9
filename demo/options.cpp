#include "options.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace MoxDemo {

namespace {

void leave(Options &options, int exitCode, const QString &message)
{
    options.exitCode = exitCode;
    options.message = message.endsWith(QLatin1Char('\n')) ? message : message + QLatin1Char('\n');
}

void parseWorld(Options &options, const QString &world)
{
    if (world == QLatin1String("simulated"))
        options.worlds = MoxSim::SimulatedWorld;
    else if (world == QLatin1String("real"))
        options.worlds = MoxSim::RealWorld;
    else if (world == QLatin1String("both"))
        options.worlds = MoxSim::RealWorld | MoxSim::SimulatedWorld;
    else
        leave(options, 1, QStringLiteral("moxdemo: no such world: %1 (simulated, real or both)").arg(world));
}

void parsePalette(Options &options, const QString &palette)
{
    options.dark = palette == QLatin1String("dark");
    if (!options.dark && palette != QLatin1String("system"))
        leave(options, 1, QStringLiteral("moxdemo: no such palette: %1 (system or dark)").arg(palette));
}

void parseFamily(Options &options, const QString &key)
{
    const auto found = std::find_if(families.begin(), families.end(),
                                    [&key](const FamilyInfo &info) { return key == QLatin1String(info.key); });
    if (found == families.end())
        leave(options, 1,
              QStringLiteral("moxdemo: no such family: %1 (select, tree, config, action or gallery)").arg(key));
    else
        options.family = found->family;
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    const QCommandLineOption open(QStringLiteral("open"),
                                  QStringLiteral("Open select, tree, config, action or gallery at once."),
                                  QStringLiteral("family"));
    const QCommandLineOption world(QStringLiteral("world"),
                                   QStringLiteral("Show simulated (the default), real, or both kinds of cameras."),
                                   QStringLiteral("world"), QStringLiteral("simulated"));
    const QCommandLineOption description(
        QStringLiteral("description"),
        QStringLiteral("Add a GenICam description to the simulated world as a camera. May be repeated."),
        QStringLiteral("file"));
    const QCommandLineOption poll(QStringLiteral("poll"), QStringLiteral("Let selectors start with polling."));
    const QCommandLineOption screenshots(QStringLiteral("screenshots"),
                                         QStringLiteral("Render the windows into PNG files in a directory, and exit."),
                                         QStringLiteral("directory"));
    const QCommandLineOption list(QStringLiteral("list"),
                                  QStringLiteral("Print interfaces and cameras, and exit. Needs no display."));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("Show the captions in de, zh_CN or en, not in the system's language."),
        QStringLiteral("language"));
    const QCommandLineOption palette(QStringLiteral("palette"),
                                     QStringLiteral("Show the windows in the colours system (the default) or dark."),
                                     QStringLiteral("palette"), QStringLiteral("system"));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Print the version, and exit."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help, and exit."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Opens the camera dialogs on simulated or real cameras."));
    parser.addOptions({open, world, description, poll, language, palette, screenshots, list, version, help});

    Options options;
    if (!parser.parse(arguments)) {
        leave(options, 1, QStringLiteral("moxdemo: ") + parser.errorText());
    } else if (parser.isSet(help)) {
        leave(options, 0, parser.helpText());
    } else if (parser.isSet(version)) {
        leave(options, 0,
              QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion());
    } else if (!parser.positionalArguments().isEmpty()) {
        leave(options, 1, QStringLiteral("moxdemo: unexpected argument: ") + parser.positionalArguments().constFirst());
    } else {
        parseWorld(options, parser.value(world));
        if (!options.exitCode)
            parsePalette(options, parser.value(palette));
        if (!options.exitCode && parser.isSet(open))
            parseFamily(options, parser.value(open));
        options.descriptions = parser.values(description);
        options.poll = parser.isSet(poll);
        options.language = parser.value(language);
        options.list = parser.isSet(list);
        options.screenshots = parser.value(screenshots);
    }
    return options;
}

} // namespace MoxDemo
