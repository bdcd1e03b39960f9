// Pictures of the camera configuration.
#ifndef MOXDEMO_CONFIGSCREENSHOTS_H
#define MOXDEMO_CONFIGSCREENSHOTS_H

#include <MoxCameraApi/MoxCam.h>

namespace MoxDemo {

class Album;

/** Renders the configuration windows of a camera with frames A and B, and of one without. */
void renderConfiguration(Album &album, MoxCam::System *system);

/** Renders the main window and the Frame A/B dialog once more, as the application looks now, into files that end so. */
void renderConfigurationAgain(Album &album, MoxCam::DeviceInfo *camera, const char *ending);

} // namespace MoxDemo

#endif
