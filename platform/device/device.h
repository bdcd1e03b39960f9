// An opened camera: a link, the node map over it, and the parameters over that.
#ifndef MOXSDK_DEVICE_H
#define MOXSDK_DEVICE_H

#include <MoxCameraApi/MoxCam.h>

#include "link.h"

#include <memory>
#include <string>

namespace MoxSdk {

class DevicePrivate;

/** The one implementation of MoxCam::Device. Events 1003 and 1004 run on the SDK's event thread. */
class Device final : public MoxCam::Device
{
public:
    /** Reads the description and builds the node map; throws what the link or the description makes of it. */
    Device(std::unique_ptr<Link> link, const std::string &name);
    ~Device();
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;

    void Release() override;
    MoxCamErr RegisterEvent(int eventId, MoxCam::EventCallback callback, void *context) override;
    MoxCamErr UnregisterEvent(int eventId, MoxCam::EventCallback callback, void *context) override;
    MoxGenParam::Array *GetCameraParameters(MoxCamErr *err) override;

private:
    std::unique_ptr<DevicePrivate> const d;
};

} // namespace MoxSdk

#endif
