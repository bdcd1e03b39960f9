// Result codes made of exceptions.
#ifndef MOXSDK_RESULTCODE_H
#define MOXSDK_RESULTCODE_H

#include <GenApi/INodeMap.h>
#include <MoxCameraApi/MoxCamErr.h>

namespace MoxSdk {

/**
 * The code of the exception that is being handled; called inside a catch block only. While the map's port is gone the
 * code is "no device" whatever the exception says, for that is what its user has to know.
 */
MoxCamErr failureCode(const GenApi::INodeMap &nodeMap) noexcept;

/** Sets an optional out-argument. */
inline void report(MoxCamErr *err, MoxCamErr code)
{
    if (err)
        *err = code;
}

/** Runs a read; an exception becomes its code and the zero value of the type. */
template<class Access> auto guardedRead(const GenApi::INodeMap &nodeMap, MoxCamErr *err, Access access)
{
    try {
        auto value = access();
        report(err, MoxCamError::Success);
        return value;
    } catch (...) {
        report(err, failureCode(nodeMap));
        return decltype(access()){};
    }
}

/** Runs a write; an exception becomes its code. */
template<class Access> MoxCamErr guardedWrite(const GenApi::INodeMap &nodeMap, Access access)
{
    try {
        access();
        return MoxCamError::Success;
    } catch (...) {
        return failureCode(nodeMap);
    }
}

} // namespace MoxSdk

#endif
