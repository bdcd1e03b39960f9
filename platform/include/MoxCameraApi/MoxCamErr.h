// Result codes of the camera SDK.
#ifndef MOXCAMERAAPI_MOXCAMERR_H
#define MOXCAMERAAPI_MOXCAMERR_H

#include <cstdint>

/** Result of an SDK operation: 0 for success, negative for a failure. */
using MoxCamErr = std::int32_t;

namespace MoxCamError {

// The GenTL standard's block.
constexpr MoxCamErr Success = 0;
constexpr MoxCamErr GenTLError = -1001;
constexpr MoxCamErr GenTLNotInitialized = -1002;
constexpr MoxCamErr GenTLNotImplemented = -1003;
constexpr MoxCamErr GenTLResourceInUse = -1004;
constexpr MoxCamErr GenTLAccessDenied = -1005;
constexpr MoxCamErr GenTLInvalidId = -1007;
constexpr MoxCamErr GenTLInvalidParameter = -1009;
constexpr MoxCamErr GenTLIo = -1010;
constexpr MoxCamErr GenTLTimeout = -1011;
constexpr MoxCamErr GenTLNotAvailable = -1014;

// The SDK's own.
constexpr MoxCamErr Unknown = -40001;
constexpr MoxCamErr NoDevice = -40006;
constexpr MoxCamErr InvalidArgument = -40007;

// Failures of the GenICam layer.
constexpr MoxCamErr GenICamGeneric = -40200;
constexpr MoxCamErr GenICamTree = -40201;
constexpr MoxCamErr GenICamAccess = -40202;
constexpr MoxCamErr GenICamType = -40203;
constexpr MoxCamErr GenICamOutOfRange = -40204;
constexpr MoxCamErr GenICamUnknownParameter = -40205;
constexpr MoxCamErr GenICamInvalidArgument = -40206;
constexpr MoxCamErr GenICamRuntime = -40207;

} // namespace MoxCamError

#endif
