// Values of every kind: what the registers hold, what comes back, which values are refused and with what words.
#include "memoryport.h"

#include <array>
#include <clocale>
#include <limits>

using namespace GenApi;
using namespace MoxTest;

class TestGenApiValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integerRegisters_data();
    void integerRegisters();
    void impossibleRegisters_data();
    void impossibleRegisters();
    void maskedRegisterKeepsItsNeighbours();
    void lengthThatTheCameraChanges();
    void limitsBeyondTheFormula();
    void structEntriesShareTheStructure();
    void integerRefusals_data();
    void integerRefusals();
    void verificationIsOptional();
    void validValues();
    void formulas_data();
    void formulas();
    void converters();
    void floatRegister();
    void selectorMovesTheAddress();
    void indexedValue();
    void strings();
    void enumeration();
    void commands();
    void rawRegister();
    void texts_data();
    void texts();
};

namespace {
constexpr auto int64Min = std::numeric_limits<std::int64_t>::min();
constexpr auto int64Max = std::numeric_limits<std::int64_t>::max();
} // namespace

void TestGenApiValues::integerRegisters_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<qint64>("min");
    QTest::addColumn<qint64>("max");

    const QByteArray big = "<Endianess>BigEndian</Endianess>";
    const QByteArray sign = "<Sign>Signed</Sign>";
    const auto length = [](int bytes) { return "<Length>" + QByteArray::number(bytes) + "</Length>"; };
    const auto mask = [](int lsb, int msb) {
        return "<LSB>" + QByteArray::number(lsb) + "</LSB><MSB>" + QByteArray::number(msb) + "</MSB>";
    };
    const auto row = [](const char *name, const char *kind, const QByteArray &more, const char *hex, qint64 value,
                        qint64 min, qint64 max) {
        QTest::newRow(name) << QByteArray(kind) << more << QByteArray(hex) << value << min << max;
    };
    row("little", "IntReg", {}, "01020304", 0x04030201, 0, 0xffffffff);
    row("big", "IntReg", big, "01020304", 0x01020304, 0, 0xffffffff);
    row("signed", "IntReg", sign, "feffffff", -2, -0x80000000LL, 0x7fffffff);
    row("one byte signed", "IntReg", length(1) + sign, "80", -128, -128, 127);
    row("three bytes", "IntReg", length(3) + big, "010203", 0x010203, 0, 0xffffff);
    row("64 bit signed minimum", "IntReg", length(8) + sign, "0000000000000080", int64Min, int64Min, int64Max);
    row("64 bit unsigned ends at the type", "IntReg", length(8) + big, "7fffffffffffffff", int64Max, 0, int64Max);
    row("little bits", "MaskedIntReg", mask(4, 11), "f0ab0000", 0xbf, 0, 255);
    row("big bits count from the top", "MaskedIntReg", big + mask(31, 24), "000000a5", 0xa5, 0, 255);
    row("big bits in the other order", "MaskedIntReg", big + mask(0, 7), "a5000000", 0xa5, 0, 255);
    row("masked signed", "MaskedIntReg", sign + mask(0, 3), "0c000000", -4, -8, 7);
    row("one bit", "MaskedIntReg", "<Bit>31</Bit>", "00000080", 1, 0, 1);
    row("all 64 bits", "MaskedIntReg", length(8) + sign + mask(0, 63), "ffffffffffffffff", -1, int64Min, int64Max);
}

