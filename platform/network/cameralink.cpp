#include "cameralink.h"

#include <utility>

namespace MoxSdk {

namespace {

constexpr std::chrono::milliseconds searchPeriod{1000};

/** Whether there is anything to move. */
bool checkRange(std::int64_t address, std::int64_t length)
{
    if (address < 0 || length < 0)
        throw OUT_OF_RANGE_EXCEPTION("a register has a negative address or length");
    return length > 0;
}

} // namespace

template<class Access> auto CameraLink::access(Access function)
{
    const std::lock_guard<std::mutex> lock(m_channelMutex);
    // Those who waited for the lock while the camera was lost do not wait for its answer too.
    if (!m_connected)
        throw TIMEOUT_EXCEPTION("the camera is not connected");
    try {
        return function(*m_channel);
    } catch (const GenICam_3_0::TimeoutException &) {
        // One register without an answer does not make a lost camera.
        if (!m_channel->isAlive()) {
            m_connected = false;
            wake();
        }
        throw;
    }
}

CameraLink::CameraLink(const Opener &opens, Opener reopens)
    : m_reopens(std::move(reopens)), m_channel(opens(m_stop)), m_thread([this] { watch(); })
{ }

CameraLink::~CameraLink()
{
    {
        const std::lock_guard<std::mutex> lock(m_wakeMutex);
        m_ending = true;
    }
    m_stop.raise();
    m_wakeUp.notify_all();
    m_thread.join();
    // The channel may wait for the camera to hear that it is given up.
    m_stop.lower();
}

std::string CameraLink::description()
{
    return access([](Channel &channel) { return channel.description(); });
}

void CameraLink::setListener(Listener listener)
{
    {
        const std::lock_guard<std::mutex> lock(m_listenerMutex);
        m_listener = std::move(listener);
    }
    // The camera may have been lost between its opening and this call.
    wake();
}

GenApi_3_0::EAccessMode CameraLink::GetAccessMode() const
{
    return m_connected ? GenApi_3_0::RW : GenApi_3_0::NA;
}

void CameraLink::Read(void *buffer, std::int64_t address, std::int64_t length)
{
    if (!checkRange(address, length))
        return;
    access([&](Channel &channel) {
        channel.read(buffer, static_cast<std::uint64_t>(address), static_cast<std::size_t>(length));
    });
}

void CameraLink::Write(const void *buffer, std::int64_t address, std::int64_t length)
{
    if (!checkRange(address, length))
        return;
    access([&](Channel &channel) {
        channel.write(buffer, static_cast<std::uint64_t>(address), static_cast<std::size_t>(length));
    });
}

void CameraLink::watch()
{
    for (;;) {
        announce();
        {
            std::unique_lock<std::mutex> lock(m_wakeMutex);
            const auto period = m_connected ? m_channel->alivePeriod() : searchPeriod;
            m_wakeUp.wait_for(lock, period, [this] { return m_ending || m_woken; });
            if (m_ending)
                return;
            if (std::exchange(m_woken, false))
                continue;
        }
        if (m_connected)
            checkPresence();
        else
            reopen();
    }
}

void CameraLink::checkPresence()
{
    const std::lock_guard<std::mutex> lock(m_channelMutex);
    if (m_connected && !m_channel->isAlive())
        m_connected = false;
}

void CameraLink::reopen()
{
    // The old channel goes first: giving up control after the new one took it would take it away again. That may wait
    // for an answer, which nobody else shall wait for.
    std::unique_ptr<Channel> old;
    {
        const std::lock_guard<std::mutex> lock(m_channelMutex);
        old = std::move(m_channel);
    }
    old.reset();
    try {
        std::unique_ptr<Channel> channel = m_reopens(m_stop);
        const std::lock_guard<std::mutex> lock(m_channelMutex);
        m_channel = std::move(channel);
        m_connected = true;
    } catch (const std::exception &) {
        // Still gone, or taken by another application meanwhile: the search goes on.
    }
}

void CameraLink::announce()
{
    const std::lock_guard<std::mutex> lock(m_listenerMutex);
    const bool connected = m_connected;
    if (!m_listener || connected == m_announced)
        return;
    m_announced = connected;
    m_listener(connected);
}

void CameraLink::wake()
{
    {
        const std::lock_guard<std::mutex> lock(m_wakeMutex);
        m_woken = true;
    }
    m_wakeUp.notify_all();
}

} // namespace MoxSdk
