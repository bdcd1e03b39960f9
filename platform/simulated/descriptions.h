// The descriptions that the library brings along.
#ifndef MOXSDK_DESCRIPTIONS_H
#define MOXSDK_DESCRIPTIONS_H

#include "registermap.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <memory>
#include <string>

namespace MoxSdk {

/** A model's description and what its firmware knows of it. Made once, never disposed of. */
struct ModelDescription
{
    std::shared_ptr<const std::string> text;
    RegisterMap registers;
};

/** Throws std::invalid_argument for a number that is no model. */
const ModelDescription &modelDescription(MoxSim::Model model);

/** A description's pieces, ended by null; generated when the project is configured. */
extern const char *const frameABPieces[];
extern const char *const plainPieces[];
extern const char *const colorPieces[];

} // namespace MoxSdk

#endif
