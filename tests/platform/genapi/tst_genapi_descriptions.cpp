// Descriptions good and bad, and the calls behind the texts of features.
#include "memoryport.h"

#include <array>

using namespace GenApi;
using namespace MoxTest;

class TestGenApiDescriptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void broken()
    {
        MemoryPort port;
        const auto read = [&](const QByteArray &text) {
            return thrown([&] { MoxGenApi::createNodeMap(text.toStdString(), port, "camera"); });
        };
        for (const auto &[text, reason] :
             {std::pair(QByteArray("Width=5"), "is empty or is not XML."),
              std::pair(QByteArray("<RegisterDescription>\0\0", 23), "is not well-formed XML: line 1: "),
              std::pair(QByteArray("<html/>"), "has no RegisterDescription; it begins with 'html'."),
              std::pair(QByteArray("<RegisterDescription><Integer Name='Root'/></RegisterDescription>"),
                        "has no category named Root.")}) {
            const QString error = read(text);
            QVERIFY2(
                error.startsWith(QLatin1String("RuntimeException: The device description ") + QLatin1String(reason)),
                qPrintable(error));
        }
        // Every cut is refused, but that of the line's end.
        const QByteArray text = "Made by hand\n<?xml version='1.0'?><!-- <Root> --><RegisterDescription>"
                                "<Group Comment='g'><Category Name='Root'><pFeature>I</pFeature></Category></Group>"
                                "<Integer Name='I'><Value>5</Value></Integer></RegisterDescription>\n";
        int good = 0;
        for (int size = 0; size <= text.size(); ++size)
            good += read(text.left(size)).isEmpty();
        QCOMPARE(good, 2);
        QCOMPARE(port.reads + port.writes, 0);
    }

    // What a description says of a node, what it gets from below, and what it is when nothing is said.
    void facts()
    {
        Camera camera("<Float Name='Full' NameSpace='Standard'><Visibility>Expert</Visibility><ImposedVisibility>Guru"
                      "</ImposedVisibility><Streamable>Yes</Streamable><IsDeprecated>Yes</IsDeprecated><Value>1</Value>"
                      "<Unit>us</Unit><Representation>Logarithmic</Representation></Float>; Float Above pValue=Full; "
                      "<Integer Name='I'><Value>0x7f</Value><EnumEntry Name='A'><Value>1</Value></EnumEntry></Integer>",
                      "Full");
        INode *node = camera.map->GetNode("Std::Full");
        INode *plain = camera.map->GetNode("I");
        QVERIFY(node && node == camera.map->GetNode("Full") && !camera.map->GetNode("Gone"));
        QCOMPARE(node->GetName(true).c_str(), "Std::Full");
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
    void bareNodes()
    {
        for (const char *kind : {"Category", "Integer", "IntReg", "MaskedIntReg", "IntConverter", "IntSwissKnife",
                                 "Float", "FloatReg", "Converter", "SwissKnife", "Boolean", "Command", "String",
                                 "StringReg", "Enumeration", "Register", "Port"}) {
            Camera camera('<' + QByteArray(kind) + " Name='N'/>");
            const CValuePtr value(camera.map->GetNode("N"));
            QVERIFY2(value.IsValid() && CSelectorPtr(value).IsValid(), kind);
            thrown([&] { value->ToString(); });
            thrown([&] { value->FromString("1"); });
        }
    }

    void categories()
    {
        Camera camera("Category A pFeature=I pFeature=B pFeature=A; Category B pFeature=Root pFeature=A pFeature=I; "
                      "Integer I Value=1",
                      "Gone I A I");
        for (const auto &[name, expected] : {std::pair("Root", "IAI"), std::pair("A", "IB"), std::pair("B", "I")}) {
            FeatureList_t features;
            camera.get<ICategory>(name)->GetFeatures(features);
            QByteArray names;
            for (IValue *feature : features)
                names += feature->GetNode()->GetName().c_str();
            QCOMPARE(names, QByteArray(expected));
        }
    }

    // The camera says another length each time it is asked, while the buffers were made for one of them.
    void lengthThatTheCameraChanges()
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

    void values()
    {
        Camera camera(
            "Integer I Value=50 Min=0 Max=9 ValidValueSet=8;1;0x10;2; IntReg R @1000 pIndex.16=I; "
            "Register Raw @0; Converter C FormulaTo=FROM*2 FormulaFrom=TO/2 pValue=R; StringReg S @10 Length=8");
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
        auto *raw = camera.get<IRegister>("Raw");
        raw->Set(bytes, 4);
        QCOMPARE(camera.run("Raw==0xdeadbeef"), QString());
        QVERIFY(thrown([&] { raw->Set(bytes, 3); }).startsWith(QStringLiteral("InvalidArgument")));
        auto *text = camera.get<IString>("S");
        text->SetValue(gcstring("a\0b", 3));
        QCOMPARE(text->GetValue().c_str(), "a");
    }

    void choices()
    {
        Camera camera("IntReg R @0; Enumeration E Entry.Off=1 Entry.On=2 pValue=R pSelected=Gain; "
                      "Integer Gain Value=1; Command C pValue=R CommandValue=5");
        auto *mode = camera.get<IEnumeration>("E");
        QVERIFY(!mode->GetCurrentEntry());
        mode->SetIntValue(2);
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
        QCOMPARE(camera.run("@0=00000000"), QString());
        QVERIFY(command->IsDone());
        // The device takes the value back by itself, so nothing of the write is kept.
        command->Execute();
        QCOMPARE(camera.run("@0=00000000; R==0"), QString());
        QVERIFY(command->IsDone());
    }
};

QTEST_APPLESS_MAIN(TestGenApiDescriptions)
#include "tst_genapi_descriptions.moc"
