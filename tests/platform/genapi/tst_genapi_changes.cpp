// What a change sets off: which nodes are told, in which order and when, and what is read from the port afterwards.
#include "memoryport.h"

#include <array>
#include <atomic>
#include <future>
#include <memory>
#include <thread>

using namespace GenApi;
using namespace MoxTest;

namespace {

/** Names of the nodes whose callbacks ran, in order. */
class Log
{
public:
    explicit Log(Camera &camera) : m_camera(camera) { }
    ~Log()
    {
        for (CallbackHandleType handle : m_handles)
            Deregister(handle);
    }
    void listen(const char *names, ECallbackType type = cbPostInsideLock)
    {
        for (const QString &name : QString::fromLatin1(names).split(QLatin1Char(' ')))
            m_handles.push_back(Register(
                m_camera.map->GetNode(name.toLatin1().constData()),
                [this](INode *node) { fired.append(QString::fromUtf8(node->GetName())); }, type));
    }
    QString taken()
    {
        const QString result = fired.join(QLatin1Char(' '));
        fired.clear();
        return result;
    }

    QStringList fired;

private:
    Camera &m_camera;
    std::vector<CallbackHandleType> m_handles;
};

const char everyLink[] =
    "<Integer Name='Value'><pValue>R</pValue></Integer>"
    "<Integer Name='Min'><Value>1</Value><pMin>R</pMin></Integer>"
    "<Integer Name='Inc'><Value>1</Value><pInc>R</pInc></Integer>"
    "<Integer Name='Avail'><Value>1</Value><pIsAvailable>R</pIsAvailable></Integer>"
    "<Integer Name='Formula'><pValue>Knife</pValue></Integer>"
    "<IntSwissKnife Name='Knife'><pVariable Name='X'>R</pVariable><Formula>X</Formula></IntSwissKnife>"
    "<Integer Name='Told'><Value>1</Value><pInvalidator>Knife</pInvalidator></Integer>"
    "<Integer Name='Alone'><Value>1</Value></Integer>"
    "<Enumeration Name='Enum'><EnumEntry Name='A'><Value>0</Value><pIsAvailable>Value</pIsAvailable>"
    "</EnumEntry><Value>0</Value></Enumeration>"
    "<Integer Name='Selected'><Value>1</Value></Integer>"
    "<Integer Name='Writer'><pValue>R</pValue><pSelected>Selected</pSelected></Integer>";

} // namespace

class TestGenApiChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDependentIsToldOnce_data();
    void everyDependentIsToldOnce();
    void refusedWritesTellNobody();
    void failedWriteForgets();
    void insideBeforeOutside();
    void callbacksMayWriteAndEnd();
    void callbackThatThrows();
    void reading_data();
    void reading();
    void formulaReadsEachVariableOnce();
    void freshReadReachesTheOthers();
    void poll();
    void everyAccessMayFail();
    void twoThreads();
    void endingWaitsForACallback();
    void callbacksThatEndEachOther();
    void promptedNodesAskTheDevice_data();
    void promptedNodesAskTheDevice();
};

void TestGenApiChanges::everyDependentIsToldOnce_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("told");
    const QString all =
        QStringLiteral("R Value Min Inc Avail Formula Knife Told Enum EnumEntry_Enum_A Selected Writer");
    const auto with = [&all](const char *first) {
        QStringList names = all.split(QLatin1Char(' '));
        names.removeOne(QString::fromLatin1(first));
        names.prepend(QString::fromLatin1(first));
        return names.join(QLatin1Char(' '));
    };
    QTest::newRow("register") << QStringLiteral("write R") << with("R");
    QTest::newRow("feature") << QStringLiteral("write Writer") << with("Writer");
    QTest::newRow("nobody depends on it") << QStringLiteral("write Alone") << QStringLiteral("Alone");
    QTest::newRow("invalidated feature") << QStringLiteral("invalidate Value") << with("Value");
    QTest::newRow("invalidated formula") << QStringLiteral("invalidate Knife") << with("Knife");
    QTest::newRow("invalidated leaf") << QStringLiteral("invalidate Told") << QStringLiteral("Told");
    QTest::newRow("read") << QStringLiteral("read Value") << QString();
    QTest::newRow("everything") << QStringLiteral("all")
                                << QString(all).replace(QLatin1String("Told "), QLatin1String("Told Alone "));
}

