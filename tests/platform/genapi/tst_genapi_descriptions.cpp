// Descriptions good and bad: texts of nodes, categories, references that lead nowhere or in a circle, broken XML.
#include "memoryport.h"

using namespace GenApi;
using namespace MoxTest;

class TestGenApiDescriptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void broken_data();
    void broken();
    void everyCutIsRefusedOrRead();
    void texts();
    void defaults();
    void interfaces_data();
    void interfaces();
    void categories();
    void circlesOfValues_data();
    void circlesOfValues();
    void longChain();
    void workIsBounded_data();
    void workIsBounded();
    void entryOfNoEnumeration();
    void exceptionText();
};

void TestGenApiDescriptions::broken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("The device description is empty or is not XML.");
    QTest::newRow("no XML") << QByteArray("Width=5")
                            << QStringLiteral("The device description is empty or is not XML.");
    QTest::newRow("cut short") << QByteArray("<RegisterDescription><Category Name='Root'>")
                               << QStringLiteral("The device description is not well-formed XML: line 1: ");
    QTest::newRow("zeros") << QByteArray("<RegisterDescription>\0\0", 23)
                           << QStringLiteral("The device description is not well-formed XML: line 1: ");
    QTest::newRow("another document") << QByteArray(
        "<html/>") << QStringLiteral("The device description has no RegisterDescription; it begins with 'html'.");
    QTest::newRow("no root") << QByteArray("<RegisterDescription><Integer Name='Root'/></RegisterDescription>")
                             << QStringLiteral("The device description has no category named Root.");
}

void TestGenApiDescriptions::broken()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    MemoryPort port;
    const QString error = thrown([&] { MoxGenApi::createNodeMap(text.toStdString(), port, "camera"); });
    QVERIFY2(error.startsWith(QStringLiteral("RuntimeException: ") + reason), qPrintable(error));
}

void TestGenApiDescriptions::everyCutIsRefusedOrRead()
{
    const QByteArray text = "Made by hand\n<?xml version='1.0'?><!-- <Root> --><RegisterDescription><Group Comment='g'>"
                            "<Category Name='Root'><pFeature>I</pFeature></Category></Group><Integer Name='I'>"
                            "<Value>5</Value></Integer></RegisterDescription>\n";
    MemoryPort port;
    int read = 0;
    for (int size = 0; size <= text.size(); ++size)
        read += thrown([&] { MoxGenApi::createNodeMap(text.left(size).toStdString(), port, "camera"); }).isEmpty();
    QCOMPARE(read, 2);
    QCOMPARE(port.accesses(), 0);
}

void TestGenApiDescriptions::texts()
{
    Camera camera("<Float Name='Full' NameSpace='Standard'><ToolTip>Tip</ToolTip><Description>A &lt;b> ö</Description>"
                  "<DisplayName>Full Name</DisplayName><Visibility>Expert</Visibility><ImposedVisibility>Guru"
                  "</ImposedVisibility><Streamable>Yes</Streamable><IsDeprecated>Yes</IsDeprecated><Value>1</Value>"
                  "<Unit>us</Unit><Representation>Logarithmic</Representation><DisplayNotation>Scientific"
                  "</DisplayNotation><DisplayPrecision>2</DisplayPrecision></Float>"
                  "<Float Name='Above'><pValue>Full</pValue></Float>",
                  "Full");
    INode *node = camera.map->GetNode("Std::Full");
    QVERIFY(node && node == camera.map->GetNode("Full"));
    QCOMPARE(node->GetName(true).c_str(), "Std::Full");
    QCOMPARE(camera.map->GetNode("Above")->GetName(true).c_str(), "Cust::Above");
    QCOMPARE(node->GetToolTip().c_str(), "Tip");
    QCOMPARE(node->GetDescription().c_str(), "A <b> ö");
    QCOMPARE(node->GetDisplayName().c_str(), "Full Name");
    QCOMPARE(node->GetDeviceName().c_str(), "camera");
    QCOMPARE(node->GetVisibility(), Guru);
    QVERIFY(node->IsStreamable() && node->IsDeprecated() && node->IsFeature());
    QVERIFY(!camera.map->GetNode("Above")->IsFeature());
    IFloat &above = camera.real("Above");
    QCOMPARE(above.GetUnit().c_str(), "us");
    QCOMPARE(above.GetRepresentation(), Logarithmic);
    QCOMPARE(camera.real("Full").GetDisplayNotation(), fnScientific);
    QCOMPARE(camera.real("Full").GetDisplayPrecision(), 2);
    NodeList_t nodes;
    camera.map->GetNode("Above")->GetChildren(nodes);
    QCOMPARE(nodes, NodeList_t{node});
    node->GetParents(nodes);
    QCOMPARE(nodes, (NodeList_t{camera.map->GetNode("Root"), camera.map->GetNode("Above")}));
}

