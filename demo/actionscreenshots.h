// Pictures of the action command console.
#ifndef MOXDEMO_ACTIONSCREENSHOTS_H
#define MOXDEMO_ACTIONSCREENSHOTS_H

#include <MoxCameraApi/MoxCam.h>

namespace MoxDemo {

class Album;

/** Renders the console before and after an action that two simulated cameras acknowledge. */
void renderActions(Album &album, MoxCam::System *system);

} // namespace MoxDemo

#endif
