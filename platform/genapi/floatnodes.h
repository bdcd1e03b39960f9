// The floating point kinds: feature, converter, swiss knife. Registers that hold floats are in registernodes.h.
#ifndef MOXGENAPI_FLOATNODES_H
#define MOXGENAPI_FLOATNODES_H

#include "numbernode.h"

namespace MoxGenApi {

/** What all floats share. */
class FloatNode : public NumberNode<double, GenApi::IFloat>
{
public:
    using NumberNode::NumberNode;

    bool HasInc() override;
    GenApi::EIncMode GetIncMode() override;
    double GetInc() override;
    GenApi::double_autovector_t GetListOfValidValues(bool bounded) override;
    GenApi::gcstring GetUnit() const override;
    GenApi::EDisplayNotation GetDisplayNotation() const override;
    std::int64_t GetDisplayPrecision() const override;
    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIFloat; }

    bool isReal() const override { return true; }
    std::int64_t integer(bool ignoreCache) override;
    double real(bool ignoreCache) override { return value(ignoreCache); }
    void setInteger(std::int64_t value, bool verify) override;
    void setReal(double value, bool verify) override { setValue(value, verify); }
    std::int64_t integerMin() override;
    std::int64_t integerMax() override;
    double realMin() override { return min(); }
    double realMax() override { return max(); }
    const std::vector<double> *validReals() override { return validValues(); }

protected:
    void verifyValue(double value) override;
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;
};

/** Float: with the limits of the node that holds its value. */
class FloatFeature : public FeatureOf<FloatNode>
{
public:
    using FeatureOf::FeatureOf;

protected:
    double readValue(bool ignoreCache) override { return m_source.real(ignoreCache); }
    void writeValue(double value, bool verify) override { m_source.setReal(value, verify); }
    double naturalMin() override;
    double naturalMax() override;
    const std::vector<double> *validValues() override;
};

class ConverterNode : public ConverterOf<FloatNode>
{
public:
    using ConverterOf::ConverterOf;

protected:
    double readValue(bool ignoreCache) override;
    void writeValue(double value, bool verify) override;
    double naturalMin() override { return limits().first; }
    double naturalMax() override { return limits().second; }

private:
    std::pair<double, double> limits();
};

using SwissKnifeNode = SwissKnifeOf<FloatNode>;

} // namespace MoxGenApi

#endif