void TestGenApiValues::integerRegisters()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, more);
    QFETCH(QByteArray, hex);
    QFETCH(qint64, value);
    QFETCH(qint64, min);
    QFETCH(qint64, max);
    const QByteArray bytes = QByteArray::fromHex(hex);
    Camera camera(reg(kind, "R", 0x10, more) + "<Integer Name='I'><pValue>R</pValue></Integer>");
    camera.port.put(0x10, bytes);
    IInteger &integer = camera.integer("I");
    QCOMPARE(integer.GetValue(), value);
    QCOMPARE(integer.GetMin(), min);
    QCOMPARE(integer.GetMax(), max);
    QCOMPARE(integer.GetInc(), 1);
    QCOMPARE(integer.GetIncMode(), fixedIncrement);
    for (const qint64 limit : {min, max, value}) {
        integer.SetValue(limit);
        camera.map->InvalidateNodes();
        QCOMPARE(integer.GetValue(), limit);
    }
    QCOMPARE(camera.port.bytes(0x10, bytes.size()), bytes);
}

void TestGenApiValues::impossibleRegisters_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("more");
    const auto row = [](const char *name, const char *kind, const char *more) {
        QTest::newRow(name) << QByteArray(kind) << QByteArray(more);
    };
    row("long float", "FloatReg", "<Length>16</Length>");
    row("short float", "FloatReg", "<Length>3</Length>");
    row("long integer", "IntReg", "<Length>9</Length>");
    row("bits behind the register", "MaskedIntReg", "<LSB>40</LSB><MSB>41</MSB>");
    row("negative bit", "MaskedIntReg", "<Bit>-1</Bit>");
    row("bits beyond any number", "MaskedIntReg",
        "<LSB>0x8000000000000000</LSB><MSB>0x7fffffffffffffff</MSB><Endianess>BigEndian</Endianess>");
}

// They fail when they are used as numbers; their bytes may be read, and writes of others over them go through.
void TestGenApiValues::impossibleRegisters()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, more);
    Camera camera(reg(kind, "N", 0, more) + reg("IntReg", "R", 0));
    const CValuePtr value(camera.map->GetNode("N"));
    for (const QString &error : {thrown([&] { value->ToString(); }), thrown([&] { value->FromString("1", false); })})
        QVERIFY2(error.startsWith(QStringLiteral("RuntimeException: Node 'N'")), qPrintable(error));
    auto *raw = camera.get<IRegister>("N");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(raw->GetLength()));
    raw->Get(bytes.data(), raw->GetLength());
    camera.integer("R").SetValue(7);
    QCOMPARE(camera.port.bytes(0, 1), QByteArray("\7"));
    raw->Get(bytes.data(), raw->GetLength());
    QCOMPARE(int(bytes[0]), 7);
}

// The camera says another length each time it is asked, while the buffers were made for one of them.
void TestGenApiValues::lengthThatTheCameraChanges()
{
    const QByteArray length = "<pLength>L</pLength><Length>4</Length>";
    Camera camera(reg("IntReg", "L", 256, "<Cachable>NoCache</Cachable>") + reg("StringReg", "S", 0, length)
                  + reg("Register", "R", 0, length) + reg("IntReg", "I", 0, length) + reg("FloatReg", "F", 0, length));
    bool isLong = false;
    camera.port.onRead = [&](std::int64_t address) {
        if (address == 256)
            camera.port.put(256, std::exchange(isLong, !isLong) ? "\x7f" : "\4");
    };
    for (int i = 0; i < 2; ++i) {
        isLong = i;
        thrown([&] { camera.get<IString>("S")->SetValue(std::string(100, 'x').c_str()); });
        isLong = i;
        std::array<std::uint8_t, 4> buffer{};
        thrown([&] { camera.get<IRegister>("R")->Get(buffer.data(), 4); });
        for (const char *name : {"I", "F"}) {
            isLong = i;
            thrown([&] { camera.get<IValue>(name)->ToString(); });
            isLong = i;
            thrown([&] { camera.get<IValue>(name)->FromString("1"); });
        }
    }
    // Within one write the length is read once, and the whole text fits.
    isLong = true;
    camera.get<IString>("S")->SetValue(std::string(100, 'x').c_str());
    QCOMPARE(camera.port.bytes(0, 101), QByteArray(100, 'x') + '\0');
}

