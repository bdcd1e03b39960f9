// Pictures of the windows for the documentation.
#ifndef MOXDEMO_SCREENSHOTS_H
#define MOXDEMO_SCREENSHOTS_H

#include <MoxCameraApi/MoxCam.h>

#include <QString>

namespace MoxDemo {

/**
 * Renders the windows into PNG files in a directory, which is made when it is missing, and prints their paths. It runs
 * without a user, on settings of its own, and leaves the simulated world empty. False, with the reason on the error
 * output, when a file cannot be written or a dialog is not the one that was to be shown.
 */
bool takeScreenshots(MoxCam::System *system, const QString &directory);

} // namespace MoxDemo

#endif
