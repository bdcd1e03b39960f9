#include "expression.h"

#include "numbers.h"

#include <Base/GCException.h>

#include <cctype>
#include <cmath>

namespace MoxGenApi {

namespace {

constexpr int deepest = 500;
constexpr std::size_t mostTerms = 100000;

using RealFunction = double (*)(double);

const std::map<std::string, RealFunction> &realFunctions()
{
    static const std::map<std::string, RealFunction> table{
        {"SIN", std::sin},   {"COS", std::cos}, {"TAN", std::tan}, {"ASIN", std::asin}, {"ACOS", std::acos},
        {"ATAN", std::atan}, {"EXP", std::exp}, {"LN", std::log},  {"LG", std::log10},  {"SQRT", std::sqrt},
    };
    return table;
}

// These leave an integer as it is.
const std::map<std::string, RealFunction> &roundingFunctions()
{
    static const std::map<std::string, RealFunction> table{
        {"TRUNC", std::trunc},
        {"FLOOR", std::floor},
        {"CEIL", std::ceil},
        {"ROUND", std::round},
    };
    return table;
}

bool isFunction(const std::string &name)
{
    return realFunctions().count(name) || roundingFunctions().count(name) || name == "ABS" || name == "SGN"
        || name == "NEG" || name == "E" || name == "PI";
}

// Integer arithmetic wraps around; signed overflow is undefined, so it is done without the sign.
std::uint64_t bits(std::int64_t value)
{
    return static_cast<std::uint64_t>(value);
}

Number wrapped(std::uint64_t value)
{
    return Number::of(static_cast<std::int64_t>(value));
}

[[noreturn]] void divideByZero()
{
    throw DivisionByZero();
}

std::int64_t power(std::int64_t base, std::int64_t exponent)
{
    std::uint64_t result = 1;
    for (std::uint64_t factor = bits(base); exponent > 0; exponent >>= 1, factor *= factor) {
        if (exponent & 1)
            result *= factor;
    }
    return static_cast<std::int64_t>(result);
}

Number compared(const std::string &what, const Number &a, const Number &b)
{
    const bool real = a.isReal || b.isReal;
    const bool less = real ? a.toReal() < b.toReal() : a.integer < b.integer;
    const bool equal = real ? a.toReal() == b.toReal() : a.integer == b.integer;
    bool result = false;
    if (what == "=")
        result = equal;
    else if (what == "<>")
        result = !equal;
    else if (what == "<")
        result = less;
    else if (what == "<=")
        result = less || equal;
    else if (what == ">")
        result = real ? a.toReal() > b.toReal() : a.integer > b.integer;
    else
        result = real ? a.toReal() >= b.toReal() : a.integer >= b.integer;
    return Number::of(std::int64_t(result));
}

Number bitwise(const std::string &what, const Number &left, const Number &right)
{
    const std::int64_t a = left.toInteger();
    const std::int64_t b = right.toInteger();
    if (what == "&")
        return Number::of(a & b);
    if (what == "|")
        return Number::of(a | b);
    if (what == "^")
        return Number::of(a ^ b);
    if (what == "%") {
        if (b == 0)
            divideByZero();
        return Number::of(b == -1 ? std::int64_t(0) : a % b);
    }
    // Only the low six bits of the distance count, as processors do it.
    const int distance = static_cast<int>(b & 63);
    return what == "<<" ? wrapped(bits(a) << distance) : Number::of(a >> distance);
}

Number arithmetic(const std::string &what, const Number &a, const Number &b, bool isReal)
{
    if (isReal || a.isReal || b.isReal) {
        if (what == "+")
            return Number::of(a.toReal() + b.toReal());
        if (what == "-")
            return Number::of(a.toReal() - b.toReal());
        if (what == "*")
            return Number::of(a.toReal() * b.toReal());
        if (what == "**")
            return Number::of(std::pow(a.toReal(), b.toReal()));
        if (b.toReal() == 0)
            divideByZero();
        return Number::of(a.toReal() / b.toReal());
    }
    if (what == "+")
        return wrapped(bits(a.integer) + bits(b.integer));
    if (what == "-")
        return wrapped(bits(a.integer) - bits(b.integer));
    if (what == "*")
        return wrapped(bits(a.integer) * bits(b.integer));
    if (what == "**")
        return b.integer < 0 ? Number::of(std::pow(a.toReal(), b.toReal())) : Number::of(power(a.integer, b.integer));
    if (b.integer == 0)
        divideByZero();
    return b.integer == -1 ? wrapped(0 - bits(a.integer)) : Number::of(a.integer / b.integer);
}

Number applied(const std::string &function, const Number &x)
{
    if (function == "NEG")
        return x.isReal ? Number::of(-x.real) : wrapped(0 - bits(x.integer));
    if (function == "ABS")
        return x.isReal ? Number::of(std::fabs(x.real)) : x.integer < 0 ? wrapped(0 - bits(x.integer)) : x;
    if (function == "SGN")
        return Number::of(std::int64_t(x.toReal() > 0) - std::int64_t(x.toReal() < 0));
    if (function == "~")
        return Number::of(~x.toInteger());
    const auto rounding = roundingFunctions().find(function);
    if (rounding != roundingFunctions().end())
        return x.isReal ? Number::of(rounding->second(x.real)) : x;
    return Number::of(realFunctions().at(function)(x.toReal()));
}

} // namespace

std::int64_t Number::toInteger() const
{
    return isReal ? MoxGenApi::toInteger(std::trunc(real)) : integer;
}

/** Recursive descent over one text; names of sub-expressions are replaced by what they stand for. */
class ExpressionParser
{
public:
    ExpressionParser(Expression &expression, const std::map<std::string, std::string> &definitions)
        : m_expression(expression), m_definitions(definitions)
    { }

