#include "registeraccess.h"

#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <limits>

namespace MoxGenApi {

using namespace GenApi;

namespace {

// A length that a description computes may be nonsense; no register is longer than this.
constexpr std::int64_t longestRegister = 64 * 1024 * 1024;

// A register at the very end of the address space ends there.
std::int64_t endOf(std::int64_t address, std::size_t size)
{
    const std::int64_t room = std::numeric_limits<std::int64_t>::max() - std::max<std::int64_t>(address, 0);
    return address + std::min(static_cast<std::int64_t>(size), room);
}

} // namespace

RegisterAccess::~RegisterAccess() = default;

bool RegisterAccess::resolveRegister(const LinkFunction &link)
{
    bool complete = true;
    const auto operand = [&](const std::string &name) {
        Node *node = link(Role::Operand, name);
        complete = complete && node;
        return node;
    };
    for (const Property &property : m_node.description().properties) {
        const std::string &tag = property.tag;
        if (tag == "Address") {
            // Addresses add up, modulo the address space.
            const auto part = static_cast<std::uint64_t>(parseInteger(property.text).value_or(0));
            m_baseAddress = static_cast<std::int64_t>(static_cast<std::uint64_t>(m_baseAddress) + part);
        } else if (tag == "pAddress") {
            m_addressNodes.push_back(operand(property.text));
        } else if (tag == "pIndex") {
            Node *index = operand(property.text);
            Node *factor = property.pOffset.empty() ? nullptr : operand(property.pOffset);
            m_indexes.push_back({index, parseInteger(property.argument).value_or(0), factor});
        } else if (tag == "Length") {
            m_declaredLength = parseInteger(property.text).value_or(0);
        } else if (tag == "pLength") {
            m_lengthNode = operand(property.text);
        } else if (tag == "AccessMode") {
            m_declaredMode = modeFromText(property.text, RO);
        } else if (tag == "pPort") {
            Node *port = link(Role::Port, property.text);
            m_hasPort = port && port->description().isDevicePort();
        }
    }
    return complete;
}

EAccessMode RegisterAccess::registerMode() const
{
    return m_hasPort ? m_declaredMode : NA;
}

std::int64_t RegisterAccess::length()
{
    const std::int64_t length = m_lengthNode ? m_lengthNode->integer(false) : m_declaredLength;
    if (length <= 0 || length > longestRegister)
        throw RUNTIME_EXCEPTION("Node '%s': %lld is no possible length of a register.", m_node.name(),
                                static_cast<long long>(length));
    return length;
}

std::int64_t RegisterAccess::address()
{
    if (m_address)
        return *m_address;
    const auto valueOf = [this](Node *node) {
        if (!node)
            throw RUNTIME_EXCEPTION("The address of node '%s' depends on a node that the description does not have.",
                                    m_node.name());
        return static_cast<std::uint64_t>(node->integer(false));
    };
    auto address = static_cast<std::uint64_t>(m_baseAddress);
    for (Node *node : m_addressNodes)
        address += valueOf(node);
    for (const Offset &offset : m_indexes) {
        auto factor = static_cast<std::uint64_t>(offset.factor);
        if (offset.factorNode)
            factor = valueOf(offset.factorNode);
        else if (factor == 0)
            factor = static_cast<std::uint64_t>(length());
        address += valueOf(offset.node) * factor;
    }
    const auto result = static_cast<std::int64_t>(address);
    if (m_node.keepsOperands)
        m_address = result;
    return result;
}

Bytes RegisterAccess::bytes(bool ignoreCache)
{
    const std::int64_t at = address();
    const std::int64_t size = length();
    if (m_isHeld && !ignoreCache && m_heldAddress == at && heldLength() == size)
        return m_held;
    if (!m_hasPort)
        throw ACCESS_EXCEPTION("Node '%s' lies behind a port that is not there.", m_node.name());
    Bytes fresh(static_cast<std::size_t>(size));
    m_node.map().port().Read(fresh.data(), at, size);
    if (m_isHeld && m_held != fresh)
        m_node.map().forgetDependents(m_node);
    if (m_node.keepsValue)
        hold(at, fresh);
    return fresh;
}

void RegisterAccess::setBytes(const Bytes &bytes)
{
    if (!m_hasPort)
        throw ACCESS_EXCEPTION("Node '%s' lies behind a port that is not there.", m_node.name());
    const std::int64_t at = address();
    NodeMap &map = m_node.map();
    map.touch(m_node);
    try {
        map.port().Write(bytes.data(), at, static_cast<std::int64_t>(bytes.size()));
    } catch (...) {
        // The device may have taken the bytes all the same.
        for (RegisterAccess *other : overlapping(at, bytes.size()))
            map.touchOverlapped(other->m_node);
        throw;
    }
    map.countWrite();
    m_isWriting = true;
    hold(at, bytes);
    for (RegisterAccess *other : overlapping(at, bytes.size())) {
        if (sharesBits(*other, at, bytes.size()))
            map.touchOverlapped(other->m_node);
        else
            other->patch(at, bytes);
    }
}

std::vector<RegisterAccess *> RegisterAccess::overlapping(std::int64_t address, std::size_t size) const
{
    std::vector<RegisterAccess *> found;
    const NodeMap &map = m_node.map();
    const std::int64_t end = endOf(address, size);
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    auto at = map.heldRegisters.lower_bound(address < lowest + map.longestHeld ? lowest : address - map.longestHeld);
    for (; at != map.heldRegisters.end() && at->first < end; ++at) {
        if (at->second != this && endOf(at->first, at->second->m_held.size()) > address)
            found.push_back(at->second);
    }
    return found;
}

// Nodes that show other bits of the same bytes keep theirs, with what was just written; nodes that show the same bits
// have changed as well.
bool RegisterAccess::sharesBits(const RegisterAccess &other, std::int64_t address, std::size_t size) const
{
    const std::int64_t first = std::max(address, other.m_heldAddress);
    const std::int64_t last = std::min(endOf(address, size), endOf(other.m_heldAddress, other.m_held.size()));
    for (std::int64_t i = first; i < last; ++i) {
        if (shownBits(static_cast<std::size_t>(i - address))
            & other.shownBits(static_cast<std::size_t>(i - other.m_heldAddress)))
            return true;
    }
    return false;
}

void RegisterAccess::patch(std::int64_t address, const Bytes &bytes)
{
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::int64_t index = address - m_heldAddress + static_cast<std::int64_t>(i);
        if (index >= 0 && index < heldLength())
            m_held[static_cast<std::size_t>(index)] = bytes[i];
    }
}

