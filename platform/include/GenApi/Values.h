// The value interfaces of the GenICam standard.
//
// All of them share these rules. `verify` on a write asks for the checks of access mode, range and increment before
// the camera is spoken to; `verify` on a read asks for the range check afterwards. `ignoreCache` reads the port even
// when a valid value is kept. A refusal throws: AccessException for a wrong access mode, OutOfRangeException for a
// value that the limits or the increment forbid, InvalidArgumentException for a text or entry that does not exist,
// TimeoutException and RuntimeException for what the port reports. Calls may come from any thread; each takes the
// node map's lock.
#ifndef GENAPI_VALUES_H
#define GENAPI_VALUES_H

#include <GenApi/INode.h>

namespace GenApi_3_0 {

struct MOXSDK_INTERFACE IInteger : virtual public IValue
{
    virtual void SetValue(std::int64_t value, bool verify = true) = 0;
    virtual std::int64_t GetValue(bool verify = false, bool ignoreCache = false) = 0;
    virtual std::int64_t GetMin() = 0;
    virtual std::int64_t GetMax() = 0;
    virtual EIncMode GetIncMode() = 0;
    /** Step between valid values, counted from `GetMin`; 1 where the description names none. */
    virtual std::int64_t GetInc() = 0;
    /** The valid values, those within the limits only when @p bounded; empty without a list. */
    virtual int64_autovector_t GetListOfValidValues(bool bounded = true) = 0;
    virtual ERepresentation GetRepresentation() = 0;
    virtual gcstring GetUnit() = 0;
};

struct MOXSDK_INTERFACE IFloat : virtual public IValue
{
    virtual void SetValue(double value, bool verify = true) = 0;
    virtual double GetValue(bool verify = false, bool ignoreCache = false) = 0;
    virtual double GetMin() = 0;
    virtual double GetMax() = 0;
    virtual bool HasInc() = 0;
    virtual EIncMode GetIncMode() = 0;
    /** Step between valid values; 0 where `HasInc` is false. */
    virtual double GetInc() = 0;
    virtual double_autovector_t GetListOfValidValues(bool bounded = true) = 0;
    virtual ERepresentation GetRepresentation() = 0;
    virtual gcstring GetUnit() const = 0;
    virtual EDisplayNotation GetDisplayNotation() const = 0;
    /** Digits to show behind the point. */
    virtual std::int64_t GetDisplayPrecision() const = 0;
};

struct MOXSDK_INTERFACE IBoolean : virtual public IValue
{
    virtual void SetValue(bool value, bool verify = true) = 0;
    virtual bool GetValue(bool verify = false, bool ignoreCache = false) const = 0;
};

struct MOXSDK_INTERFACE ICommand : virtual public IValue
{
    virtual void Execute(bool verify = true) = 0;
    virtual bool IsDone(bool verify = true) = 0;
};

struct MOXSDK_INTERFACE IString : virtual public IValue
{
    virtual void SetValue(const gcstring &value, bool verify = true) = 0;
    virtual gcstring GetValue(bool verify = false, bool ignoreCache = false) = 0;
    /** Longest text in bytes, without the terminating zero. */
    virtual std::int64_t GetMaxLength() = 0;
};

struct MOXSDK_INTERFACE IEnumEntry : virtual public IValue
{
    virtual std::int64_t GetValue() = 0;
    virtual gcstring GetSymbolic() const = 0;
    virtual bool IsSelfClearing() = 0;
};

struct MOXSDK_INTERFACE IEnumeration : virtual public IValue
{
    virtual void GetSymbolics(StringList_t &symbolics) = 0;
    /** The entries in the description's order, whether available or not. */
    virtual void GetEntries(NodeList_t &entries) = 0;
    virtual void SetIntValue(std::int64_t value, bool verify = true) = 0;
    virtual std::int64_t GetIntValue(bool verify = false, bool ignoreCache = false) = 0;
    /** Null when there is no such entry. */
    virtual IEnumEntry *GetEntryByName(const gcstring &symbolic) = 0;
    virtual IEnumEntry *GetEntry(std::int64_t value) = 0;
    /** The entry of the present value; null when the camera holds a number that no entry has. */
    virtual IEnumEntry *GetCurrentEntry(bool verify = false, bool ignoreCache = false) = 0;
};

struct MOXSDK_INTERFACE IRegister : virtual public IValue
{
    /** @p length in bytes must equal `GetLength`. */
    virtual void Set(const std::uint8_t *buffer, std::int64_t length, bool verify = true) = 0;
    virtual void Get(std::uint8_t *buffer, std::int64_t length, bool verify = false, bool ignoreCache = false) = 0;
    virtual std::int64_t GetLength() = 0;
    virtual std::int64_t GetAddress() = 0;
};

struct MOXSDK_INTERFACE ICategory : virtual public IValue
{
    /** The features in the description's order. Names that no node answers to are left out. */
    virtual void GetFeatures(FeatureList_t &features) const = 0;
};

} // namespace GenApi_3_0

#endif
