// Enumerations and containers of the GenApi interfaces, with the numbering of the GenICam standard.
#ifndef GENAPI_TYPES_H
#define GENAPI_TYPES_H

#include <Base/GCException.h>
#include <Base/GCLinkage.h>
#include <Base/GCString.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace GenApi_3_0 {

struct IValue;
struct INode;

using GenICam_3_0::gcstring;
using StringList_t = GenICam_3_0::gcstring_vector;
using value_vector = std::vector<IValue *>;
using node_vector = std::vector<INode *>;
using FeatureList_t = value_vector;
using NodeList_t = node_vector;

/** A list of numbers that is returned by value: the valid values of a feature, in ascending order. */
template<typename T> class Autovector
{
public:
    Autovector() = default;
    explicit Autovector(std::vector<T> values) : m_values(std::move(values)) { }
    std::size_t size() const noexcept { return m_values.size(); }
    T operator[](std::size_t index) const { return m_values[index]; }

private:
    std::vector<T> m_values;
};

using int64_autovector_t = Autovector<std::int64_t>;
using double_autovector_t = Autovector<double>;

/** What may be done with a node now: not implemented, not available, write only, read only, read and write. */
enum EAccessMode { NI, NA, WO, RO, RW, _UndefinedAccesMode, _CycleDetectAccesMode };

/** For whom a feature is meant; each level includes those before it. `Invisible` is for no user interface. */
enum EVisibility { Beginner = 0, Expert = 1, Guru = 2, Invisible = 3, _UndefinedVisibility = 99 };

/** Whether a value may be kept: never, also after a write, or only after a read. */
enum ECachingMode { NoCache, WriteThrough, WriteAround, _UndefinedCachingMode };

/** How a number wants to be shown. */
enum ERepresentation {
    Linear,
    Logarithmic,
    Boolean,
    PureNumber,
    HexNumber,
    IPV4Address,
    MACAddress,
    _UndefinedRepresentation
};

/** How a number steps: not at all, by a fixed increment, or through a list of valid values. */
enum EIncMode { noIncrement, fixedIncrement, listIncrement };

enum EDisplayNotation { fnAutomatic, fnFixed, fnScientific, _UndefinedEDisplayNotation };

/** The interface that tells what a node is. */
enum EInterfaceType {
    intfIValue,
    intfIBase,
    intfIInteger,
    intfIBoolean,
    intfICommand,
    intfIFloat,
    intfIString,
    intfIRegister,
    intfICategory,
    intfIEnumeration,
    intfIEnumEntry,
    intfIPort
};

/** Whether a callback runs while the node map's lock is held, or after it was released. */
enum ECallbackType { cbPostInsideLock = 1, cbPostOutsideLock = 2 };

inline bool IsImplemented(EAccessMode mode)
{
    return mode != NI;
}
inline bool IsAvailable(EAccessMode mode)
{
    return mode != NI && mode != NA;
}
inline bool IsReadable(EAccessMode mode)
{
    return mode == RO || mode == RW;
}
inline bool IsWritable(EAccessMode mode)
{
    return mode == WO || mode == RW;
}

} // namespace GenApi_3_0

namespace GenApi = GenApi_3_0;

#endif
