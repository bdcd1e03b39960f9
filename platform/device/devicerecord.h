// What discovery tells about one camera.
#ifndef MOXSDK_DEVICERECORD_H
#define MOXSDK_DEVICERECORD_H

#include <MoxCameraApi/MoxCam.h>

#include <cstdint>
#include <string>

namespace MoxSdk {

/** Facts about a camera as discovery found them. Addresses have their first dotted number in the top byte. */
struct DeviceRecord
{
    std::string id; ///< stable over restarts and address changes
    std::string vendor;
    std::string model;
    std::string displayName;
    std::string userDefinedName;
    std::string serialNumber;
    std::string version;
    int accessStatus = MoxCam::AccessUnknown;
    // GigE Vision only; all zero elsewhere.
    std::uint64_t macAddress = 0;
    std::uint32_t ipAddress = 0;
    std::uint32_t netmask = 0;
    std::uint32_t gateway = 0;
    // USB3 Vision only.
    std::uint32_t usbVersion = 0; ///< that the link runs at, 0x0300 for 3.0; 0 when it is not known
};

/** "vendor model (serial number)", without what is empty. */
std::string displayName(const DeviceRecord &record);

} // namespace MoxSdk

#endif