void TestGenApiDescriptions::defaults()
{
    Camera camera("<Integer Name='I'><Value>0x7f</Value></Integer>");
    INode *node = camera.map->GetNode("I");
    QCOMPARE(node->GetDisplayName().c_str(), "I");
    QVERIFY(node->GetToolTip().empty() && node->GetDescription().empty());
    QCOMPARE(node->GetVisibility(), Beginner);
    QVERIFY(!node->IsStreamable() && !node->IsDeprecated() && node->IsCachable());
    QCOMPARE(camera.integer("I").GetRepresentation(), PureNumber);
    QCOMPARE(camera.integer("I").GetUnit().c_str(), "");
    QCOMPARE(camera.integer("I").GetValue(), 127);
    QCOMPARE(camera.integer("I").GetMin(), std::numeric_limits<std::int64_t>::min());
    QCOMPARE(camera.integer("I").GetMax(), std::numeric_limits<std::int64_t>::max());
    QCOMPARE(camera.map->GetNumNodes(), 3u);
    QVERIFY(!camera.map->GetNode("Gone"));
}

void TestGenApiDescriptions::interfaces_data()
{
    QTest::addColumn<int>("type");
    const auto row = [](const char *kind, EInterfaceType type) { QTest::newRow(kind) << int(type); };
    row("Category", intfICategory);
    for (const char *kind : {"Integer", "IntReg", "MaskedIntReg", "IntConverter", "IntSwissKnife"})
        row(kind, intfIInteger);
    for (const char *kind : {"Float", "FloatReg", "Converter", "SwissKnife"})
        row(kind, intfIFloat);
    row("Boolean", intfIBoolean);
    row("Command", intfICommand);
    row("String", intfIString);
    row("StringReg", intfIString);
    row("Enumeration", intfIEnumeration);
    row("Register", intfIRegister);
    row("Port", intfIPort);
    row("Node", intfIValue);
}

void TestGenApiDescriptions::interfaces()
{
    QFETCH(int, type);
    const QByteArray kind = QTest::currentDataTag();
    Camera camera("<" + kind + " Name='N'/>");
    INode *node = camera.map->GetNode("N");
    QCOMPARE(int(node->GetPrincipalInterfaceType()), type);
    const CValuePtr value(node);
    QVERIFY(value.IsValid() && CSelectorPtr(node).IsValid());
    QCOMPARE(value->GetNode(), node);
    QCOMPARE(CNodePtr(static_cast<IValue *>(value)).operator->(), node);
    QCOMPARE(CIntegerPtr(node).IsValid(), type == intfIInteger);
    QCOMPARE(CFloatPtr(node).IsValid(), type == intfIFloat);
    QCOMPARE(CCategoryPtr(node).IsValid(), type == intfICategory);
    QCOMPARE(CPortPtr(node).IsValid(), type == intfIPort);
    QCOMPARE(CRegisterPtr(node).IsValid(), kind.endsWith("Reg") || kind == "Register");
    // A node that says nothing about itself fails in some words, or reads; it never ends the program.
    thrown([&] { value->ToString(); });
    thrown([&] { value->FromString("1"); });
    QVERIFY(node->GetAccessMode() == NA || kind == "Category" || kind == "Port" || kind == "Node"
            || kind.endsWith("Knife"));
}

