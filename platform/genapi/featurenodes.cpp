#include "featurenodes.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>

namespace MoxGenApi {

using namespace GenApi;

BooleanNode::BooleanNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : Node(map, description, position),
      m_onValue(parseInteger(description.text("OnValue")).value_or(1)),
      m_offValue(parseInteger(description.text("OffValue")).value_or(0))
{ }

void BooleanNode::resolve()
{
    Node::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

void BooleanNode::forget()
{
    Node::forget();
    m_value.forget();
}

std::int64_t BooleanNode::integer(bool ignoreCache)
{
    if (const bool *known = m_value.find(ignoreCache, m_map.evaluation))
        return *known;
    Evaluation guard(*this, Evaluation::Value);
    const bool value = m_source.integer(ignoreCache) == m_onValue;
    m_value.store(value, keepsValue, ignoreCache, m_map.evaluation);
    return value;
}

void BooleanNode::setInteger(std::int64_t value, bool verify)
{
    Evaluation guard(*this, Evaluation::Write);
    m_map.touch(*this);
    m_source.setInteger(value ? m_onValue : m_offValue, verify);
}

void BooleanNode::SetValue(bool value, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setInteger(value, verify);
    });
}

bool BooleanNode::GetValue(bool, bool ignoreCache) const
{
    AutoLock lock(m_map.GetLock());
    auto *self = const_cast<BooleanNode *>(this);
    self->requireReadable();
    return self->integer(ignoreCache) != 0;
}

std::string BooleanNode::printed(bool ignoreCache)
{
    return integer(ignoreCache) ? "true" : "false";
}

void BooleanNode::setPrinted(const std::string &text, bool verify)
{
    const std::string word = trimmed(text);
    const bool isTrue = word == "true" || word == "True" || word == "1";
    if (!isTrue && word != "false" && word != "False" && word != "0")
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is neither true nor false.", name(), text.c_str());
    SetValue(isTrue, verify);
}

void CommandNode::resolve()
{
    Node::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
    m_commandValue = linkTo(Role::Operand, "pCommandValue");
}

std::int64_t CommandNode::commandValue()
{
    return m_commandValue ? m_commandValue->integer(false)
                          : parseInteger(m_description.text("CommandValue")).value_or(1);
}

std::int64_t CommandNode::integer(bool)
{
    return isDone() ? 0 : 1;
}

void CommandNode::setInteger(std::int64_t, bool verify)
{
    Evaluation guard(*this, Evaluation::Write);
    m_map.touch(*this);
    m_map.discardWritten();
    m_source.setInteger(commandValue(), verify);
}

void CommandNode::Execute(bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setInteger(1, verify);
    });
}

// The device takes the command value back by itself, so this always asks the device.
bool CommandNode::isDone()
{
    if (const bool *known = m_done.find(true, m_map.evaluation))
        return *known;
    if (!IsReadable(m_source.mode()) || !m_source.target())
        return true;
    Evaluation guard(*this, Evaluation::Value);
    const bool done = m_source.integer(true) != commandValue();
    m_done.store(done, false, true, m_map.evaluation);
    return done;
}

bool CommandNode::IsDone(bool verify)
{
    AutoLock lock(m_map.GetLock());
    if (verify && !IsAvailable(accessMode()))
        throw ACCESS_EXCEPTION("Node '%s' is not available.", name());
    return isDone();
}

std::string CommandNode::printed(bool)
{
    return isDone() ? "true" : "false";
}

// Whatever the text, writing a command executes it.
void CommandNode::setPrinted(const std::string &, bool verify)
{
    Execute(verify);
}

void StringNode::forget()
{
    Node::forget();
    m_value.forget();
}

std::string StringNode::text(bool ignoreCache)
{
    if (const std::string *known = m_value.find(ignoreCache, m_map.evaluation))
        return *known;
    Evaluation guard(*this, Evaluation::Value);
    std::string value = readText(ignoreCache);
    m_value.store(value, keepsValue, ignoreCache, m_map.evaluation);
    return value;
}

void StringNode::setText(const std::string &text, bool verify)
{
    // From here on an uncached length is read once. A longer text has no place to go, verified or not.
    Evaluation guard(*this, Evaluation::Write);
    const std::int64_t longest = textMax();
    if (static_cast<std::int64_t>(text.size()) > longest)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': a text of %lld bytes is longer than the %lld allowed.", name(),
                                     static_cast<long long>(text.size()), static_cast<long long>(longest));
    m_map.touch(*this);
    writeText(text, verify);
}

void StringNode::SetValue(const gcstring &value, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setText(std::string(value.c_str()), verify);
    });
}

gcstring StringNode::GetValue(bool, bool ignoreCache)
{
    AutoLock lock(m_map.GetLock());
    requireReadable();
    return gcstring(text(ignoreCache));
}

std::int64_t StringNode::GetMaxLength()
{
    AutoLock lock(m_map.GetLock());
    return textMax();
}

void StringNode::setPrinted(const std::string &text, bool verify)
{
    SetValue(gcstring(text), verify);
}

void StringFeature::resolve()
{
    StringNode::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

std::int64_t StringFeature::textMax()
{
    Node *target = m_source.target();
    if (!target)
        return StringNode::textMax();
    Evaluation guard(*this, Evaluation::Presentation);
    return target->textMax();
}

void CategoryNode::resolve()
{
    Node::resolve();
    for (const Property &property : m_description.properties) {
        if (property.tag != "pFeature")
            continue;
        if (Node *feature = link(Role::Mention, property.text))
            m_features.push_back(feature);
    }
}

void CategoryNode::GetFeatures(FeatureList_t &features) const
{
    features.assign(m_features.begin(), m_features.end());
}

void CategoryNode::leaveOut(const Node *ancestor)
{
    m_features.erase(std::remove(m_features.begin(), m_features.end(), ancestor), m_features.end());
}

void PortNode::Read(void *buffer, std::int64_t address, std::int64_t length)
{
    AutoLock lock(m_map.GetLock());
    requireReadable();
    m_map.port().Read(buffer, address, length);
}

// The nodes whose registers were written are not looked for: all that read through this port goes stale.
void PortNode::Write(const void *buffer, std::int64_t address, std::int64_t length)
{
    change([&] {
        requireWritable();
        m_map.touch(*this);
        m_map.port().Write(buffer, address, length);
        m_map.countWrite();
    });
}

} // namespace MoxGenApi
