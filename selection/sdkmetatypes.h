// The SDK's discovery objects as values of a QVariant: the role Qt::UserRole of the selection models carries them.
#ifndef MOX_SDKMETATYPES_H
#define MOX_SDKMETATYPES_H

#include <QMetaType>

#include <MoxCameraApi/MoxCam.h>

Q_DECLARE_METATYPE(MoxCam::DeviceInfo *)
Q_DECLARE_METATYPE(MoxCam::Interface *)

#endif
