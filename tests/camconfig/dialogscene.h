// What the tests of the configuration dialogs share.
#ifndef MOX_DIALOGSCENE_H
#define MOX_DIALOGSCENE_H

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QObject>

#include <memory>
#include <string>

namespace MoxTest {

/** A simulated camera, opened: the only one in a new simulated world. */
class LiveCamera
{
    struct Releaser
    {
        template<class T> void operator()(T *object) const { object->Release(); }
    };
    template<class T> using Sdk = std::unique_ptr<T, Releaser>;

public:
    explicit LiveCamera(MoxSim::Model model = MoxSim::Model::Plain)
    {
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        MoxSim::clearWorld();
        MoxSim::CameraSetup setup;
        setup.model = model;
        const int type = model == MoxSim::Model::Color ? MoxCam::InterfaceUsb3Vision : MoxCam::InterfaceGigEVision;
        id = MoxSim::addCamera(MoxSim::addInterface(type, "Adapter"), setup);
        system.reset(MoxCam_GetSystem());
        const Sdk<MoxCam::InterfaceList> interfaces(system->GetInterfaceList(~0u));
        interfaces->GetFirst()->ReDiscoverDevices(nullptr, 100);
        const Sdk<MoxCam::DeviceInfoList> infos(interfaces->GetFirst()->GetDeviceInfoList());
        device.reset(MoxCam_CreateDevice(infos->GetFirst(), 2, 0));
        params = device->GetCameraParameters(nullptr);
    }
    std::int64_t number(const char *name) const { return params->GetIntegerValue(name, nullptr); }

    std::string id;
    Sdk<MoxCam::System> system;
    Sdk<MoxCam::Device> device;
    MoxGenParam::Array *params;
};

/** How many connections a signal has, given by SIGNAL(). */
inline int connectionsOf(const QObject *sender, const char *signal)
{
    struct Open : QObject
    {
        using QObject::receivers;
    };
    return (sender->*&Open::receivers)(signal);
}

} // namespace MoxTest

#endif
