// The lists that lookups give.
#ifndef MOXSDK_ELEMENTLIST_H
#define MOXSDK_ELEMENTLIST_H

#include <cstddef>
#include <utility>
#include <vector>

namespace MoxSdk {

/** A copy of pointers to walk once. Owned by its user until `Release`; used by one thread at a time. */
template<class List, class Element> class ElementList final : public List
{
public:
    explicit ElementList(std::vector<Element *> elements) : m_elements(std::move(elements)) { }

    void Release() override { delete this; }
    std::size_t GetCount() override { return m_elements.size(); }
    Element *GetFirst() override
    {
        m_next = 0;
        return GetNext();
    }
    Element *GetNext() override { return m_next < m_elements.size() ? m_elements[m_next++] : nullptr; }

private:
    const std::vector<Element *> m_elements;
    std::size_t m_next = 0;
};

} // namespace MoxSdk

#endif
