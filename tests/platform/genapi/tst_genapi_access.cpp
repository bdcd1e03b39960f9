// Access modes: how a node's own restrictions, its source, its conditions and the port combine.
#include "memoryport.h"

using namespace GenApi;
using namespace MoxTest;

class TestGenApiAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modes_data();
    void modes();
    void otherNodes_data();
    void otherNodes();
    void conditionsFollowTheDevice();
    void conditionsInACircle();
    void portComesAndGoes();
};

void TestGenApiAccess::modes_data()
{
    QTest::addColumn<QByteArray>("imposed");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("conditions"); // implemented, available, locked
    QTest::addColumn<int>("mode");

    const auto row = [](const char *imposed, const char *target, const char *conditions, EAccessMode mode) {
        QTest::addRow("%s over %s, conditions %s", imposed, target, conditions)
            << QByteArray(imposed) << QByteArray(target) << QByteArray(conditions) << int(mode);
    };
    row("", "RW", "110", RW);
    row("", "RO", "110", RO);
    row("", "WO", "110", WO);
    row("RO", "RW", "110", RO);
    row("WO", "RW", "110", WO);
    row("RW", "RO", "110", RO);
    row("WO", "RO", "110", NA);
    row("RO", "WO", "110", NA);
    row("", "RW", "111", RO);
    row("", "RO", "111", RO);
    row("", "WO", "111", NA);
    row("", "RW", "100", NA);
    row("", "RW", "010", NI);
    row("", "RW", "000", NI);
    row("RO", "WO", "011", NI);
}

// Both on the feature itself and, where the table's conditions stand on the register, through the feature above it.
void TestGenApiAccess::modes()
{
    QFETCH(QByteArray, imposed);
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, conditions);
    QFETCH(int, mode);
    const QByteArray links = "<pIsImplemented>Yes</pIsImplemented><pIsAvailable>There</pIsAvailable>"
                             "<pIsLocked>Locked</pIsLocked>";
    QByteArray nodes;
    const char *const names[] = {"Yes", "There", "Locked"};
    for (int i = 0; i < 3; ++i)
        nodes += QByteArray("<Integer Name='") + names[i] + "'><Value>" + conditions[i] + "</Value></Integer>";
    const QByteArray own = imposed.isEmpty() ? imposed : "<ImposedAccessMode>" + imposed + "</ImposedAccessMode>";
    const QByteArray access = "<AccessMode>" + target + "</AccessMode>";
    Camera camera(nodes + reg("IntReg", "R", 0, access) + reg("IntReg", "Guarded", 0, access + links)
                  + "<Integer Name='I'><pValue>R</pValue>" + own + links + "</Integer><Integer Name='J'>"
                  + "<pValue>Guarded</pValue>" + own + "</Integer>");
    for (const char *name : {"I", "J"}) {
        IInteger &integer = camera.integer(name);
        QCOMPARE(int(integer.GetAccessMode()), mode);
        const QString readError = thrown([&] { integer.GetValue(); });
        QCOMPARE(readError,
                 IsReadable(EAccessMode(mode))
                     ? QString()
                     : QStringLiteral("AccessException: Node '%1' is not readable.").arg(QLatin1String(name)));
        const int writes = camera.port.writes;
        const QString writeError = thrown([&] { integer.SetValue(1); });
        QCOMPARE(writeError,
                 IsWritable(EAccessMode(mode))
                     ? QString()
                     : QStringLiteral("AccessException: Node '%1' is not writable.").arg(QLatin1String(name)));
        QCOMPARE(camera.port.writes - writes, IsWritable(EAccessMode(mode)) ? 1 : 0);
    }
}

void TestGenApiAccess::otherNodes_data()
{
    QTest::addColumn<QByteArray>("node");
    QTest::addColumn<int>("mode");
    QTest::newRow("variable") << QByteArray("<Integer Name='N'><Value>1</Value></Integer>") << int(RW);
    QTest::newRow("formula") << QByteArray("<IntSwissKnife Name='N'><Formula>1</Formula></IntSwissKnife>") << int(RO);
    QTest::newRow("formula over what cannot be read") << reg("IntReg", "W", 0, "<AccessMode>WO</AccessMode>")
            + "<IntSwissKnife Name='N'><pVariable Name='X'>W</pVariable><Formula>X</Formula></IntSwissKnife>"
                                                      << int(NA);
    QTest::newRow("converter over what cannot be read") << reg("IntReg", "W", 0, "<AccessMode>WO</AccessMode>")
            + "<Converter Name='N'><FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom><pValue>W</pValue>"
              "</Converter>" << int(WO);
    QTest::newRow("command") << reg("IntReg", "R", 0) + "<Command Name='N'><pValue>R</pValue></Command>" << int(WO);
    QTest::newRow("readable command") << reg("IntReg", "R", 0)
            + "<Command Name='N'><pValue>R</pValue><ImposedAccessMode>RW</ImposedAccessMode></Command>"
                                      << int(RW);
    QTest::newRow("category") << QByteArray("<Category Name='N'/>") << int(RO);
    QTest::newRow("register that says nothing") << reg("IntReg", "N", 0, "<AccessMode/>") << int(RO);
    QTest::newRow("missing source") << QByteArray("<Integer Name='N'><pValue>Gone</pValue></Integer>") << int(NA);
    QTest::newRow("no source") << QByteArray("<Float Name='N'/>") << int(NA);
    QTest::newRow("missing variable") << QByteArray(
        "<SwissKnife Name='N'><pVariable Name='X'>Gone</pVariable><Formula>X</Formula></SwissKnife>")
                                      << int(NA);
    QTest::newRow("missing address") << reg("IntReg", "N", 0, "<pAddress>Gone</pAddress>") << int(NA);
    QTest::newRow("missing port") << reg("IntReg", "N", 0, "<pPort>Gone</pPort>") << int(NA);
    QTest::newRow("chunk port") << "<Port Name='Chunk'><ChunkID>1</ChunkID></Port>"
            + reg("IntReg", "N", 0, "<pPort>Chunk</pPort>")
                                << int(NA);
    QTest::newRow("missing condition") << QByteArray(
        "<Integer Name='N'><Value>1</Value><pIsAvailable>Gone</pIsAvailable></Integer>")
                                       << int(RW);
    QTest::newRow("unreadable lock") << reg("IntReg", "W", 0, "<AccessMode>WO</AccessMode>")
            + "<Integer Name='N'><Value>1</Value><pIsLocked>W</pIsLocked></Integer>"
                                     << int(RO);
    QTest::newRow("unreadable condition") << reg("IntReg", "W", 0, "<AccessMode>WO</AccessMode>")
            + "<Integer Name='N'><Value>1</Value><pIsAvailable>W</pIsAvailable>"
              "</Integer>" << int(NA);
}

