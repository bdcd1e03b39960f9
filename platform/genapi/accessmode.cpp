// How a node's access mode follows from its conditions, from what holds its value, and from the port.
#include "evaluation.h"
#include "node.h"
#include "nodemap.h"

namespace MoxGenApi {

using namespace GenApi;

EAccessMode intersected(EAccessMode a, EAccessMode b)
{
    if (a == NI || b == NI)
        return NI;
    const bool readable = IsReadable(a) && IsReadable(b);
    const bool writable = IsWritable(a) && IsWritable(b);
    if (readable)
        return writable ? RW : RO;
    return writable ? WO : NA;
}

EAccessMode modeFromText(const std::string &text, EAccessMode otherwise)
{
    if (text == "RO")
        return RO;
    if (text == "WO")
        return WO;
    return text == "RW" ? RW : otherwise;
}

EAccessMode Node::GetAccessMode() const
{
    AutoLock lock(m_map.GetLock());
    return const_cast<Node *>(this)->accessMode();
}

EAccessMode Node::accessMode()
{
    if (!usesPort)
        return describedMode();
    // The port is asked each time: a device goes without telling its nodes. While it is gone no condition can be read.
    const EAccessMode port = m_map.port().GetAccessMode();
    if (!IsAvailable(port))
        return NA;
    return intersected(describedMode(), port);
}

EAccessMode Node::describedMode()
{
    if (const EAccessMode *known = m_mode.find(false, m_map.evaluation)) {
        if (m_isModeOfCircle)
            ++m_map.modeCircles;
        return *known;
    }
    // Conditions may refer in a circle; the second visit decides nothing.
    if (m_busy & Evaluation::Mode) {
        ++m_map.modeCircles;
        return RW;
    }
    const std::uint64_t circles = m_map.modeCircles;
    Evaluation guard(*this, Evaluation::Mode);
    const EAccessMode mode = computeMode();
    // A mode that was found within a circle depends on where the circle was entered, so only the entrance keeps it; the
    // others hold until this evaluation ends, or the ways round a circle would be walked in every order.
    const bool certain = m_map.modeCircles == circles || m_map.evaluationDepth == 1;
    m_isModeOfCircle = !certain;
    m_mode.store(mode, keepsMode && certain && IsAvailable(m_map.port().GetAccessMode()), false, m_map.evaluation);
    return mode;
}

EAccessMode Node::computeMode()
{
    if (m_implemented) {
        const auto implemented = condition(m_implemented);
        if (!implemented)
            return NA;
        if (!*implemented)
            return NI;
    }
    EAccessMode mode = intersected(m_imposed, sourceMode());
    if (mode == NI || (m_available && !condition(m_available).value_or(false)))
        return mode == NI ? NI : NA;
    // A lock that cannot be read counts as locked.
    if (m_locked && condition(m_locked).value_or(true))
        mode = intersected(mode, RO);
    return mode;
}

std::optional<bool> Node::condition(Node *node)
{
    if (!IsReadable(node->accessMode()))
        return std::nullopt;
    return node->isReal() ? node->real(false) != 0 : node->integer(false) != 0;
}

EAccessMode Node::operandMode()
{
    if (m_hasBrokenOperand)
        return NA;
    for (const Link &link : m_links) {
        if (link.role == Role::Operand && !IsReadable(link.target->accessMode()))
            return NA;
    }
    return RO;
}

void Node::requireReadable()
{
    if (!IsReadable(accessMode()))
        throw ACCESS_EXCEPTION("Node '%s' is not readable.", name());
}

void Node::requireWritable()
{
    if (!IsWritable(accessMode()))
        throw ACCESS_EXCEPTION("Node '%s' is not writable.", name());
}

} // namespace MoxGenApi
