// Wrappers of the camera SDK's own objects, and the SDK's functions as the library calls them here.
#include "faultycalls.h"

#include <deque>
#include <dlfcn.h>

namespace MoxTest {

namespace {

using Sink = MoxGenParam::ParamEventSink;
using MoxGenParam::Param;

constexpr unsigned sdkCall = Exception | CameraLost;

// What has no other way to tell of a failure gives a neutral value.
// clang-format off
#define CODE(Name, Parameters, Arguments)                                                                              \
    MoxCamErr Name Parameters override                                                                                 \
    {                                                                                                                  \
        MoxCamErr told = MoxCamError::Success;                                                                         \
        const MoxCamErr given = pass<MoxCamErr>(__PRETTY_FUNCTION__, sdkCall | ErrorCode, &told,                       \
                                                [&] { return real->Name Arguments; });                                 \
        return told ? told : given;                                                                                    \
    }
#define VALUE(Result, Name) MOX_PASS(Result, sdkCall | ErrorCode, nullptr, real, Name, (), ())
#define TOLD(Result, Name) MOX_PASS(Result, sdkCall | ErrorCode, err, real, Name, (MoxCamErr * err), (err))
#define TEXT(Name) MOX_PASS(const char *, sdkCall | NullObject, nullptr, real, Name, (), ())
#define TOLD_TEXT(Name)                                                                                                \
    MOX_PASS(const char *, sdkCall | ErrorCode | NullObject, err, real, Name, (MoxCamErr * err), (err))
#define OBJECT(Result, Name, Parameters, Arguments)                                                                    \
    MOX_PASS_OBJECT(Result, sdkCall | NullObject, nullptr, real, Name, Parameters, Arguments)
#define TOLD_OBJECT(Result, Name, Parameters, Arguments)                                                               \
    MOX_PASS_OBJECT(Result, sdkCall | ErrorCode | NullObject, err, real, Name, Parameters, Arguments)
#define NAMED(Result, Name) TOLD_OBJECT(Result, Name, (const char *name, MoxCamErr *err), (name, err))

Param *wrap(Wrappers &wrappers, Param *param);

/** Hands a sink the parameters that it knows. */
struct FaultySink final : Sink
{
    FaultySink(Wrappers &itsWrappers, Sink *itsSink) : wrappers(itsWrappers), sink(itsSink)
    { ++FaultPlan::instance().sinks; }
    ~FaultySink() { --FaultPlan::instance().sinks; }
    void OnParameterUpdate(Param *param) override { sink->OnParameterUpdate(wrap(wrappers, param)); }