std::uint8_t RegisterAccess::shownBits(std::size_t) const
{
    return 0xff;
}

void RegisterAccess::hold(std::int64_t address, Bytes bytes)
{
    NodeMap &map = m_node.map();
    if (!m_isHeld || m_heldAddress != address) {
        release();
        map.heldRegisters.emplace(address, this);
    }
    m_held = std::move(bytes);
    m_heldAddress = address;
    m_isHeld = true;
    map.longestHeld = std::max(map.longestHeld, heldLength());
}

void RegisterAccess::release()
{
    if (!m_isHeld)
        return;
    NodeMap::HeldRegisters &held = m_node.map().heldRegisters;
    const auto range = held.equal_range(m_heldAddress);
    held.erase(std::find_if(range.first, range.second, [this](const auto &entry) { return entry.second == this; }));
    m_isHeld = false;
}

void RegisterAccess::forgetRegister()
{
    m_address.reset();
    // What was just written outlives the change that wrote it; `settleRegister` decides on it.
    if (!m_isWriting)
        release();
}

void RegisterAccess::settleRegister(bool keep)
{
    const bool wasWriting = std::exchange(m_isWriting, false);
    if (!keep || (wasWriting && m_node.GetCachingMode() != WriteThrough))
        release();
}

void RegisterAccess::Set(const std::uint8_t *buffer, std::int64_t size, bool verify)
{
    m_node.map().change(m_node, [&] {
        if (verify)
            m_node.requireWritable();
        if (!buffer || size != length())
            throw INVALID_ARGUMENT_EXCEPTION("Node '%s' takes %lld bytes, not %lld.", m_node.name(),
                                             static_cast<long long>(length()), static_cast<long long>(size));
        setBytes(Bytes(buffer, buffer + size));
    });
}

void RegisterAccess::Get(std::uint8_t *buffer, std::int64_t size, bool, bool ignoreCache)
{
    AutoLock lock(m_node.map().GetLock());
    m_node.requireReadable();
    // The device may decide on the length, and change it in between.
    std::int64_t actual = length();
    Bytes content;
    if (buffer && size == actual) {
        content = bytes(ignoreCache);
        actual = static_cast<std::int64_t>(content.size());
    }
    if (!buffer || size != actual)
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s' has %lld bytes, not %lld.", m_node.name(),
                                         static_cast<long long>(actual), static_cast<long long>(size));
    std::copy(content.begin(), content.end(), buffer);
}

std::int64_t RegisterAccess::GetLength()
{
    AutoLock lock(m_node.map().GetLock());
    return length();
}

std::int64_t RegisterAccess::GetAddress()
{
    AutoLock lock(m_node.map().GetLock());
    return address();
}

} // namespace MoxGenApi
