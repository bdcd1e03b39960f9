#include "integernodes.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

namespace MoxGenApi {

using namespace GenApi;

void IntegerNode::resolve()
{
    Node::resolve();
    m_min = bound("Min", "pMin");
    m_max = bound("Max", "pMax");
    m_inc = bound("Inc", "pInc");
    m_representation = representationFromText(m_description.text("Representation"));
    std::istringstream list(m_description.text("ValidValueSet"));
    for (std::string item; std::getline(list, item, ';');) {
        if (const auto value = parseInteger(item))
            m_validValues.push_back(*value);
    }
    std::sort(m_validValues.begin(), m_validValues.end());
    m_validValues.erase(std::unique(m_validValues.begin(), m_validValues.end()), m_validValues.end());
}

IntegerNode::Bound IntegerNode::bound(const char *tag, const char *linkTag)
{
    Bound bound;
    bound.node = linkTo(Role::Limit, linkTag);
    if (const std::string *text = m_description.find(tag)) {
        bound.literal = parseInteger(*text);
        if (const auto real = parseReal(*text); !bound.literal && real)
            bound.literal = toInteger(*real);
    }
    return bound;
}

template<class Natural> std::int64_t IntegerNode::limit(Bound &bound, unsigned aspect, Natural natural)
{
    if (const std::int64_t *known = bound.kept.find(false, m_map.evaluation))
        return *known;
    if (bound.literal && !bound.node)
        return *bound.literal;
    Evaluation guard(*this, static_cast<Evaluation::Aspect>(aspect));
    std::int64_t value = 0;
    if (!bound.node)
        value = natural();
    else
        value = bound.node->isReal() ? toInteger(bound.node->real(false)) : bound.node->integer(false);
    bound.kept.store(value, keepsLimits, false, m_map.evaluation);
    return value;
}

std::int64_t IntegerNode::integerMin()
{
    return limit(m_min, Evaluation::Min, [this] { return naturalMin(); });
}

std::int64_t IntegerNode::integerMax()
{
    return limit(m_max, Evaluation::Max, [this] { return naturalMax(); });
}

std::int64_t IntegerNode::integerInc()
{
    return std::max<std::int64_t>(1, limit(m_inc, Evaluation::Inc, [this] { return naturalInc(); }));
}

const std::vector<std::int64_t> *IntegerNode::validIntegers()
{
    return m_validValues.empty() ? nullptr : &m_validValues;
}

void IntegerNode::forget()
{
    Node::forget();
    m_value.forget();
    m_min.kept.forget();
    m_max.kept.forget();
    m_inc.kept.forget();
}

std::int64_t IntegerNode::integer(bool ignoreCache)
{
    if (const std::int64_t *known = m_value.find(ignoreCache, m_map.evaluation))
        return *known;
    Evaluation guard(*this, Evaluation::Value);
    const std::int64_t value = readInteger(ignoreCache);
    m_value.store(value, keepsValue, ignoreCache, m_map.evaluation);
    return value;
}

void IntegerNode::setInteger(std::int64_t value, bool verify)
{
    if (verify)
        verifyValue(value);
    Evaluation guard(*this, Evaluation::Write);
    m_map.touch(*this);
    writeInteger(value, verify);
}

void IntegerNode::verifyValue(std::int64_t value)
{
    const std::int64_t min = integerMin();
    const std::int64_t max = integerMax();
    if (value < min)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %lld must be greater than or equal to %lld.", name(),
                                     static_cast<long long>(value), static_cast<long long>(min));
    if (value > max)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %lld must be smaller than or equal to %lld.", name(),
                                     static_cast<long long>(value), static_cast<long long>(max));
    if (const std::vector<std::int64_t> *valid = validIntegers()) {
        if (!std::binary_search(valid->begin(), valid->end(), value))
            throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %lld is none of the valid values.", name(),
                                         static_cast<long long>(value));
        return;
    }
    const std::int64_t inc = integerInc();
    // The distance from the minimum fits an unsigned number, whatever the signs.
    const std::uint64_t distance = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(min);
    if (inc > 1 && distance % static_cast<std::uint64_t>(inc) != 0)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': The difference between value %lld and the minimum %lld must be a "
                                     "multiple of %lld.",
                                     name(), static_cast<long long>(value), static_cast<long long>(min),
                                     static_cast<long long>(inc));
}

void IntegerNode::SetValue(std::int64_t value, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setInteger(value, verify);
    });
}

std::int64_t IntegerNode::GetValue(bool verify, bool ignoreCache)
{
    AutoLock lock(m_map.GetLock());
    requireReadable();
    const std::int64_t value = integer(ignoreCache);
    if (verify && (value < integerMin() || value > integerMax()))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %lld lies outside of %lld to %lld.", name(),
                                     static_cast<long long>(value), static_cast<long long>(integerMin()),
                                     static_cast<long long>(integerMax()));
    return value;
}

std::int64_t IntegerNode::GetMin()
{
    AutoLock lock(m_map.GetLock());
    return integerMin();
}

std::int64_t IntegerNode::GetMax()
{
    AutoLock lock(m_map.GetLock());
    return integerMax();
}