// A limit at which the formula divides by zero bounds nothing.
void TestGenApiValues::limitsBeyondTheFormula()
{
    Camera camera(reg("IntReg", "R", 0, "<Length>2</Length>")
                  + "<Converter Name='C'><FormulaTo>1000/FROM</FormulaTo><FormulaFrom>1000/TO</FormulaFrom>"
                    "<pValue>R</pValue></Converter><IntConverter Name='I'><FormulaTo>1000/FROM</FormulaTo>"
                    "<FormulaFrom>1000/TO</FormulaFrom><pValue>R</pValue></IntConverter>");
    QCOMPARE(camera.real("C").GetMin(), -std::numeric_limits<double>::max());
    QCOMPARE(camera.real("C").GetMax(), std::numeric_limits<double>::max());
    QCOMPARE(camera.integer("I").GetMin(), int64Min);
    QCOMPARE(camera.integer("I").GetMax(), int64Max);
    camera.real("C").SetValue(10);
    QCOMPARE(camera.integer("R").GetValue(), 100);
    camera.integer("I").SetValue(20);
    QCOMPARE(camera.integer("R").GetValue(), 50);
    const QString reason = QStringLiteral("RuntimeException: The formula of node 'C' divides by zero.");
    QCOMPARE(thrown([&] { camera.real("C").SetValue(0); }), reason);
}

void TestGenApiValues::maskedRegisterKeepsItsNeighbours()
{
    Camera camera(reg("MaskedIntReg", "Low", 0, "<LSB>0</LSB><MSB>7</MSB>")
                  + reg("MaskedIntReg", "High", 0, "<LSB>8</LSB><MSB>15</MSB>") + reg("IntReg", "All", 0));
    camera.port.put(0, QByteArray::fromHex("11223344"));
    QCOMPARE(camera.integer("Low").GetValue(), 0x11);
    QCOMPARE(camera.integer("High").GetValue(), 0x22);
    QCOMPARE(camera.integer("All").GetValue(), 0x44332211);
    camera.integer("Low").SetValue(0xaa);
    camera.integer("High").SetValue(0xbb);
    QCOMPARE(camera.port.bytes(0, 4).toHex(), QByteArray("aabb3344"));
    QCOMPARE(camera.integer("Low").GetValue(), 0xaa);
    QCOMPARE(camera.integer("All").GetValue(), 0x4433bbaa);
    camera.integer("All").SetValue(0x01020304);
    QCOMPARE(camera.integer("High").GetValue(), 3);
    QVERIFY(!thrown([&] { camera.integer("Low").SetValue(256); }).isEmpty());
}

void TestGenApiValues::structEntriesShareTheStructure()
{
    Camera camera(
        "<StructReg Comment='S'><Address>0x20</Address><Length>2</Length><AccessMode>RW</AccessMode>"
        "<pPort>Device</pPort><Endianess>BigEndian</Endianess>"
        "<StructEntry Name='A'><Bit>15</Bit></StructEntry>"
        "<StructEntry Name='B'><AccessMode>RO</AccessMode><LSB>7</LSB><MSB>0</MSB></StructEntry></StructReg>");
    camera.port.put(0x20, QByteArray::fromHex("4201"));
    QCOMPARE(camera.integer("A").GetValue(), 1);
    QCOMPARE(camera.integer("B").GetValue(), 0x42);
    QCOMPARE(camera.integer("A").GetAccessMode(), RW);
    QCOMPARE(camera.integer("B").GetAccessMode(), RO);
}

void TestGenApiValues::integerRefusals_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, qint64 value, const char *error) {
        QTest::newRow(name) << value << QString::fromLatin1(error);
    };
    row("minimum", -6, "");
    row("maximum", 4094, "");
    row("above", 5000, "OutOfRangeException: Node 'I': Value 5000 must be smaller than or equal to 4096.");
    row("below", -7, "OutOfRangeException: Node 'I': Value -7 must be greater than or equal to -6.");
    row("between steps", 0,
        "OutOfRangeException: Node 'I': The difference between value 0 and the minimum -6 must be a "
        "multiple of 4.");
    row("far below", int64Min,
        "OutOfRangeException: Node 'I': Value -9223372036854775808 must be greater than or equal to -6.");
}