void TestGenApiChanges::everyDependentIsToldOnce()
{
    QFETCH(QString, action);
    QFETCH(QString, told);
    Camera camera(reg("IntReg", "R", 0) + everyLink);
    Log log(camera);
    log.listen("Writer Selected EnumEntry_Enum_A Enum Alone Told Knife Formula Avail Inc Min Value R");
    const QByteArray name = action.section(QLatin1Char(' '), 1).toLatin1();
    if (action.startsWith(QLatin1String("write")))
        camera.integer(name.constData()).SetValue(1);
    else if (action.startsWith(QLatin1String("read")))
        camera.integer(name.constData()).GetValue(false, true);
    else if (name.isEmpty())
        camera.map->InvalidateNodes();
    else
        camera.map->GetNode(name.constData())->InvalidateNode();
    // The entry stands behind its enumeration in the description.
    QCOMPARE(log.taken(), told);
}

void TestGenApiChanges::refusedWritesTellNobody()
{
    Camera camera(reg("IntReg", "R", 0, "<Length>1</Length>")
                  + reg("IntReg", "Fixed", 8, "<AccessMode>RO</AccessMode>"));
    Log log(camera);
    log.listen("R Fixed");
    QVERIFY(!thrown([&] { camera.integer("R").SetValue(256); }).isEmpty());
    QVERIFY(!thrown([&] { camera.integer("Fixed").SetValue(1); }).isEmpty());
    QCOMPARE(log.taken(), QString());
    QCOMPARE(camera.port.accesses(), 0);
}

void TestGenApiChanges::failedWriteForgets()
{
    Camera camera(reg("IntReg", "R", 0) + reg("IntReg", "S", 8)
                  + "<Integer Name='I'><pValue>R</pValue><pValueCopy>S</pValueCopy></Integer>");
    Log log(camera);
    log.listen("I R S");
    camera.integer("I").SetValue(1);
    QCOMPARE(log.taken(), QStringLiteral("I R S"));
    const QString error = QStringLiteral("TimeoutException: The camera does not answer.");
    camera.port.failAt = 1;
    QCOMPARE(thrown([&] { camera.integer("I").SetValue(2); }), error);
    QCOMPARE(log.taken(), QString());
    QCOMPARE(camera.integer("I").GetValue(), 1);
    QCOMPARE(camera.port.reads, 1);
    // The first of the two registers has changed, so everybody is told although the write as a whole failed.
    camera.port.failAt = 2;
    QCOMPARE(thrown([&] { camera.integer("I").SetValue(3); }), error);
    QCOMPARE(log.taken(), QStringLiteral("I R S"));
    QCOMPARE(camera.integer("I").GetValue(), 3);
    QCOMPARE(camera.integer("S").GetValue(), 1);
}

void TestGenApiChanges::insideBeforeOutside()
{
    Camera camera("<Integer Name='A'><Value>0</Value></Integer><Integer Name='B'><pValue>A</pValue></Integer>"
                  "<Integer Name='C'><Value>0</Value></Integer>");
    Log log(camera);
    const auto note = [&](const char *when) {
        return [&log, &camera, when](INode *) {
            bool isFree = false;
            std::thread([&] {
                isFree = camera.map->GetLock().TryLock();
                if (isFree)
                    camera.map->GetLock().Unlock();
            }).join();
            log.fired.append(QString::fromLatin1(when)
                             + (isFree ? QStringLiteral("-free") : QStringLiteral("-locked")));
        };
    };
    const CallbackHandleType outside = Register(camera.map->GetNode("A"), note("outside"), cbPostOutsideLock);
    const CallbackHandleType inside = Register(camera.map->GetNode("B"), note("inside"), cbPostInsideLock);
    camera.integer("A").SetValue(1);
    QCOMPARE(log.taken(), QStringLiteral("inside-locked outside-free"));
    camera.integer("A").FromString("2");
    QCOMPARE(log.taken(), QStringLiteral("inside-locked outside-free"));
    // A write from within a callback lets its own outer callbacks wait for the outermost release.
    const CallbackHandleType nested =
        Register(camera.map->GetNode("B"), [&](INode *) { camera.integer("C").SetValue(1); });
    const CallbackHandleType later = Register(camera.map->GetNode("C"), note("nested"), cbPostOutsideLock);
    camera.integer("A").SetValue(3);
    QCOMPARE(log.taken(), QStringLiteral("inside-locked nested-free outside-free"));
    Deregister(nested);
    Deregister(later);
    Deregister(outside);
    Deregister(inside);
    camera.integer("A").SetValue(2);
    QCOMPARE(log.taken(), QString());
}

