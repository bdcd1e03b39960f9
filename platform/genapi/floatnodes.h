// The floating point kinds: feature, converter, swiss knife. Registers that hold floats are in registernodes.h.
#ifndef MOXGENAPI_FLOATNODES_H
#define MOXGENAPI_FLOATNODES_H

#include "formula.h"
#include "node.h"
#include "valuesource.h"

#include <GenApi/Values.h>

namespace MoxGenApi {

/** What all floats share: verification, kept values and limits, texts. Kinds fill in where the value comes from. */
class FloatNode : public Node, public virtual GenApi::IFloat
{
public:
    using Node::Node;

    void SetValue(double value, bool verify) override;
    double GetValue(bool verify, bool ignoreCache) override;
    double GetMin() override;
    double GetMax() override;
    bool HasInc() override;
    GenApi::EIncMode GetIncMode() override;
    double GetInc() override;
    GenApi::double_autovector_t GetListOfValidValues(bool bounded) override;
    GenApi::ERepresentation GetRepresentation() override;
    GenApi::gcstring GetUnit() const override;
    GenApi::EDisplayNotation GetDisplayNotation() const override;
    std::int64_t GetDisplayPrecision() const override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIFloat; }

    void resolve() override;
    bool isReal() const override { return true; }
    std::int64_t integer(bool ignoreCache) override;
    double real(bool ignoreCache) override;
    void setInteger(std::int64_t value, bool verify) override;
    void setReal(double value, bool verify) override;
    std::int64_t integerMin() override;
    std::int64_t integerMax() override;
    double realMin() override;
    double realMax() override;
    GenApi::ERepresentation representation() override { return m_representation; }
    const std::vector<double> *validReals() override { return m_validValues.empty() ? nullptr : &m_validValues; }
    void forget() override;

protected:
    virtual double readReal(bool ignoreCache) = 0;
    virtual void writeReal(double value, bool verify) = 0;
    /** The limits that hold when the description names none. */
    virtual double naturalMin();
    virtual double naturalMax();

    bool isValueKept() const override { return m_value.isKept(); }
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;

    Kept<double> m_value;

private:
    struct Bound
    {
        std::optional<double> literal;
        Node *node = nullptr;
        Kept<double> kept;
    };

    Bound bound(const char *tag, const char *linkTag);
    template<class Natural> double limit(Bound &bound, unsigned aspect, Natural natural);
    void verifyValue(double value);

    Bound m_min;
    Bound m_max;
    Bound m_inc;
    std::vector<double> m_validValues;
    GenApi::ERepresentation m_representation = GenApi::_UndefinedRepresentation;
};

/** Float: a value of its own or that of another node, with limits. */
class FloatFeature : public FloatNode
{
public:
    using FloatNode::FloatNode;

    void resolve() override;
    GenApi::ERepresentation representation() override;
    std::string unit() override;
    const std::vector<double> *validReals() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    double readReal(bool ignoreCache) override { return m_source.real(ignoreCache); }
    void writeReal(double value, bool verify) override { m_source.setReal(value, verify); }
    double naturalMin() override;
    double naturalMax() override;

private:
    ValueSource m_source;
};

/** Converter: another node's value through one formula each way. */
class ConverterNode : public FloatNode
{
public:
    ConverterNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    void resolve() override;

protected:
    GenApi::EAccessMode sourceMode() override;
    double readReal(bool ignoreCache) override;
    void writeReal(double value, bool verify) override;
    double naturalMin() override { return limits().first; }
    double naturalMax() override { return limits().second; }

private:
    std::pair<double, double> limits();

    ValueSource m_source;
    Variables m_variables;
    Formula m_to;
    Formula m_from;
};

/** SwissKnife: a formula over other nodes; it can only be read. */
class SwissKnifeNode : public FloatNode
{
public:
    SwissKnifeNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    void resolve() override;

protected:
    GenApi::EAccessMode sourceMode() override { return operandMode(); }
    double readReal(bool ignoreCache) override { return m_formula.real(m_variables, ignoreCache); }
    void writeReal(double value, bool verify) override;

private:
    Variables m_variables;
    Formula m_formula;
};

} // namespace MoxGenApi

#endif