EIncMode IntegerNode::GetIncMode()
{
    AutoLock lock(m_map.GetLock());
    return validIntegers() ? listIncrement : fixedIncrement;
}

std::int64_t IntegerNode::GetInc()
{
    AutoLock lock(m_map.GetLock());
    return integerInc();
}

int64_autovector_t IntegerNode::GetListOfValidValues(bool bounded)
{
    AutoLock lock(m_map.GetLock());
    std::vector<std::int64_t> values;
    if (const std::vector<std::int64_t> *valid = validIntegers()) {
        for (std::int64_t value : *valid) {
            if (!bounded || (value >= integerMin() && value <= integerMax()))
                values.push_back(value);
        }
    }
    return int64_autovector_t(std::move(values));
}

ERepresentation IntegerNode::GetRepresentation()
{
    AutoLock lock(m_map.GetLock());
    const ERepresentation own = representation();
    return own == _UndefinedRepresentation ? PureNumber : own;
}

gcstring IntegerNode::GetUnit()
{
    AutoLock lock(m_map.GetLock());
    return gcstring(unit());
}

std::string IntegerNode::printed(bool ignoreCache)
{
    return formatInteger(integer(ignoreCache), representation());
}

void IntegerNode::setPrinted(const std::string &text, bool verify)
{
    std::optional<std::int64_t> value;
    {
        AutoLock lock(m_map.GetLock());
        value = parseInteger(text, representation());
    }
    if (!value)
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is no integer.", name(), text.c_str());
    SetValue(*value, verify);
}

void IntegerFeature::resolve()
{
    IntegerNode::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

ERepresentation IntegerFeature::representation()
{
    return ownOrTargets(*this, m_source, IntegerNode::representation(), _UndefinedRepresentation,
                        &Node::representation);
}

std::string IntegerFeature::unit()
{
    return ownOrTargets(*this, m_source, IntegerNode::unit(), {}, &Node::unit);
}

const std::vector<std::int64_t> *IntegerFeature::validIntegers()
{
    return ownOrTargets(*this, m_source, IntegerNode::validIntegers(), nullptr, &Node::validIntegers);
}

std::int64_t IntegerFeature::naturalMin()
{
    Node *target = m_source.target();
    if (!target)
        return IntegerNode::naturalMin();
    return target->isReal() ? toInteger(std::ceil(target->realMin())) : target->integerMin();
}

std::int64_t IntegerFeature::naturalMax()
{
    Node *target = m_source.target();
    if (!target)
        return IntegerNode::naturalMax();
    return target->isReal() ? toInteger(std::floor(target->realMax())) : target->integerMax();
}

std::int64_t IntegerFeature::naturalInc()
{
    Node *target = m_source.target();
    return target ? target->integerInc() : 1;
}

IntConverterNode::IntConverterNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : IntegerNode(map, description, position),
      m_to(*this, description.text("FormulaTo")),
      m_from(*this, description.text("FormulaFrom"))
{ }

void IntConverterNode::resolve()
{
    IntegerNode::resolve();
    const auto enter = [this](Role role, const std::string &name) { return link(role, name); };
    m_source.resolve(*this, enter);
    m_hasBrokenOperand = !m_variables.resolve(*this, enter);
}

EAccessMode IntConverterNode::combinedMode()
{
    return IsReadable(operandMode()) ? m_source.mode() : NA;
}

std::int64_t IntConverterNode::readInteger(bool ignoreCache)
{
    return m_from.integer(m_variables, ignoreCache, "TO", m_source.integer(ignoreCache));
}

void IntConverterNode::writeInteger(std::int64_t value, bool verify)
{
    m_source.setInteger(m_to.integer(m_variables, false, "FROM", value), verify);
}

std::pair<std::int64_t, std::int64_t> IntConverterNode::limits()
{
    constexpr std::pair<std::int64_t, std::int64_t> everything{std::numeric_limits<std::int64_t>::min(),
                                                               std::numeric_limits<std::int64_t>::max()};
    Node *target = m_source.target();
    const std::int64_t min = target ? target->integerMin() : everything.first;
    const std::int64_t max = target ? target->integerMax() : everything.second;
    // A formula over the whole range of an integer overflows, and a varying one has its extremes anywhere.
    if (m_description.text("Slope") == "Varying" || min == everything.first || max == everything.second)
        return everything;
    const auto a = m_from.integerLimit(m_variables, "TO", min);
    const auto b = m_from.integerLimit(m_variables, "TO", max);
    if (!a || !b)
        return everything;
    return {std::min(*a, *b), std::max(*a, *b)};
}

IntSwissKnifeNode::IntSwissKnifeNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : IntegerNode(map, description, position), m_formula(*this, description.text("Formula"))
{ }

void IntSwissKnifeNode::resolve()
{
    IntegerNode::resolve();
    m_hasBrokenOperand =
        !m_variables.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

void IntSwissKnifeNode::writeInteger(std::int64_t, bool)
{
    throw ACCESS_EXCEPTION("Node '%s' is not writable.", name());
}

} // namespace MoxGenApi
