// The port: the register space that a description speaks about.
#ifndef GENAPI_IPORT_H
#define GENAPI_IPORT_H

#include <GenApi/INode.h>

namespace GenApi_3_0 {

/**
 * Memory access for a node map. Implemented by the transport: a camera on the wire, a simulated camera, an interface.
 *
 * Both operations move exactly @p length bytes or throw (`TimeoutException`, `AccessException`, `RuntimeException`).
 * They are called with the node map's lock held, from whatever thread uses the map. `GetAccessMode` is NA while the
 * device is gone.
 */
struct MOXSDK_INTERFACE IPort : virtual public IBase
{
    virtual void Read(void *buffer, std::int64_t address, std::int64_t length) = 0;
    virtual void Write(const void *buffer, std::int64_t address, std::int64_t length) = 0;
};

} // namespace GenApi_3_0

#endif
