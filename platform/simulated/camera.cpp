#include "camera.h"

#include "../device/eventthread.h"
#include "cameraplan.h"

#include <Base/GCException.h>

#include <thread>

namespace MoxSdk {

namespace {

/** Whether a host could have that address in that subnet; the subnet's own and its broadcast address are nobody's. */
bool isHostAddress(std::uint32_t address, std::uint32_t netmask)
{
    const std::uint32_t host = ~netmask;
    const bool wholeMask = netmask != 0 && (host & (host + 1)) == 0;
    const bool unicast = address >> 24 != 0 && address >> 24 < 224;
    return wholeMask && unicast && (address & host) != 0 && (address & host) != host;
}

} // namespace

void ListenerSlot::set(Link::Listener listener)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_listener = std::move(listener);
}

void ListenerSlot::call(bool connected)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    // A copy: the listener may take itself away while it runs.
    const Link::Listener listener = m_listener;
    if (listener)
        listener(connected);
}

Camera::Camera(CameraPlan plan, CameraClock clock) : m_plan(std::move(plan))
{
    if (m_plan.registers) {
        m_firmware = std::make_unique<Firmware>(*m_plan.registers, std::move(clock));
        writeIdentity();
    }
}

void Camera::writeIdentity()
{
    CameraRegisters &registers = m_firmware->registers();
    const DeviceRecord &record = m_plan.record;
    registers.setText("DeviceSerialNumber", record.serialNumber);
    registers.setText("DeviceUserID", record.userDefinedName);
    registers.setInteger("MacAddressHighReg", static_cast<std::int64_t>(record.macAddress >> 32));
    registers.setInteger("MacAddressLowReg", static_cast<std::int64_t>(record.macAddress & 0xFFFFFFFF));
    writeAddresses();
    // The links of USB 2 and USB 3, as USB3 Vision numbers them.
    registers.setInteger("LinkSpeedReg", m_plan.slowLink ? 4 : 8);
    m_firmware->derive();
}

void Camera::writeAddresses()
{
    if (!m_firmware)
        return;
    CameraRegisters &registers = m_firmware->registers();
    registers.setInteger("CurrentIPAddressReg", m_plan.record.ipAddress);
    registers.setInteger("CurrentSubnetMaskReg", m_plan.record.netmask);
    registers.setInteger("CurrentGatewayReg", m_plan.record.gateway);
}

DeviceRecord Camera::record() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    DeviceRecord result = m_plan.record;
    if (m_firmware)
        result.userDefinedName = m_firmware->registers().text("DeviceUserID");
    if (m_plan.reach == MoxSim::Reach::WrongSubnet)
        result.accessStatus = MoxCam::AccessSubnetMismatch;
    else if (m_plan.reach == MoxSim::Reach::Busy || m_controller)
        result.accessStatus = MoxCam::AccessNoAccess;
    else
        result.accessStatus = MoxCam::AccessReadWrite;
    return result;
}

std::string Camera::description() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    checkPresence();
    return *m_plan.description;
}

void Camera::setPlugged(bool plugged)
{
    changePresence([&] { m_plugged = plugged; });
}

bool Camera::isPlugged() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_plugged;
}

void Camera::setInterfacePlugged(bool plugged)
{
    changePresence([&] { m_interfacePlugged = plugged; });
}

template<typename Change> void Camera::changePresence(const Change &change)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool before = m_plugged && m_interfacePlugged;
    change();
    const bool after = m_plugged && m_interfacePlugged;
    // Posted under the lock, so that the calls come in the order of the changes.
    if (before != after && m_controller)
        EventThread::instance().post([slot = m_controller, after] { slot->call(after); });
}

void Camera::setReach(MoxSim::Reach reach)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    startAt(reach);
}

void Camera::startAt(MoxSim::Reach reach)
{
    const AdapterFacts adapter = adapterFacts(m_plan.position.interfaceType, m_plan.position.interfaceNumber);
    takeAddress(reach, cameraAddress(m_plan.position, reach), adapter.netmask, 0);
}

void Camera::takeAddress(MoxSim::Reach reach, std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway)
{
    m_plan.reach = reach;
    m_plan.record.ipAddress = ip;
    m_plan.record.netmask = netmask;
    m_plan.record.gateway = gateway;
    writeAddresses();
}

MoxSim::Reach Camera::reach() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_plan.reach;
}

