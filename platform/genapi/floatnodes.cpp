#include "floatnodes.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <cmath>

namespace MoxGenApi {

using namespace GenApi;

std::int64_t FloatNode::integerMin()
{
    return toInteger(std::ceil(realMin()));
}

std::int64_t FloatNode::integerMax()
{
    return toInteger(std::floor(realMax()));
}

std::int64_t FloatNode::integer(bool ignoreCache)
{
    return toInteger(real(ignoreCache));
}

void FloatNode::setInteger(std::int64_t value, bool verify)
{
    setReal(static_cast<double>(value), verify);
}

// The increment of a float is for those who step through its values; a value between two steps is not refused, since
// decimal input seldom meets a step exactly.
void FloatNode::verifyValue(double value)
{
    if (std::isnan(value))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': The value is not a number.", name());
    const double least = realMin();
    verifyRange(value, least, realMax());
    const std::vector<double> *valid = validValues();
    if (valid && std::none_of(valid->begin(), valid->end(), [value](double candidate) {
            return std::abs(candidate - value) <= std::abs(candidate) * 1e-9;
        }))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s is none of the valid values.", name(),
                                     formatReal(value).c_str());
}

bool FloatNode::HasInc()
{
    return m_inc.literal || m_inc.node;
}

EIncMode FloatNode::GetIncMode()
{
    AutoLock lock(m_map.GetLock());
    if (validValues())
        return listIncrement;
    return HasInc() ? fixedIncrement : noIncrement;
}

double FloatNode::GetInc()
{
    AutoLock lock(m_map.GetLock());
    return limit(m_inc, Evaluation::Inc, [] { return 0.0; });
}

double_autovector_t FloatNode::GetListOfValidValues(bool bounded)
{
    return double_autovector_t(listOfValidValues(bounded));
}

gcstring FloatNode::GetUnit() const
{
    AutoLock lock(m_map.GetLock());
    return gcstring(const_cast<FloatNode *>(this)->unit());
}

EDisplayNotation FloatNode::GetDisplayNotation() const
{
    const std::string text = m_description.text("DisplayNotation");
    if (text == "Fixed")
        return fnFixed;
    return text == "Scientific" ? fnScientific : fnAutomatic;
}

std::int64_t FloatNode::GetDisplayPrecision() const
{
    constexpr std::int64_t standardDigits = 6;
    return parseInteger(m_description.text("DisplayPrecision")).value_or(standardDigits);
}

std::string FloatNode::printed(bool ignoreCache)
{
    return formatReal(real(ignoreCache));
}

void FloatNode::setPrinted(const std::string &text, bool verify)
{
    const auto value = parseReal(text);
    if (!value)
        throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is no number.", name(), text.c_str());
    SetValue(*value, verify);
}

const std::vector<double> *FloatFeature::validValues()
{
    return ownOrTargets(*this, m_source, FloatNode::validValues(), nullptr, &Node::validReals);
}

double FloatFeature::naturalMin()
{
    Node *target = m_source.target();
    return target ? target->realMin() : FloatNode::naturalMin();
}

double FloatFeature::naturalMax()
{
    Node *target = m_source.target();
    return target ? target->realMax() : FloatNode::naturalMax();
}

double ConverterNode::readValue(bool ignoreCache)
{
    return m_from.real(m_variables, ignoreCache, "TO", m_source.real(ignoreCache));
}

void ConverterNode::writeValue(double value, bool verify)
{
    m_source.setReal(m_to.real(m_variables, false, "FROM", value), verify);
}

std::pair<double, double> ConverterNode::limits()
{
    const std::pair<double, double> everything{FloatNode::naturalMin(), FloatNode::naturalMax()};
    Node *target = m_source.target();
    // The extremes of a varying function may be anywhere.
    if (!target || m_description.text("Slope") == "Varying")
        return everything;
    const auto a = m_from.realLimit(m_variables, "TO", target->realMin());
    const auto b = m_from.realLimit(m_variables, "TO", target->realMax());
    if (!a || !b || std::isnan(*a) || std::isnan(*b))
        return everything;
    return {std::max(std::min(*a, *b), everything.first), std::min(std::max(*a, *b), everything.second)};
}

} // namespace MoxGenApi
