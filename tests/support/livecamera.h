// Cameras of the open SDK's simulated world, opened.
#ifndef MOX_LIVECAMERA_H
#define MOX_LIVECAMERA_H

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <memory>
#include <string>

namespace MoxTest {

struct SdkRelease
{
    template<class T> void operator()(T *object) const { object->Release(); }
};
template<class T> using SdkPointer = std::unique_ptr<T, SdkRelease>;

/** Puts a camera alone into a new simulated world; gives its identifier. */
inline std::string onlyCamera(const MoxSim::CameraSetup &setup)
{
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    MoxSim::clearWorld();
    const bool usb = setup.model == MoxSim::Model::Color;
    const int type = usb ? MoxCam::InterfaceUsb3Vision : MoxCam::InterfaceGigEVision;
    return MoxSim::addCamera(MoxSim::addInterface(type, "Adapter"), setup);
}

inline MoxSim::CameraSetup setupOf(MoxSim::Model model)
{
    MoxSim::CameraSetup setup;
    setup.model = model;
    return setup;
}

/** The only camera in its world, opened. */
struct LiveCamera
{
    explicit LiveCamera(MoxSim::Model model = MoxSim::Model::Plain) : LiveCamera(setupOf(model)) { }
    explicit LiveCamera(const MoxSim::CameraSetup &setup) : id(onlyCamera(setup)) { open(); }

    /** Finds it and opens it, also once more. */
    void open()
    {
        device.reset();
        const SdkPointer<MoxCam::InterfaceList> interfaces(system->GetInterfaceList(~0u));
        interfaces->GetFirst()->ReDiscoverDevices(nullptr, 100);
        const SdkPointer<MoxCam::DeviceInfoList> infos(interfaces->GetFirst()->GetDeviceInfoList());
        device.reset(MoxCam_CreateDevice(infos->GetFirst(), 2, 0));
        params = device->GetCameraParameters(nullptr);
    }
    std::int64_t number(const char *name) const { return params->GetIntegerValue(name, nullptr); }

    std::string id;
    SdkPointer<MoxCam::System> system{MoxCam_GetSystem()};
    SdkPointer<MoxCam::Device> device;
    MoxGenParam::Array *params = nullptr;
};

} // namespace MoxTest

#endif