MoxCamErr Camera::forceIp(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // It is told by broadcast, which this reach does not hear.
    if (!m_plugged || !m_interfacePlugged || m_plan.reach == MoxSim::Reach::Undiscovered)
        return MoxCamError::GenTLTimeout;
    if (m_plan.reach == MoxSim::Reach::Busy || m_controller)
        return MoxCamError::GenTLAccessDenied;
    if (ip == 0) {
        // The camera is to look for an address by itself, and its network gives it one.
        startAt(MoxSim::Reach::Open);
        return MoxCamError::Success;
    }
    if (!isHostAddress(ip, netmask))
        return MoxCamError::GenTLInvalidParameter;
    const AdapterFacts adapter = adapterFacts(m_plan.position.interfaceType, m_plan.position.interfaceNumber);
    takeAddress(adapter.contains(ip) ? MoxSim::Reach::Open : MoxSim::Reach::WrongSubnet, ip, netmask, gateway);
    return MoxCamError::Success;
}

std::optional<std::chrono::milliseconds> Camera::act(const Action &action)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // The broadcast is that of the adapter's subnet.
    const bool hears = m_plan.reach != MoxSim::Reach::Undiscovered && m_plan.reach != MoxSim::Reach::WrongSubnet;
    if (!m_firmware || !m_plugged || !m_interfacePlugged || !hears || !m_firmware->act(action))
        return std::nullopt;
    return std::chrono::milliseconds(10) * (m_plan.position.cameraNumber + 1) + m_accessDelay;
}

void Camera::setUserName(const std::string &userName)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_plan.record.userDefinedName = userName;
    if (m_firmware)
        m_firmware->registers().setText("DeviceUserID", userName);
}

void Camera::setAccessDelay(std::chrono::milliseconds delay)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_accessDelay = delay;
}

void Camera::failAccess(unsigned nth, bool repeat)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failNth = nth;
    m_failRepeatedly = repeat;
    m_accessesToFailure = nth;
}

std::uint64_t Camera::accessCount() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_accessCount;
}

void Camera::open(const std::shared_ptr<ListenerSlot> &slot)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const char *name = m_plan.record.displayName.c_str();
    if (!m_plugged || !m_interfacePlugged)
        throw ACCESS_EXCEPTION("%s is not there any more", name);
    if (m_plan.reach == MoxSim::Reach::Busy)
        throw ACCESS_EXCEPTION("%s is in use by another host", name);
    if (m_plan.reach == MoxSim::Reach::WrongSubnet)
        throw ACCESS_EXCEPTION("The address of %s lies outside the subnet of its adapter", name);
    if (m_controller)
        throw ACCESS_EXCEPTION("%s is in use by this application", name);
    m_controller = slot;
}

void Camera::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_controller.reset();
}

void Camera::read(void *bytes, std::int64_t address, std::int64_t length)
{
    const std::unique_lock<std::mutex> lock = beginAccess(length);
    auto *target = static_cast<std::uint8_t *>(bytes);
    if (m_firmware)
        m_firmware->read(target, address, length);
    else
        m_plainSpace.read(target, static_cast<std::uint64_t>(address), static_cast<std::uint64_t>(length));
}

void Camera::write(const void *bytes, std::int64_t address, std::int64_t length)
{
    const std::unique_lock<std::mutex> lock = beginAccess(length);
    const auto *source = static_cast<const std::uint8_t *>(bytes);
    if (m_firmware)
        m_firmware->write(source, address, length);
    else
        m_plainSpace.write(source, static_cast<std::uint64_t>(address), static_cast<std::uint64_t>(length));
}

std::unique_lock<std::mutex> Camera::beginAccess(std::int64_t length)
{
    if (length < 0)
        throw INVALID_ARGUMENT_EXCEPTION("An access cannot have a negative length");
    std::unique_lock<std::mutex> lock(m_mutex);
    ++m_accessCount;
    if (m_accessDelay.count() > 0) {
        const std::chrono::milliseconds delay = m_accessDelay;
        // Discovery and the knobs go on while the access takes its time; the plug may be pulled in the middle of it.
        lock.unlock();
        std::this_thread::sleep_for(delay);
        lock.lock();
    }
    checkPresence();
    if (m_accessesToFailure > 0 && --m_accessesToFailure == 0) {
        if (m_failRepeatedly)
            m_accessesToFailure = m_failNth;
        throw TIMEOUT_EXCEPTION("%s did not answer in time", m_plan.record.displayName.c_str());
    }
    return lock;
}

void Camera::checkPresence() const
{
    if (!m_plugged || !m_interfacePlugged)
        throw TIMEOUT_EXCEPTION("%s is not reachable", m_plan.record.displayName.c_str());
}

bool Camera::isReachable() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_plugged && m_interfacePlugged;
}

} // namespace MoxSdk