void TestGenApiValues::integerRefusals()
{
    QFETCH(qint64, value);
    QFETCH(QString, error);
    Camera camera(reg("IntReg", "R", 0, "<Sign>Signed</Sign>") + reg("IntReg", "Max", 8)
                  + "<Integer Name='I'><pValue>R</pValue><Min>-6</Min><pMax>Max</pMax><Inc>4</Inc></Integer>");
    camera.integer("Max").SetValue(4096);
    const int writes = camera.port.writes;
    QCOMPARE(thrown([&] { camera.integer("I").SetValue(value); }), error);
    QCOMPARE(camera.port.writes - writes, error.isEmpty() ? 1 : 0);
}

void TestGenApiValues::verificationIsOptional()
{
    Camera camera("<Integer Name='I'><Value>5</Value><Min>0</Min><Max>9</Max></Integer>");
    camera.integer("I").SetValue(50, false);
    QCOMPARE(camera.integer("I").GetValue(), 50);
    QCOMPARE(thrown([&] { camera.integer("I").GetValue(true); }),
             QStringLiteral("OutOfRangeException: Node 'I': Value 50 lies outside of 0 to 9."));
}

void TestGenApiValues::validValues()
{
    Camera camera("<Integer Name='I'><Value>1</Value><Min>0</Min><Max>9</Max>"
                  "<ValidValueSet>8; 1;0x10;2</ValidValueSet></Integer>"
                  "<Float Name='F'><Value>0.5</Value><ValidValueSet>2.5;0.5</ValidValueSet></Float>"
                  "<Float Name='G'><Value>0</Value></Float><Float Name='H'><Value>0</Value><Inc>0.25</Inc></Float>");
    IInteger &integer = camera.integer("I");
    QCOMPARE(integer.GetIncMode(), listIncrement);
    QCOMPARE(integer.GetListOfValidValues().size(), std::size_t(3));
    QCOMPARE(integer.GetListOfValidValues()[2], 8);
    QCOMPARE(integer.GetListOfValidValues(false)[3], 16);
    QCOMPARE(thrown([&] { integer.SetValue(3); }),
             QStringLiteral("OutOfRangeException: Node 'I': Value 3 is none of the valid values."));
    integer.SetValue(8);
    camera.real("F").SetValue(2.5);
    QVERIFY(!thrown([&] { camera.real("F").SetValue(1); }).isEmpty());
    QCOMPARE(camera.real("F").GetIncMode(), listIncrement);
    QCOMPARE(camera.real("G").GetIncMode(), noIncrement);
    QCOMPARE(camera.real("H").GetIncMode(), fixedIncrement);
    QCOMPARE(camera.real("H").GetInc(), 0.25);
    QCOMPARE(camera.real("G").GetDisplayPrecision(), 6);
}

