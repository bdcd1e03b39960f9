/**
 * @file
 * The parameter layer of the camera SDK: a device's or interface's features by name, with result codes.
 *
 * Parameter objects belong to their array, and the array to the device or interface that gave it: nothing here is
 * ever deleted by its user. `err` arguments are optional and may be null. Texts are UTF-8, may be null, and stay valid as
 * long as the array. No operation throws: reads that fail give 0, false, an empty text or null and the code in `err`,
 * writes give the code, all of MoxCamErr.h. A camera that is gone gives `NoDevice`. Calls may come from any thread.
 */
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
    TypeInteger = 1, ///< Int
    TypeFloat = 2, ///< a float, which has no class here
    TypeString = 3, ///< String
    TypeEnum = 4, ///< Enum
    TypeBoolean = 5, ///< Boolean
    TypeCommand = 6, ///< Command
    TypeEnumEntry = 7, ///< EnumEntry
    TypeOther = 0 ///< anything else
};

/**
 * Hears of a parameter's changes, on the GUI thread; inside the write when a write made there caused them. What it
 * throws is dropped.
 */
class MOXSDK_INTERFACE ParamEventSink
{
public:
    /**
     * @p param, or what it depends on, was written, invalidated or polled. The value may be the same as before. The sink may
     * read and write parameters here, unsubscribe, be destroyed, and release the device.
     */
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
    /** The feature's name in the description. */
    virtual const char *GetName() = 0;
    /** Whether the camera offers it now. False when that cannot be found out, as with the next two. */
    virtual bool IsAvailable() = 0;
    /** Whether it may be written, or executed, now. */
    virtual bool IsWritable() = 0;
    /** Whether it may be read now. */
    virtual bool IsReadable() = 0;
    /**
     * Subscribes a sink; null does nothing, and one that is subscribed stays so once. With an SDK that does not hear of its
     * end, it must outlive the subscription or the device.
     */
    virtual void RegisterEventSink(ParamEventSink *sink) = 0;
    /**
     * Harmless when the sink is not subscribed. To be called on the GUI thread: there the sink is free to go afterwards,
     * while on another thread an update may be running in it.
     */
    virtual void UnregisterEventSink(ParamEventSink *sink) = 0;

protected:
    ~Param() = default;
};

/** An integer, in the unit that the camera's description names. */
class MOXSDK_INTERFACE Int : public virtual Param
{
public:
    /** Writes a value, which must lie within the limits and on the increment. */
    virtual MoxCamErr SetValue(std::int64_t value) = 0;
    /** The present value. */
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    /** The smallest value that may be written now. */
    virtual std::int64_t GetMin(MoxCamErr *err) = 0;
    /** The largest value that may be written now. */
    virtual std::int64_t GetMax(MoxCamErr *err) = 0;
    /** The step between values, counted from the minimum; 1 where the description names none. */
    virtual std::int64_t GetIncrement(MoxCamErr *err) = 0;

protected:
    ~Int() = default;
};

/** One of the values of an enumeration. */
class MOXSDK_INTERFACE EnumEntry : public virtual Param
{
public:
    /** Its number. */
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    /** Its symbolic name, as `Enum::SetValueStr` takes it. */
    virtual const char *GetValueStr(MoxCamErr *err) = 0;

protected:
    ~EnumEntry() = default;
};

/** A choice among named values. */
class MOXSDK_INTERFACE Enum : public virtual Param
{
public:
    /** Number of entries, also of those that are not available now. */
    virtual std::uint64_t GetEnumEntriesCount(MoxCamErr *err) = 0;
    /** The entry at an index in the description's order; null beyond the last. */
    virtual EnumEntry *GetEnumEntryByIndex(std::uint64_t index, MoxCamErr *err) = 0;
    /** The number that the camera holds, also one that no entry has. */
    virtual std::int64_t GetValue(MoxCamErr *err) = 0;
    /** The symbolic name of the present entry; a failure when the camera holds a number that no entry has. */
    virtual const char *GetValueStr(MoxCamErr *err) = 0;
    /** Chooses the entry with that number. */
    virtual MoxCamErr SetValue(std::int64_t value) = 0;
    /** Chooses the entry with that symbolic name. */
    virtual MoxCamErr SetValueStr(const char *value) = 0;

protected:
    ~Enum() = default;
};

/** True or false. */
class MOXSDK_INTERFACE Boolean : public virtual Param
{
public:
    /** Writes a value. */
    virtual MoxCamErr SetValue(bool value) = 0;
    /** The present value. */
    virtual bool GetValue(MoxCamErr *err) = 0;

protected:
    ~Boolean() = default;
};

/** Something that the camera does when it is told to. */
class MOXSDK_INTERFACE Command : public virtual Param
{
public:
    /** Tells it, and does not wait until it is done. */
    virtual MoxCamErr Execute() = 0;

protected:
    ~Command() = default;
};

/** A text. */
class MOXSDK_INTERFACE String : public virtual Param
{
public:
    /** The present value. */
    virtual const char *GetValue(MoxCamErr *err) = 0;

protected:
    ~String() = default;
};

/**
 * A device's or an interface's parameters, by the names of its description; those that the GenICam SFNC names are called
 * as there. Lookups give null, with `GenICamUnknownParameter` or `GenICamType`, for what the camera lacks or holds as
 * another type, and the same object each time otherwise. Lookups do not access the camera.
 */
class MOXSDK_INTERFACE Array
{
public:
    /** The boolean of that name. */
    virtual Boolean *GetBoolean(const char *name, MoxCamErr *err) = 0;
    /** The command of that name. */
    virtual Command *GetCommand(const char *name, MoxCamErr *err) = 0;
    /** The enumeration of that name. */
    virtual Enum *GetEnum(const char *name, MoxCamErr *err) = 0;
    /** The integer of that name. */
    virtual Int *GetInt(const char *name, MoxCamErr *err) = 0;
    /** The text of that name. */
    virtual String *GetString(const char *name, MoxCamErr *err) = 0;
    /** The node map behind the array; it lives as long as the array does. */
    virtual GenApi_3_0::INodeMap *GetNodeMap(MoxCamErr *err) = 0;
    /** Looks an enumeration up and reads its present entry. */
    virtual const char *GetEnumValueStr(const char *name, MoxCamErr *err) = 0;
    /** Looks an integer up and writes it. */
    virtual MoxCamErr SetIntegerValue(const char *name, std::int64_t value) = 0;
    /** Looks an integer up and reads it. */
    virtual std::int64_t GetIntegerValue(const char *name, MoxCamErr *err) = 0;
    /** Looks a command up and executes it. */
    virtual MoxCamErr ExecuteCommand(const char *name) = 0;

protected:
    ~Array() = default;
};

} // namespace MoxGenParam

#endif
