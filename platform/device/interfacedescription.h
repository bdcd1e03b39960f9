// The GenICam description of an interface.
#ifndef MOXSDK_INTERFACEDESCRIPTION_H
#define MOXSDK_INTERFACEDESCRIPTION_H

#include <cstdint>
#include <string>

namespace MoxSdk {

/** Where the port of an interface has what. Numbers are big-endian, texts end with a zero. */
enum class InterfaceRegister : std::int64_t {
    // Of the interface.
    DeviceCount = 0x000,
    LastDevice = 0x010,
    DeviceSelector = 0x020,
    DeviceListed = 0x030, ///< whether the selector stands on a device
    AdapterMac = 0x040,
    AdapterIp = 0x050,
    AdapterNetmask = 0x060,
    AdapterGateway = 0x070,
    ActionFlags = 0x080,
    ActionDeviceKey = 0x090,
    ActionGroupKey = 0x0A0,
    ActionGroupMask = 0x0B0,
    ActionTimeHigh = 0x0C0,
    ActionTimeLow = 0x0D0,
    ActionAnswers = 0x0E0, ///< that are waited for
    SendAction = 0x0F0,
    InterfaceId = 0x200,
    InterfaceName = 0x400,
    // Of the selected device.
    DeviceMac = 0x100,
    DeviceIp = 0x110,
    DeviceNetmask = 0x120,
    DeviceGateway = 0x130,
    ForcedIp = 0x140,
    ForcedNetmask = 0x150,
    ForcedGateway = 0x160,
    ForceIp = 0x170,
    UsbVersion = 0x180,
    DeviceId = 0x600,
    DeviceVendor = 0x800,
    DeviceModel = 0xA00,
    DeviceSerialNumber = 0xC00
};

/** The description of interfaces of a transport, a `MoxCam::InterfaceType`; empty for those that have none. */
std::string interfaceDescription(int type);

} // namespace MoxSdk

#endif
