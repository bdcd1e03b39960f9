// Descriptions good and bad: texts of nodes, categories, references that lead nowhere or in a circle, broken XML.
#include "memoryport.h"

#include <datarow.h>

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
    void interfaces();
    void categories();
    void circlesOfValues_data();
    void circlesOfValues();
    void longChain();
    void workIsBounded_data();
    void workIsBounded();
};

void TestGenApiDescriptions::broken_data()
{
    columns<QByteArray, QByteArray>("text", "reason");
    row("empty", "", "is empty or is not XML.");
    row("no XML", "Width=5", "is empty or is not XML.");
    row("cut short", "<RegisterDescription><Category Name='Root'>", "is not well-formed XML: line 1: ");
    row("zeros", QByteArray("<RegisterDescription>\0\0", 23), "is not well-formed XML: line 1: ");
    row("another document", "<html/>", "has no RegisterDescription; it begins with 'html'.");
    row("no root", "<RegisterDescription><Integer Name='Root'/></RegisterDescription>", "has no category named Root.");
}

void TestGenApiDescriptions::broken()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, reason);
    MemoryPort port;
    const QString error = thrown([&] { MoxGenApi::createNodeMap(text.toStdString(), port, "camera"); });
    QVERIFY2(error.startsWith(QLatin1String("RuntimeException: The device description " + reason)), qPrintable(error));
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
    QCOMPARE(port.reads + port.writes, 0);
}

// What a description says of a node, what it gets from below, and what it is when nothing is said.
void TestGenApiDescriptions::texts()
{
    Camera camera("<Float Name='Full' NameSpace='Standard'><ToolTip>Tip</ToolTip><Description>A &lt;b> ö</Description>"
                  "<DisplayName>Full Name</DisplayName><Visibility>Expert</Visibility><ImposedVisibility>Guru"
                  "</ImposedVisibility><Streamable>Yes</Streamable><IsDeprecated>Yes</IsDeprecated><Value>1</Value>"
                  "<Unit>us</Unit><Representation>Logarithmic</Representation><DisplayNotation>Scientific"
                  "</DisplayNotation><DisplayPrecision>2</DisplayPrecision></Float>; Float Above pValue=Full; "
                  "<Integer Name='I'><Value>0x7f</Value><EnumEntry Name='A'><Value>1</Value></EnumEntry></Integer>",
                  "Full");
    INode *node = camera.map->GetNode("Std::Full");
    INode *plain = camera.map->GetNode("I");
    QVERIFY(node && node == camera.map->GetNode("Full") && !camera.map->GetNode("Gone"));
    QCOMPARE(node->GetName(true).c_str(), "Std::Full");
    QCOMPARE(node->GetDisplayName().c_str(), "Full Name");
    QCOMPARE(plain->GetDisplayName().c_str(), "I");
    QCOMPARE(node->GetVisibility(), Guru);
    QVERIFY(node->IsStreamable() && node->IsDeprecated() && node->IsFeature());
    QVERIFY(!plain->IsStreamable() && !plain->IsDeprecated() && !plain->IsFeature() && plain->IsCachable());
    QCOMPARE(camera.real("Above").GetUnit().c_str(), "us");
    QCOMPARE(camera.real("Above").GetRepresentation(), Logarithmic);
    // An entry of no enumeration is passed over.
    QCOMPARE(camera.run("I==127; I[-9223372036854775808..9223372036854775807]"), QString());
    QCOMPARE(camera.map->GetNumNodes(), 5u);
    NodeList_t nodes;
    camera.map->GetNode("Above")->GetChildren(nodes);
    QCOMPARE(nodes, NodeList_t{node});
    node->GetParents(nodes);
    QCOMPARE(nodes, (NodeList_t{camera.map->GetNode("Root"), camera.map->GetNode("Above")}));
}

// A node that says nothing about itself fails in some words, or reads; it never ends the program.
void TestGenApiDescriptions::interfaces()
{
    for (const char *kind :
         {"Category", "Integer", "IntReg", "MaskedIntReg", "IntConverter", "IntSwissKnife", "Float", "FloatReg",
          "Converter", "SwissKnife", "Boolean", "Command", "String", "StringReg", "Enumeration", "Register", "Port"}) {
        Camera camera('<' + QByteArray(kind) + " Name='N'/>");
        const CValuePtr value(camera.map->GetNode("N"));
        QVERIFY2(value.IsValid() && CSelectorPtr(value).IsValid(), kind);
        thrown([&] { value->ToString(); });
        thrown([&] { value->FromString("1"); });
    }
}