void TestGenApiDescriptions::categories()
{
    Camera camera("<Category Name='A'><pFeature>I</pFeature><pFeature>B</pFeature><pFeature>A</pFeature></Category>"
                  "<Category Name='B'><pFeature>Root</pFeature><pFeature>A</pFeature><pFeature>I</pFeature></Category>"
                  "<Integer Name='I'><Value>1</Value></Integer>",
                  "Gone I A I");
    const auto featuresOf = [&camera](const char *name) {
        FeatureList_t features;
        camera.get<ICategory>(name)->GetFeatures(features);
        QStringList names;
        for (IValue *feature : features)
            names.append(QString::fromUtf8(feature->GetNode()->GetName()));
        return names.join(QLatin1Char(' '));
    };
    QCOMPARE(featuresOf("Root"), QStringLiteral("I A I"));
    QCOMPARE(featuresOf("A"), QStringLiteral("I B"));
    QCOMPARE(featuresOf("B"), QStringLiteral("I"));
}

void TestGenApiDescriptions::circlesOfValues_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::newRow("itself") << QByteArray("<Integer Name='N'><pValue>N</pValue></Integer>");
    QTest::newRow("two") << QByteArray("<Integer Name='N'><pValue>M</pValue></Integer>"
                                       "<Integer Name='M'><pValue>N</pValue></Integer>");
    QTest::newRow("formula") << QByteArray("<Integer Name='N'><pValue>M</pValue></Integer><IntSwissKnife Name='M'>"
                                           "<pVariable Name='X'>N</pVariable><Formula>X</Formula></IntSwissKnife>");
    QTest::newRow("address") << "<Integer Name='N'><pValue>R</pValue></Integer>"
            + reg("IntReg", "R", 0, "<pAddress>N</pAddress>");
    QTest::newRow("enumeration") << QByteArray("<Integer Name='N'><pValue>E</pValue></Integer><Enumeration Name='E'>"
                                               "<EnumEntry Name='A'><Value>0</Value></EnumEntry><pValue>N</pValue>"
                                               "</Enumeration>");
}

void TestGenApiDescriptions::circlesOfValues()
{
    QFETCH(QByteArray, nodes);
    Camera camera(nodes);
    IInteger &integer = camera.integer("N");
    QVERIFY(thrown([&] { integer.GetValue(); }).startsWith(QStringLiteral("RuntimeException: Node '")));
    QVERIFY(!thrown([&] { integer.SetValue(0); }).isEmpty());
    QVERIFY(!thrown([&] { integer.FromString("0"); }).isEmpty());
    thrown([&] { integer.GetMin(); });
    thrown([&] { integer.GetUnit(); });
    camera.map->GetNode("N")->InvalidateNode();
    QCOMPARE(camera.port.accesses(), 0);
}

void TestGenApiDescriptions::longChain()
{
    QByteArray nodes = "<Integer Name='N0'><Value>1</Value></Integer>";
    for (int i = 1; i <= 20000; ++i)
        nodes += "<Integer Name='N" + QByteArray::number(i) + "'><pValue>N" + QByteArray::number(i - 1)
            + "</pValue></Integer>";
    Camera camera(nodes);
    QCOMPARE(camera.integer("N100").GetValue(), 1);
    QVERIFY(thrown([&] { camera.integer("N20000").GetValue(); }).contains(QStringLiteral("is too long")));
    camera.map->InvalidateNodes();
}

