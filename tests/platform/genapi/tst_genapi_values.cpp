// Registers that cannot be, formulas, and the calls behind the texts.
#include "memoryport.h"

#include <datarow.h>

#include <array>
#include <clocale>

using namespace GenApi;
using namespace MoxTest;

class TestGenApiValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void impossibleRegisters_data();
    void impossibleRegisters();
    void lengthThatTheCameraChanges();
    void formulas_data();
    void formulas();
    void numbers();
    void choices();
};

void TestGenApiValues::impossibleRegisters_data()
{
    columns<QByteArray>("node");
    row("long float", "FloatReg N @0 Length=16");
    row("long integer", "IntReg N @0 Length=9");
    row("bits behind the register", "MaskedIntReg N @0 LSB=40 MSB=41");
    row("bits beyond any number",
        "MaskedIntReg N @0 LSB=0x8000000000000000 MSB=0x7fffffffffffffff Endianess=BigEndian");
}

// They fail when they are used as numbers; their bytes may be read, and writes of others over them go through.
void TestGenApiValues::impossibleRegisters()
{
    QFETCH(QByteArray, node);
    Camera camera(node + "; IntReg R @0");
    const QByteArray error = " ! RuntimeException: Node 'N'";
    QCOMPARE(camera.run("N==" + error + "; N:=1" + error), QString());
    auto *raw = camera.get<IRegister>("N");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(raw->GetLength()));
    raw->Get(bytes.data(), raw->GetLength());
    QCOMPARE(camera.run("R=7; @0==07"), QString());
    raw->Get(bytes.data(), raw->GetLength());
    QCOMPARE(int(bytes[0]), 7);
}

// The camera says another length each time it is asked, while the buffers were made for one of them.
void TestGenApiValues::lengthThatTheCameraChanges()
{
    Camera camera("IntReg L @100 Cachable=NoCache; StringReg S @0 pLength=L; Register R @0 pLength=L; "
                  "IntReg I @0 pLength=L; FloatReg F @0 pLength=L");
    bool isLong = false;
    camera.port.onRead = [&](std::int64_t address) {
        if (address == 0x100)
            camera.port.put(0x100, std::exchange(isLong, !isLong) ? "\x7f" : "\4");
    };
    const QByteArray text(100, 'x');
    std::array<std::uint8_t, 4> buffer{};
    for (const bool first : {false, true}) {
        for (const QByteArray &step : {"S=" + text, QByteArray("I=="), QByteArray("I=1"), QByteArray("F==")}) {
            isLong = first;
            camera.run(step);
        }
        isLong = first;
        thrown([&] { camera.get<IRegister>("R")->Get(buffer.data(), 4); });
    }
    // Within one write the length is read once, and the whole text fits.
    isLong = true;
    QCOMPARE(camera.run("S=" + text), QString());
    QCOMPARE(camera.port.bytes(0, 101), text + '\0');
}

void TestGenApiValues::formulas_data()
{
    columns<QByteArray, QByteArray, QByteArray>("formula", "integer", "real");
    const auto row = [](const char *formula, const char *integer, const char *real) {
        MoxTest::row(formula, formula, integer, real);
    };
    const auto fails = [&row](const char *formula, const char *error) { row(formula, error, error); };
    row("X / 2", "3", "3.5");
    row("-X % 4", "-3", "-3");
    row("2 ** 3 ** 2", "512", "512");
    row("(-9223372036854775807 - 1) % -1", "0", "0");
    row("(X = 7) ? 1 : 1 / 0", "1", "1");
    row("0xFFFFFFFFFFFFFFFF & X", "7", "7");
    row("9223372036854775807 - X", "9223372036854775800", "9223372036854775808");
    row("~X | 1 << 4 ^ 1", "-7", "-7");
    row("X.Max - X.Min + X.Inc", "101", "101");
    row("ABS(NEG(X)) + SGN(-3) + TRUNC(2.9)", "8", "8");
    row("ROUND(X / 3, 2) + SQRT(4)", "4", "4.33");
    row("T60", "1152921504606846976", "1152921504606846976");
    fails("1 / (X - 7)", "The formula of node 'N' divides by zero.");
    fails("Y", "The formula of node 'N' uses 'Y', which is none of its variables.");
    fails("(X", "The formula of node 'N' cannot be understood: ')' is missing at character 3 of '(X'.");
    fails("S", "The formula of node 'N' cannot be understood: an expression contains itself at character 2 of 'S'.");
}

