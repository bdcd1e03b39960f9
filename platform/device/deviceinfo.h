// A camera that discovery found.
#ifndef MOXSDK_DEVICEINFO_H
#define MOXSDK_DEVICEINFO_H

#include <MoxCameraApi/MoxCam.h>

#include "devicerecord.h"

#include <memory>

namespace MoxSdk {

class Interface;
class DeviceInfoPrivate;

/** Answers with the newest record. Texts that were handed out stay valid as long as the object, also after an update. */
class DeviceInfo final : public MoxCam::DeviceInfo
{
public:
    DeviceInfo(Interface &interface, const DeviceRecord &record);
    ~DeviceInfo();
    DeviceInfo(const DeviceInfo &) = delete;
    DeviceInfo &operator=(const DeviceInfo &) = delete;

    /** The living object behind a pointer of unknown origin, which is compared and never followed; null for a stranger. */
    static DeviceInfo *living(const MoxCam::DeviceInfo *info);

    MoxCam::Interface *GetInterface() override;
    const char *GetID() override;
    const char *GetVendor() override;
    const char *GetModel() override;
    const char *GetDisplayName() override;
    const char *GetUserDefinedName() override;
    const char *GetSerialNumber() override;
    const char *GetVersion() override;
    int GetAccessStatus() override;
    const char *GetIPAddress(MoxCamErr *err) override;
    const char *GetNetmask(MoxCamErr *err) override;
    const char *GetGateway(MoxCamErr *err) override;
    MoxCamErr ForceIP(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway) override;

    Interface &interface() const;
    DeviceRecord record() const;
    void setRecord(const DeviceRecord &record);

private:
    std::unique_ptr<DeviceInfoPrivate> const d;
};

} // namespace MoxSdk

#endif
