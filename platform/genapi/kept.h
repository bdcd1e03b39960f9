// What a node has found out, and for how long that may be used.
#ifndef MOXGENAPI_KEPT_H
#define MOXGENAPI_KEPT_H

#include <cstdint>
#include <optional>
#include <utility>

namespace MoxGenApi {

/**
 * A result of a node: kept until it is forgotten, or, where the description forbids that, for the evaluation under way
 * only. Within one evaluation each node is worked out once, whatever the cache says: formulas that name one node twice,
 * one above the other, would double the work at each level.
 */
template<class T> class Kept
{
public:
    /** The result, if it may be used in this @p evaluation; null otherwise. */
    const T *find(bool ignoreCache, std::uint64_t evaluation) const
    {
        const bool isOfNow = m_evaluation == evaluation && (m_isFresh || !ignoreCache);
        return m_value && (isOfNow || (m_isKept && !ignoreCache)) ? &*m_value : nullptr;
    }
    /** @p isKept: beyond this @p evaluation; @p isFresh: found while ignoring all caches. */
    void store(T value, bool isKept, bool isFresh, std::uint64_t evaluation)
    {
        m_value = std::move(value);
        m_isKept = isKept;
        m_isFresh = isFresh;
        m_evaluation = evaluation;
    }
    bool isKept() const { return m_value && m_isKept; }
    void forget() { m_value.reset(); }

private:
    std::optional<T> m_value;
    bool m_isKept = false;
    bool m_isFresh = false;
    std::uint64_t m_evaluation = 0;
};

} // namespace MoxGenApi

#endif