void TestGenApiChanges::callbacksMayWriteAndEnd()
{
    Camera camera("<Integer Name='A'><Value>0</Value></Integer><Integer Name='B'><Value>0</Value></Integer>"
                  "<Integer Name='C'><pValue>A</pValue></Integer>");
    Log log(camera);
    CallbackHandleType victim = 0;
    CallbackHandleType self = 0;
    self = Register(camera.map->GetNode("A"), [&](INode *) {
        log.fired.append(QStringLiteral("first"));
        camera.integer("B").SetValue(camera.integer("C").GetValue() * 10);
        Deregister(victim);
        Deregister(self);
    });
    victim = Register(camera.map->GetNode("C"), [&](INode *) { log.fired.append(QStringLiteral("victim")); });
    log.listen("B C");
    camera.integer("A").SetValue(4);
    QCOMPARE(log.taken(), QStringLiteral("first B C"));
    QCOMPARE(camera.integer("B").GetValue(), 40);
    camera.integer("A").SetValue(5);
    QCOMPARE(log.taken(), QStringLiteral("C"));
    QVERIFY(!camera.map->GetNode("C")->DeregisterCallback(12345));
}

void TestGenApiChanges::callbackThatThrows()
{
    Camera camera("<Integer Name='A'><Value>0</Value></Integer>");
    Log log(camera);
    const CallbackHandleType handle =
        Register(camera.map->GetNode("A"), [](INode *) { throw RUNTIME_EXCEPTION("No."); });
    log.listen("A");
    QCOMPARE(thrown([&] { camera.integer("A").SetValue(1); }), QStringLiteral("RuntimeException: No."));
    QCOMPARE(log.taken(), QStringLiteral("A"));
    QCOMPARE(camera.integer("A").GetValue(), 1);
    Deregister(handle);
}

void TestGenApiChanges::reading_data()
{
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<int>("twice");
    QTest::addColumn<int>("afterWrite");
    QTest::addColumn<int>("ignoring");
    QTest::addColumn<int>("caching");
    QTest::newRow("by default") << QByteArray() << 1 << 0 << 1 << int(WriteThrough);
    QTest::newRow("write through") << QByteArray("<Cachable>WriteThrough</Cachable>") << 1 << 0 << 1
                                   << int(WriteThrough);
    QTest::newRow("write around") << QByteArray("<Cachable>WriteAround</Cachable>") << 1 << 1 << 1 << int(WriteAround);
    QTest::newRow("not cached") << QByteArray("<Cachable>NoCache</Cachable>") << 2 << 2 << 1 << int(NoCache);
}

// Reads of a feature behind a converter, and of another one whose maximum is the same register.
void TestGenApiChanges::reading()
{
    QFETCH(QByteArray, more);
    QFETCH(int, twice);
    QFETCH(int, afterWrite);
    QFETCH(int, ignoring);
    QFETCH(int, caching);
    Camera camera(reg("IntReg", "R", 0, more)
                  + "<Float Name='F'><pValue>C</pValue></Float><Converter Name='C'>"
                    "<FormulaTo>FROM*2</FormulaTo><FormulaFrom>TO/2</FormulaFrom><pValue>R</pValue></Converter>"
                    "<Integer Name='I'><Value>0</Value><pMax>R</pMax></Integer>");
    IFloat &real = camera.real("F");
    const auto readsOf = [&camera](auto action) {
        const int before = camera.port.reads;
        action();
        return camera.port.reads - before;
    };
    const auto readTwice = [&] {
        real.GetValue();
        real.GetAccessMode();
        real.GetMax();
        real.ToString();
    };
    QCOMPARE(readsOf(readTwice), twice);
    QCOMPARE(readsOf([&] { real.SetValue(8); }), 0);
    QCOMPARE(readsOf(readTwice), afterWrite);
    QCOMPARE(real.GetValue(), 8.0);
    QCOMPARE(readsOf([&] { real.GetValue(false, true); }), ignoring);
    QCOMPARE(readsOf([&] {
                 camera.integer("I").GetMax();
                 camera.integer("I").GetMax();
             }),
             caching == NoCache ? 2 : 0);
    QCOMPARE(int(camera.map->GetNode("F")->GetCachingMode()), caching);
    QCOMPARE(camera.get<IValue>("F")->IsValueCacheValid(), caching != NoCache);
    camera.map->GetNode("R")->InvalidateNode();
    QCOMPARE(camera.get<IValue>("F")->IsValueCacheValid(), false);
}