void TestGenApiValues::formulas_data()
{
    QTest::addColumn<QByteArray>("formula");
    QTest::addColumn<QString>("integer");
    QTest::addColumn<QString>("real");
    const auto row = [](const char *formula, const char *integer, const char *real) {
        QTest::newRow(formula) << QByteArray(formula) << QString::fromLatin1(integer) << QString::fromLatin1(real);
    };
    row("X + 2 * 3 - 1", "12", "12");
    row("X / 2", "3", "3.5");
    row("-X % 4", "-3", "-3");
    row("2 ** 3 ** 2", "512", "512");
    row("(-9223372036854775807 - 1) % -1", "0", "0");
    row("(X > 3) && (X <> 7) || (X = 7)", "1", "1");
    row("(X = 7) ? 1 : 1 / 0", "1", "1");
    row("(X = 0) ? 1 : (X < 7) ? 2 : 3", "3", "3");
    row("1 / (X - 7)", "The formula of node 'N' divides by zero.", "The formula of node 'N' divides by zero.");
    row("0xFFFFFFFFFFFFFFFF & X", "7", "7");
    row("9223372036854775807 - X", "9223372036854775800", "9.223372036854775807e+18");
    row("~X | 1 << 4 ^ 1", "-7", "-7");
    row("X.Max - X.Min + X.Inc", "101", "101");
    row("E.Enum.On * K", "30", "30");
    row("ABS(NEG(X)) + SGN(-3) + TRUNC(2.9)", "8", "8");
    row("ROUND(X / 3, 2) + SQRT(4)", "4", "4.33");
    row("D + 0.5", "3", "3");
    row("Y", "The formula of node 'N' uses 'Y', which is none of its variables.",
        "The formula of node 'N' uses 'Y', which is none of its variables.");
    row("(X", "The formula of node 'N' cannot be understood: ')' is missing at character 3 of '(X'.",
        "The formula of node 'N' cannot be understood: ')' is missing at character 3 of '(X'.");
    row("T60", "1152921504606846976", "1.15292150460684698e18");
    row("S", "The formula of node 'N' cannot be understood: an expression contains itself at character 2 of 'S'.",
        "The formula of node 'N' cannot be understood: an expression contains itself at character 2 of 'S'.");
}

// The decimal comma of a German user must not reach a formula.
void TestGenApiValues::formulas()
{
    QFETCH(QByteArray, formula);
    QFETCH(QString, integer);
    QFETCH(QString, real);
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    formula.replace('&', "&amp;").replace('<', "&lt;");
    QByteArray doubled = "<Constant Name='T0'>1</Constant>";
    for (int i = 1; i <= 60; ++i) {
        const QByteArray below = "T" + QByteArray::number(i - 1);
        doubled += "<Expression Name='T" + QByteArray::number(i) + "'>" + below + '+' + below + "</Expression>";
    }
    const QByteArray body = "<pVariable Name='X'>V</pVariable><pVariable Name='X.Max'>V</pVariable>"
                            "<pVariable Name='X.Min'>V</pVariable><pVariable Name='X.Inc'>V</pVariable>"
                            "<pVariable Name='E.Enum.On'>E</pVariable><pVariable Name='D'>D</pVariable>"
                            "<Constant Name='K'>10</Constant><Expression Name='S'>S</Expression>"
        + doubled + "<Formula>" + formula + "</Formula>";
    const QByteArray nodes = "<Integer Name='V'><Value>7</Value><Min>0</Min><Max>100</Max></Integer>"
                             "<Float Name='D'><Value>2.5</Value></Float>"
                             "<Enumeration Name='E'><EnumEntry Name='On'><Value>3</Value></EnumEntry><Value>3</Value>"
                             "</Enumeration>";
    Camera whole(nodes + "<IntSwissKnife Name='N'>" + body + "</IntSwissKnife>");
    Camera broken(nodes + "<SwissKnife Name='N'>" + body + "</SwissKnife>");
    QString result;
    QString error = thrown([&] { result = QString::number(whole.integer("N").GetValue()); });
    QCOMPARE(error.isEmpty() ? result : error.section(QStringLiteral(": "), 1), integer);
    double number = 0;
    error = thrown([&] { number = broken.real("N").GetValue(); });
    if (error.isEmpty())
        QCOMPARE(number, real.toDouble());
    else
        QCOMPARE(error.section(QStringLiteral(": "), 1), real);
    std::setlocale(LC_NUMERIC, "C");
}