// The decimal comma of a German user must not reach a formula.
void TestGenApiValues::formulas()
{
    QFETCH(QByteArray, formula);
    QFETCH(QByteArray, integer);
    QFETCH(QByteArray, real);
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    QByteArray body =
        "<pVariable Name='X'>V</pVariable><pVariable Name='X.Max'>V</pVariable>"
        "<pVariable Name='X.Min'>V</pVariable><pVariable Name='X.Inc'>V</pVariable>"
        "<pVariable Name='E.Enum.On'>E</pVariable><pVariable Name='D'>D</pVariable>"
        "<Constant Name='K'>10</Constant><Expression Name='S'>S</Expression><Constant Name='T0'>1</Constant>";
    for (int i = 1; i <= 60; ++i) {
        const QByteArray below = "T" + QByteArray::number(i - 1);
        body += "<Expression Name='T" + QByteArray::number(i) + "'>" + below + '+' + below + "</Expression>";
    }
    body += "<Formula><![CDATA[" + formula + "]]></Formula>";
    const QByteArray variables =
        "Integer V Value=7 Min=0 Max=100; Float D Value=2.5; Enumeration E Entry.On=3 Value=3; ";
    Camera whole(variables + "<IntSwissKnife Name='N'>" + body + "</IntSwissKnife>");
    Camera broken(variables + "<SwissKnife Name='N'>" + body + "</SwissKnife>");
    const auto script = [](const QByteArray &expected) {
        return expected.startsWith("The") ? "N== ! RuntimeException: " + expected : "N==" + expected;
    };
    QCOMPARE(whole.run(script(integer)), QString());
    QCOMPARE(broken.run(script(real)), QString());
    std::setlocale(LC_NUMERIC, "C");
}

void TestGenApiValues::numbers()
{
    Camera camera("Integer I Value=50 Min=0 Max=9 ValidValueSet=8;1;0x10;2; Float F Value=0.5 ValidValueSet=2.5;0.5; "
                  "IntReg R @1000 pIndex.16=I; Register Raw @0; "
                  "Converter C FormulaTo=FROM*2 FormulaFrom=TO/2 pValue=R; StringReg S @10 Length=8");
    IInteger &integer = camera.integer("I");
    QCOMPARE(thrown([&] { integer.GetValue(true); }),
             QStringLiteral("OutOfRangeException: Node 'I': Value 50 lies outside of 0 to 9."));
    QCOMPARE(integer.GetListOfValidValues().size(), std::size_t(3));
    QCOMPARE(integer.GetListOfValidValues()[2], 8);
    QCOMPARE(integer.GetListOfValidValues(false)[3], 16);
    for (const char *name : {"C", "R"}) {
        auto *value = camera.get<IValue>(name);
        value->ToString();
        QVERIFY(value->IsValueCacheValid());
        value->GetNode()->InvalidateNode();
        QVERIFY(!value->IsValueCacheValid());
    }
    QVERIFY(thrown([&] { camera.real("C").SetValue(qQNaN()); }).startsWith(QStringLiteral("OutOfRangeException")));

    const std::uint8_t bytes[] = {0xde, 0xad, 0xbe, 0xef};
    camera.get<IRegister>("Raw")->Set(bytes, 4);
    QCOMPARE(camera.run("Raw==0xdeadbeef"), QString());
    QVERIFY(thrown([&] { camera.get<IRegister>("Raw")->Set(bytes, 3); }).startsWith(QStringLiteral("InvalidArgument")));
    auto *text = camera.get<IString>("S");
    text->SetValue(gcstring("a\0b", 3));
    QCOMPARE(text->GetValue().c_str(), "a");
}

void TestGenApiValues::choices()
{
    Camera camera("IntReg R @0; Enumeration E Entry.Off=1 Entry.On=2 pValue=R pSelected=Gain; Integer Gain Value=1; "
                  "Command C pValue=R CommandValue=5");
    auto *mode = camera.get<IEnumeration>("E");
    QVERIFY(!mode->GetCurrentEntry());
    mode->SetIntValue(2);
    QCOMPARE(mode->GetIntValue(), 2);
    QCOMPARE(mode->GetCurrentEntry(), camera.get<IEnumEntry>("EnumEntry_E_On"));
    QCOMPARE(thrown([&] { mode->SetIntValue(9, false); }),
             QStringLiteral("InvalidArgumentException: Node 'E' has no entry of the value 9."));
    FeatureList_t features;
    camera.get<ISelector>("E")->GetSelectedFeatures(features);
    QCOMPARE(features, FeatureList_t{camera.get<IValue>("Gain")});

    auto *command = camera.get<ICommand>("C");
    QVERIFY(command->IsDone());
    command->Execute();
    QCOMPARE(camera.run("@0==05000000"), QString());
    QVERIFY(!command->IsDone());
    // The device takes the value back by itself, so nothing of the write is kept.
    command->Execute();
    QCOMPARE(camera.run("@0=00000000; R==0"), QString());
    QVERIFY(command->IsDone());
}

QTEST_APPLESS_MAIN(TestGenApiValues)
#include "tst_genapi_values.moc"
