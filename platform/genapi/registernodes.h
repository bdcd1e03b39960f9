// The kinds that are registers: integers, masked integers, floats, texts, plain bytes.
#ifndef MOXGENAPI_REGISTERNODES_H
#define MOXGENAPI_REGISTERNODES_H

#include "featurenodes.h"
#include "floatnodes.h"
#include "integernodes.h"
#include "registeraccess.h"

namespace MoxGenApi {

/** Joins the value half of a node, Base, with the register half. */
template<class Base> class RegisterOf : public Base, public RegisterAccess
{
public:
    RegisterOf(NodeMap &map, const NodeDescription &description, std::size_t position)
        : Base(map, description, position), RegisterAccess(static_cast<Node &>(*this))
    { }

    void resolve() override
    {
        Base::resolve();
        this->m_hasBrokenOperand =
            !resolveRegister([this](Role role, const std::string &name) { return this->link(role, name); });
    }
    void forget() override
    {
        Base::forget();
        forgetRegister();
    }
    void settle(bool keep) override { settleRegister(keep); }

protected:
    GenApi::EAccessMode sourceMode() override
    {
        return GenApi::IsReadable(this->operandMode()) ? registerMode() : GenApi::NA;
    }
    bool isValueKept() const override { return areBytesKept(); }
};

/** IntReg: the whole register is the number. */
class IntRegNode : public RegisterOf<IntegerNode>
{
public:
    IntRegNode(NodeMap &map, const NodeDescription &description, std::size_t position);

protected:
    std::int64_t readValue(bool ignoreCache) override;
    void writeValue(std::int64_t value, bool verify) override;
    std::int64_t naturalMin() override;
    std::int64_t naturalMax() override;

    /** Width of the number in bits. */
    virtual int width();
    /** A register that is too long for a number throws. */
    std::size_t checkedLength();

    const bool m_isBigEndian;
    const bool m_isSigned;
};

/** MaskedIntReg and StructEntry: some neighbouring bits of the register are the number. */
class MaskedIntRegNode : public IntRegNode
{
public:
    MaskedIntRegNode(NodeMap &map, const NodeDescription &description, std::size_t position);

    std::uint8_t shownBits(std::size_t index) const override;

protected:
    std::int64_t readValue(bool ignoreCache) override;
    void writeValue(std::int64_t value, bool verify) override;
    int width() override;

private:
    struct Field
    {
        int low; // place of the lowest bit, counted from the least significant of the register
        int width;
    };

    /** Where the bits are in a register of that length; none when they lie outside. */
    std::optional<Field> fieldWithin(std::size_t length) const;
    Field field(std::size_t length) const;

    std::int64_t m_lsb = 0;
    std::int64_t m_msb = 0;
};

/** FloatReg: an IEEE 754 number of four or eight bytes. */
class FloatRegNode : public RegisterOf<FloatNode>
{
public:
    FloatRegNode(NodeMap &map, const NodeDescription &description, std::size_t position);

protected:
    double readValue(bool ignoreCache) override;
    void writeValue(double value, bool verify) override;
    double naturalMin() override;
    double naturalMax() override;

private:
    /** A length that no number has throws. */
    std::size_t checkedLength();

    const bool m_isBigEndian;
};

/** StringReg: a text that ends with the first zero byte or with the register. */
class StringRegNode : public RegisterOf<StringNode>
{
public:
    using RegisterOf<StringNode>::RegisterOf;

    std::int64_t textMax() override { return length(); }

protected:
    std::string readText(bool ignoreCache) override;
    void writeText(const std::string &text, bool verify) override;
};

/** Register: bytes without a meaning; as a text they are hexadecimal. */
class RegisterNode : public RegisterOf<Node>
{
public:
    using RegisterOf<Node>::RegisterOf;

    GenApi::EInterfaceType GetPrincipalInterfaceType() const override { return GenApi::intfIRegister; }

protected:
    std::string printed(bool ignoreCache) override;
    void setPrinted(const std::string &text, bool verify) override;
};

} // namespace MoxGenApi

#endif
