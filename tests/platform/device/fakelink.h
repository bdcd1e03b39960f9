// A camera of four bytes that can be lost.
#ifndef MOX_FAKELINK_H
#define MOX_FAKELINK_H

#include "device/link.h"

#include <GenApi/GenApi.h>

#include <atomic>
#include <cstring>

namespace MoxTest {

/** What outlives the link, for the test to look at. */
struct FakeCamera
{
    std::string description =
        "<RegisterDescription><Category Name='Root'><pFeature>Width</pFeature></Category><Port Name='Device'/>"
        "<IntReg Name='Width'><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
        "</IntReg></RegisterDescription>";
    std::atomic<bool> gone{false};
    std::atomic<std::uint32_t> width{64};
    MoxSdk::Link::Listener listener;
    std::atomic<int> links{0}; ///< alive
};

class FakeLink final : public MoxSdk::Link, public GenApi::IPort
{
public:
    explicit FakeLink(FakeCamera &camera) : m_camera(camera) { ++m_camera.links; }
    ~FakeLink() override { --m_camera.links; }

    std::string description() override
    {
        check();
        return m_camera.description;
    }
    GenApi::IPort &port() override { return *this; }
    void setListener(Listener listener) override { m_camera.listener = std::move(listener); }

    GenApi::EAccessMode GetAccessMode() const override { return m_camera.gone ? GenApi::NA : GenApi::RW; }
    void Read(void *buffer, std::int64_t, std::int64_t length) override
    {
        check();
        const std::uint32_t width = m_camera.width;
        std::memcpy(buffer, &width, std::size_t(length));
    }
    void Write(const void *buffer, std::int64_t, std::int64_t length) override
    {
        check();
        std::uint32_t width = 0;
        std::memcpy(&width, buffer, std::size_t(length));
        m_camera.width = width;
    }

private:
    void check() const
    {
        if (m_camera.gone)
            throw TIMEOUT_EXCEPTION("The camera does not answer");
    }

    FakeCamera &m_camera;
};

} // namespace MoxTest

#endif
