// An expression in the formula language of the GenICam standard.
#ifndef MOXGENAPI_EXPRESSION_H
#define MOXGENAPI_EXPRESSION_H

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace MoxGenApi {

/** A number that is integer as long as nothing made it real. */
struct Number
{
    bool isReal = false;
    std::int64_t integer = 0;
    double real = 0;

    static Number of(std::int64_t value) { return {false, value, 0}; }
    static Number of(double value) { return {true, 0, value}; }
    double toReal() const { return isReal ? real : static_cast<double>(integer); }
    /** Truncates, as an integer formula does with a real intermediate. */
    std::int64_t toInteger() const;
    bool isTrue() const { return isReal ? real != 0 : integer != 0; }
};

/** Thrown by an evaluation. */
struct DivisionByZero
{ };

/**
 * Parsed once, evaluated often. Only what is needed is evaluated: the branch of `?:` that is not taken may divide by
 * zero or read what cannot be read. Integers have 64 bits and wrap around; in a real expression `/` and the other
 * arithmetic is that of doubles, while the bit operations stay integer.
 */
class Expression
{
public:
    /** @p definitions are the constants and sub-expressions of the node, by name. Throws RuntimeException. */
    Expression(const std::string &text, const std::map<std::string, std::string> &definitions);

    using Lookup = std::function<Number(const std::string &name)>;

    /** Throws DivisionByZero, and what @p lookup throws for a name. */
    Number evaluate(bool isReal, const Lookup &lookup) const;
    /** How deep its terms nest; an evaluation takes that much of the stack. */
    int depth() const { return m_terms[m_root].depth; }

private:
    friend class ExpressionParser;

    struct Term
    {
        std::string what; // operator or function; "name", "number"
        std::vector<std::size_t> operands;
        Number number;
        std::string name;
        int depth = 1;
        bool isShared = false; // mentioned more than once: evaluated once
    };

    using Known = std::vector<std::optional<Number>>; // by term

    Number valueOf(std::size_t term, bool isReal, const Lookup &lookup, Known &known) const;
    Number computed(std::size_t term, bool isReal, const Lookup &lookup, Known &known) const;

    std::vector<Term> m_terms;
    std::size_t m_root = 0;
    bool m_hasShared = false;
};

} // namespace MoxGenApi

#endif
