// The integer kinds: feature, converter, swiss knife. Registers that hold integers are in registernodes.h.
#ifndef MOXGENAPI_INTEGERNODES_H
#define MOXGENAPI_INTEGERNODES_H

#include "formula.h"
#include "node.h"
#include "valuesource.h"

#include <GenApi/Values.h>

namespace MoxGenApi {

/** What all integers share: verification, kept values and limits, texts. Kinds fill in where the value comes from. */
class IntegerNode : public Node, public virtual GenApi::IInteger
{
public:
    using Node::Node;

    void SetValue(std::int64_t value, bool verify) override;
    std::int64_t GetValue(bool verify, bool ignoreCache) override;
    std::int64_t GetMin() override;
    std::int64_t GetMax() override;
    GenApi::EIncMode GetIncMode() override;
    std::int64_t GetInc() override;
    GenApi::int64_autovector_t GetListOfValidValues(bool bounded) override;
    GenApi::ERepresentation GetRepresentation() override;
    GenApi::gcstring GetUnit() override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIInteger; }

    void resolve() override;
    std::int64_t integer(bool ignoreCache) override;
    void setInteger(std::int64_t value, bool verify) override;
    std::int64_t integerMin() override;
    std::int64_t integerMax() override;
    std::int64_t integerInc() override;
    GenApi::ERepresentation representation() override { return m_representation; }
    const std::vector<std::int64_t> *validIntegers() override;
    void forget() override;

protected:
    virtual std::int64_t readInteger(bool ignoreCache) = 0;
    virtual void writeInteger(std::int64_t value, bool verify) = 0;
    /** The limits that hold when the description names none. */
    virtual std::int64_t naturalMin() { return Node::integerMin(); }
    virtual std::int64_t naturalMax() { return Node::integerMax(); }
    virtual std::int64_t naturalInc() { return 1; }

    bool isValueKept() const override { return m_value.isKept(); }
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;

    Kept<std::int64_t> m_value;

private:
    struct Bound
    {
        std::optional<std::int64_t> literal;
        Node *node = nullptr;
        Kept<std::int64_t> kept;
    };

    Bound bound(const char *tag, const char *linkTag);
    template<class Natural> std::int64_t limit(Bound &bound, unsigned aspect, Natural natural);
    void verifyValue(std::int64_t value);

    Bound m_min;
    Bound m_max;
    Bound m_inc;
    std::vector<std::int64_t> m_validValues;
    GenApi::ERepresentation m_representation = GenApi::_UndefinedRepresentation;
};

/** Integer: a value of its own or that of another node, with limits. */
class IntegerFeature : public IntegerNode
{
public:
    using IntegerNode::IntegerNode;

    void resolve() override;
    GenApi::ERepresentation representation() override;
    std::string unit() override;
    const std::vector<std::int64_t> *validIntegers() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode(); }
    std::int64_t readInteger(bool ignoreCache) override { return m_source.integer(ignoreCache); }
    void writeInteger(std::int64_t value, bool verify) override { m_source.setInteger(value, verify); }
    std::int64_t naturalMin() override;
    std::int64_t naturalMax() override;
    std::int64_t naturalInc() override;

private:
    ValueSource m_source;
};

/** IntConverter: another node's value through one formula each way. */
class IntConverterNode : public IntegerNode
{
public:
    IntConverterNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    void resolve() override;

protected:
    GenApi::EAccessMode sourceMode() override { return m_source.mode() == GenApi::NI ? GenApi::NI : combinedMode(); }
    std::int64_t readInteger(bool ignoreCache) override;
    void writeInteger(std::int64_t value, bool verify) override;
    std::int64_t naturalMin() override { return limits().first; }
    std::int64_t naturalMax() override { return limits().second; }

private:
    GenApi::EAccessMode combinedMode();
    std::pair<std::int64_t, std::int64_t> limits();

    ValueSource m_source;
    Variables m_variables;
    Formula m_to;
    Formula m_from;
};

/** IntSwissKnife: a formula over other nodes; it can only be read. */
class IntSwissKnifeNode : public IntegerNode
{
public:
    IntSwissKnifeNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    void resolve() override;

protected:
    GenApi::EAccessMode sourceMode() override { return operandMode(); }
    std::int64_t readInteger(bool ignoreCache) override { return m_formula.integer(m_variables, ignoreCache); }
    void writeInteger(std::int64_t value, bool verify) override;

private:
    Variables m_variables;
    Formula m_formula;
};

} // namespace MoxGenApi

#endif
