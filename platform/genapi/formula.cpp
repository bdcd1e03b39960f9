#include "formula.h"

#include "enumerationnode.h"
#include "evaluation.h"

namespace MoxGenApi {

bool Variables::resolve(Node &owner, const LinkFunction &link)
{
    bool complete = true;
    for (const Property &property : owner.description().properties) {
        if (property.tag != "pVariable")
            continue;
        Node *node = link(Role::Operand, property.text);
        complete = complete && node;
        const std::size_t dot = property.argument.find('.');
        m_variables.push_back(
            {property.argument, dot == std::string::npos ? std::string() : property.argument.substr(dot + 1), node});
    }
    return complete;
}

Number Variables::value(const Node &owner, const std::string &name, bool ignoreCache) const
{
    for (const Variable &variable : m_variables) {
        if (variable.name != name)
            continue;
        Node *node = variable.node;
        const std::string &property = variable.property;
        if (!node)
            throw RUNTIME_EXCEPTION("The variable '%s' of node '%s' is a node that the description does not have.",
                                    name.c_str(), owner.name());
        if (property.rfind("Enum.", 0) == 0)
            return Number::of(entryValue(*node, property.substr(5)));
        if (property == "Min")
            return node->isReal() ? Number::of(node->realMin()) : Number::of(node->integerMin());
        if (property == "Max")
            return node->isReal() ? Number::of(node->realMax()) : Number::of(node->integerMax());
        if (property == "Inc")
            return Number::of(node->integerInc());
        return node->isReal() ? Number::of(node->real(ignoreCache)) : Number::of(node->integer(ignoreCache));
    }
    throw RUNTIME_EXCEPTION("The formula of node '%s' uses '%s', which is none of its variables.", owner.name(),
                            name.c_str());
}

Formula::Formula(Node &owner, std::string text) : m_owner(owner), m_text(std::move(text))
{ }

void Formula::parse()
{
    std::map<std::string, std::string> definitions;
    for (const Property &property : m_owner.description().properties) {
        if (property.tag == "Constant" || property.tag == "Expression")
            definitions.emplace(property.argument, property.text);
    }
    try {
        m_expression = std::make_unique<Expression>(m_text, definitions);
    } catch (const GenICam_3_0::RuntimeException &error) {
        m_flaw = error.GetDescription();
    }
}

std::optional<Number> Formula::evaluate(bool isReal, const Variables &variables, bool ignoreCache, const char *argument,
                                        const Number &value)
{
    if (!m_expression && m_flaw.empty())
        parse();
    if (!m_expression)
        throw RUNTIME_EXCEPTION("The formula of node '%s' cannot be understood: %s.", m_owner.name(), m_flaw.c_str());
    const Evaluation::Depth depth(m_owner, m_expression->depth());
    // A variable is read once, however often the formula names it: the device may change in between.
    std::vector<std::pair<std::string, Number>> known;
    try {
        return m_expression->evaluate(isReal, [&](const std::string &name) {
            if (argument && name == argument)
                return value;
            for (const auto &[knownName, number] : known) {
                if (knownName == name)
                    return number;
            }
            const Number number = variables.value(m_owner, name, ignoreCache);
            known.emplace_back(name, number);
            return number;
        });
    } catch (const DivisionByZero &) {
        return std::nullopt;
    }
}

Number Formula::checked(const std::optional<Number> &result) const
{
    if (!result)
        throw RUNTIME_EXCEPTION("The formula of node '%s' divides by zero.", m_owner.name());
    return *result;
}

std::int64_t Formula::integer(const Variables &variables, bool ignoreCache, const char *argument, std::int64_t value)
{
    return checked(evaluate(false, variables, ignoreCache, argument, Number::of(value))).toInteger();
}

double Formula::real(const Variables &variables, bool ignoreCache, const char *argument, double value)
{
    return checked(evaluate(true, variables, ignoreCache, argument, Number::of(value))).toReal();
}

std::optional<std::int64_t> Formula::integerLimit(const Variables &variables, const char *argument, std::int64_t value)
{
    const auto result = evaluate(false, variables, false, argument, Number::of(value));
    return result ? std::optional<std::int64_t>(result->toInteger()) : std::nullopt;
}

std::optional<double> Formula::realLimit(const Variables &variables, const char *argument, double value)
{
    const auto result = evaluate(true, variables, false, argument, Number::of(value));
    return result ? std::optional<double>(result->toReal()) : std::nullopt;
}

} // namespace MoxGenApi
