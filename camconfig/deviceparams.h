// How everything here that takes up a device comes to its parameters.
#ifndef MOX_DEVICEPARAMS_H
#define MOX_DEVICEPARAMS_H

#include <MoxCameraApi/MoxCam.h>

namespace MoxGui {

/** The parameters of @p device, which are its own; null for no device, and for one that gives none or an error. */
inline MoxGenParam::Array *paramsOf(MoxCam::Device *device)
{
    MoxCamErr err = MoxCamError::Success;
    MoxGenParam::Array *const params = device ? device->GetCameraParameters(&err) : nullptr;
    return err == MoxCamError::Success ? params : nullptr;
}

} // namespace MoxGui

#endif