void TestGenApiValues::converters()
{
    Camera camera(reg("IntReg", "R", 0, "<Length>2</Length>") + "<Integer Name='Scale'><Value>4</Value></Integer>"
                  + "<IntConverter Name='I'><pVariable Name='S'>Scale</pVariable><FormulaTo>FROM/S</FormulaTo>"
                    "<FormulaFrom>TO*S</FormulaFrom><pValue>R</pValue></IntConverter>"
                    "<Converter Name='C'><FormulaTo>1000/FROM</FormulaTo><FormulaFrom>1000/(TO+1)</FormulaFrom>"
                    "<pValue>R</pValue><Slope>Decreasing</Slope></Converter>");
    camera.integer("I").SetValue(400);
    QCOMPARE(camera.port.bytes(0, 2).toHex(), QByteArray("6400"));
    QCOMPARE(camera.integer("I").GetValue(), 400);
    QCOMPARE(camera.integer("I").GetMax(), 65535 * 4);
    camera.integer("Scale").SetValue(2);
    QCOMPARE(camera.integer("I").GetValue(), 200);
    QCOMPARE(camera.integer("I").GetMax(), 65535 * 2);
    QCOMPARE(camera.real("C").GetMax(), 1000.0);
    QCOMPARE(camera.real("C").GetMin(), 1000.0 / 65536);
    camera.real("C").SetValue(10.03);
    QCOMPARE(camera.port.bytes(0, 2).toHex(), QByteArray("6400"));
    QVERIFY(thrown([&] { camera.real("C").SetValue(1001); }).startsWith(QStringLiteral("OutOfRangeException")));
    QVERIFY(thrown([&] { camera.real("C").SetValue(qQNaN()); }).startsWith(QStringLiteral("OutOfRangeException")));
}

void TestGenApiValues::floatRegister()
{
    Camera camera(reg("FloatReg", "F", 0, "<Endianess>BigEndian</Endianess>")
                  + reg("FloatReg", "D", 8, "<Length>8</Length>") + reg("FloatReg", "Odd", 24, "<Length>3</Length>"));
    camera.real("F").SetValue(1.5);
    QCOMPARE(camera.port.bytes(0, 4).toHex(), QByteArray("3fc00000"));
    camera.real("D").SetValue(-2.0);
    QCOMPARE(camera.port.bytes(8, 8).toHex(), QByteArray("00000000000000c0"));
    QCOMPARE(camera.real("F").GetMax(), double(std::numeric_limits<float>::max()));
    QVERIFY(thrown([&] { camera.real("Odd").GetValue(); }).startsWith(QStringLiteral("RuntimeException")));
}

void TestGenApiValues::selectorMovesTheAddress()
{
    Camera camera("<Enumeration Name='Sel'><EnumEntry Name='A'><Value>0</Value></EnumEntry>"
                  "<EnumEntry Name='B'><Value>1</Value></EnumEntry><Value>0</Value><pSelected>Gain</pSelected>"
                  "</Enumeration><Integer Name='Gain'><pValue>R</pValue></Integer>"
                  "<Integer Name='Base'><Value>0x100</Value></Integer>"
                  + reg("IntReg", "R", 0x1000, "<pAddress>Base</pAddress><pIndex Offset='16'>Sel</pIndex>"));
    camera.port.put(0x1100, "\x05");
    camera.port.put(0x1110, "\x06");
    QCOMPARE(camera.integer("Gain").GetValue(), 5);
    camera.get<IEnumeration>("Sel")->SetIntValue(1);
    QCOMPARE(camera.integer("Gain").GetValue(), 6);
    camera.integer("Gain").SetValue(9);
    QCOMPARE(camera.port.bytes(0x1110, 1).toHex(), QByteArray("09"));
    QCOMPARE(camera.port.bytes(0x1100, 1).toHex(), QByteArray("05"));
    QCOMPARE(camera.get<IRegister>("R")->GetAddress(), 0x1110);
    FeatureList_t features;
    camera.get<ISelector>("Gain")->GetSelectingFeatures(features);
    QCOMPARE(features, FeatureList_t{camera.get<IValue>("Sel")});
    camera.get<ISelector>("Sel")->GetSelectedFeatures(features);
    QCOMPARE(features, FeatureList_t{camera.get<IValue>("Gain")});
}

