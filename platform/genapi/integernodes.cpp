#include "integernodes.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace MoxGenApi {

using namespace GenApi;

std::int64_t IntegerNode::integerInc()
{
    return std::max<std::int64_t>(1, limit(m_inc, Evaluation::Inc, [this] { return naturalInc(); }));
}

void IntegerNode::verifyValue(std::int64_t value)
{
    const std::int64_t min = integerMin();
    verifyRange(value, min, integerMax());
    if (const std::vector<std::int64_t> *valid = validValues()) {
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

EIncMode IntegerNode::GetIncMode()
{
    AutoLock lock(m_map.GetLock());
    return validValues() ? listIncrement : fixedIncrement;
}

std::int64_t IntegerNode::GetInc()
{
    AutoLock lock(m_map.GetLock());
    return integerInc();
}

int64_autovector_t IntegerNode::GetListOfValidValues(bool bounded)
{
    return int64_autovector_t(listOfValidValues(bounded));
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

const std::vector<std::int64_t> *IntegerFeature::validValues()
{
    return ownOrTargets(*this, m_source, IntegerNode::validValues(), nullptr, &Node::validIntegers);
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

std::int64_t IntConverterNode::readValue(bool ignoreCache)
{
    return m_from.integer(m_variables, ignoreCache, "TO", m_source.integer(ignoreCache));
}

void IntConverterNode::writeValue(std::int64_t value, bool verify)
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

} // namespace MoxGenApi
