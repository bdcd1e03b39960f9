#include "resultcode.h"

namespace MoxSdk {

namespace {

// The port of a camera's description always has this name.
constexpr char portName[] = "Device";

bool portIsGone(const GenApi::INodeMap &nodeMap) noexcept
{
    try {
        const auto *port = dynamic_cast<const GenApi::IPort *>(nodeMap.GetNode(portName));
        return port && !GenApi::IsAvailable(port->GetAccessMode());
    } catch (...) {
        return false;
    }
}

} // namespace

MoxCamErr failureCode(const GenApi::INodeMap &nodeMap) noexcept
{
    if (portIsGone(nodeMap))
        return MoxCamError::NoDevice;
    try {
        throw;
    } catch (const GenICam::AccessException &) {
        return MoxCamError::GenICamAccess;
    } catch (const GenICam::OutOfRangeException &) {
        return MoxCamError::GenICamOutOfRange;
    } catch (const GenICam::InvalidArgumentException &) {
        return MoxCamError::GenICamInvalidArgument;
    } catch (const GenICam::TimeoutException &) {
        return MoxCamError::GenTLTimeout;
    } catch (const GenICam::RuntimeException &) {
        return MoxCamError::GenICamRuntime;
    } catch (...) {
        return MoxCamError::GenICamGeneric;
    }
}

} // namespace MoxSdk