void TestGenApiAccess::otherNodes()
{
    QFETCH(QByteArray, node);
    QFETCH(int, mode);
    Camera camera(node);
    QCOMPARE(int(camera.map->GetNode("N")->GetAccessMode()), mode);
    if (mode == NA && camera.get<IInteger>("N"))
        QCOMPARE(thrown([&] { camera.integer("N").GetValue(); }),
                 QStringLiteral("AccessException: Node 'N' is not readable."));
}

void TestGenApiAccess::conditionsFollowTheDevice()
{
    Camera camera(reg("IntReg", "Status", 0, "<Cachable>NoCache</Cachable>") + reg("IntReg", "Kept", 8)
                  + "<Integer Name='A'><Value>1</Value><pIsAvailable>Status</pIsAvailable></Integer>"
                    "<Integer Name='B'><Value>1</Value><pIsAvailable>Kept</pIsAvailable></Integer>");
    for (const char *name : {"A", "B"})
        QCOMPARE(camera.integer(name).GetAccessMode(), NA);
    camera.port.put(0, "\1");
    camera.port.put(8, "\1");
    QCOMPARE(camera.integer("A").GetAccessMode(), RW);
    QCOMPARE(camera.integer("B").GetAccessMode(), NA);
    camera.map->GetNode("Kept")->InvalidateNode();
    QCOMPARE(camera.integer("B").GetAccessMode(), RW);
    camera.port.failAt = 1;
    QCOMPARE(thrown([&] { camera.integer("A").GetAccessMode(); }),
             QStringLiteral("TimeoutException: The camera does not answer."));
    QCOMPARE(camera.integer("A").GetAccessMode(), RW);
}

void TestGenApiAccess::conditionsInACircle()
{
    Camera camera("<Integer Name='A'><Value>1</Value><pIsAvailable>B</pIsAvailable></Integer>"
                  "<Integer Name='B'><Value>0</Value><pIsLocked>A</pIsLocked></Integer>"
                  "<Integer Name='C'><Value>1</Value><pIsAvailable>C</pIsAvailable></Integer>");
    QCOMPARE(camera.integer("A").GetAccessMode(), NA);
    QCOMPARE(camera.integer("C").GetAccessMode(), RW);
    // What was found on the way round the circle is not kept: the order of the questions decides nothing.
    for (const bool isReverse : {false, true}) {
        Camera pair("<Integer Name='D'><Value>0</Value><pIsAvailable>E</pIsAvailable></Integer>"
                    "<Integer Name='E'><Value>1</Value><pIsAvailable>D</pIsAvailable></Integer>");
        QCOMPARE(pair.integer(isReverse ? "E" : "D").GetAccessMode(), NA);
        QCOMPARE(pair.integer(isReverse ? "D" : "E").GetAccessMode(), NA);
    }
}

void TestGenApiAccess::portComesAndGoes()
{
    Camera camera(reg("IntReg", "R", 0) + "<Integer Name='I'><pValue>R</pValue></Integer>"
                  + "<Integer Name='V'><Value>1</Value><pIsAvailable>R</pIsAvailable></Integer>");
    camera.port.put(0, "\1");
    QCOMPARE(camera.integer("I").GetValue(), 1);
    camera.port.mode = NA;
    QCOMPARE(camera.integer("I").GetAccessMode(), NA);
    QCOMPARE(camera.map->GetNode("Device")->GetAccessMode(), NA);
    QCOMPARE(camera.integer("V").GetAccessMode(), NA);
    QVERIFY(!thrown([&] { camera.integer("I").GetValue(); }).isEmpty());
    camera.port.mode = RO;
    QCOMPARE(camera.integer("I").GetAccessMode(), RO);
    camera.port.mode = RW;
    QCOMPARE(camera.integer("I").GetAccessMode(), RW);
    QCOMPARE(camera.integer("V").GetAccessMode(), RW);
    QCOMPARE(camera.port.reads, 1);
}

QTEST_APPLESS_MAIN(TestGenApiAccess)
#include "tst_genapi_access.moc"
