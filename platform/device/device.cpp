#include "device.h"

#include "../genapi/nodemapfactory.h"
#include "../params/paramarray.h"
#include "eventsource.h"

namespace MoxSdk {

class DevicePrivate
{
public:
    DevicePrivate(std::unique_ptr<Link> openedLink, const std::string &name)
        : link(std::move(openedLink)),
          nodeMap(MoxGenApi::createNodeMap(link->description(), link->port(), name)),
          params(*nodeMap)
    { }

    void connectionChanged(bool connected);

    // Each stands on those before it.
    const std::unique_ptr<Link> link;
    const std::unique_ptr<GenApi::INodeMap> nodeMap;
    ParamArray params;
    const std::shared_ptr<EventSource> events = std::make_shared<EventSource>();
};

void DevicePrivate::connectionChanged(bool connected)
{
    // What was kept of the camera says nothing any more, least of all the access modes; who hears of the event may ask
    // for them at once.
    events->post(connected ? MoxCam::EventDeviceConnected : MoxCam::EventDeviceDisconnected, {}, [this] {
        try {
            nodeMap->InvalidateNodes();
        } catch (...) {
            // The event counts all the same.
        }
    });
}

namespace {

bool isDeviceEvent(int eventId)
{
    return eventId == MoxCam::EventDeviceConnected || eventId == MoxCam::EventDeviceDisconnected;
}

} // namespace

Device::Device(std::unique_ptr<Link> link, const std::string &name)
    : d(std::make_unique<DevicePrivate>(std::move(link), name))
{
    d->link->setListener([this](bool connected) { d->connectionChanged(connected); });
}

Device::~Device()
{
    d->link->setListener({});
    d->events->close();
}

void Device::Release()
{
    // A sink may give the camera up while the write that told it stands on the stack. The node map has to outlast that
    // write; for the user of the device everything ends here all the same.
    d->events->removeAll();
    d->params.retire([this] { delete this; });
}

MoxCamErr Device::RegisterEvent(int eventId, MoxCam::EventCallback callback, void *context)
{
    if (!isDeviceEvent(eventId) || !callback)
        return MoxCamError::InvalidArgument;
    d->events->add(eventId, callback, context);
    return MoxCamError::Success;
}

MoxCamErr Device::UnregisterEvent(int eventId, MoxCam::EventCallback callback, void *context)
{
    if (!isDeviceEvent(eventId) || !callback)
        return MoxCamError::InvalidArgument;
    d->events->remove(eventId, callback, context);
    return MoxCamError::Success;
}

MoxGenParam::Array *Device::GetCameraParameters(MoxCamErr *err)
{
    if (err)
        *err = MoxCamError::Success;
    return &d->params;
}

} // namespace MoxSdk
