#include "usbchannel.h"

#include "packeddescription.h"

#include <Base/GCException.h>

#include <memory>
#include <mutex>

namespace MoxSdk {

namespace {

// Aravis keeps one list of cameras, and none of its calls on it may run beside another one.
std::mutex &aravisMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::string text(const char *value)
{
    return value ? value : "";
}

// Throws what Aravis reports, and tells a camera that is gone from one that refuses. Takes the error over.
void check(bool done, GError *error)
{
    if (!error) {
        if (!done)
            throw RUNTIME_EXCEPTION("the camera is not there, or refuses without a reason");
        return;
    }
    const std::unique_ptr<GError, decltype(&g_error_free)> guard(error, &g_error_free);
    if (error->domain != ARV_DEVICE_ERROR)
        throw TIMEOUT_EXCEPTION("%s", error->message);
    switch (error->code) {
    case ARV_DEVICE_ERROR_TIMEOUT:
    case ARV_DEVICE_ERROR_NOT_CONNECTED:
    case ARV_DEVICE_ERROR_TRANSFER_ERROR:
        throw TIMEOUT_EXCEPTION("%s", error->message);
    case ARV_DEVICE_ERROR_NOT_CONTROLLER:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED:
        throw ACCESS_EXCEPTION("%s", error->message);
    default:
        throw RUNTIME_EXCEPTION("%s", error->message);
    }
}

// One call of Aravis moves fewer bytes than 32 bits can count.
guint32 checkedLength(std::size_t length)
{
    if (length > G_MAXINT32)
        throw OUT_OF_RANGE_EXCEPTION("an access of %zu bytes is too long", length);
    return static_cast<guint32>(length);
}

} // namespace

std::vector<DeviceRecord> UsbChannel::cameras()
{
    const std::lock_guard<std::mutex> lock(aravisMutex());
    // The transport is asked directly: Aravis' list of all transports would search the network as well.
    ArvInterface *usb = arv_uv_interface_get_instance();
    arv_interface_update_device_list(usb);

    std::vector<DeviceRecord> records;
    for (unsigned int i = 0; i < arv_interface_get_n_devices(usb); ++i) {
        DeviceRecord record;
        record.id = text(arv_interface_get_device_id(usb, i));
        record.vendor = text(arv_interface_get_device_vendor(usb, i));
        record.model = text(arv_interface_get_device_model(usb, i));
        record.serialNumber = text(arv_interface_get_device_serial_nbr(usb, i));
        record.displayName = displayName(record);
        record.accessStatus = MoxCam::AccessReadWrite;
        records.push_back(record);
    }
    return records;
}

UsbChannel::UsbChannel(const std::string &id)
{
    const std::lock_guard<std::mutex> lock(aravisMutex());
    ArvInterface *usb = arv_uv_interface_get_instance();
    arv_interface_update_device_list(usb);
    GError *error = nullptr;
    m_device = arv_interface_open_device(usb, id.c_str(), &error);
    check(m_device, error);
}

UsbChannel::~UsbChannel()
{
    g_object_unref(m_device);
}

std::string UsbChannel::description()
{
    std::size_t length = 0;
    const char *description = arv_device_get_genicam_xml(m_device, &length);
    if (!description)
        throw RUNTIME_EXCEPTION("the camera holds no description of its features");
    return unpackDescription(std::string(description, length));
}

void UsbChannel::read(void *buffer, std::uint64_t address, std::size_t length)
{
    GError *error = nullptr;
    const bool done = arv_device_read_memory(m_device, address, checkedLength(length), buffer, &error);
    check(done, error);
}

void UsbChannel::write(const void *buffer, std::uint64_t address, std::size_t length)
{
    GError *error = nullptr;
    const bool done =
        arv_device_write_memory(m_device, address, checkedLength(length), const_cast<void *>(buffer), &error);
    check(done, error);
}

bool UsbChannel::isAlive()
{
    // The first register of every camera holds the version of the protocol.
    std::uint32_t version = 0;
    return arv_device_read_memory(m_device, 0, sizeof version, &version, nullptr);
}

} // namespace MoxSdk