void TestGenApiChanges::formulaReadsEachVariableOnce()
{
    Camera camera(reg("IntReg", "R", 0, "<Cachable>NoCache</Cachable>") + reg("IntReg", "Unused", 8)
                  + "<IntSwissKnife Name='N'><pVariable Name='X'>R</pVariable><pVariable Name='Y'>Unused</pVariable>"
                    "<Formula>(X = 0) ? X + X : Y</Formula></IntSwissKnife>");
    QCOMPARE(camera.integer("N").GetValue(), 0);
    QCOMPARE(camera.port.reads, 1);
}

void TestGenApiChanges::freshReadReachesTheOthers()
{
    Camera camera(reg("IntReg", "R", 0) + "<Integer Name='A'><pValue>R</pValue></Integer>"
                  + "<Integer Name='B'><pValue>R</pValue></Integer>");
    QCOMPARE(camera.integer("A").GetValue() + camera.integer("B").GetValue(), 0);
    camera.port.put(0, "\7");
    QCOMPARE(camera.integer("A").GetValue(), 0);
    QCOMPARE(camera.integer("A").GetValue(false, true), 7);
    QCOMPARE(camera.integer("B").GetValue(), 7);
    QCOMPARE(camera.port.reads, 2);
}

void TestGenApiChanges::poll()
{
    Camera camera(reg("IntReg", "R", 0, "<PollingTime>100</PollingTime>") + reg("IntReg", "S", 8)
                  + "<Integer Name='A'><pValue>R</pValue></Integer><Integer Name='B'><pValue>S</pValue>"
                    "<PollingTime>250</PollingTime></Integer><Integer Name='C'><pValue>S</pValue></Integer>");
    Log log(camera);
    log.listen("A B C");
    camera.integer("A").GetValue();
    camera.integer("B").GetValue();
    QStringList told;
    for (int i = 0; i < 6; ++i) {
        camera.map->Poll(50);
        told.append(log.taken());
    }
    QCOMPARE(told.join(QLatin1Char('|')), QStringLiteral("|A||A|B C|A"));
    QCOMPARE(camera.port.reads, 2);
    camera.port.put(8, "\3");
    QCOMPARE(camera.integer("B").GetValue(), 3);
    camera.map->Poll(-5);
    camera.map->Poll(std::numeric_limits<std::int64_t>::max());
    camera.map->Poll(std::numeric_limits<std::int64_t>::max());
    QCOMPARE(log.taken(), QStringLiteral("A B C A B C"));
    QCOMPARE(camera.map->GetNode("B")->GetPollingTime(), 250);
    QCOMPARE(camera.map->GetNode("A")->GetPollingTime(), -1);
}

// The n-th access fails, for every n: the failure comes out as it is, and the next try finds everything in order.
void TestGenApiChanges::everyAccessMayFail()
{
    const QByteArray nodes = reg("MaskedIntReg", "R", 0, "<pIndex Offset='8'>Sel</pIndex><LSB>4</LSB><MSB>7</MSB>")
        + reg("IntReg", "Sel", 0x40) + reg("IntReg", "Max", 0x48) + reg("IntReg", "Avail", 0x50)
        + "<Integer Name='I'><pValue>R</pValue><pMax>Max</pMax><pIsAvailable>Avail</pIsAvailable>"
          "</Integer>";
    int failures = 0;
    for (int n = 1; n < 20; ++n) {
        Camera camera(nodes);
        camera.port.put(0x40, "\1");
        camera.port.put(0x48, "\xf");
        camera.port.put(0x50, "\1");
        camera.port.put(8, "\x21");
        camera.port.failAt = n;
        const QString error = thrown([&] {
            camera.integer("I").SetValue(9);
            camera.map->InvalidateNodes();
            QCOMPARE(camera.integer("I").GetValue(true), 9);
        });
        failures += error.isEmpty() ? 0 : 1;
        QCOMPARE(error, error.isEmpty() ? QString() : QStringLiteral("TimeoutException: The camera does not answer."));
        camera.port.failAt = 0;
        camera.integer("I").SetValue(9);
        QCOMPARE(camera.integer("I").GetValue(), 9);
        QCOMPARE(camera.port.bytes(8, 1).toHex(), QByteArray("91"));
    }
    QCOMPARE(failures, 9);
}

