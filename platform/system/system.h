// The SDK's view of the machine.
#ifndef MOXSDK_SYSTEM_H
#define MOXSDK_SYSTEM_H

#include <MoxCameraApi/MoxCam.h>

#include "../device/interface.h"

#include <memory>
#include <mutex>
#include <vector>

namespace MoxSdk {

/**
 * The one system of the process. It counts its users and lives from the first `acquire` to the last `Release`; one
 * that is never released is left to the process's end. Safe from any thread.
 */
class System final : public MoxCam::System
{
public:
    /** The living system, or a new one, with one more user. */
    static System *acquire();

    void Release() override;
    MoxCam::InterfaceList *GetInterfaceList(std::uint32_t typeMask) override;

private:
    using MakeBackend = std::unique_ptr<Backend> (*)();

    System() = default;
    ~System() = default;
    Backend *backend(std::unique_ptr<Backend> &kept, MakeBackend make);

    std::mutex m_mutex; // guards the making of the backends
    std::unique_ptr<Backend> m_real;
    std::unique_ptr<Backend> m_simulated;
};

} // namespace MoxSdk

#endif
