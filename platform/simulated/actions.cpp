#include "actions.h"

namespace MoxSdk {

void Actions::powerUp(std::chrono::nanoseconds)
{
    m_scheduled.clear();
}

bool Actions::commanded(const Action &action)
{
    unsigned actions = 0;
    for (int number = 0; number < actionCount; ++number)
        actions |= unsigned(isMeant(number, action)) << number;
    if (actions == 0)
        return false;
    if (!action.time || *action.time <= timestamp()) {
        perform(actions);
        return !action.time; // what comes too late for its time is done at once, but is no success
    }
    if (m_scheduled.size() >= std::size_t(m_registers.integer("ActionQueueSizeReg")))
        return false;
    m_scheduled.emplace(*action.time, actions);
    return true;
}

bool Actions::isMeant(int number, const Action &action) const
{
    return m_registers.integer("ActionDeviceKeyReg") == action.deviceKey
        && m_registers.integer("ActionGroupKeyReg", number) == action.groupKey
        && (m_registers.integer("ActionGroupMaskReg", number) & action.groupMask) != 0;
}

void Actions::advance(std::chrono::nanoseconds)
{
    while (!m_scheduled.empty() && m_scheduled.begin()->first <= timestamp()) {
        perform(m_scheduled.begin()->second);
        m_scheduled.erase(m_scheduled.begin());
    }
}

void Actions::perform(unsigned actions)
{
    for (int number = 0; number < actionCount; ++number) {
        if (actions >> number & 1)
            m_registers.setInteger("ActionCountReg", m_registers.integer("ActionCountReg", number) + 1, number);
    }
}

std::uint64_t Actions::timestamp() const
{
    return static_cast<std::uint64_t>(m_registers.integer("TimestampReg"));
}

} // namespace MoxSdk
