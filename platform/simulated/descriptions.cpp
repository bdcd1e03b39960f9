#include "descriptions.h"

#include <stdexcept>

namespace MoxSdk {

namespace {

ModelDescription *assembled(const char *const *pieces)
{
    std::string text;
    for (; *pieces; ++pieces)
        text += *pieces;
    return new ModelDescription{std::make_shared<const std::string>(text), RegisterMap(text)};
}

} // namespace

const ModelDescription &modelDescription(MoxSim::Model model)
{
    // Cameras refer to these until the very end of the process, so they are never destroyed.
    static const ModelDescription &frameAB = *assembled(frameABPieces);
    static const ModelDescription &plain = *assembled(plainPieces);
    static const ModelDescription &color = *assembled(colorPieces);
    switch (model) {
    case MoxSim::Model::FrameAB:
        return frameAB;
    case MoxSim::Model::Plain:
        return plain;
    case MoxSim::Model::Color:
        return color;
    }
    throw std::invalid_argument("There is no such camera model");
}

} // namespace MoxSdk
