// The simulated world as a source of interfaces.
#ifndef MOXSDK_SIMULATEDBACKEND_H
#define MOXSDK_SIMULATEDBACKEND_H

#include "../device/interface.h"

namespace MoxSdk {

/** Shows what the functions of MoxSimulation.h set up; several backends may show the one world. */
std::unique_ptr<Backend> createSimulatedBackend();

} // namespace MoxSdk

#endif
