// Lookups, values and result codes of the parameter layer.
#include "params/paramarray.h"

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
    MoxGenParam::String *textParam = array.GetString("Text", nullptr);
};

bool wrote(MoxCamErr code, MoxCamErr *err)
{
    *err = code;
    return true;
}

/** Each puts down its code, and tells whether a read gave the zero value of its type. */
bool (*const operations[])(Camera &, MoxCamErr *) = {
    [](Camera &c, MoxCamErr *e) { return wrote(c.widthParam->SetValue(50), e); },
    [](Camera &c, MoxCamErr *e) { return c.widthParam->GetMin(e) == 0; },
    [](Camera &c, MoxCamErr *e) { return !c.modeParam->GetEnumEntryByIndex(1, e); },
    [](Camera &c, MoxCamErr *e) { return !*c.modeParam->GetValueStr(e); },
    [](Camera &c, MoxCamErr *e) { return !c.array.GetBoolean("Flag", nullptr)->GetValue(e); },
    [](Camera &c, MoxCamErr *e) { return !*c.textParam->GetValue(e); },
    [](Camera &c, MoxCamErr *e) { return wrote(c.array.SetIntegerValue("Width", 50), e); },
    [](Camera &c, MoxCamErr *e) { return c.array.GetIntegerValue("Width", e) == 0; },
    [](Camera &c, MoxCamErr *e) { return wrote(c.array.ExecuteCommand("Start"), e); },
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
    void exceptionsBecomeCodes()
    {
        for (const auto operation : operations) {
            Camera camera;
            const auto failWith = [&](const std::function<void(Access)> &fault) {
                for (FakeNode *node :
                     std::initializer_list<FakeNode *>{&camera.width, &camera.mode, &camera.flag, &camera.start,
                                                       &camera.text, camera.mode.entries[0], camera.mode.entries[1]})
                    node->fault = fault;
            };
            MoxCamErr err = 1;
            for (const auto &failure : failures) {
                failWith([&](Access) { failure.first(); });
                QVERIFY(operation(camera, &err));
                QCOMPARE(err, failure.second);
                QVERIFY(!camera.modeParam->IsAvailable() && !camera.modeParam->IsWritable()
                        && !camera.modeParam->IsReadable());
            }
            // The same failure while the camera is gone tells just that, and nothing of it sticks.
            camera.port.accessMode = GenApi::NA;
            QVERIFY(operation(camera, &err));
            QCOMPARE(err, E::NoDevice);
            camera.port.accessMode = GenApi::RW;
            failWith({});
            operation(camera, &err);
            QCOMPARE(err, E::Success);
        }
    }

    void lookups()
    {
        Camera camera;
        ParamArray &array = camera.array;
        MoxCamErr err = 1;
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

        camera.map.lookupFault = [] { throw RUNTIME_EXCEPTION("x"); };
        QVERIFY(!array.GetInt("Width", &err));
        QCOMPARE(err, E::GenICamRuntime);
    }

    void enumerations()
    {
        Camera camera;
        MoxGenParam::Enum *mode = camera.modeParam;
        MoxCamErr err = 1;
        for (const std::uint64_t beyond : {std::uint64_t(2), UINT64_MAX}) {
            QVERIFY(!mode->GetEnumEntryByIndex(beyond, &err));
            QCOMPARE(err, E::GenICamInvalidArgument);
        }
        QCOMPARE(camera.array.GetEnumValueStr("Mode", nullptr), "On");
        QCOMPARE(mode->SetValueStr(nullptr), E::GenICamInvalidArgument);

        // A camera may hold a number that no entry has.
        camera.mode.value = 3;
        QCOMPARE(mode->GetValue(&err), 3);
        QCOMPARE(err, E::Success);
        QCOMPARE(mode->GetValueStr(&err), "");
        QCOMPARE(err, E::GenICamOutOfRange);
    }

    void textsStay()
    {
        Camera camera;
        const char *first = camera.textParam->GetValue(nullptr);
        camera.text.value = "second, which is long enough to live on the heap";
        const char *second = camera.textParam->GetValue(nullptr);
        camera.text.value = "first";
        QVERIFY(camera.textParam->GetValue(nullptr) == first);
        QCOMPARE(first, "first");
        QCOMPARE(second, "second, which is long enough to live on the heap");
    }
};

MOX_TEST_MAIN(TestParams)
#include "tst_params.moc"
