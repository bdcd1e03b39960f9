#include "floatnodes.h"

#include "evaluation.h"
#include "nodemap.h"
#include "numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

namespace MoxGenApi {

using namespace GenApi;

void FloatNode::resolve()
{
    Node::resolve();
    m_min = bound("Min", "pMin");
    m_max = bound("Max", "pMax");
    m_inc = bound("Inc", "pInc");
    m_representation = representationFromText(m_description.text("Representation"));
    std::istringstream list(m_description.text("ValidValueSet"));
    for (std::string item; std::getline(list, item, ';');) {
        if (const auto value = parseReal(item))
            m_validValues.push_back(*value);
    }
    std::sort(m_validValues.begin(), m_validValues.end());
    m_validValues.erase(std::unique(m_validValues.begin(), m_validValues.end()), m_validValues.end());
}

FloatNode::Bound FloatNode::bound(const char *tag, const char *linkTag)
{
    Bound bound;
    bound.node = linkTo(Role::Limit, linkTag);
    if (const std::string *text = m_description.find(tag))
        bound.literal = parseReal(*text);
    return bound;
}

template<class Natural> double FloatNode::limit(Bound &bound, unsigned aspect, Natural natural)
{
    if (const double *known = bound.kept.find(false, m_map.evaluation))
        return *known;
    if (bound.literal && !bound.node)
        return *bound.literal;
    Evaluation guard(*this, static_cast<Evaluation::Aspect>(aspect));
    const double value = bound.node ? bound.node->real(false) : natural();
    bound.kept.store(value, keepsLimits, false, m_map.evaluation);
    return value;
}

double FloatNode::naturalMin()
{
    return -std::numeric_limits<double>::max();
}

double FloatNode::naturalMax()
{
    return std::numeric_limits<double>::max();
}

double FloatNode::realMin()
{
    return limit(m_min, Evaluation::Min, [this] { return naturalMin(); });
}

double FloatNode::realMax()
{
    return limit(m_max, Evaluation::Max, [this] { return naturalMax(); });
}

std::int64_t FloatNode::integerMin()
{
    return toInteger(std::ceil(realMin()));
}

std::int64_t FloatNode::integerMax()
{
    return toInteger(std::floor(realMax()));
}

void FloatNode::forget()
{
    Node::forget();
    m_value.forget();
    m_min.kept.forget();
    m_max.kept.forget();
    m_inc.kept.forget();
}

std::int64_t FloatNode::integer(bool ignoreCache)
{
    return toInteger(real(ignoreCache));
}

double FloatNode::real(bool ignoreCache)
{
    if (const double *known = m_value.find(ignoreCache, m_map.evaluation))
        return *known;
    Evaluation guard(*this, Evaluation::Value);
    const double value = readReal(ignoreCache);
    m_value.store(value, keepsValue, ignoreCache, m_map.evaluation);
    return value;
}

void FloatNode::setInteger(std::int64_t value, bool verify)
{
    setReal(static_cast<double>(value), verify);
}

void FloatNode::setReal(double value, bool verify)
{
    if (verify)
        verifyValue(value);
    Evaluation guard(*this, Evaluation::Write);
    m_map.touch(*this);
    writeReal(value, verify);
}

// The increment of a float is for those who step through its values; a value between two steps is not refused, since
// decimal input seldom meets a step exactly.
void FloatNode::verifyValue(double value)
{
    const double min = realMin();
    const double max = realMax();
    if (std::isnan(value))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': The value is not a number.", name());
    if (value < min)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s must be greater than or equal to %s.", name(),
                                     formatReal(value).c_str(), formatReal(min).c_str());
    if (value > max)
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s must be smaller than or equal to %s.", name(),
                                     formatReal(value).c_str(), formatReal(max).c_str());
    const std::vector<double> *valid = validReals();
    if (valid && std::none_of(valid->begin(), valid->end(), [value](double candidate) {
            return std::abs(candidate - value) <= std::abs(candidate) * 1e-9;
        }))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s is none of the valid values.", name(),
                                     formatReal(value).c_str());
}

void FloatNode::SetValue(double value, bool verify)
{
    change([&] {
        if (verify)
            requireWritable();
        setReal(value, verify);
    });
}

double FloatNode::GetValue(bool verify, bool ignoreCache)
{
    AutoLock lock(m_map.GetLock());
    requireReadable();
    const double value = real(ignoreCache);
    if (verify && (value < realMin() || value > realMax()))
        throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s lies outside of %s to %s.", name(), formatReal(value).c_str(),
                                     formatReal(realMin()).c_str(), formatReal(realMax()).c_str());
    return value;
}

double FloatNode::GetMin()
{
    AutoLock lock(m_map.GetLock());
    return realMin();
}

double FloatNode::GetMax()
{
    AutoLock lock(m_map.GetLock());
    return realMax();
}

bool FloatNode::HasInc()
{
    return m_inc.literal || m_inc.node;
}

EIncMode FloatNode::GetIncMode()
{
    AutoLock lock(m_map.GetLock());
    if (validReals())
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
    AutoLock lock(m_map.GetLock());
    std::vector<double> values;
    if (const std::vector<double> *valid = validReals()) {
        for (double value : *valid) {
            if (!bounded || (value >= realMin() && value <= realMax()))
                values.push_back(value);
        }
    }
    return double_autovector_t(std::move(values));
}

ERepresentation FloatNode::GetRepresentation()
{
    AutoLock lock(m_map.GetLock());
    const ERepresentation own = representation();
    return own == _UndefinedRepresentation ? PureNumber : own;
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

void FloatFeature::resolve()
{
    FloatNode::resolve();
    m_source.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

ERepresentation FloatFeature::representation()
{
    return ownOrTargets(*this, m_source, FloatNode::representation(), _UndefinedRepresentation, &Node::representation);
}

std::string FloatFeature::unit()
{
    return ownOrTargets(*this, m_source, FloatNode::unit(), {}, &Node::unit);
}

const std::vector<double> *FloatFeature::validReals()
{
    return ownOrTargets(*this, m_source, FloatNode::validReals(), nullptr, &Node::validReals);
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

ConverterNode::ConverterNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : FloatNode(map, description, position),
      m_to(*this, description.text("FormulaTo")),
      m_from(*this, description.text("FormulaFrom"))
{ }

void ConverterNode::resolve()
{
    FloatNode::resolve();
    const auto enter = [this](Role role, const std::string &name) { return link(role, name); };
    m_source.resolve(*this, enter);
    m_hasBrokenOperand = !m_variables.resolve(*this, enter);
}

EAccessMode ConverterNode::sourceMode()
{
    return IsReadable(operandMode()) ? m_source.mode() : NA;
}

double ConverterNode::readReal(bool ignoreCache)
{
    return m_from.real(m_variables, ignoreCache, "TO", m_source.real(ignoreCache));
}

void ConverterNode::writeReal(double value, bool verify)
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

SwissKnifeNode::SwissKnifeNode(NodeMap &map, const NodeDescription &description, std::size_t position)
    : FloatNode(map, description, position), m_formula(*this, description.text("Formula"))
{ }

void SwissKnifeNode::resolve()
{
    FloatNode::resolve();
    m_hasBrokenOperand =
        !m_variables.resolve(*this, [this](Role role, const std::string &name) { return link(role, name); });
}

void SwissKnifeNode::writeReal(double, bool)
{
    throw ACCESS_EXCEPTION("Node '%s' is not writable.", name());
}

} // namespace MoxGenApi
