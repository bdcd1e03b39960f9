// The parameters of a fake interface: integers and enumeration texts by name, and a record of what was asked.
#ifndef MOX_FAKEPARAMS_H
#define MOX_FAKEPARAMS_H

#include "fakefeatures.h"

#include <functional>
#include <map>
#include <vector>

namespace MoxTest {

class FakeParams final : public MoxGenParam::Array
{
public:
    /** One value, or one for each value of "DeviceSelector", over again beyond the last. A name that is not here is unknown. */
    std::map<std::string, std::vector<std::int64_t>> numbers;
    std::map<std::string, std::string> texts;
    std::string refused; // fails by this name; a read gives its value nevertheless
    int failingRead = 0; // which integer read from the start fails, counted from 1
    std::map<std::string, std::function<void()>> commands; // what running them does
    QStringList calls; // "name" for a read, "name=value" for a write, "name()" for a command run by its name

    MoxCamErr SetIntegerValue(const char *name, std::int64_t value) override
    {
        calls << QStringLiteral("%1=%2").arg(QLatin1String(name)).arg(value);
        const MoxCamErr err = result(name, numbers.count(name));
        if (err == MoxCamError::Success)
            numbers[name] = {value};
        return err;
    }
    std::int64_t GetIntegerValue(const char *name, MoxCamErr *err) override
    {
        calls << QString::fromLatin1(name);
        const std::vector<std::int64_t> values = numbers.count(name) ? numbers[name] : std::vector<std::int64_t>{0};
        tell(err, ++reads == failingRead ? MoxCamError::GenICamAccess : result(name, numbers.count(name)));
        return values.at(values.size() > 1 ? std::size_t(numbers["DeviceSelector"].front()) % values.size() : 0);
    }
    const char *GetEnumValueStr(const char *name, MoxCamErr *err) override
    {
        calls << QString::fromLatin1(name);
        tell(err, result(name, texts.count(name)));
        return texts[name].c_str();
    }
    MoxGenParam::Int *GetInt(const char *name, MoxCamErr *err) override
    {
        tell(err, result({}, numbers.count(name)));
        number.params = this;
        number.name = name;
        return numbers.count(name) ? &number : nullptr;
    }
    MoxGenParam::Boolean *GetBoolean(const char *, MoxCamErr *) override { return nullptr; }
    MoxGenParam::Command *GetCommand(const char *name, MoxCamErr *err) override
    {
        tell(err, result({}, commands.count(name)));
        return commands.count(name) ? &command : nullptr;
    }
    MoxGenParam::Enum *GetEnum(const char *, MoxCamErr *) override { return nullptr; }
    MoxGenParam::String *GetString(const char *, MoxCamErr *) override { return nullptr; }
    GenApi_3_0::INodeMap *GetNodeMap(MoxCamErr *) override { return nullptr; }
    MoxCamErr ExecuteCommand(const char *name) override
    {
        calls << QString::fromLatin1(name) + QStringLiteral("()");
        if (commands.count(name))
            commands[name]();
        return result(name, commands.count(name));
    }

private:
    /** The integer that was looked up last. */
    struct Number final : FakeFeatureOf<MoxGenParam::Int, MoxGenParam::TypeInteger>
    {
        MoxCamErr SetValue(std::int64_t number) override { return params->SetIntegerValue(name.c_str(), number); }
        std::int64_t GetValue(MoxCamErr *err) override { return params->GetIntegerValue(name.c_str(), err); }
        std::int64_t GetMin(MoxCamErr *) override { return INT64_MIN; }
        std::int64_t GetMax(MoxCamErr *) override { return INT64_MAX; }
        std::int64_t GetIncrement(MoxCamErr *) override { return 1; }

        FakeParams *params = nullptr;
    };

    MoxCamErr result(const std::string &name, bool known) const
    {
        if (!refused.empty() && name == refused)
            return MoxCamError::GenICamAccess;
        return known ? MoxCamError::Success : MoxCamError::GenICamUnknownParameter;
    }
    static void tell(MoxCamErr *err, MoxCamErr value)
    {
        if (err)
            *err = value;
    }

    FakeCommand command; // any; it is run by its name
    Number number;
    int reads = 0;
};

} // namespace MoxTest

#endif
