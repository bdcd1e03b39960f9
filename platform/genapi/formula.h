// A formula of the description, bound to the nodes that its variables name.
#ifndef MOXGENAPI_FORMULA_H
#define MOXGENAPI_FORMULA_H

#include "expression.h"
#include "node.h"

#include <functional>
#include <memory>

namespace MoxGenApi {

/** The names that the formulas of one node know: its `pVariable`s, and properties of theirs such as "X.Max". */
class Variables
{
public:
    using LinkFunction = std::function<Node *(Role role, const std::string &name)>;

    /** False when a variable names a node that does not exist. */
    bool resolve(Node &owner, const LinkFunction &link);
    /** The present value of a variable, for a formula of @p owner; throws when there is none of that name. */
    Number value(const Node &owner, const std::string &name, bool ignoreCache) const;

private:
    struct Variable
    {
        std::string name;
        std::string property; // behind the dot of the name: "Max", "Enum.Off"
        Node *node;
    };
    std::vector<Variable> m_variables;
};

/** One formula of a node, parsed when it is first used. */
class Formula
{
public:
    Formula(Node &owner, std::string text);

    /** @p argument, if not null, is one more variable: FROM or TO of a converter. */
    std::int64_t integer(const Variables &variables, bool ignoreCache, const char *argument = nullptr,
                         std::int64_t value = 0);
    double real(const Variables &variables, bool ignoreCache, const char *argument = nullptr, double value = 0);
    /** The same of a limit: none where the formula divides by zero. */
    std::optional<std::int64_t> integerLimit(const Variables &variables, const char *argument, std::int64_t value);
    std::optional<double> realLimit(const Variables &variables, const char *argument, double value);

private:
    void parse();
    /** None where the formula divides by zero. */
    std::optional<Number> evaluate(bool isReal, const Variables &variables, bool ignoreCache, const char *argument,
                                   const Number &value);
    Number checked(const std::optional<Number> &result) const;

    Node &m_owner;
    const std::string m_text;
    std::unique_ptr<const Expression> m_expression;
    std::string m_flaw; // why the formula cannot be understood
};

} // namespace MoxGenApi

#endif
