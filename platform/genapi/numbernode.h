// What integers and floats share, and the kinds that come as both: feature, converter, swiss knife.
#ifndef MOXGENAPI_NUMBERNODE_H
#define MOXGENAPI_NUMBERNODE_H

#include "evaluation.h"
#include "formula.h"
#include "node.h"
#include "nodemap.h"
#include "numbers.h"
#include "valuesource.h"

#include <GenApi/Values.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <sstream>
#include <type_traits>

namespace MoxGenApi {

/**
 * A number with limits: verification, kept value and limits, the list of valid values. T is its type, Interface what
 * users of the map see. Kinds fill in where the value comes from.
 */
template<class T, class Interface> class NumberNode : public Node, public virtual Interface
{
public:
    using Value = T;
    using Node::Node;

    void SetValue(T value, bool verify) override
    {
        change([&] {
            if (verify)
                requireWritable();
            setValue(value, verify);
        });
    }
    T GetValue(bool verify, bool ignoreCache) override
    {
        GenApi::AutoLock lock(m_map.GetLock());
        requireReadable();
        const T result = value(ignoreCache);
        if (verify && (result < min() || result > max()))
            throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s lies outside of %s to %s.", name(), shown(result).c_str(),
                                         shown(min()).c_str(), shown(max()).c_str());
        return result;
    }
    T GetMin() override
    {
        GenApi::AutoLock lock(m_map.GetLock());
        return min();
    }
    T GetMax() override
    {
        GenApi::AutoLock lock(m_map.GetLock());
        return max();
    }
    GenApi::ERepresentation GetRepresentation() override
    {
        GenApi::AutoLock lock(m_map.GetLock());
        const GenApi::ERepresentation own = representation();
        return own == GenApi::_UndefinedRepresentation ? GenApi::PureNumber : own;
    }

    void resolve() override
    {
        Node::resolve();
        m_min = bound("Min", "pMin");
        m_max = bound("Max", "pMax");
        m_inc = bound("Inc", "pInc");
        m_representation = representationFromText(m_description.text("Representation"));
        std::istringstream list(m_description.text("ValidValueSet"));
        for (std::string item; std::getline(list, item, ';');) {
            if (const auto valid = parsed(item))
                m_validValues.push_back(*valid);
        }
        std::sort(m_validValues.begin(), m_validValues.end());
        m_validValues.erase(std::unique(m_validValues.begin(), m_validValues.end()), m_validValues.end());
    }
    GenApi::ERepresentation representation() override { return m_representation; }
    void forget() override
    {
        Node::forget();
        m_value.forget();
        for (Bound *limit : {&m_min, &m_max, &m_inc})
            limit->kept.forget();
    }

protected:
    struct Bound
    {
        std::optional<T> literal;
        Node *node = nullptr;
        Kept<T> kept;
    };

    virtual T readValue(bool ignoreCache) = 0;
    virtual void writeValue(T value, bool verify) = 0;
    /** Throws unless the value may be written. */
    virtual void verifyValue(T value) = 0;
    /** The limits that hold when the description names none. */
    virtual T naturalMin() { return std::numeric_limits<T>::lowest(); }
    virtual T naturalMax() { return std::numeric_limits<T>::max(); }
    /** In ascending order; null where all values are valid. */
    virtual const std::vector<T> *validValues() { return m_validValues.empty() ? nullptr : &m_validValues; }

    T value(bool ignoreCache)
    {
        if (const T *known = m_value.find(ignoreCache, m_map.evaluation))
            return *known;
        const Evaluation guard(*this, Evaluation::Value);
        const T result = readValue(ignoreCache);
        m_value.store(result, keepsValue, ignoreCache, m_map.evaluation);
        return result;
    }
    void setValue(T value, bool verify)
    {
        if (verify)
            verifyValue(value);
        const Evaluation guard(*this, Evaluation::Write);
        m_map.touch(*this);
        writeValue(value, verify);
    }

    T min()
    {
        return limit(m_min, Evaluation::Min, [this] { return naturalMin(); });
    }
    T max()
    {
        return limit(m_max, Evaluation::Max, [this] { return naturalMax(); });
    }
    template<class Natural> T limit(Bound &bound, Evaluation::Aspect aspect, Natural natural)
    {
        if (const T *known = bound.kept.find(false, m_map.evaluation))
            return *known;
        if (bound.literal && !bound.node)
            return *bound.literal;
        const Evaluation guard(*this, aspect);
        const T result = bound.node ? valueOf(*bound.node) : natural();
        bound.kept.store(result, keepsLimits, false, m_map.evaluation);
        return result;
    }

