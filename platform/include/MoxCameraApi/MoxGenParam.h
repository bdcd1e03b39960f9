// The parameter layer of the camera SDK: a device's or interface's features by name, with result codes.
//
// Parameter objects belong to their array, and the array to the device or interface that gave it: nothing here is
// ever deleted by its user. `err` arguments are optional and may be null. Texts are UTF-8, owned by the SDK, and may
// be null. No operation throws.
#ifndef MOXCAMERAAPI_MOXGENPARAM_H
#define MOXCAMERAAPI_MOXGENPARAM_H

#include <Base/GCLinkage.h>
#include <MoxCameraApi/MoxCamErr.h>

#include <cstdint>

namespace GenApi_3_0 {
struct INodeMap;
}

namespace MoxGenParam {

class Param;

/** Type codes of `Param::GetType`. */
enum ParamType {
    TypeInteger = 1,
    TypeFloat = 2,
    TypeString = 3,
    TypeEnum = 4,
    TypeBoolean = 5,
    TypeCommand = 6,
    TypeEnumEntry = 7,
    TypeOther = 0
};

/**
 * Hears of a parameter's changes, on the GUI thread; inside the write when a write made there caused them. What it
 * throws is dropped.
 */
class MOXSDK_INTERFACE ParamEventSink
{
public:
    virtual void OnParameterUpdate(Param *param) = 0;

protected:
    /** The open SDK takes a sink that is destroyed off every parameter. To be destroyed on the GUI thread. */
    ~ParamEventSink();
};

/** What all parameters answer. */
class MOXSDK_INTERFACE Param
{
public:
    /** One of `ParamType`. */
    virtual int GetType() = 0;
    virtual const char *GetName() = 0;
    virtual bool IsAvailable() = 0;
    virtual bool IsWritable() = 0;
    virtual bool IsReadable() = 0;
    /** Subscribes a sink. With an SDK that does not hear of its end, it must outlive the subscription or the device. */
    virtual void RegisterEventSink(ParamEventSink *sink) = 0;
    /**
     * Harmless when the sink is not subscribed. To be called on the GUI thread: there the sink is free to go afterwards,
     * while on another thread an update may be running in it.
     */
    virtual void UnregisterEventSink(ParamEventSink *sink) = 0;

protected:
    ~Param() = default;
};

class MOXSDK_INTERFACE Int : public virtual Param
{
public:
    virtual MoxCamErr SetValue(std::int64_t value) = 0;
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    virtual std::int64_t GetMin(MoxCamErr *err) = 0;
    virtual std::int64_t GetMax(MoxCamErr *err) = 0;
    virtual std::int64_t GetIncrement(MoxCamErr *err) = 0;

protected:
    ~Int() = default;
};

class MOXSDK_INTERFACE EnumEntry : public virtual Param
{
public:
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    virtual const char *GetValueStr(MoxCamErr *err) = 0;

protected:
    ~EnumEntry() = default;
};

class MOXSDK_INTERFACE Enum : public virtual Param
{
public:
    virtual std::uint64_t GetEnumEntriesCount(MoxCamErr *err) = 0;
    /** The entry at an index in the description's order; null beyond the last. */
    virtual EnumEntry *GetEnumEntryByIndex(std::uint64_t index, MoxCamErr *err) = 0;
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    virtual const char *GetValueStr(MoxCamErr *err) = 0;
    virtual MoxCamErr SetValue(std::int64_t value) = 0;
    virtual MoxCamErr SetValueStr(const char *value) = 0;

protected:
    ~Enum() = default;
};

class MOXSDK_INTERFACE Boolean : public virtual Param
{
public:
    virtual MoxCamErr SetValue(bool value) = 0;
    virtual bool GetValue(MoxCamErr *err) = 0;

protected:
    ~Boolean() = default;
};

class MOXSDK_INTERFACE Command : public virtual Param
{
public:
    virtual MoxCamErr Execute() = 0;

protected:
    ~Command() = default;
};

class MOXSDK_INTERFACE String : public virtual Param
{
public:
    virtual const char *GetValue(MoxCamErr *err) = 0;

protected:
    ~String() = default;
};

/** A device's or an interface's parameters. Lookups give null for what the camera lacks or holds as another type. */
class MOXSDK_INTERFACE Array
{
public:
    virtual Boolean *GetBoolean(const char *name, MoxCamErr *err) = 0;
    virtual Command *GetCommand(const char *name, MoxCamErr *err) = 0;
    virtual Enum *GetEnum(const char *name, MoxCamErr *err) = 0;
    virtual Int *GetInt(const char *name, MoxCamErr *err) = 0;
    virtual String *GetString(const char *name, MoxCamErr *err) = 0;
    /** The node map behind the array; it lives as long as the array does. */
    virtual GenApi_3_0::INodeMap *GetNodeMap(MoxCamErr *err) = 0;
    virtual const char *GetEnumValueStr(const char *name, MoxCamErr *err) = 0;
    virtual MoxCamErr SetIntegerValue(const char *name, std::int64_t value) = 0;
    virtual std::int64_t GetIntegerValue(const char *name, MoxCamErr *err) = 0;
    virtual MoxCamErr ExecuteCommand(const char *name) = 0;

protected:
    ~Array() = default;
};

} // namespace MoxGenParam

#endif