void TestGenApiValues::indexedValue()
{
    Camera camera("<Integer Name='Index'><Value>0</Value></Integer>" + reg("IntReg", "R", 0)
                  + "<Integer Name='I'><pIndex>Index</pIndex><pValueIndexed Index='0'>R</pValueIndexed>"
                    "<ValueIndexed Index='1'>21</ValueIndexed><ValueDefault>-1</ValueDefault></Integer>");
    camera.integer("I").SetValue(77);
    QCOMPARE(camera.port.bytes(0, 1), QByteArray("M"));
    camera.integer("Index").SetValue(1);
    QCOMPARE(camera.integer("I").GetValue(), 21);
    camera.integer("I").SetValue(22);
    QCOMPARE(camera.integer("I").GetValue(), 22);
    camera.integer("Index").SetValue(2);
    QCOMPARE(camera.integer("I").GetValue(), -1);
    QCOMPARE(camera.port.writes, 1);
}

void TestGenApiValues::strings()
{
    Camera camera(reg("StringReg", "R", 0, "<Length>8</Length>") + "<String Name='S'><pValue>R</pValue></String>");
    auto *text = camera.get<IString>("S");
    camera.port.put(0, QByteArray("abc\0defg", 8));
    QCOMPARE(text->GetValue().c_str(), "abc");
    QCOMPARE(text->GetMaxLength(), 8);
    text->SetValue("12345678");
    camera.map->InvalidateNodes();
    QCOMPARE(text->GetValue().c_str(), "12345678");
    text->SetValue("x");
    QCOMPARE(camera.port.bytes(0, 8), QByteArray("x\0\0\0\0\0\0\0", 8));
    text->SetValue(gcstring("a\0b", 3));
    QCOMPARE(text->GetValue().c_str(), "a");
    QCOMPARE(thrown([&] { text->SetValue("123456789"); }),
             QStringLiteral("OutOfRangeException: Node 'S': a text of 9 bytes is longer than the 8 allowed."));
}

void TestGenApiValues::enumeration()
{
    Camera camera(reg("IntReg", "R", 0)
                  + "<Enumeration Name='E'><EnumEntry Name='Off'><Value>1</Value></EnumEntry>"
                    "<EnumEntry Name='On'><Value>0x2</Value><Symbolic>Running</Symbolic></EnumEntry>"
                    "<EnumEntry Name='Gone'><Value>3</Value><pIsAvailable>Never</pIsAvailable></EnumEntry>"
                    "<pValue>R</pValue></Enumeration><Integer Name='Never'><Value>0</Value></Integer>");
    auto *mode = camera.get<IEnumeration>("E");
    QCOMPARE(
        thrown([&] { mode->ToString(); }),
        QStringLiteral("OutOfRangeException: Node 'E': the device holds the value 0, which is none of the entries."));
    QVERIFY(!mode->GetCurrentEntry());
    mode->FromString("Running");
    QCOMPARE(mode->GetIntValue(), 2);
    QCOMPARE(mode->GetCurrentEntry(), camera.get<IEnumEntry>("EnumEntry_E_On"));
    QCOMPARE(mode->ToString().c_str(), "Running");
    QCOMPARE(thrown([&] { mode->FromString("On"); }),
             QStringLiteral("InvalidArgumentException: Node 'E' has no entry 'On'."));
    QCOMPARE(thrown([&] { mode->SetIntValue(9, false); }),
             QStringLiteral("InvalidArgumentException: Node 'E' has no entry of the value 9."));
    QCOMPARE(thrown([&] { mode->SetIntValue(3); }),
             QStringLiteral("AccessException: Node 'E': the entry 'Gone' is not available."));
    mode->SetIntValue(3, false);
    QCOMPARE(mode->ToString().c_str(), "Gone");
    NodeList_t entries;
    mode->GetEntries(entries);
    QCOMPARE(entries.size(), std::size_t(3));
    QCOMPARE(entries[2]->GetAccessMode(), NA);
}

