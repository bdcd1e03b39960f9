// Lookups, values and result codes of the parameter layer.
#include "params/paramarray.h"

#include <datarow.h>
#include <fakenodes.h>
#include <testmain.h>

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
    {"Enum entry", [](Camera &c, MoxCamErr *e) { return !c.modeParam->GetEnumEntryByIndex(1, e); }},
    {"Enum GetValue", [](Camera &c, MoxCamErr *e) { return c.modeParam->GetValue(e) == 0; }},
    {"Enum GetValueStr", [](Camera &c, MoxCamErr *e) { return !*c.modeParam->GetValueStr(e); }},
    {"Enum SetValue", [](Camera &c, MoxCamErr *e) { return wrote(c.modeParam->SetValue(7), e); }},
    {"Boolean GetValue", [](Camera &c, MoxCamErr *e) { return !c.flagParam->GetValue(e); }},
    {"String GetValue", [](Camera &c, MoxCamErr *e) { return !*c.textParam->GetValue(e); }},
    {"Array SetIntegerValue", [](Camera &c, MoxCamErr *e) { return wrote(c.array.SetIntegerValue("Width", 50), e); }},
    {"Array GetIntegerValue", [](Camera &c, MoxCamErr *e) { return c.array.GetIntegerValue("Width", e) == 0; }},
    {"Array ExecuteCommand", [](Camera &c, MoxCamErr *e) { return wrote(c.array.ExecuteCommand("Start"), e); }},
};

const std::pair<void (*)(), MoxCamErr> failures[] = {
    {[] { throw ACCESS_EXCEPTION("x"); }, E::GenICamAccess},
    {[] { throw OUT_OF_RANGE_EXCEPTION("x"); }, E::GenICamOutOfRange},
    {[] { throw INVALID_ARGUMENT_EXCEPTION("x"); }, E::GenICamInvalidArgument},
    {[] { throw TIMEOUT_EXCEPTION("x"); }, E::GenTLTimeout},
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
    MoxCamErr err = 1;
    QCOMPARE(array.GetInt("Width", &err), camera.widthParam);
    QCOMPARE(err, E::Success);
    QCOMPARE(camera.widthParam->GetName(), "Width");
    // Each lookup finds nodes of its type alone.
    QVERIFY(!array.GetInt("Mode", &err) && !array.GetEnum("Width", nullptr) && !array.GetBoolean("Text", nullptr)
            && !array.GetCommand("Flag", nullptr) && !array.GetString("Start", nullptr));
    QCOMPARE(err, E::GenICamType);
    for (const char *unknown : {"Height", static_cast<const char *>(nullptr)}) {
        QVERIFY(!array.GetInt(unknown, &err));
        QCOMPARE(err, E::GenICamUnknownParameter);
    }
    QCOMPARE(array.GetInt("Std::Width", nullptr), camera.widthParam);
    QCOMPARE(array.SetIntegerValue("Mode", 1), E::GenICamType);
    QCOMPARE(array.GetNodeMap(nullptr), &camera.map);

    camera.map.lookupFault = [] { throw RUNTIME_EXCEPTION("x"); };
    QVERIFY(!array.GetInt("Width", &err));
    QCOMPARE(err, E::GenICamRuntime);
}

void TestParams::enumerations()
{
    Camera camera;
    MoxGenParam::Enum *mode = camera.modeParam;
    MoxCamErr err = 1;
    MoxGenParam::EnumEntry *on = mode->GetEnumEntryByIndex(1, nullptr);
    QCOMPARE(on->GetValueStr(nullptr), "On");
    QCOMPARE(on->GetValue(nullptr), 7);
    QVERIFY(on->IsAvailable() && on->IsReadable() && !on->IsWritable());
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