    Wrappers &wrappers;
    Sink *const sink;
};

/** On the GUI thread alone. */
std::map<std::pair<Sink *, Param *>, std::unique_ptr<FaultySink>> subscriptions;

template<class Ended> void endSubscriptions(Ended ended)
{
    for (auto entry = subscriptions.begin(); entry != subscriptions.end();)
        entry = ended(entry->first) ? subscriptions.erase(entry) : std::next(entry);
}

template<class Real> struct FaultyParam : Passing<Real>
{
    using Passing<Real>::Passing, Passing<Real>::real, Passing<Real>::wrappers;
    ~FaultyParam() { endSubscriptions([this](const auto &entry) { return entry.second == param; }); }
    std::string subject() const override { return real->GetName(); }

    VALUE(int, GetType) VALUE(bool, IsAvailable) VALUE(bool, IsWritable) VALUE(bool, IsReadable) TEXT(GetName)
    void RegisterEventSink(Sink *sink) override
    {
        this->template pass<void>(__PRETTY_FUNCTION__, sdkCall, nullptr, [&] {
            auto &subscription = subscriptions[{sink, param}];
            if (!subscription)
                subscription = std::make_unique<FaultySink>(wrappers, sink);
            real->RegisterEventSink(subscription.get());
        });
    }
    void UnregisterEventSink(Sink *sink) override
    {
        this->template pass<void>(__PRETTY_FUNCTION__, sdkCall, nullptr, [&] { subscriptions.erase({sink, param}); });
    }

    Param *const param = real; // by which it is found when the real one is gone
};

#define PARAM(Faulty, Real, ...)                                                                                       \
    struct Faulty final : FaultyParam<Real> { using FaultyParam::FaultyParam; __VA_ARGS__ };
PARAM(FaultyInt, MoxGenParam::Int,
    CODE(SetValue, (std::int64_t value), (value))
    TOLD(std::int64_t, GetValue) TOLD(std::int64_t, GetMin) TOLD(std::int64_t, GetMax) TOLD(std::int64_t, GetIncrement))
PARAM(FaultyEnumEntry, MoxGenParam::EnumEntry,
    TOLD(std::int64_t, GetValue) TOLD_TEXT(GetValueStr))
MoxGenParam::EnumEntry *wrap(Wrappers &wrappers, MoxGenParam::EnumEntry *entry)
{
    return wrappers.of<FaultyEnumEntry>(entry);
}

PARAM(FaultyEnum, MoxGenParam::Enum,
    TOLD(std::uint64_t, GetEnumEntriesCount) TOLD(std::int64_t, GetValue) TOLD_TEXT(GetValueStr)
    TOLD_OBJECT(MoxGenParam::EnumEntry, GetEnumEntryByIndex, (std::uint64_t index, MoxCamErr *err), (index, err))
    CODE(SetValue, (std::int64_t value), (value)) CODE(SetValueStr, (const char *value), (value)))
PARAM(FaultyBoolean, MoxGenParam::Boolean,
    CODE(SetValue, (bool value), (value)) TOLD(bool, GetValue))
PARAM(FaultyCommand, MoxGenParam::Command,
    CODE(Execute, (), ()))
PARAM(FaultyString, MoxGenParam::String,
    TOLD_TEXT(GetValue))

template<class Wrapper, class Real> Param *wrapAs(Wrappers &wrappers, Param *param)
{
    return wrappers.of<Wrapper>(dynamic_cast<Real *>(param));
}

Param *wrap(Wrappers &wrappers, Param *param)
{
    for (const auto wrapper : {wrapAs<FaultyInt, MoxGenParam::Int>, wrapAs<FaultyEnum, MoxGenParam::Enum>,
                               wrapAs<FaultyBoolean, MoxGenParam::Boolean>, wrapAs<FaultyCommand, MoxGenParam::Command>,
                               wrapAs<FaultyString, MoxGenParam::String>,
                               wrapAs<FaultyEnumEntry, MoxGenParam::EnumEntry>}) {
        if (Param *wrapped = wrapper(wrappers, param))
            return wrapped;
    }
    return nullptr;
}

template<class Parameter> Parameter *wrap(Wrappers &wrappers, Parameter *param)
{
    return dynamic_cast<Parameter *>(wrap(wrappers, static_cast<Param *>(param)));
}

struct FaultyArray final : Passing<MoxGenParam::Array>
{
    using Passing::Passing;
    NAMED(MoxGenParam::Boolean, GetBoolean) NAMED(MoxGenParam::Command, GetCommand) NAMED(MoxGenParam::Enum, GetEnum)
    NAMED(MoxGenParam::Int, GetInt) NAMED(MoxGenParam::String, GetString)
    TOLD_OBJECT(GenApi::INodeMap, GetNodeMap, (MoxCamErr * err), (err))
    MOX_PASS(const char *, sdkCall | ErrorCode | NullObject, err, real, GetEnumValueStr,
             (const char *name, MoxCamErr *err), (name, err))
    MOX_PASS(std::int64_t, sdkCall | ErrorCode, err, real, GetIntegerValue,
             (const char *name, MoxCamErr *err), (name, err))
    CODE(SetIntegerValue, (const char *name, std::int64_t value), (name, value))
    CODE(ExecuteCommand, (const char *name), (name))
};

MoxGenParam::Array *wrap(Wrappers &wrappers, MoxGenParam::Array *array)
{
    return wrappers.of<FaultyArray>(array);
}

/** What its user releases. That cannot fail: it happens while objects go. */
template<class Real, std::atomic<int> FaultPlan::*count> struct Released : Passing<Real>
{
    Released(Wrappers &itsWrappers, Real *itsReal) : Passing<Real>(itsWrappers, itsReal)
    { ++(FaultPlan::instance().*count); }
    ~Released() { --(FaultPlan::instance().*count); }
    void Release() override
    {
        this->template pass<void>(__PRETTY_FUNCTION__, CameraLost, nullptr, [this] { this->real->Release(); });
        delete this;
    }
};

struct FaultyDevice final : Released<MoxCam::Device, &FaultPlan::devices>
{
    explicit FaultyDevice(Device *itsReal) : Released(own, itsReal) { }
    CODE(RegisterEvent, (int eventId, MoxCam::EventCallback callback, void *context), (eventId, callback, context))
    CODE(UnregisterEvent, (int eventId, MoxCam::EventCallback callback, void *context), (eventId, callback, context))
    TOLD_OBJECT(MoxGenParam::Array, GetCameraParameters, (MoxCamErr * err), (err))
    Wrappers own;
};

Wrappers kept; // interfaces and device infos

template<class List, class Element, class Faulty> struct FaultyList final : Released<List, &FaultPlan::lists>
{
    using Base = Released<List, &FaultPlan::lists>;
    using Base::Base, Base::real, Base::wrappers;
    static Element *wrap(Wrappers &itsWrappers, Element *element) { return itsWrappers.of<Faulty>(element); }
    VALUE(std::size_t, GetCount) OBJECT(Element, GetFirst, (), ()) OBJECT(Element, GetNext, (), ())
};

MoxCam::Interface *wrap(Wrappers &wrappers, MoxCam::Interface *iface);

struct FaultyInfo final : Passing<MoxCam::DeviceInfo>
{
    using Passing::Passing;
    OBJECT(MoxCam::Interface, GetInterface, (), ())
    TEXT(GetID) TEXT(GetVendor) TEXT(GetModel) TEXT(GetDisplayName) TEXT(GetUserDefinedName)
    TEXT(GetSerialNumber) TEXT(GetVersion)
    VALUE(int, GetAccessStatus) TOLD_TEXT(GetIPAddress) TOLD_TEXT(GetNetmask) TOLD_TEXT(GetGateway)
    CODE(ForceIP, (std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway), (ip, netmask, gateway))
};

MoxCam::DeviceInfo *wrap(Wrappers &wrappers, MoxCam::DeviceInfo *info)
{
    return wrappers.of<FaultyInfo>(info);
}

MoxCam::DeviceInfoList *wrap(Wrappers &, MoxCam::DeviceInfoList *list)
{
    return list ? new FaultyList<MoxCam::DeviceInfoList, MoxCam::DeviceInfo, FaultyInfo>(kept, list) : nullptr;
}

struct FaultyInterface final : Passing<MoxCam::Interface>
{
    using Passing::Passing;
    OBJECT(MoxCam::DeviceInfoList, GetDeviceInfoList, (), ())
    OBJECT(MoxCam::DeviceInfo, ConnectByIp, (const char *ipAddress), (ipAddress))
    MOX_PASS(void, sdkCall, nullptr, real, ReDiscoverDevices, (bool *changed, std::uint32_t timeout),
             (changed, timeout))
    TEXT(GetDescription) VALUE(int, GetType) TEXT(GetID) TEXT(GetVersion)
    TOLD_OBJECT(MoxGenParam::Array, GetParameters, (MoxCamErr * err), (err))
    void RegisterEventCallback(std::uint32_t eventId, MoxCam::EventCallback callback, void *context) override
    {
        // They stay to the end: an event may still be on its way when its system goes.
        using Receiver = std::pair<MoxCam::EventCallback, void *>;
        static std::deque<Receiver> receivers;
        pass<void>(__PRETTY_FUNCTION__, sdkCall, nullptr, [&] {
            receivers.emplace_back(callback, context);
            const auto count = [](const void *data, unsigned long size, void *receiver) {
                const auto [itsCallback, itsContext] = *static_cast<Receiver *>(receiver);
                itsCallback(data, size, itsContext);
                ++FaultPlan::instance().acknowledgements;
            };
            real->RegisterEventCallback(eventId, count, &receivers.back());
        });
    }
};

MoxCam::Interface *wrap(Wrappers &wrappers, MoxCam::Interface *iface)
{
    return wrappers.of<FaultyInterface>(iface);
}

MoxCam::InterfaceList *wrap(Wrappers &, MoxCam::InterfaceList *list)
{
    return list ? new FaultyList<MoxCam::InterfaceList, MoxCam::Interface, FaultyInterface>(kept, list) : nullptr;
}

struct FaultySystem final : Released<MoxCam::System, &FaultPlan::systems>
{
    using Released::Released;
    OBJECT(MoxCam::InterfaceList, GetInterfaceList, (std::uint32_t typeMask), (typeMask))
};
// clang-format on

template<class Function> Function *behind(const char *symbol)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, symbol));
}

