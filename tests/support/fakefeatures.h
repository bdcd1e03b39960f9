// Features of a fake camera: values that can refuse, vanish and change by themselves, and a record of the writes.
#ifndef MOX_FAKEFEATURES_H
#define MOX_FAKEFEATURES_H

#include <MoxCameraApi/MoxGenParam.h>

#include <QStringList>
#include <QVector>

#include <memory>
#include <string>
#include <vector>

namespace MoxTest {

using Writes = QVector<std::int64_t>;

/** What all features have in common. */
struct FakeFeature
{
    FakeFeature() { all << this; }
    virtual ~FakeFeature() { all.removeOne(this); }
    Q_DISABLE_COPY(FakeFeature)
    /** Tells the sinks. The feature may be deleted meanwhile. */
    virtual void tell() = 0;
    /** As when the camera has changed by itself. */
    void change(std::int64_t to)
    {
        value = to;
        tell();
    }
    MoxCamErr write(std::int64_t number)
    {
        writes << number;
        if (refusal == MoxCamError::Success)
            change(number);
        return refusal;
    }

    std::string name = "Feature";
    bool available = true, writable = true, readable = true;
    MoxCamErr refusal = MoxCamError::Success; // the answer to every write
    std::int64_t value = 0; // of a command: how often it has run
    Writes writes; // refused ones too
    QVector<MoxGenParam::ParamEventSink *> sinks;

    /** What an SDK does when a sink is destroyed. */
    static void forget(MoxGenParam::ParamEventSink *sink)
    {
        for (FakeFeature *feature : qAsConst(all))
            feature->sinks.removeAll(sink);
    }

private:
    static inline QVector<FakeFeature *> all;
};

template<class Base, int type> struct FakeFeatureOf : Base, FakeFeature
{
    int GetType() override { return type; }
    const char *GetName() override { return name.c_str(); }
    bool IsAvailable() override { return available; }
    bool IsWritable() override { return available && writable; }
    bool IsReadable() override { return readable; }
    void RegisterEventSink(MoxGenParam::ParamEventSink *sink) override { sinks << sink; }
    void UnregisterEventSink(MoxGenParam::ParamEventSink *sink) override { sinks.removeAll(sink); }
    void tell() override
    {
        const auto told = sinks;
        for (MoxGenParam::ParamEventSink *sink : told) {
            if (sinks.contains(sink))
                sink->OnParameterUpdate(this);
        }
    }
};

struct FakeInt final : FakeFeatureOf<MoxGenParam::Int, MoxGenParam::TypeInteger>
{
    std::int64_t min = 0, max = 100, increment = 1;

    MoxCamErr SetValue(std::int64_t number) override { return write(number); }
    std::int64_t GetValue(MoxCamErr *) override { return value; }
    std::int64_t GetMin(MoxCamErr *) override { return min; }
    std::int64_t GetMax(MoxCamErr *) override { return max; }
    std::int64_t GetIncrement(MoxCamErr *) override { return increment; }
};

struct FakeBoolean final : FakeFeatureOf<MoxGenParam::Boolean, MoxGenParam::TypeBoolean>
{
    MoxCamErr SetValue(bool on) override { return write(on); }
    bool GetValue(MoxCamErr *) override { return value; }
};

struct FakeString final : FakeFeatureOf<MoxGenParam::String, MoxGenParam::TypeString>
{
    std::string text;

    const char *GetValue(MoxCamErr *) override { return text.c_str(); }
};

struct FakeCommand final : FakeFeatureOf<MoxGenParam::Command, MoxGenParam::TypeCommand>
{
    MoxCamErr Execute() override { return write(value + 1); }
};

struct FakeEntry final : FakeFeatureOf<MoxGenParam::EnumEntry, MoxGenParam::TypeEnumEntry>
{
    std::int64_t GetValue(MoxCamErr *) override { return value; }
    const char *GetValueStr(MoxCamErr *) override { return name.c_str(); }
};

/** The n-th entry stands for the value n. */
struct FakeEnum final : FakeFeatureOf<MoxGenParam::Enum, MoxGenParam::TypeEnum>
{
    std::vector<std::unique_ptr<FakeEntry>> entries; // some may be null

    /** Makes entries by their texts; null ones for "-". */
    void setEntries(const QStringList &texts)
    {
        entries.clear();
        for (const QString &text : texts) {
            auto entry = std::make_unique<FakeEntry>();
            entry->name = text.toStdString();
            entry->value = std::int64_t(entries.size());
            entries.push_back(text == QLatin1String("-") ? nullptr : std::move(entry));
        }
    }
    FakeEntry *at(std::uint64_t index) const { return index < entries.size() ? entries[index].get() : nullptr; }
    std::uint64_t GetEnumEntriesCount(MoxCamErr *) override { return entries.size(); }
    MoxGenParam::EnumEntry *GetEnumEntryByIndex(std::uint64_t index, MoxCamErr *) override { return at(index); }
    std::int64_t GetValue(MoxCamErr *) override { return value; }
    const char *GetValueStr(MoxCamErr *) override { return at(value) ? at(value)->name.c_str() : nullptr; }
    MoxCamErr SetValue(std::int64_t number) override { return write(number); }
    MoxCamErr SetValueStr(const char *text) override
    {
        for (const auto &entry : entries) {
            if (entry && entry->name == text)
                return write(entry->value);
        }
        return MoxCamError::GenICamOutOfRange;
    }
};

} // namespace MoxTest

#endif
