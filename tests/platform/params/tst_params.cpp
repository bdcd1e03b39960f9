// Lookups, values and result codes of the parameter layer.
#include "params/paramarray.h"

#include <datarow.h>
#include <fakenodes.h>
#include <testmain.h>

#include <cstring>

using namespace MoxTest;
using MoxSdk::ParamArray;
namespace E = MoxCamError;

namespace {

/** One node of each type. */
struct Camera
{
    Camera()
    {
        mode.addEntry("Off", 0);
        mode.addEntry("On", 7);
        mode.value = 7;
        width.value = 40;
        flag.value = true;
        text.value = "first";
    }

    void failWith(const std::function<void(Access)> &fault)
    {
        GenApi::NodeList_t nodes;
        map.GetNodes(nodes);
        for (GenApi::INode *node : nodes)
            dynamic_cast<FakeNode *>(node)->fault = node == &port ? nullptr : fault;
    }

    FakeNodeMap map;
    FakeInteger &width = map.add<FakeInteger>("Width");
    FakeEnumeration &mode = map.add<FakeEnumeration>("Mode");
    FakeBoolean &flag = map.add<FakeBoolean>("Flag");
    FakeCommand &start = map.add<FakeCommand>("Start");
    FakeString &text = map.add<FakeString>("Text");
    FakePort &port = map.add<FakePort>("Device");
    ParamArray array{map};
    MoxGenParam::Int *widthParam = array.GetInt("Width", nullptr);
    MoxGenParam::Enum *modeParam = array.GetEnum("Mode", nullptr);
    MoxGenParam::Boolean *flagParam = array.GetBoolean("Flag", nullptr);
    MoxGenParam::String *textParam = array.GetString("Text", nullptr);
};

/** Gives the code of an operation; tells whether a read gave the zero value of its type. */
using Operation = bool (*)(Camera &camera, MoxCamErr *err);

bool wrote(MoxCamErr code, MoxCamErr *err)
{
    *err = code;
    return true;
}

const std::pair<const char *, Operation> operations[] = {
    {"Int SetValue", [](Camera &c, MoxCamErr *e) { return wrote(c.widthParam->SetValue(50), e); }},
    {"Int GetValue", [](Camera &c, MoxCamErr *e) { return c.widthParam->GetValue(e) == 0; }},
    {"Int GetMin", [](Camera &c, MoxCamErr *e) { return c.widthParam->GetMin(e) == 0; }},
    {"Int GetMax", [](Camera &c, MoxCamErr *e) { return c.widthParam->GetMax(e) == 0; }},
    {"Int GetIncrement", [](Camera &c, MoxCamErr *e) { return c.widthParam->GetIncrement(e) == 0; }},
    {"Enum count", [](Camera &c, MoxCamErr *e) { return c.modeParam->GetEnumEntriesCount(e) == 0; }},
    {"Enum entry", [](Camera &c, MoxCamErr *e) { return !c.modeParam->GetEnumEntryByIndex(1, e); }},
    {"Enum GetValue", [](Camera &c, MoxCamErr *e) { return c.modeParam->GetValue(e) == 0; }},
    {"Enum GetValueStr", [](Camera &c, MoxCamErr *e) { return !*c.modeParam->GetValueStr(e); }},
    {"Enum SetValue", [](Camera &c, MoxCamErr *e) { return wrote(c.modeParam->SetValue(7), e); }},
    {"Enum SetValueStr", [](Camera &c, MoxCamErr *e) { return wrote(c.modeParam->SetValueStr("On"), e); }},
    {"Boolean SetValue", [](Camera &c, MoxCamErr *e) { return wrote(c.flagParam->SetValue(true), e); }},
    {"Boolean GetValue", [](Camera &c, MoxCamErr *e) { return !c.flagParam->GetValue(e); }},
    {"String GetValue", [](Camera &c, MoxCamErr *e) { return !*c.textParam->GetValue(e); }},
    {"Array GetEnumValueStr", [](Camera &c, MoxCamErr *e) { return !*c.array.GetEnumValueStr("Mode", e); }},
    {"Array SetIntegerValue", [](Camera &c, MoxCamErr *e) { return wrote(c.array.SetIntegerValue("Width", 50), e); }},
    {"Array GetIntegerValue", [](Camera &c, MoxCamErr *e) { return c.array.GetIntegerValue("Width", e) == 0; }},
    {"Array ExecuteCommand", [](Camera &c, MoxCamErr *e) { return wrote(c.array.ExecuteCommand("Start"), e); }},
};

const std::pair<void (*)(), MoxCamErr> failures[] = {
    {[] { throw ACCESS_EXCEPTION("x"); }, E::GenICamAccess},
    {[] { throw OUT_OF_RANGE_EXCEPTION("x"); }, E::GenICamOutOfRange},
    {[] { throw INVALID_ARGUMENT_EXCEPTION("x"); }, E::GenICamInvalidArgument},
    {[] { throw RUNTIME_EXCEPTION("x"); }, E::GenICamRuntime},
    {[] { throw TIMEOUT_EXCEPTION("x"); }, E::GenTLTimeout},
    {[] { throw LOGICAL_ERROR_EXCEPTION("x"); }, E::GenICamGeneric},
    {[] { throw DYNAMICCAST_EXCEPTION("x"); }, E::GenICamGeneric},
    {[] { throw GENERIC_EXCEPTION("x"); }, E::GenICamGeneric},
    {[] { throw 42; }, E::GenICamGeneric},
};

} // namespace

