// The version of USB that a camera's link runs at.
#ifndef MOXSDK_USBVERSION_H
#define MOXSDK_USBVERSION_H

#include "../device/devicerecord.h"

#include <filesystem>

namespace MoxSdk {

/**
 * As the camera itself tells the system, 0x0210 for a USB 3 camera on a USB 2 link; 0 when @p devices, the system's
 * directory of USB devices, has no camera of that name and number. Does not throw.
 */
std::uint32_t usbVersion(const std::filesystem::path &devices, const DeviceRecord &record);

} // namespace MoxSdk

#endif
