// Guards an evaluation against descriptions that refer in circles.
#ifndef MOXGENAPI_EVALUATION_H
#define MOXGENAPI_EVALUATION_H

#include "node.h"
#include "nodemap.h"
#include "valuesource.h"

#include <type_traits>

namespace MoxGenApi {

/**
 * Lives while a node evaluates one of its aspects. A node that is reached again meanwhile refers to itself, and one at
 * the end of a very long chain would overflow the stack: both throw RuntimeException.
 * The outermost one also bounds how long results that may not be kept are used again, see `Kept`.
 */
class Evaluation
{
public:
    enum Aspect : unsigned { Value = 1, Min = 2, Max = 4, Inc = 8, Presentation = 16, Mode = 32, Write = 64 };

    /** Takes its share of the stack that evaluations may use. */
    class Depth
    {
    public:
        Depth(Node &node, int depth)
            : m_total(node.map().evaluationDepth), m_evaluation(node.map().evaluation), m_depth(depth)
        {
            if (m_total + m_depth > deepest)
                throw RUNTIME_EXCEPTION("The chain of references that ends at node '%s' is too long.", node.name());
            m_total += m_depth;
        }
        ~Depth()
        {
            m_total -= m_depth;
            if (m_total == 0)
                ++m_evaluation;
        }
        Depth(const Depth &) = delete;
        Depth &operator=(const Depth &) = delete;

    private:
        static constexpr int deepest = 1000; // real descriptions stay below 50

        int &m_total;
        std::uint64_t &m_evaluation;
        const int m_depth;
    };

    Evaluation(Node &node, Aspect aspect) : m_depth(node, 1), m_node(node), m_aspect(aspect)
    {
        if (node.m_busy & aspect)
            throw RUNTIME_EXCEPTION("Node '%s' refers to itself in a circle.", node.name());
        node.m_busy |= aspect;
    }
    ~Evaluation() { m_node.m_busy &= ~static_cast<unsigned>(m_aspect); }
    Evaluation(const Evaluation &) = delete;
    Evaluation &operator=(const Evaluation &) = delete;

private:
    const Depth m_depth;
    Node &m_node;
    const Aspect m_aspect;
};

/** What a node's description says of its presentation, or where it says nothing, what the holder of its value says. */
template<class Aspect>
Aspect ownOrTargets(Node &node, ValueSource &source, Aspect own, const std::common_type_t<Aspect> &nothing,
                    Aspect (Node::*aspect)())
{
    Node *target = own == nothing ? source.target() : nullptr;
    if (!target)
        return own;
    const Evaluation guard(node, Evaluation::Presentation);
    return (target->*aspect)();
}

} // namespace MoxGenApi

#endif