    std::size_t parse(const std::string &text)
    {
        const std::string outerText = std::exchange(m_text, text);
        const std::size_t outerAt = std::exchange(m_at, 0);
        const std::size_t root = choice();
        skipBlanks();
        if (m_at != m_text.size())
            fail("an operator is missing");
        m_text = outerText;
        m_at = outerAt;
        return root;
    }

private:
    [[noreturn]] void fail(const char *reason) const
    {
        throw RUNTIME_EXCEPTION("%s at character %zu of '%s'", reason, m_at + 1, m_text.c_str());
    }

    void skipBlanks()
    {
        while (m_at < m_text.size() && std::isspace(static_cast<unsigned char>(m_text[m_at])))
            ++m_at;
    }

    bool take(const char *symbol)
    {
        skipBlanks();
        const std::string text = symbol;
        if (m_text.compare(m_at, text.size(), text) != 0)
            return false;
        m_at += text.size();
        return true;
    }

    std::size_t add(std::string what, std::vector<std::size_t> operands)
    {
        Expression::Term term;
        term.what = std::move(what);
        for (std::size_t operand : operands)
            term.depth = std::max(term.depth, m_expression.m_terms[operand].depth + 1);
        if (term.depth > deepest)
            fail("too many nested terms");
        if (m_expression.m_terms.size() == mostTerms)
            fail("too many terms");
        term.operands = std::move(operands);
        m_expression.m_terms.push_back(std::move(term));
        return m_expression.m_terms.size() - 1;
    }

    std::size_t number(const Number &value)
    {
        const std::size_t term = add("number", {});
        m_expression.m_terms[term].number = value;
        return term;
    }

    std::size_t choice()
    {
        if (++m_depth > deepest)
            fail("too many nested parentheses");
        std::size_t result = binary(0);
        if (take("?")) {
            const std::size_t yes = choice();
            if (!take(":"))
                fail("':' is missing");
            const std::size_t no = choice();
            result = add("?", {result, yes, no});
        }
        --m_depth;
        return result;
    }

    // The operators of one level, loosest first. A longer symbol comes before the shorter one that it begins with.
    static const std::vector<std::vector<const char *>> &levels()
    {
        static const std::vector<std::vector<const char *>> table{
            {"||"},
            {"&&"},
            {"|"},
            {"^"},
            {"&"},
            {"<>", "!=", "==", "="},
            {"<=", ">=", "<<", ">>", "<>", "<", ">"},
            {"<<", ">>"},
            {"+", "-"},
            {"**", "*", "/", "%"},
        };
        return table;
    }

    // Leaves alone what belongs to another level, such as the first half of "||" or of "<<".
    const char *takeOperator(std::size_t level)
    {
        const std::size_t before = m_at;
        for (const char *symbol : levels()[level]) {
            if (!take(symbol))
                continue;
            const std::string text = symbol;
            const bool isDoubled = (text == "|" || text == "&") && m_at < m_text.size() && m_text[m_at] == text[0];
            const bool isShift = level == 6 && (text == "<<" || text == ">>" || text == "<>");
            if (!isDoubled && !isShift && text != "**")
                return text == "==" ? "=" : text == "!=" ? "<>" : symbol;
            m_at = before;
            return nullptr;
        }
        m_at = before;
        return nullptr;
    }

    std::size_t binary(std::size_t level)
    {
        if (level == levels().size())
            return raised();
        std::size_t result = binary(level + 1);
        while (const char *symbol = takeOperator(level)) {
            const std::size_t right = binary(level + 1);
            result = add(symbol, {result, right});
        }
        return result;
    }

    std::size_t raised()
    {
        const std::size_t base = unary();
        if (!take("**"))
            return base;
        if (++m_depth > deepest)
            fail("too many nested powers");
        const std::size_t exponent = raised();
        --m_depth;
        return add("**", {base, exponent});
    }

    std::size_t unary()
    {
        if (++m_depth > deepest)
            fail("too many signs");
        std::size_t result = 0;
        if (take("-"))
            result = add("NEG", {unary()});
        else if (take("+"))
            result = unary();
        else if (take("~"))
            result = add("~", {unary()});
        else
            result = primary();
        --m_depth;
        return result;
    }

