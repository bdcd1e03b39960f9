// Pictures of the parameter tree.
#ifndef MOXDEMO_TREESCREENSHOTS_H
#define MOXDEMO_TREESCREENSHOTS_H

#include <MoxCameraApi/MoxCam.h>

namespace MoxDemo {

class Album;

/** Walks through the parameter tree of the first camera that can be opened: levels, filter, editors, errors. */
void renderParameterTree(Album &album, MoxCam::System *system);

/** Renders all features of a camera once more, as the application looks now. */
void renderParameterTreeAgain(Album &album, MoxCam::DeviceInfo *camera, const char *name);

} // namespace MoxDemo

#endif
