// The machine's USB as an interface for USB3 Vision cameras.
#ifndef MOXSDK_USBINTERFACE_H
#define MOXSDK_USBINTERFACE_H

#include "../device/interface.h"

namespace MoxSdk {

/** All USB hosts together. Owned by the backend; any thread. */
class UsbInterface final : public Interface
{
public:
    UsbInterface();

    std::unique_ptr<Link> openLink(const DeviceRecord &record) override;

protected:
    /** Quick: it lists what is plugged in. The access status is read and write, for opening alone tells otherwise. */
    std::vector<DeviceRecord> discover(std::chrono::milliseconds limit) override;
};

} // namespace MoxSdk

#endif
