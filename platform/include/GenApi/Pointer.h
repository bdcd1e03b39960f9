// Pointers that know whether a node has an interface.
#ifndef GENAPI_POINTER_H
#define GENAPI_POINTER_H

#include <GenApi/INodeMap.h>
#include <GenApi/IPort.h>
#include <GenApi/Values.h>

namespace GenApi_3_0 {

/**
 * Holds a node cast to the interface T, or null when the node is missing or has no such interface. Reaching through a
 * null pointer throws `LogicalErrorException` with "NULL pointer dereferenced". It owns nothing.
 */
template<class T, class B = IBase> class CPointer
{
public:
    CPointer() = default;
    CPointer(B *base) : m_pT(dynamic_cast<T *>(base)) { }

    CPointer &operator=(B *base)
    {
        m_pT = dynamic_cast<T *>(base);
        return *this;
    }

    bool IsValid() const noexcept { return m_pT != nullptr; }
    operator bool() const noexcept { return m_pT != nullptr; }
    operator T *() const { return checked(); }
    T &operator*() const { return *checked(); }
    T *operator->() const { return checked(); }

    bool operator==(const CPointer &other) const noexcept { return m_pT == other.m_pT; }
    bool operator!=(const CPointer &other) const noexcept { return m_pT != other.m_pT; }
    bool operator==(std::nullptr_t) const noexcept { return m_pT == nullptr; }
    bool operator!=(std::nullptr_t) const noexcept { return m_pT != nullptr; }

private:
    T *checked() const
    {
        if (!m_pT)
            throw LOGICAL_ERROR_EXCEPTION("NULL pointer dereferenced");
        return m_pT;
    }

    T *m_pT = nullptr;
};

using CBasePtr = CPointer<IBase>;
using CNodePtr = CPointer<INode>;
using CValuePtr = CPointer<IValue>;
using CSelectorPtr = CPointer<ISelector>;
using CCategoryPtr = CPointer<ICategory>;
using CIntegerPtr = CPointer<IInteger>;
using CFloatPtr = CPointer<IFloat>;
using CBooleanPtr = CPointer<IBoolean>;
using CCommandPtr = CPointer<ICommand>;
using CStringPtr = CPointer<IString>;
using CEnumerationPtr = CPointer<IEnumeration>;
using CEnumEntryPtr = CPointer<IEnumEntry>;
using CRegisterPtr = CPointer<IRegister>;
using CPortPtr = CPointer<IPort>;

// Of a pointer that may be null: a missing node can do nothing.
inline bool IsReadable(const IBase *node)
{
    return node && IsReadable(node->GetAccessMode());
}
inline bool IsWritable(const IBase *node)
{
    return node && IsWritable(node->GetAccessMode());
}
inline bool IsAvailable(const IBase *node)
{
    return node && IsAvailable(node->GetAccessMode());
}
inline bool IsImplemented(const IBase *node)
{
    return node && IsImplemented(node->GetAccessMode());
}
template<class T, class B> bool IsReadable(const CPointer<T, B> &node)
{
    return node.IsValid() && IsReadable(node->GetAccessMode());
}
template<class T, class B> bool IsWritable(const CPointer<T, B> &node)
{
    return node.IsValid() && IsWritable(node->GetAccessMode());
}
template<class T, class B> bool IsAvailable(const CPointer<T, B> &node)
{
    return node.IsValid() && IsAvailable(node->GetAccessMode());
}
template<class T, class B> bool IsImplemented(const CPointer<T, B> &node)
{
    return node.IsValid() && IsImplemented(node->GetAccessMode());
}

} // namespace GenApi_3_0

#endif
