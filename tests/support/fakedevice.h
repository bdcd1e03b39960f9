// An opened fake camera: features by name, events raised by hand, and a record of what its user does.
#ifndef MOX_FAKEDEVICE_H
#define MOX_FAKEDEVICE_H

#include "fakefeatures.h"

#include <MoxCameraApi/MoxCam.h>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace MoxTest {

class FakeDevice : public MoxCam::Device, public MoxGenParam::Array
{
public:
    virtual ~FakeDevice() = default;

    /** Adds a feature, or takes the one of that name. */
    template<class Feature> Feature &feature(const char *name)
    {
        auto &feature = features[name];
        if (!feature) {
            feature = std::make_unique<Feature>();
            feature->name = name;
        }
        return dynamic_cast<Feature &>(*feature);
    }
    /** Adds integers by their names. */
    void setNumbers(const std::map<const char *, std::int64_t> &numbers)
    {
        for (const auto &[name, value] : numbers)
            feature<FakeInt>(name).value = value;
    }
    /** Adds enumerations by their names; the first entry is current. */
    FakeEnum &setEntries(const char *name, const QStringList &texts)
    {
        auto &added = feature<FakeEnum>(name);
        added.setEntries(texts);
        return added;
    }
    /** Calls back as the SDK does, on this thread. */
    void raise(int eventId)
    {
        const auto called = subscriptions;
        for (const Subscription &subscription : called) {
            if (subscription.eventId == eventId)
                subscription.callback(nullptr, 0, subscription.context);
        }
    }
    /** How many sinks listen to any feature. */
    int sinkCount() const
    {
        int count = 0;
        for (const auto &feature : features)
            count += feature.second->sinks.size();
        return count;
    }

    void Release() override { ++releases; }
    MoxCamErr RegisterEvent(int eventId, MoxCam::EventCallback callback, void *context) override
    {
        subscriptions.push_back({eventId, callback, context});
        return MoxCamError::Success;
    }
    MoxCamErr UnregisterEvent(int eventId, MoxCam::EventCallback callback, void *context) override
    {
        const Subscription undone{eventId, callback, context};
        subscriptions.erase(std::remove(subscriptions.begin(), subscriptions.end(), undone), subscriptions.end());
        return MoxCamError::Success;
    }
    MoxGenParam::Array *GetCameraParameters(MoxCamErr *err) override
    {
        std::exchange(atParameters, [] {})();
        if (err)
            *err = parametersError;
        return givesParameters ? this : nullptr;
    }

    MoxGenParam::Boolean *GetBoolean(const char *name, MoxCamErr *) override { return find<FakeBoolean>(name); }
    MoxGenParam::Command *GetCommand(const char *name, MoxCamErr *) override { return find<FakeCommand>(name); }
    MoxGenParam::Enum *GetEnum(const char *name, MoxCamErr *) override { return find<FakeEnum>(name); }
    MoxGenParam::Int *GetInt(const char *name, MoxCamErr *) override { return find<FakeInt>(name); }
    MoxGenParam::String *GetString(const char *name, MoxCamErr *) override { return find<FakeString>(name); }
    GenApi_3_0::INodeMap *GetNodeMap(MoxCamErr *) override { return nullptr; }
    const char *GetEnumValueStr(const char *, MoxCamErr *) override { return nullptr; }
    MoxCamErr SetIntegerValue(const char *, std::int64_t) override { return MoxCamError::GenICamAccess; }
    std::int64_t GetIntegerValue(const char *, MoxCamErr *) override { return 0; }
    MoxCamErr ExecuteCommand(const char *) override { return MoxCamError::GenICamAccess; }

    bool givesParameters = true;
    MoxCamErr parametersError = MoxCamError::Success;
    std::function<void()> atParameters = [] {}; // called once, in the middle of GetCameraParameters
    std::string hidden; // the name of a feature that the device lacks all the same
    int releases = 0;

    struct Subscription
    {
        int eventId;
        MoxCam::EventCallback callback;
        void *context;
        bool operator==(const Subscription &other) const
        {
            return eventId == other.eventId && callback == other.callback && context == other.context;
        }
    };
    std::vector<Subscription> subscriptions;

private:
    template<class Feature> Feature *find(const char *name)
    {
        const auto found = features.find(name);
        return name == hidden || found == features.end() ? nullptr : dynamic_cast<Feature *>(found->second.get());
    }

    std::map<std::string, std::unique_ptr<FakeFeature>> features;
};

} // namespace MoxTest

#endif