// Each level names the one below twice: what is worked out again at every mention would never come to an end.
void TestGenApiDescriptions::workIsBounded_data()
{
    QTest::addColumn<QByteArray>("level"); // of number %1 above number %2
    QTest::addColumn<QString>("writeError");
    QTest::addColumn<int>("reads"); // of the lowest one, for the mode, the text and the maximum of the highest one
    const auto row = [](const char *name, const char *level, int reads, const char *writeError) {
        QTest::newRow(name) << QByteArray(level) << QString::fromLatin1(writeError) << reads;
    };
    row("values",
        "<IntSwissKnife Name='N%1'><pVariable Name='X'>N%2</pVariable><pVariable Name='Y'>N%2</pVariable>"
        "<Formula>X|Y</Formula></IntSwissKnife>",
        1, "Node 'N60' is not writable.");
    row("limits",
        "<Converter Name='N%1'><FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom><pValue>N%2</pValue>"
        "</Converter>",
        1, "");
    row("index and value",
        "<Integer Name='N%1'><pIndex>N%2</pIndex><pValueIndexed Index='0'>N%2</pValueIndexed><pValueDefault>N%2"
        "</pValueDefault></Integer>",
        6, "");
    row("commands",
        "<Command Name='N%1'><ImposedAccessMode>RW</ImposedAccessMode><pValue>N%2</pValue><pCommandValue>N%2"
        "</pCommandValue></Command>",
        1, "");
    row("conditions in circles",
        "<Integer Name='N%1'><Value>1</Value><pIsAvailable>N%2</pIsAvailable><pIsLocked>N%2</pIsLocked>"
        "<pIsImplemented>N60</pIsImplemented></Integer>",
        2, "Node 'N60' is not writable.");
    row("copies", "<Integer Name='N%1'><pValue>N%2</pValue><pValueCopy>N%2</pValueCopy></Integer>", 1,
        "goes through too many nodes.");
}

void TestGenApiDescriptions::workIsBounded()
{
    QFETCH(QByteArray, level);
    QFETCH(QString, writeError);
    QFETCH(int, reads);
    QByteArray nodes = reg("IntReg", "N0", 0, "<Cachable>NoCache</Cachable>");
    for (int i = 1; i <= 60; ++i)
        nodes += QByteArray(level).replace("%1", QByteArray::number(i)).replace("%2", QByteArray::number(i - 1));
    Camera camera(nodes);
    camera.port.put(0, "\1");
    INode *top = camera.map->GetNode("N60");
    const CValuePtr value(top);
    const QString error = thrown([&] { value->FromString("1"); });
    QVERIFY2(writeError.isEmpty() ? error.isEmpty() : error.endsWith(writeError), qPrintable(error));
    const int before = camera.port.reads;
    QVERIFY(IsReadable(top));
    value->ToString(false, true);
    if (const CFloatPtr real(top); real.IsValid())
        real->GetMax();
    QCOMPARE(camera.port.reads - before, reads);
}

void TestGenApiDescriptions::entryOfNoEnumeration()
{
    Camera camera("<Integer Name='I'><Value>3</Value><EnumEntry Name='A'><Value>1</Value></EnumEntry></Integer>");
    QCOMPARE(camera.integer("I").GetValue(), 3);
    QVERIFY(!camera.map->GetNode("EnumEntry_I_A"));
}

void TestGenApiDescriptions::exceptionText()
{
    const GenICam::AccessException error("Reason 100%", "file.cpp", 7);
    QCOMPARE(error.GetDescription(), "Reason 100%");
    QCOMPARE(error.what(), "Reason 100% : AccessException thrown (file 'file.cpp', line 7)");
    QCOMPARE(error.GetSourceFileName(), "file.cpp");
    QCOMPARE(error.GetSourceLine(), 7u);
    QCOMPARE(thrown([] { CIntegerPtr()->GetValue(); }),
             QStringLiteral("LogicalErrorException: NULL pointer dereferenced"));
    const CIntegerPtr null;
    QVERIFY(!IsReadable(null) && !IsWritable(null) && !IsAvailable(null) && !IsImplemented(null));
}

QTEST_APPLESS_MAIN(TestGenApiDescriptions)
#include "tst_genapi_descriptions.moc"