    std::size_t primary()
    {
        if (take("(")) {
            const std::size_t inner = choice();
            if (!take(")"))
                fail("')' is missing");
            return inner;
        }
        skipBlanks();
        const char next = m_at < m_text.size() ? m_text[m_at] : '\0';
        if (std::isdigit(static_cast<unsigned char>(next)) || next == '.')
            return literal();
        if (std::isalpha(static_cast<unsigned char>(next)) || next == '_')
            return name();
        fail("a value is missing");
    }

    std::size_t literal()
    {
        const std::size_t begin = m_at;
        const bool isHex = m_text.compare(m_at, 2, "0x") == 0 || m_text.compare(m_at, 2, "0X") == 0;
        while (m_at < m_text.size()) {
            const char c = m_text[m_at];
            const char last = m_at > begin ? m_text[m_at - 1] : '\0';
            const bool isSign = (c == '-' || c == '+') && !isHex && (last == 'e' || last == 'E');
            if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.' && !isSign)
                break;
            ++m_at;
        }
        const std::string text = m_text.substr(begin, m_at - begin);
        if (const auto integer = parseInteger(text))
            return number(Number::of(*integer));
        if (const auto real = parseReal(text))
            return number(Number::of(*real));
        fail("the number is malformed");
    }

    std::size_t name()
    {
        const std::size_t begin = m_at;
        while (
            m_at < m_text.size()
            && (std::isalnum(static_cast<unsigned char>(m_text[m_at])) || m_text[m_at] == '_' || m_text[m_at] == '.'))
            ++m_at;
        const std::string text = m_text.substr(begin, m_at - begin);
        const auto definition = m_definitions.find(text);
        if (definition != m_definitions.end()) {
            // Each is entered once, and then shared by all that mention it.
            if (const auto known = m_known.find(text); known != m_known.end()) {
                m_expression.m_terms[known->second].isShared = true;
                m_expression.m_hasShared = true;
                return known->second;
            }
            if (++m_depth > deepest)
                fail("an expression contains itself");
            const std::size_t inner = parse(definition->second);
            --m_depth;
            m_known.emplace(text, inner);
            return inner;
        }
        if (isFunction(text) && (take("(") || text == "E" || text == "PI"))
            return function(text);
        const std::size_t term = add("name", {});
        m_expression.m_terms[term].name = text;
        return term;
    }

    std::size_t function(const std::string &text)
    {
        if (text == "E" || text == "PI") {
            // They may be written with or without a pair of parentheses.
            if (m_text[m_at - 1] == '(' && !take(")"))
                fail("')' is missing");
            return number(Number::of(text == "E" ? M_E : M_PI));
        }
        std::vector<std::size_t> operands{choice()};
        if (text == "ROUND" && take(","))
            operands.push_back(choice());
        if (!take(")"))
            fail("')' is missing");
        return add(text, std::move(operands));
    }

    Expression &m_expression;
    const std::map<std::string, std::string> &m_definitions;
    std::map<std::string, std::size_t> m_known; // terms that definitions became
    std::string m_text;
    std::size_t m_at = 0;
    int m_depth = 0;
};

Expression::Expression(const std::string &text, const std::map<std::string, std::string> &definitions)
{
    m_root = ExpressionParser(*this, definitions).parse(text);
}

Number Expression::evaluate(bool isReal, const Lookup &lookup) const
{
    Known known(m_hasShared ? m_terms.size() : 0);
    return valueOf(m_root, isReal, lookup, known);
}

Number Expression::valueOf(std::size_t position, bool isReal, const Lookup &lookup, Known &known) const
{
    if (!m_terms[position].isShared)
        return computed(position, isReal, lookup, known);
    if (!known[position])
        known[position] = computed(position, isReal, lookup, known);
    return *known[position];
}

Number Expression::computed(std::size_t position, bool isReal, const Lookup &lookup, Known &known) const
{
    const Term &term = m_terms[position];
    const std::string &what = term.what;
    if (what == "number")
        return term.number;
    if (what == "name")
        return lookup(term.name);
    const Number first = valueOf(term.operands.front(), isReal, lookup, known);
    if (what == "?")
        return valueOf(term.operands[first.isTrue() ? 1 : 2], isReal, lookup, known);
    if (what == "||" && first.isTrue())
        return Number::of(std::int64_t(1));
    if (what == "&&" && !first.isTrue())
        return Number::of(std::int64_t(0));
    if (term.operands.size() == 1)
        return applied(what, first);
    const Number second = valueOf(term.operands[1], isReal, lookup, known);
    if (what == "||" || what == "&&")
        return Number::of(std::int64_t(second.isTrue()));
    if (what == "ROUND") {
        const double scale = std::pow(10.0, second.toReal());
        return Number::of(std::round(first.toReal() * scale) / scale);
    }
    if (what == "&" || what == "|" || what == "^" || what == "%" || what == "<<" || what == ">>")
        return bitwise(what, first, second);
    if (what == "+" || what == "-" || what == "*" || what == "/" || what == "**")
        return arithmetic(what, first, second, isReal);
    return compared(what, first, second);
}

} // namespace MoxGenApi