void TestGenApiChanges::twoThreads()
{
    Camera camera(reg("IntReg", "R", 0) + "<Integer Name='I'><pValue>R</pValue></Integer>");
    std::atomic<int> fired{0};
    const CallbackHandleType handle = Register(camera.map->GetNode("I"), [&](INode *) { ++fired; });
    constexpr int rounds = 500;
    std::atomic<bool> torn{false};
    const auto work = [&] {
        for (int i = 0; i < rounds; ++i) {
            AutoLock lock(camera.map->GetLock());
            camera.integer("I").SetValue(i);
            torn = torn || camera.integer("I").GetValue() != i;
        }
    };
    std::thread other(work);
    work();
    other.join();
    Deregister(handle);
    QVERIFY(!torn);
    QCOMPARE(fired.load(), 2 * rounds);
}

// Whether the callback is still registered shows to itself: a write of its own then calls it again.
void TestGenApiChanges::endingWaitsForACallback()
{
    Camera camera("<Integer Name='A'><Value>0</Value></Integer>");
    std::promise<void> started;
    std::atomic<bool> hasEnded{false};
    bool isNested = false;
    bool isCalledAgain = false;
    const CallbackHandleType handle = Register(
        camera.map->GetNode("A"),
        [&](INode *) {
            isCalledAgain = true;
            if (std::exchange(isNested, true))
                return;
            started.set_value();
            while (std::exchange(isCalledAgain, false))
                camera.integer("A").SetValue(2);
            hasEnded = true;
        },
        cbPostOutsideLock);
    std::thread writer([&] { camera.integer("A").SetValue(1); });
    started.get_future().wait();
    Deregister(handle);
    const bool hasWaited = hasEnded;
    writer.join();
    QVERIFY(hasWaited);
}

// Neither can wait for the other, so the node map disposes of both.
void TestGenApiChanges::callbacksThatEndEachOther()
{
    Camera camera("<Integer Name='A'><Value>0</Value></Integer><Integer Name='B'><Value>0</Value></Integer>");
    const auto token = std::make_shared<int>();
    std::atomic<int> running{0};
    std::array<CallbackHandleType, 2> handles{};
    for (int i = 0; i < 2; ++i) {
        handles[i] = Register(
            camera.map->GetNode(i ? "B" : "A"),
            [&running, &handles, i, token](INode *) {
                for (++running; running < 2;)
                    std::this_thread::yield();
                Deregister(handles[1 - i]);
                // Both are detached before either ends.
                for (++running; running < 4;)
                    std::this_thread::yield();
            },
            cbPostOutsideLock);
    }
    std::thread other([&] { camera.integer("B").SetValue(1); });
    camera.integer("A").SetValue(1);
    other.join();
    QCOMPARE(token.use_count(), 1L);
    camera.integer("A").SetValue(2);
    QCOMPARE(running.load(), 4);
}

void TestGenApiChanges::promptedNodesAskTheDevice_data()
{
    QTest::addColumn<QByteArray>("inWriter");
    QTest::addColumn<QByteArray>("inTold");
    QTest::newRow("invalidated") << QByteArray() << QByteArray("<pInvalidator>Writer</pInvalidator>");
    QTest::newRow("selected") << QByteArray("<pSelected>Told</pSelected>") << QByteArray();
    QTest::newRow("neither") << QByteArray() << QByteArray();
}

void TestGenApiChanges::promptedNodesAskTheDevice()
{
    QFETCH(QByteArray, inWriter);
    QFETCH(QByteArray, inTold);
    const bool isPrompted = !inWriter.isEmpty() || !inTold.isEmpty();
    Camera camera(reg("IntReg", "R", 0) + reg("IntReg", "S", 8) + "<Integer Name='Writer'><pValue>R</pValue>" + inWriter
                  + "</Integer><Integer Name='Told'><pValue>S</pValue>" + inTold + "</Integer>");
    QCOMPARE(camera.integer("Told").GetValue(), 0);
    camera.port.put(8, "\2");
    Log log(camera);
    log.listen("Writer R Told S");
    camera.integer("Writer").SetValue(1);
    QCOMPARE(log.taken(), isPrompted ? QStringLiteral("Writer R S Told") : QStringLiteral("Writer R"));
    QCOMPARE(camera.integer("Told").GetValue(), isPrompted ? 2 : 0);
    // What was just written stays known.
    QCOMPARE(camera.integer("Writer").GetValue(), 1);
    QCOMPARE(camera.port.reads, isPrompted ? 2 : 1);
}

QTEST_APPLESS_MAIN(TestGenApiChanges)
#include "tst_genapi_changes.moc"
