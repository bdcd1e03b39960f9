// Ends waits for an answer of a camera.
#ifndef MOXSDK_STOPSIGNAL_H
#define MOXSDK_STOPSIGNAL_H

#include <sys/eventfd.h>
#include <unistd.h>

namespace MoxSdk {

/** While it is raised, no socket that was given it waits. Owned by a link; any thread. */
class StopSignal
{
public:
    StopSignal() : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) { }
    ~StopSignal() { ::close(m_descriptor); }
    StopSignal(const StopSignal &) = delete;
    StopSignal &operator=(const StopSignal &) = delete;

    void raise() { ::eventfd_write(m_descriptor, 1); }
    void lower()
    {
        eventfd_t value = 0;
        ::eventfd_read(m_descriptor, &value);
    }
    /** Readable while raised. */
    int descriptor() const { return m_descriptor; }

private:
    const int m_descriptor;
};

} // namespace MoxSdk

#endif