void TestGenApiValues::commands()
{
    Camera camera(reg("IntReg", "R", 0)
                  + "<Command Name='C'><pValue>R</pValue><CommandValue>5</CommandValue></Command>");
    auto *command = camera.get<ICommand>("C");
    QCOMPARE(command->GetAccessMode(), WO);
    QVERIFY(command->IsDone());
    command->Execute();
    QCOMPARE(camera.port.bytes(0, 1), QByteArray("\x05"));
    QVERIFY(!command->IsDone());
    // The device takes the value back by itself, so nothing of the write is kept.
    command->Execute();
    camera.port.put(0, QByteArray(4, '\0'));
    QCOMPARE(camera.integer("R").GetValue(), 0);
    QVERIFY(command->IsDone());
}

void TestGenApiValues::rawRegister()
{
    Camera camera(reg("Register", "R", 0));
    auto *raw = camera.get<IRegister>("R");
    const std::uint8_t bytes[] = {0xde, 0xad, 0xbe, 0xef};
    raw->Set(bytes, 4);
    QCOMPARE(raw->ToString().c_str(), "0xdeadbeef");
    raw->FromString("01020304");
    QCOMPARE(camera.port.bytes(0, 4).toHex(), QByteArray("01020304"));
    QVERIFY(thrown([&] { raw->Set(bytes, 3); }).startsWith(QStringLiteral("InvalidArgumentException")));
    QVERIFY(thrown([&] { raw->FromString("0x0102zz04"); }).startsWith(QStringLiteral("InvalidArgumentException")));
}

void TestGenApiValues::texts_data()
{
    QTest::addColumn<QByteArray>("node");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("shown");
    const auto row = [](const char *name, const QByteArray &node, const char *text, const char *shown) {
        QTest::newRow(name) << node << QByteArray(text) << QByteArray(shown);
    };
    const auto integer = [](const char *representation) {
        return QByteArray("<Integer Name='N'><Value>0</Value><Representation>") + representation
            + "</Representation></Integer>";
    };
    const QByteArray real = "<Float Name='N'><Value>0</Value></Float>";
    const QByteArray boolean = "<Boolean Name='N'><Value>0</Value></Boolean>";
    row("decimal", integer("PureNumber"), " -12 ", "-12");
    row("hexadecimal", integer("HexNumber"), "255", "0xFF");
    row("address", integer("IPV4Address"), "192.168.0.1", "192.168.0.1");
    row("MAC", integer("MACAddress"), "00:11:aa:bb:cc:dd", "00:11:AA:BB:CC:DD");
    row("no integer", integer("PureNumber"), "12a", nullptr);
    row("address group too large", integer("IPV4Address"), "1.2.3.256", nullptr);
    row("beyond 64 bits", integer("PureNumber"), "9223372036854775808", nullptr);
    row("real", real, "1.25e-3", "0.00125");
    row("decimal comma", real, "1,5", nullptr);
    row("true", boolean, "1", "true");
    row("false", boolean, "false", "false");
    row("maybe", boolean, "maybe", nullptr);
}

void TestGenApiValues::texts()
{
    QFETCH(QByteArray, node);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, shown);
    Camera camera(node);
    auto *value = camera.get<IValue>("N");
    const QString error = thrown([&] { value->FromString(text.constData()); });
    if (shown.isNull())
        QVERIFY2(error.startsWith(QStringLiteral("InvalidArgumentException: ")), qPrintable(error));
    else
        QCOMPARE(QByteArray(value->ToString().c_str()), shown);
}

QTEST_APPLESS_MAIN(TestGenApiValues)
#include "tst_genapi_values.moc"
