// Where a feature's value is: in the description itself, in another node, or in one of several chosen by an index.
#ifndef MOXGENAPI_VALUESOURCE_H
#define MOXGENAPI_VALUESOURCE_H

#include "node.h"

#include <functional>
#include <map>

namespace MoxGenApi {

/**
 * Belongs to a node and speaks for it to whatever `Value`, `pValue`, `pValueCopy`, `pIndex`, `ValueIndexed`,
 * `pValueIndexed`, `ValueDefault` and `pValueDefault` name. A `Value` is a variable that lives in the node map.
 */
class ValueSource
{
public:
    /** Enters a name among the owner's links. */
    using LinkFunction = std::function<Node *(Role role, const std::string &name)>;

    void resolve(Node &owner, const LinkFunction &link);

    GenApi::EAccessMode mode();
    /** The node that holds the value at present; null when the description does, or when it is missing. */
    Node *target();

    std::int64_t integer(bool ignoreCache);
    double real(bool ignoreCache);
    std::string text(bool ignoreCache);
    void setInteger(std::int64_t value, bool verify);
    void setReal(double value, bool verify);
    void setText(const std::string &text, bool verify);

private:
    struct Slot
    {
        Node *node = nullptr;
        std::string content; // the literal, or the name that no node answers to
        bool isLiteral = false;
    };

    static Slot slot(const Property &property, const LinkFunction &link);
    /** The slot in use, or an exception that names what is missing. */
    Slot &usable();
    Slot &current();
    void keep(Slot &slot, const std::string &content);

    Node *m_owner = nullptr;
    Slot m_main;
    std::map<std::int64_t, Slot> m_indexed;
    Node *m_index = nullptr;
    bool m_isIndexed = false;
    std::vector<Node *> m_copies;
};

} // namespace MoxGenApi

#endif
