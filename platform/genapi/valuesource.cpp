#include "valuesource.h"

#include "nodemap.h"
#include "numbers.h"

namespace MoxGenApi {

using namespace GenApi;

ValueSource::Slot ValueSource::slot(const Property &property, const LinkFunction &link)
{
    Slot slot;
    slot.content = property.text;
    slot.isLiteral = property.tag.front() != 'p';
    if (!slot.isLiteral)
        slot.node = link(Role::Value, property.text);
    return slot;
}

void ValueSource::resolve(Node &owner, const LinkFunction &link)
{
    m_owner = &owner;
    for (const Property &property : owner.description().properties) {
        const std::string &tag = property.tag;
        if (tag == "Value" || tag == "pValue" || tag == "ValueDefault" || tag == "pValueDefault") {
            m_main = slot(property, link);
        } else if (tag == "pValueCopy") {
            if (Node *copy = link(Role::Value, property.text))
                m_copies.push_back(copy);
        } else if (tag == "ValueIndexed" || tag == "pValueIndexed") {
            m_indexed[parseInteger(property.argument).value_or(0)] = slot(property, link);
        } else if (tag == "pIndex") {
            m_isIndexed = true;
            m_index = link(Role::Operand, property.text);
        }
    }
}

ValueSource::Slot &ValueSource::current()
{
    if (m_index) {
        const auto found = m_indexed.find(m_index->integer(false));
        if (found != m_indexed.end())
            return found->second;
    }
    return m_main;
}

ValueSource::Slot &ValueSource::usable()
{
    if (m_isIndexed && !m_index)
        throw RUNTIME_EXCEPTION("Node '%s' is chosen by an index that the description does not have.", m_owner->name());
    Slot &slot = current();
    if (slot.node || slot.isLiteral)
        return slot;
    if (slot.content.empty())
        throw RUNTIME_EXCEPTION("Node '%s' has no value in the description.", m_owner->name());
    throw RUNTIME_EXCEPTION("Node '%s' takes its value from '%s', which the description does not have.",
                            m_owner->name(), slot.content.c_str());
}

Node *ValueSource::target()
{
    return m_isIndexed && !m_index ? nullptr : current().node;
}

EAccessMode ValueSource::mode()
{
    if (m_isIndexed && (!m_index || !IsReadable(m_index->accessMode())))
        return NA;
    const Slot &slot = current();
    if (slot.node)
        return slot.node->accessMode();
    return slot.isLiteral ? RW : NA;
}

std::int64_t ValueSource::integer(bool ignoreCache)
{
    Slot &slot = usable();
    if (slot.node)
        return slot.node->isReal() ? toInteger(slot.node->real(ignoreCache)) : slot.node->integer(ignoreCache);
    if (const auto value = parseInteger(slot.content))
        return *value;
    if (const auto value = parseReal(slot.content))
        return toInteger(*value);
    throw RUNTIME_EXCEPTION("The value '%s' of node '%s' is no number.", slot.content.c_str(), m_owner->name());
}

double ValueSource::real(bool ignoreCache)
{
    Slot &slot = usable();
    if (slot.node)
        return slot.node->real(ignoreCache);
    if (const auto value = parseReal(slot.content))
        return *value;
    throw RUNTIME_EXCEPTION("The value '%s' of node '%s' is no number.", slot.content.c_str(), m_owner->name());
}

std::string ValueSource::text(bool ignoreCache)
{
    Slot &slot = usable();
    return slot.node ? slot.node->text(ignoreCache) : slot.content;
}

void ValueSource::keep(Slot &slot, const std::string &content)
{
    slot.content = content;
    m_owner->map().countWrite();
}

void ValueSource::setInteger(std::int64_t value, bool verify)
{
    Slot &slot = usable();
    if (slot.node)
        slot.node->setInteger(value, verify);
    else
        keep(slot, std::to_string(value));
    for (Node *copy : m_copies)
        copy->setInteger(value, verify);
}

void ValueSource::setReal(double value, bool verify)
{
    Slot &slot = usable();
    if (slot.node)
        slot.node->setReal(value, verify);
    else
        keep(slot, formatReal(value));
    for (Node *copy : m_copies)
        copy->setReal(value, verify);
}

void ValueSource::setText(const std::string &text, bool verify)
{
    Slot &slot = usable();
    if (slot.node)
        slot.node->setText(text, verify);
    else
        keep(slot, text);
    for (Node *copy : m_copies)
        copy->setText(text, verify);
}

} // namespace MoxGenApi