void TestGenApiDescriptions::categories()
{
    Camera camera("Category A pFeature=I pFeature=B pFeature=A; Category B pFeature=Root pFeature=A pFeature=I; "
                  "Integer I Value=1",
                  "Gone I A I");
    const auto featuresOf = [&camera](const char *name) {
        FeatureList_t features;
        camera.get<ICategory>(name)->GetFeatures(features);
        QByteArray names;
        for (IValue *feature : features)
            names += feature->GetNode()->GetName().c_str();
        return names;
    };
    QCOMPARE(featuresOf("Root"), QByteArray("IAI"));
    QCOMPARE(featuresOf("A"), QByteArray("IB"));
    QCOMPARE(featuresOf("B"), QByteArray("I"));
}

void TestGenApiDescriptions::circlesOfValues_data()
{
    columns<QByteArray>("nodes");
    row("itself", "Integer N pValue=N");
    row("two", "Integer N pValue=M; Integer M pValue=N");
    row("formula", "Integer N pValue=M; IntSwissKnife M pVariable.X=N Formula=X");
    row("address", "Integer N pValue=R; IntReg R @0 pAddress=N");
    row("enumeration", "Integer N pValue=E; Enumeration E Entry.A=0 pValue=N");
}

void TestGenApiDescriptions::circlesOfValues()
{
    QFETCH(QByteArray, nodes);
    Camera camera(nodes);
    IInteger &integer = camera.integer("N");
    QCOMPARE(camera.run("N== ! RuntimeException: Node '; N=0 ! Exception; N*; reads==0; writes==0"), QString());
    QVERIFY(!thrown([&] { integer.SetValue(0); }).isEmpty());
    thrown([&] { integer.GetMin(); });
    thrown([&] { integer.GetUnit(); });
}

void TestGenApiDescriptions::longChain()
{
    QByteArray nodes = "Integer N0 Value=1";
    for (int i = 1; i <= 20000; ++i)
        nodes += "; Integer N" + QByteArray::number(i) + " pValue=N" + QByteArray::number(i - 1);
    Camera camera(nodes);
    QCOMPARE(camera.run("N100==1; N20000== ! is too long; all*"), QString());
}

// Each level names the one below twice: what is worked out again at every mention would never come to an end.
void TestGenApiDescriptions::workIsBounded_data()
{
    // Number %1 above number %2; reads of the lowest one for the mode, the text and the maximum of the highest one.
    columns<QByteArray, int, QByteArray>("level", "reads", "writeError");
    row("values", "IntSwissKnife N%1 pVariable.X=N%2 pVariable.Y=N%2 Formula=X|Y", 1, "Node 'N60' is not writable.");
    row("limits", "Converter N%1 FormulaTo=FROM FormulaFrom=TO pValue=N%2", 1, "");
    row("index and value", "Integer N%1 pIndex=N%2 pValueIndexed.0=N%2 pValueDefault=N%2", 6, "");
    row("commands", "Command N%1 ImposedAccessMode=RW pValue=N%2 pCommandValue=N%2", 1, "");
    row("conditions in circles", "Integer N%1 Value=1 pIsAvailable=N%2 pIsLocked=N%2 pIsImplemented=N60", 2,
        "Node 'N60' is not writable.");
    row("copies", "Integer N%1 pValue=N%2 pValueCopy=N%2", 1, "goes through too many nodes.");
}

void TestGenApiDescriptions::workIsBounded()
{
    QFETCH(QByteArray, level);
    QFETCH(int, reads);
    QFETCH(QByteArray, writeError);
    QByteArray nodes = "IntReg N0 @0 Cachable=NoCache";
    for (int i = 1; i <= 60; ++i)
        nodes += "; " + QByteArray(level).replace("%1", QByteArray::number(i)).replace("%2", QByteArray::number(i - 1));
    Camera camera(nodes);
    camera.port.put(0, "\1");
    INode *top = camera.map->GetNode("N60");
    const CValuePtr value(top);
    const QString error = thrown([&] { value->FromString("1"); });
    QVERIFY2(writeError.isEmpty() ? error.isEmpty() : error.endsWith(QLatin1String(writeError)), qPrintable(error));
    camera.port.reads = 0;
    QVERIFY(IsReadable(top));
    value->ToString(false, true);
    if (const CFloatPtr real(top); real.IsValid())
        real->GetMax();
    QCOMPARE(camera.port.reads, reads);
}

QTEST_APPLESS_MAIN(TestGenApiDescriptions)
#include "tst_genapi_descriptions.moc"
