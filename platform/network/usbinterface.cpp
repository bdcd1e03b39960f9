#include "usbinterface.h"

#include "cameralink.h"
#include "usbchannel.h"
#include "usbversion.h"

#include <algorithm>

namespace MoxSdk {

UsbInterface::UsbInterface() : Interface(MoxCam::InterfaceUsb3Vision, "U3V::USB", "USB3 Vision", "1.0")
{ }

std::unique_ptr<Link> UsbInterface::openLink(const DeviceRecord &record)
{
    const auto opens = [id = record.id](const StopSignal &) { return std::make_unique<UsbChannel>(id); };
    return std::make_unique<CameraLink>(opens, opens);
}

std::vector<DeviceRecord> UsbInterface::discover(std::chrono::milliseconds)
{
    std::vector<DeviceRecord> records = UsbChannel::cameras();
    for (DeviceRecord &record : records)
        record.usbVersion = usbVersion("/sys/bus/usb/devices", record);
    std::sort(records.begin(), records.end(),
              [](const DeviceRecord &left, const DeviceRecord &right) { return left.id < right.id; });
    return records;
}

} // namespace MoxSdk
