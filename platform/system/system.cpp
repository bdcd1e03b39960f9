#include "system.h"

#include "../device/device.h"
#include "../device/deviceinfo.h"
#include "../device/elementlist.h"
#include "../network/networkbackend.h"
#include "../simulated/simulatedbackend.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <atomic>

namespace MoxSdk {

namespace {

std::mutex systemMutex;
System *theSystem = nullptr;
int systemUsers = 0;

std::atomic<unsigned> chosenWorlds = MoxSim::RealWorld;

} // namespace

System *System::acquire()
{
    const std::lock_guard<std::mutex> lock(systemMutex);
    if (!theSystem)
        theSystem = new System;
    ++systemUsers;
    return theSystem;
}

void System::Release()
{
    {
        const std::lock_guard<std::mutex> lock(systemMutex);
        if (--systemUsers > 0)
            return;
        theSystem = nullptr;
    }
    delete this;
}

MoxCam::InterfaceList *System::GetInterfaceList(std::uint32_t typeMask)
{
    const unsigned worlds = chosenWorlds;
    std::vector<MoxCam::Interface *> found;
    const auto append = [&](Backend *source) {
        if (!source)
            return;
        for (Interface *interface : source->interfaces()) {
            if (typeMask & (1U << interface->GetType()))
                found.push_back(interface);
        }
    };
    if (worlds & MoxSim::RealWorld)
        append(backend(m_real, createNetworkBackend));
    if (worlds & MoxSim::SimulatedWorld)
        append(backend(m_simulated, createSimulatedBackend));
    return new ElementList<MoxCam::InterfaceList, MoxCam::Interface>(std::move(found));
}

/** Makes a backend when it is first wanted: an application that shows no simulated world does not build one. */
Backend *System::backend(std::unique_ptr<Backend> &kept, MakeBackend make)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!kept) {
        try {
            kept = make();
        } catch (...) {
            // This source has nothing to show now, and is tried again at the next lookup.
        }
    }
    return kept.get();
}

} // namespace MoxSdk

namespace MoxSim {

void setWorlds(unsigned worlds)
{
    MoxSdk::chosenWorlds = worlds;
}

unsigned worlds()
{
    return MoxSdk::chosenWorlds;
}

} // namespace MoxSim

MoxCam::System *MoxCam_GetSystem()
{
    return MoxSdk::System::acquire();
}

// The access mode is not looked at: a camera is always opened with control.
MoxCam::Device *MoxCam_CreateDevice(MoxCam::DeviceInfo *info, int, int)
{
    MoxSdk::DeviceInfo *known = MoxSdk::DeviceInfo::living(info);
    if (!known)
        return nullptr;
    try {
        const MoxSdk::DeviceRecord record = known->record();
        auto link = known->interface().openLink(record);
        return link ? std::make_unique<MoxSdk::Device>(std::move(link), record.displayName).release() : nullptr;
    } catch (...) {
        return nullptr;
    }
}