MoxCam::Device *wrappedDevice(MoxCam::DeviceInfo *info)
{
    auto *known = dynamic_cast<FaultyInfo *>(info);
    const auto create = behind<decltype(MoxCam_CreateDevice)>("MoxCam_CreateDevice");
    MoxCam::Device *device = create(known ? known->real : nullptr, 2, 0);
    return device ? new FaultyDevice(device) : nullptr;
}

} // namespace

MoxCam::System *wrappedSystem()
{
    MoxCam::System *system = behind<decltype(MoxCam_GetSystem)>("MoxCam_GetSystem")();
    return system ? new FaultySystem(kept, system) : nullptr;
}

void forgetWrapped()
{
    kept.clear();
}

} // namespace MoxTest

using namespace MoxTest;

MoxCam::System *MoxCam_GetSystem()
{
    return Wrapped().pass<MoxCam::System *>(__func__, sdkCall | NullObject, nullptr, wrappedSystem);
}

MoxCam::Device *MoxCam_CreateDevice(MoxCam::DeviceInfo *info, int, int)
{
    const auto create = [info] { return wrappedDevice(info); };
    return Wrapped().pass<MoxCam::Device *>(__func__, sdkCall | NullObject, nullptr, create);
}

MoxGenParam::ParamEventSink::~ParamEventSink()
{
    endSubscriptions([this](const auto &entry) { return entry.first == this; });
    static const auto real = behind<void(ParamEventSink *)>("_ZN11MoxGenParam14ParamEventSinkD2Ev");
    real(this); // takes itself off every parameter
}