class TestParams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exceptionsBecomeCodes_data();
    void exceptionsBecomeCodes();
    void lookups();
    void enumerations();
    void textsStay();
};

void TestParams::exceptionsBecomeCodes_data()
{
    columns<int>("operation");
    for (int i = 0; i < int(std::size(operations)); ++i)
        row(operations[i].first, i);
}

void TestParams::exceptionsBecomeCodes()
{
    QFETCH(int, operation);
    const Operation run = operations[operation].second;
    Camera camera;
    MoxCamErr err = 1;
    for (const auto &failure : failures) {
        camera.failWith([&](Access) { failure.first(); });
        QVERIFY(run(camera, &err));
        QCOMPARE(err, failure.second);
        QVERIFY(!camera.modeParam->IsAvailable() && !camera.modeParam->IsWritable() && !camera.modeParam->IsReadable());
    }
    // The same failure while the camera is gone tells just that, and nothing of it sticks.
    camera.port.accessMode = GenApi::NA;
    QVERIFY(run(camera, &err));
    QCOMPARE(err, E::NoDevice);
    camera.port.accessMode = GenApi::RW;
    camera.failWith({});
    run(camera, &err);
    QCOMPARE(err, E::Success);
}

void TestParams::lookups()
{
    Camera camera;
    ParamArray &array = camera.array;
    // Each lookup finds the one node of its type, the same object each time.
    const auto check = [&](const char *match, int type, auto find) {
        for (const char *name : {"Width", "Mode", "Flag", "Start", "Text", "EnumEntry_Mode_On", "Height", ""}) {
            const char *asked = *name ? name : nullptr;
            MoxCamErr err = 1;
            auto *param = find(asked, &err);
            const bool matches = asked && !std::strcmp(name, match);
            const bool exists = asked && std::strcmp(name, "Height");
            QCOMPARE(err, matches ? E::Success : exists ? E::GenICamType : E::GenICamUnknownParameter);
            QCOMPARE(param != nullptr, matches);
            QCOMPARE(find(asked, nullptr), param);
            if (param) {
                QCOMPARE(param->GetType(), type);
                QCOMPARE(param->GetName(), name);
            }
        }
    };
    check("Width", MoxGenParam::TypeInteger, [&](auto n, auto e) { return array.GetInt(n, e); });
    check("Mode", MoxGenParam::TypeEnum, [&](auto n, auto e) { return array.GetEnum(n, e); });
    check("Flag", MoxGenParam::TypeBoolean, [&](auto n, auto e) { return array.GetBoolean(n, e); });
    check("Start", MoxGenParam::TypeCommand, [&](auto n, auto e) { return array.GetCommand(n, e); });
    check("Text", MoxGenParam::TypeString, [&](auto n, auto e) { return array.GetString(n, e); });
    QCOMPARE(array.GetInt("Std::Width", nullptr), camera.widthParam);
    QCOMPARE(array.SetIntegerValue("Mode", 1), E::GenICamType);
    QCOMPARE(array.GetNodeMap(nullptr), &camera.map);

    camera.map.lookupFault = [] { throw RUNTIME_EXCEPTION("x"); };
    MoxCamErr err = 1;
    QVERIFY(!array.GetInt("Width", &err));
    QCOMPARE(err, E::GenICamRuntime);
}

void TestParams::enumerations()
{
    Camera camera;
    MoxGenParam::Enum *mode = camera.modeParam;
    MoxCamErr err = 1;
    QCOMPARE(mode->GetEnumEntriesCount(nullptr), 2U);
    MoxGenParam::EnumEntry *on = mode->GetEnumEntryByIndex(1, nullptr);
    QCOMPARE(on->GetValueStr(nullptr), "On");
    QCOMPARE(on->GetValue(nullptr), 7);
    QCOMPARE(on->GetType(), int(MoxGenParam::TypeEnumEntry));
    QVERIFY(on->IsAvailable() && on->IsReadable() && !on->IsWritable());
    QCOMPARE(mode->GetEnumEntryByIndex(1, nullptr), on);
    for (const std::uint64_t beyond : {std::uint64_t(2), UINT64_MAX}) {
        QVERIFY(!mode->GetEnumEntryByIndex(beyond, &err));
        QCOMPARE(err, E::GenICamInvalidArgument);
    }
    QCOMPARE(mode->SetValueStr("Off"), E::Success);
    QCOMPARE(mode->GetValue(nullptr), 0);
    QCOMPARE(mode->SetValueStr(nullptr), E::GenICamInvalidArgument);
    QCOMPARE(camera.array.GetEnumValueStr("Mode", nullptr), "Off");

    // A camera may hold a number that no entry has.
    camera.mode.value = 3;
    QCOMPARE(mode->GetValue(&err), 3);
    QCOMPARE(err, E::Success);
    QCOMPARE(mode->GetValueStr(&err), "");
    QCOMPARE(err, E::GenICamOutOfRange);
}

void TestParams::textsStay()
{
    Camera camera;
    MoxGenParam::String *text = camera.textParam;
    const char *first = text->GetValue(nullptr);
    camera.text.value = "second, which is long enough to live on the heap";
    const char *second = text->GetValue(nullptr);
    camera.text.value = "first";
    QVERIFY(text->GetValue(nullptr) == first);
    QCOMPARE(first, "first");
    QCOMPARE(second, "second, which is long enough to live on the heap");
}

MOX_TEST_MAIN(TestParams)
#include "tst_params.moc"
