// The integer kinds: feature, converter, swiss knife. Registers that hold integers are in registernodes.h.
#ifndef MOXGENAPI_INTEGERNODES_H
#define MOXGENAPI_INTEGERNODES_H

#include "numbernode.h"

namespace MoxGenApi {

/** What all integers share. */
class IntegerNode : public NumberNode<std::int64_t, GenApi::IInteger>
{
public:
    using NumberNode::NumberNode;

    GenApi::EIncMode GetIncMode() override;
    std::int64_t GetInc() override;
    GenApi::int64_autovector_t GetListOfValidValues(bool bounded) override;
    GenApi::gcstring GetUnit() override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIInteger; }

    std::int64_t integer(bool ignoreCache) override { return value(ignoreCache); }
    void setInteger(std::int64_t value, bool verify) override { setValue(value, verify); }
    std::int64_t integerMin() override { return min(); }
    std::int64_t integerMax() override { return max(); }
    std::int64_t integerInc() override;
    const std::vector<std::int64_t> *validIntegers() override { return validValues(); }

protected:
    virtual std::int64_t naturalInc() { return 1; }

    void verifyValue(std::int64_t value) override;
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;
};

/** Integer: with the limits of the node that holds its value. */
class IntegerFeature : public FeatureOf<IntegerNode>
{
public:
    using FeatureOf::FeatureOf;

protected:
    std::int64_t readValue(bool ignoreCache) override { return m_source.integer(ignoreCache); }
    void writeValue(std::int64_t value, bool verify) override { m_source.setInteger(value, verify); }
    std::int64_t naturalMin() override;
    std::int64_t naturalMax() override;
    std::int64_t naturalInc() override;
    const std::vector<std::int64_t> *validValues() override;
};

class IntConverterNode : public ConverterOf<IntegerNode>
{
public:
    using ConverterOf::ConverterOf;

protected:
    std::int64_t readValue(bool ignoreCache) override;
    void writeValue(std::int64_t value, bool verify) override;
    std::int64_t naturalMin() override { return limits().first; }
    std::int64_t naturalMax() override { return limits().second; }

private:
    std::pair<std::int64_t, std::int64_t> limits();
};

using IntSwissKnifeNode = SwissKnifeOf<IntegerNode>;

} // namespace MoxGenApi

#endif
