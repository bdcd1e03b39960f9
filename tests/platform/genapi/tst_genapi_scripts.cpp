// What features of every kind hold, refuse, keep and pass on, told as little scripts.
#include "memoryport.h"

#include <datarow.h>

#include <clocale>

using namespace GenApi;
using namespace MoxTest;

namespace {

const char everyLink[] =
    "IntReg R @0; Integer Value pValue=R; Integer Min Value=1 pMin=R; Integer Inc Value=1 pInc=R; "
    "Integer Avail Value=1 pIsAvailable=R; Integer Formula pValue=Knife; IntSwissKnife Knife pVariable.X=R Formula=X; "
    "Integer Told Value=1 pInvalidator=Knife; Integer Alone Value=1; <Enumeration Name='Enum'><EnumEntry Name='A'>"
    "<Value>0</Value><pIsAvailable>Value</pIsAvailable></EnumEntry><Value>0</Value></Enumeration>; "
    "Integer Selected Value=1; Integer Writer pValue=R pSelected=Selected";

/** A feature and the register below it; the conditions are those of being implemented, available and locked. */
void modeRow(const char *imposed, const char *target, const char *conditions, const char *mode)
{
    const QString links = QStringLiteral(" pIsImplemented=Yes pIsAvailable=There pIsLocked=Locked");
    const QString own = *imposed ? QStringLiteral(" ImposedAccessMode=") + QLatin1String(imposed) : QString();
    // I has the conditions itself, J through its register.
    const QString nodes = QStringLiteral("Integer Yes Value=%1; Integer There Value=%2; Integer Locked Value=%3; "
                                         "IntReg R @0 AccessMode=%4; IntReg Guarded @0 AccessMode=%4%5; "
                                         "Integer I pValue=R%6%5; Integer J pValue=Guarded%6")
                              .arg(conditions[0])
                              .arg(conditions[1])
                              .arg(conditions[2])
                              .arg(QLatin1String(target), links, own);
    const bool canRead = *mode == 'R';
    const bool canWrite = mode[1] == 'W' || *mode == 'W';
    const QString denied = QStringLiteral(" ! AccessException: Node '%1' is not ");
    const QString each = QLatin1String("%1~") + QLatin1String(mode) + QLatin1String("; %1=1")
        + (canWrite ? QString() : denied + QLatin1String("writable.")) + QLatin1String("; writes==")
        + QString::number(canWrite) + QLatin1String("; %1==")
        + (canRead ? QString::number(canWrite) : denied + QLatin1String("readable."));
    const QString name = QStringLiteral("%1 over %2, conditions %3")
                             .arg(QLatin1String(imposed), QLatin1String(target), QLatin1String(conditions));
    row(qPrintable(name), nodes.toUtf8(),
        (each.arg(QLatin1String("I")) + QLatin1String("; ") + each.arg(QLatin1String("J"))).toUtf8());
}

void accessRows()
{
    for (const char *const target : {"RW", "RO", "WO"})
        modeRow("", target, "110", target);
    modeRow("RO", "RW", "110", "RO");
    modeRow("WO", "RO", "110", "NA");
    modeRow("RO", "WO", "110", "NA");
    modeRow("", "RW", "111", "RO");
    modeRow("", "WO", "111", "NA");
    modeRow("", "RW", "100", "NA");
    modeRow("", "RW", "010", "NI");
    modeRow("RO", "WO", "011", "NI");
    const char notReadable[] = "N== ! AccessException: Node 'N' is not readable.";
    row("modes of nodes without a camera's say",
        "Integer V Value=1; IntSwissKnife K Formula=1; Category C; Float None; Integer Cond Value=1 pIsAvailable=Gone",
        "V~RW; K~RO; C~RO; None~NA; Cond~RW");
    row("modes over a register that cannot be read",
        "IntReg W @0 AccessMode=WO; IntSwissKnife N pVariable.X=W Formula=X; Converter C FormulaTo=FROM FormulaFrom=TO "
        "pValue=W; Integer Lock Value=1 pIsLocked=W; Integer Cond Value=1 pIsAvailable=W",
        QByteArray("N~NA; C~WO; Lock~RO; Cond~NA; ") + notReadable);
    row("modes of commands and of a silent register",
        "IntReg R @0; Command C pValue=R; Command D pValue=R ImposedAccessMode=RW; IntReg Silent @0 AccessMode=",
        "C~WO; D~RW; Silent~RO");
    for (const char *nodes :
         {"Integer N pValue=Gone", "IntSwissKnife N pVariable.X=Gone Formula=X", "IntReg N @0 pAddress=Gone",
          "IntReg N @0 pPort=Gone", "<Port Name='Chunk'><ChunkID>1</ChunkID></Port>; IntReg N @0 pPort=Chunk"})
        row(nodes, nodes, QByteArray("N~NA; ") + notReadable);
    row("conditions follow the device",
        "IntReg Status @0 Cachable=NoCache; IntReg Kept @8; Integer A Value=1 pIsAvailable=Status; "
        "Integer B Value=1 pIsAvailable=Kept",
        "A~NA; B~NA; @0=01; @8=01; A~RW; B~NA; Kept*; B~RW; fail=1; "
        "A~ ! TimeoutException: The camera does not answer.; A~RW");
    row("conditions in a circle",
        "Integer A Value=1 pIsAvailable=B; Integer B Value=0 pIsLocked=A; "
        "Integer C Value=1 pIsAvailable=C",
        "A~NA; C~RW");
    // What was found on the way round the circle is not kept: the order of the questions decides nothing.
    for (const char *script : {"D~NA; E~NA", "E~NA; D~NA"})
        row(script, "Integer D Value=0 pIsAvailable=E; Integer E Value=1 pIsAvailable=D", script);
    // Values that go round in a circle.
    for (const char *nodes :
         {"Integer N pValue=N", "Integer N pValue=M; IntSwissKnife M pVariable.X=N Formula=X",
          "Integer N pValue=R; IntReg R @0 pAddress=N", "Integer N pValue=E; Enumeration E Entry.A=0 pValue=N"})
        row(nodes, nodes, "N== ! RuntimeException: Node '; N=0 ! Exception; N:=0 ! Exception; N*; reads==0; writes==0");
    row("the port comes and goes", "IntReg R @0; Integer I pValue=R; Integer V Value=1 pIsAvailable=R",
        "@0=01; I==1; port=NA; I~NA; Device~NA; V~NA; I== ! not readable; port=RO; I~RO; port=RW; I~RW; V~RW; "
        "reads==1");
}

/** Levels over the integer N0, each naming the one below, %2, to get its own name, %1. */
QByteArray levels(const QByteArray &level, int count)
{
    QByteArray nodes = "IntReg N0 @0 Cachable=NoCache";
    for (int i = 1; i <= count; ++i)
        nodes += "; " + QByteArray(level).replace("%1", QByteArray::number(i)).replace("%2", QByteArray::number(i - 1));
    return nodes;
}

// What is worked out again at every mention of the level below would never come to an end.
void levelRows()
{
    row("a long chain", levels("Integer N%1 pValue=N%2", 20000), "N100==0; N20000== ! is too long; all*");
    const auto sixty = [](const char *name, const char *level, const char *script) {
        row(name, levels(level, 60), QByteArray("@0=01; ") + script);
    };
    sixty("values", "IntSwissKnife N%1 pVariable.X=N%2 pVariable.Y=N%2 Formula=X|Y",
          "N60~RO; N60?=1; reads==1; N60=1 ! Node 'N60' is not writable.");
    sixty("limits", "Converter N%1 FormulaTo=FROM FormulaFrom=TO pValue=N%2",
          "N60~RW; N60?=1; N60[0..4.29497e+09]; reads==1; N60=1");
    sixty("index and value", "Integer N%1 pIndex=N%2 pValueIndexed.0=N%2 pValueDefault=N%2",
          "N60~RW; N60?=1; reads==6; N60=1");
    sixty("commands", "Command N%1 ImposedAccessMode=RW pValue=N%2 pCommandValue=N%2",
          "N60~RW; N60?=false; reads==1; N60=1");
    sixty("circles", "Integer N%1 Value=1 pIsAvailable=N%2 pIsLocked=N%2 pIsImplemented=N60",
          "N60~RO; N60?=1; reads==2; N60=1 ! Node 'N60' is not writable.");
    sixty("copies", "Integer N%1 pValue=N%2 pValueCopy=N%2",
          "N60~RW; N60?=1; reads==1; N60=1 ! goes through too many nodes.");
}

/** An integer over a register: what the bytes mean, and both limits, there and back. */
void registerRow(const QByteArray &node, const QByteArray &hex, const QByteArray &value, const QByteArray &min,
                 const QByteArray &max)
{
    QByteArray script = "@10=" + hex + "; I==" + value + "; I[" + min + ".." + max + ']';
    for (const QByteArray &written : {min, max, value})
        script += "; I=" + written + "; all*; I==" + written;
    row(node, node + " @10; Integer I pValue=R", script + "; @10==" + hex);
}

void registerRows()
{
    const QByteArray least = "-9223372036854775808";
    const QByteArray most = "9223372036854775807";
    registerRow("IntReg R", "01020304", "67305985", "0", "4294967295");
    registerRow("IntReg R Sign=Signed", "feffffff", "-2", "-2147483648", "2147483647");
    registerRow("IntReg R Length=3 Endianess=BigEndian", "010203", "66051", "0", "16777215");
    registerRow("IntReg R Length=8 Sign=Signed", "0000000000000080", least, least, most);
    registerRow("IntReg R Length=8 Endianess=BigEndian", "7fffffffffffffff", most, "0", most);
    registerRow("MaskedIntReg R LSB=4 MSB=11", "f0ab0000", "191", "0", "255");
    registerRow("MaskedIntReg R Endianess=BigEndian LSB=0 MSB=7", "a5000000", "165", "0", "255");
    registerRow("MaskedIntReg R Sign=Signed LSB=0 MSB=3", "0c000000", "-4", "-8", "7");
    registerRow("MaskedIntReg R Bit=31", "00000080", "1", "0", "1");
    registerRow("MaskedIntReg R Length=8 Sign=Signed LSB=0 MSB=63", "ffffffffffffffff", "-1", least, most);
}

/** The same formula over the integer X = 7 as N, and over reals as R. */
void formulaRows()
{
    QByteArray names = "<pVariable Name='X'>V</pVariable><pVariable Name='X.Max'>V</pVariable><pVariable Name='X.Min'>V"
                       "</pVariable><pVariable Name='X.Inc'>V</pVariable><Expression Name='S'>S</Expression>"
                       "<Constant Name='T0'>1</Constant>";
    for (int i = 1; i <= 60; ++i)
        names += QStringLiteral("<Expression Name='T%1'>T%2+T%2</Expression>").arg(i).arg(i - 1).toLatin1();
    const auto formula = [&](const char *text, const QByteArray &integer, const QByteArray &real) {
        const QByteArray body = names + "<Formula><![CDATA[" + text + "]]></Formula>";
        row(text,
            "Integer V Value=7 Min=0 Max=100; <IntSwissKnife Name='N'>" + body
                + "</IntSwissKnife>; <SwissKnife Name='R'>" + body + "</SwissKnife>",
            "N==" + integer + "; R==" + real);
    };
    const auto fails = [&](const char *text, const QByteArray &why) {
        const QByteArray error = " ! RuntimeException: The formula of node '";
        formula(text, error + "N' " + why, error + "R' " + why);
    };
    formula("X / 2", "3", "3.5");
    formula("-X % 4", "-3", "-3");
    formula("2 ** 3 ** 2", "512", "512");
    formula("(-9223372036854775807 - 1) % -1", "0", "0");
    formula("(X = 7) ? 1 : 1 / 0", "1", "1");
    formula("0xFFFFFFFFFFFFFFFF & X", "7", "7");
    formula("9223372036854775807 - X", "9223372036854775800", "9223372036854775808");
    formula("~X | 1 << 4 ^ 1", "-7", "-7");
    formula("X.Max - X.Min + X.Inc", "101", "101");
    formula("ABS(NEG(X)) + SGN(-3) + TRUNC(2.9)", "8", "8");
    formula("ROUND(X / 3, 2) + SQRT(4)", "4", "4.33");
    formula("T60", "1152921504606846976", "1152921504606846976");
    fails("1 / (X - 7)", "divides by zero.");
    fails("Y", "uses 'Y', which is none of its variables.");
    fails("(X", "cannot be understood: ')' is missing at character 3 of '(X'.");
    fails("S", "cannot be understood: an expression contains itself at character 2 of 'S'.");
}

void valueRows()
{
    // What cannot be a number fails as one; writes of others over it go through.
    for (const char *node : {"FloatReg N @0 Length=16", "IntReg N @0 Length=9", "MaskedIntReg N @0 LSB=40 MSB=41",
                             "MaskedIntReg N @0 LSB=0x8000000000000000 MSB=0x7fffffffffffffff Endianess=BigEndian"})
        row(node, node + QByteArray("; IntReg R @0"),
            "N== ! RuntimeException: Node 'N'; N:=1 ! RuntimeException: Node 'N'; R=7; @0==07");
    row("masked registers keep their neighbours",
        "MaskedIntReg Low @0 LSB=0 MSB=7; MaskedIntReg High @0 LSB=8 MSB=15; IntReg All @0 Representation=HexNumber",
        "@0=11223344; Low==17; High==34; All==0x44332211; Low=170; High=187; @0==aabb3344; Low==170; All==0x4433BBAA; "
        "All=0x01020304; High==3; Low=256 ! OutOfRangeException");
    row("entries share their structure",
        "<StructReg "
        "Comment='S'><Address>0x20</Address><Length>2</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
        "<Endianess>BigEndian</Endianess><StructEntry Name='A'><Bit>15</Bit></StructEntry><StructEntry Name='B'>"
        "<AccessMode>RO</AccessMode><LSB>7</LSB><MSB>0</MSB></StructEntry></StructReg>",
        "@20=4201; A==1; B==66; A~RW; B~RO");
    row("refused integers", "IntReg R @0 Sign=Signed; IntReg Max @8; Integer I pValue=R Min=-6 pMax=Max Inc=4",
        "Max=4096; I=-6; I=4094; writes==3; I=5000 ! OutOfRangeException: Node 'I': Value 5000 must be smaller than or "
        "equal to 4096.; I=-7 ! OutOfRangeException: Node 'I': Value -7 must be greater than or equal to -6.; "
        "I=0 ! The difference between value 0 and the minimum -6 must be a multiple of 4.; "
        "I=-9223372036854775808 ! Value -9223372036854775808 must be greater than or equal to -6.; writes==0; "
        "I:=0; writes==1");
    row("valid values",
        "Integer I Value=1 Min=0 Max=9 ValidValueSet=8;1;0x10;2; Float F Value=0.5 ValidValueSet=2.5;0.5",
        "I=3 ! OutOfRangeException: Node 'I': Value 3 is none of the valid values.; I=8; I=16 ! OutOfRange; F=2.5; "
        "F=1 ! OutOfRangeException");
    row("converters",
        "IntReg R @0 Length=2; Integer Scale Value=4; IntConverter I pVariable.S=Scale FormulaTo=FROM/S "
        "FormulaFrom=TO*S pValue=R; Converter C FormulaTo=1000/FROM FormulaFrom=1000/(TO+1) pValue=R Slope=Decreasing",
        "I=400; @0==6400; I==400; I[0..262140]; Scale=2; I==200; I[0..131070]; C[0.0152588..1000]; C=10.03; @0==6400; "
        "C=1001 ! OutOfRangeException");
    // A limit at which the formula divides by zero bounds nothing.
    row("limits beyond the formula",
        "IntReg R @0 Length=2; Converter C FormulaTo=1000/FROM FormulaFrom=1000/TO pValue=R; "
        "IntConverter I FormulaTo=1000/FROM FormulaFrom=1000/TO pValue=R",
        "C[-1.79769e+308..1.79769e+308]; I[-9223372036854775808..9223372036854775807]; C=10; R==100; I=20; R==50; "
        "C=0 ! RuntimeException: The formula of node 'C' divides by zero.");
    row("float registers", "FloatReg F @0 Endianess=BigEndian; FloatReg D @8 Length=8",
        "F=1.5; @0==3fc00000; D=-2; @8==00000000000000c0; F[-3.40282e+38..3.40282e+38]");
    row("a selector moves the address",
        "Enumeration Sel Entry.A=0 Entry.B=1 Value=0 pSelected=Gain; Integer Gain pValue=R; Integer Base Value=0x100; "
        "IntReg R @1000 pAddress=Base pIndex.16=Sel",
        "@1100=05; @1110=06; Gain==5; Sel=B; Gain==6; Gain=9; @1110==09; @1100==05");
    row("indexed values",
        "Integer Index Value=0; IntReg R @0; Integer I pIndex=Index pValueIndexed.0=R ValueIndexed.1=21 "
        "ValueDefault=-1",
        "I=77; @0==4d; Index=1; I==21; I=22; I==22; Index=2; I==-1; writes==1");
    row("strings", "StringReg R @0 Length=8; String S pValue=R",
        "@0=6162630064656667; S==abc; S=12345678; all*; S==12345678; S=x; @0==7800000000000000; "
        "S=123456789 ! OutOfRangeException: Node 'S': a text of 9 bytes is longer than the 8 allowed.");
    row("enumerations",
        "IntReg R @0; <Enumeration Name='E'><EnumEntry Name='Off'><Value>1</Value></EnumEntry><EnumEntry Name='On'>"
        "<Value>0x2</Value><Symbolic>Running</Symbolic></EnumEntry><EnumEntry Name='Gone'><Value>3</Value>"
        "<pIsAvailable>Never</pIsAvailable></EnumEntry><pValue>R</pValue></Enumeration>; Integer Never Value=0",
        "E== ! OutOfRangeException: Node 'E': the device holds the value 0, which is none of the entries.; E=Running; "
        "R==2; E==Running; E=On ! InvalidArgumentException: Node 'E' has no entry 'On'.; EnumEntry_E_Gone~NA; "
        "E=Gone ! AccessException: Node 'E': the entry 'Gone' is not available.; E:=Gone; R==3; E==Gone");
    row("raw registers", "Register R @0",
        "R=0xdeadbeef; @0==deadbeef; R=01020304; R==0x01020304; R=0x0102zz04 ! InvalidArgumentException");
    row("texts of integers",
        "Integer Dec Value=0; Integer Hex Value=0 Representation=HexNumber; "
        "Integer Ip Value=0 Representation=IPV4Address; Integer Mac Value=0 Representation=MACAddress",
        "Dec= -12 ; Dec==-12; Hex=255; Hex==0xFF; Ip=192.168.0.1; Ip==192.168.0.1; Mac=00:11:aa:bb:cc:dd; "
        "Mac==00:11:AA:BB:CC:DD; Dec=12a ! InvalidArgument; Ip=1.2.3.256 ! InvalidArgument; "
        "Dec=9223372036854775808 ! InvalidArgument");
    row("texts of others", "Float F Value=0; Boolean B Value=0",
        "F=1.25e-3; F==0.00125; F=1,5 ! InvalidArgument; B=1; B==true; B=false; B==false; B=maybe ! InvalidArgument");
}

void changeRows()
{
    row("every dependent is told once", everyLink,
        "R=1; heard==R Value Min Inc Avail Formula Knife Told Enum EnumEntry_Enum_A Selected Writer; "
        "Writer=1; heard==Writer R Value Min Inc Avail Formula Knife Told Enum EnumEntry_Enum_A Selected; "
        "Alone=1; heard==Alone; Value?=1; heard==; "
        "Value*; heard==Value R Min Inc Avail Formula Knife Told Enum EnumEntry_Enum_A Selected Writer; "
        "Knife*; heard==Knife R Value Min Inc Avail Formula Told Enum EnumEntry_Enum_A Selected Writer; "
        "Told*; heard==Told; all*; heard==Root Device R Value Min Inc Avail Formula Knife Told Alone Enum "
        "EnumEntry_Enum_A Selected Writer");
    row("refused writes tell nobody", "IntReg R @0 Length=1; IntReg Fixed @8 AccessMode=RO",
        "R=256 ! OutOfRange; Fixed=1 ! Access; heard==; reads==0; writes==0");
    // Where the first of two registers has changed, everybody is told although the write as a whole failed.
    row("failed writes forget", "IntReg R @0; IntReg S @8; Integer I pValue=R pValueCopy=S",
        "I=1; heard==I R S; fail=1; I=2 ! TimeoutException: The camera does not answer.; heard==; I==1; reads==1; "
        "fail=2; I=3 ! TimeoutException: The camera does not answer.; heard==I R S; I==3; S==1");
    const auto caching = [](const char *mode, const char *twice, const char *afterWrite) {
        row(mode,
            QByteArray("IntReg R @0 Cachable=") + mode
                + "; Float F pValue=C; Converter C FormulaTo=FROM*2 FormulaFrom=TO/2 pValue=R; "
                  "Integer I Value=0 pMax=R",
            QByteArray("F==0; F==0; reads==") + twice + "; F=8; reads==0; F==8; F==8; F~RW; reads==" + afterWrite
                + "; F?=8; reads==1; I[-9223372036854775808..16]; I[-9223372036854775808..16]; reads=="
                + (*twice == '2' ? "2" : "0") + "; @0=05; R*; F==2.5; reads==1");
    };
    caching("", "1", "0");
    caching("WriteThrough", "1", "0");
    caching("WriteAround", "1", "1");
    caching("NoCache", "2", "2");
    row("a formula reads each variable once, and none in vain",
        "IntReg R @0 Cachable=NoCache; IntReg Y @8; IntSwissKnife N pVariable.X=R pVariable.Y=Y Formula=(X=0)?X+X:Y",
        "N==0; reads==1");
    row("a fresh read reaches the others", "IntReg R @0; Integer A pValue=R; Integer B pValue=R",
        "A==0; B==0; @0=07; A==0; A?=7; B==7; reads==2");
    row("poll",
        "IntReg R @0 PollingTime=100; IntReg S @8; Integer A pValue=R; Integer B pValue=S PollingTime=250; "
        "Integer C pValue=S",
        "A==0; B==0; poll=50; heard==; poll=50; heard==R A; poll=50; heard==; poll=50; heard==R A; poll=50; "
        "heard==S B C; poll=50; heard==R A; reads==2; @8=03; B==3; poll=-5; heard==; poll=9223372036854775807; "
        "heard==R S A B C; poll=9223372036854775807; heard==R S A B C");
    // What was just written stays known; what a write prompts is asked of the device.
    row("invalidated by a write", "IntReg R @0; IntReg S @8; Integer W pValue=R; Integer Told pValue=S pInvalidator=W",
        "Told==0; @8=02; W=1; heard==W R S Told; Told==2; W==1; reads==2");
    row("selected by a write", "IntReg R @0; IntReg S @8; Integer W pValue=R pSelected=Told; Integer Told pValue=S",
        "Told==0; @8=02; W=1; heard==W R S Told; Told==2; W==1; reads==2");
    row("beside a write", "IntReg R @0; IntReg S @8; Integer W pValue=R; Integer Told pValue=S",
        "Told==0; @8=02; W=1; heard==W R; Told==0; W==1; reads==1");
}

} // namespace

class TestGenApiScripts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The decimal comma of a German user must not reach texts or formulas.
    void initTestCase() { std::setlocale(LC_NUMERIC, "de_DE.UTF-8"); }

    void scripts_data()
    {
        columns<QByteArray, QByteArray>("nodes", "script");
        accessRows();
        levelRows();
        registerRows();
        formulaRows();
        valueRows();
        changeRows();
    }
    void scripts()
    {
        QFETCH(QByteArray, nodes);
        QFETCH(QByteArray, script);
        Camera camera(nodes);
        QCOMPARE(camera.run(script), QString());
    }
};

QTEST_APPLESS_MAIN(TestGenApiScripts)
#include "tst_genapi_scripts.moc"
