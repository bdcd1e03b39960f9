// Finds out what a camera is made of before it is plugged in.
#ifndef MOXSDK_CAMERAPLAN_H
#define MOXSDK_CAMERAPLAN_H

#include "../device/adapterfacts.h"
#include "camera.h"

namespace MoxSdk {

/** The plan of a camera; the setup has its serial number. Throws std::runtime_error when its file cannot be used. */
CameraPlan planCamera(const MoxSim::CameraSetup &setup, const CameraPosition &position);

/** The adapter of an interface; all zero for a transport without a network. */
AdapterFacts adapterFacts(int interfaceType, unsigned interfaceNumber);

/** The camera's address, which lies outside the adapter's subnet for the reach that says so. 0 without addresses. */
std::uint32_t cameraAddress(const CameraPosition &position, MoxSim::Reach reach);

} // namespace MoxSdk

#endif
