// The control channel of a USB3 Vision camera.
#ifndef MOXSDK_USBCHANNEL_H
#define MOXSDK_USBCHANNEL_H

#include "../device/devicerecord.h"
#include "channel.h"

#include <arv.h>
#include <vector>

namespace MoxSdk {

/** Registers over USB3 Vision, by Aravis. */
class UsbChannel final : public Channel
{
public:
    /** What is plugged in now, in Aravis' order. Thread-safe. */
    static std::vector<DeviceRecord> cameras();

    /** Looks the camera up and claims it; throws a GenICam exception with Aravis' reason. */
    explicit UsbChannel(const std::string &id);
    ~UsbChannel() override;

    std::string description() override;
    void read(void *buffer, std::uint64_t address, std::size_t length) override;
    void write(const void *buffer, std::uint64_t address, std::size_t length) override;
    bool isAlive() override;
    std::chrono::milliseconds alivePeriod() const override { return std::chrono::milliseconds(1000); }

private:
    ArvDevice *m_device = nullptr; // one reference
};

} // namespace MoxSdk

#endif
