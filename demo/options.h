// The command line.
#ifndef MOXDEMO_OPTIONS_H
#define MOXDEMO_OPTIONS_H

#include "families.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace MoxDemo {

/** What the command line asks for. */
struct Options
{
    std::optional<int> exitCode; ///< set when there is nothing to do but to print `message` and leave
    QString message;
    unsigned worlds = MoxSim::SimulatedWorld;
    QStringList descriptions; ///< files to add to the simulated world as cameras
    std::optional<Family> family; ///< to open at the start
    bool poll = false;
    bool list = false;
    QString language; ///< of the captions, as QLocale reads it; empty for the system's
    bool dark = false; ///< whether the windows are dark
    QString screenshots; ///< directory; empty for none
};

/**
 * Reads the arguments, the program's name first. A wrong option leaves with 1, a family that this build of the library
 * lacks with 2. Needs an application object, whose name and version go into the texts.
 */
Options parseOptions(const QStringList &arguments);

} // namespace MoxDemo

#endif