    void verifyRange(T value, T least, T most)
    {
        if (value < least)
            throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s must be greater than or equal to %s.", name(),
                                         shown(value).c_str(), shown(least).c_str());
        if (value > most)
            throw OUT_OF_RANGE_EXCEPTION("Node '%s': Value %s must be smaller than or equal to %s.", name(),
                                         shown(value).c_str(), shown(most).c_str());
    }
    std::vector<T> listOfValidValues(bool bounded)
    {
        GenApi::AutoLock lock(m_map.GetLock());
        std::vector<T> values;
        if (const std::vector<T> *valid = validValues()) {
            std::copy_if(valid->begin(), valid->end(), std::back_inserter(values),
                         [&](T value) { return !bounded || (value >= min() && value <= max()); });
        }
        return values;
    }
    bool isValueKept() const override { return m_value.isKept(); }

    Bound m_inc;

private:
    static constexpr bool isInteger = std::is_integral_v<T>;

    static std::optional<T> parsed(const std::string &text)
    {
        if constexpr (isInteger)
            return parseInteger(text);
        else
            return parseReal(text);
    }
    static std::string shown(T value)
    {
        if constexpr (isInteger)
            return std::to_string(value);
        else
            return formatReal(value);
    }
    static T valueOf(Node &node)
    {
        if constexpr (isInteger)
            return node.isReal() ? toInteger(node.real(false)) : node.integer(false);
        else
            return node.real(false);
    }
    Bound bound(const char *tag, const char *linkTag)
    {
        Bound bound;
        bound.node = linkTo(Role::Limit, linkTag);
        if (const std::string *text = m_description.find(tag)) {
            bound.literal = parsed(*text);
            if constexpr (isInteger) {
                const auto real = parseReal(*text); // limits integers, too
                if (!bound.literal && real)
                    bound.literal = toInteger(*real);
            }
        }
        return bound;
    }

    Kept<T> m_value;
    Bound m_min;
    Bound m_max;
    std::vector<T> m_validValues;
    GenApi::ERepresentation m_representation = GenApi::_UndefinedRepresentation;
};

/** Integer and Float: a value of its own or that of another node. */
template<class Base> class FeatureOf : public Base
{
public:
    using Base::Base;

    void resolve() override
    {
        Base::resolve();
        m_source.resolve(*this, [this](Role role, const std::string &name) { return this->link(role, name); });
    }
    GenApi::ERepresentation representation() override
    {
        return ownOrTargets(*this, m_source, Base::representation(), GenApi::_UndefinedRepresentation,
                            &Node::representation);
    }
    std::string unit() override { return ownOrTargets(*this, m_source, Base::unit(), {}, &Node::unit); }

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }

    ValueSource m_source;
};

/** Converter and IntConverter: another node's value through one formula each way. */
template<class Base> class ConverterOf : public Base
{
public:
    ConverterOf(NodeMap &map, const NodeDescription &description, std::size_t position)
        : Base(map, description, position),
          m_to(*this, description.text("FormulaTo")),
          m_from(*this, description.text("FormulaFrom"))
    { }

    void resolve() override
    {
        Base::resolve();
        const auto enter = [this](Role role, const std::string &name) { return this->link(role, name); };
        m_source.resolve(*this, enter);
        this->m_hasBrokenOperand = !m_variables.resolve(*this, enter);
    }

protected:
    GenApi::EAccessMode sourceMode() override
    {
        const GenApi::EAccessMode mode = m_source.mode();
        return mode == GenApi::NI || GenApi::IsReadable(this->operandMode()) ? mode : GenApi::NA;
    }

    ValueSource m_source;
    Variables m_variables;
    Formula m_to;
    Formula m_from;
};

/** SwissKnife and IntSwissKnife: a formula over other nodes; it can only be read. */
template<class Base> class SwissKnifeOf : public Base
{
public:
    SwissKnifeOf(NodeMap &map, const NodeDescription &description, std::size_t position)
        : Base(map, description, position), m_formula(*this, description.text("Formula"))
    { }

    void resolve() override
    {
        Base::resolve();
        this->m_hasBrokenOperand =
            !m_variables.resolve(*this, [this](Role role, const std::string &name) { return this->link(role, name); });
    }

protected:
    GenApi::EAccessMode sourceMode() override { return this->operandMode(); }
    typename Base::Value readValue(bool ignoreCache) override
    {
        if constexpr (std::is_integral_v<typename Base::Value>)
            return m_formula.integer(m_variables, ignoreCache);
        else
            return m_formula.real(m_variables, ignoreCache);
    }
    void writeValue(typename Base::Value, bool) override
    {
        throw ACCESS_EXCEPTION("Node '%s' is not writable.", this->name());
    }

private:
    Variables m_variables;
    Formula m_formula;
};

} // namespace MoxGenApi

#endif
