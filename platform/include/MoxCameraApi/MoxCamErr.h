/**
 * @file
 * Result codes of the camera SDK.
 */
#ifndef MOXCAMERAAPI_MOXCAMERR_H
#define MOXCAMERAAPI_MOXCAMERR_H

#include <cstdint>

/** Result of an SDK operation: 0 for success, negative for a failure. The values are in MoxCamError. */
using MoxCamErr = std::int32_t;

namespace MoxCamError {

// The GenTL standard's block.
constexpr MoxCamErr Success = 0; ///< no failure
constexpr MoxCamErr GenTLError = -1001; ///< a failure without a code of its own
constexpr MoxCamErr GenTLNotInitialized = -1002; ///< something was not set up before
constexpr MoxCamErr GenTLNotImplemented = -1003; ///< the device or its transport cannot do that
constexpr MoxCamErr GenTLResourceInUse = -1004; ///< the device is busy
constexpr MoxCamErr GenTLAccessDenied = -1005; ///< another application controls the device
constexpr MoxCamErr GenTLInvalidId = -1007; ///< nothing has that identifier
constexpr MoxCamErr GenTLInvalidParameter = -1009; ///< the device refuses what it was given
constexpr MoxCamErr GenTLIo = -1010; ///< the transport failed
constexpr MoxCamErr GenTLTimeout = -1011; ///< no answer in time
constexpr MoxCamErr GenTLNotAvailable = -1014; ///< not there, or not now

// The SDK's own.
constexpr MoxCamErr Unknown = -40001; ///< a failure that is not known
constexpr MoxCamErr NoDevice = -40006; ///< the camera is gone
constexpr MoxCamErr InvalidArgument = -40007; ///< an argument that makes no sense

// Failures of the GenICam layer.
constexpr MoxCamErr GenICamGeneric = -40200; ///< any other exception of a node map
constexpr MoxCamErr GenICamTree = -40201; ///< there is no node map
constexpr MoxCamErr GenICamAccess = -40202; ///< the feature's access mode forbids it: AccessException
constexpr MoxCamErr GenICamType = -40203; ///< the feature is of another type
constexpr MoxCamErr GenICamOutOfRange = -40204; ///< beyond the limits, or off the increment: OutOfRangeException
constexpr MoxCamErr GenICamUnknownParameter = -40205; ///< there is no such feature
constexpr MoxCamErr GenICamInvalidArgument = -40206; ///< no such entry, or no value: InvalidArgumentException
constexpr MoxCamErr GenICamRuntime = -40207; ///< the port failed: RuntimeException

} // namespace MoxCamError

#endif
