// The descriptions of the three models: complete, consistent, and true about the firmware behind them.
#include "../featurescript.h"
#include "bench.h"

#include <testmain.h>

#include <arv.h>

#include <QSet>
#include <QXmlStreamReader>

using namespace GenApi_3_0;
using MoxSim::Model;
using MoxTest::Bench;

Q_DECLARE_METATYPE(MoxSim::Model)

namespace {

QString text(const gcstring &from)
{
    return QString::fromUtf8(from.c_str());
}

/** What a user sees of a feature now. */
QString appearance(IValue *feature)
{
    const EAccessMode mode = feature->GetAccessMode();
    QString result = QString::number(mode);
    if (!IsReadable(mode))
        return result;
    result += QLatin1Char(' ') + text(feature->ToString());
    if (dynamic_cast<IInteger *>(feature) || dynamic_cast<IFloat *>(feature))
        result += QLatin1Char(' ') + MoxTest::limits(feature);
    if (auto *enumeration = dynamic_cast<IEnumeration *>(feature)) {
        NodeList_t entries;
        enumeration->GetEntries(entries);
        for (INode *entry : entries)
            result += QStringLiteral(" %1").arg(entry->GetAccessMode());
    }
    return result;
}

QStringList appearances(const std::vector<IValue *> &features)
{
    QStringList result;
    for (IValue *feature : features)
        result += text(feature->GetNode()->GetName()) + QLatin1Char(' ') + appearance(feature);
    return result;
}

/** Values to try on a feature: all entries, both states, both limits and what lies between. */
std::vector<std::function<void()>> attempts(IValue *feature)
{
    std::vector<std::function<void()>> result;
    if (auto *enumeration = dynamic_cast<IEnumeration *>(feature)) {
        NodeList_t entries;
        enumeration->GetEntries(entries);
        for (INode *entry : entries) {
            if (IsAvailable(entry->GetAccessMode()))
                result.push_back([=] { enumeration->SetIntValue(dynamic_cast<IEnumEntry *>(entry)->GetValue()); });
        }
    } else if (auto *boolean = dynamic_cast<IBoolean *>(feature)) {
        result.push_back([=] { boolean->SetValue(!boolean->GetValue()); });
    } else if (auto *command = dynamic_cast<ICommand *>(feature)) {
        result.push_back([=] { command->Execute(); });
    } else if (auto *real = dynamic_cast<IFloat *>(feature)) {
        result.push_back([=] { real->SetValue(real->GetMax()); });
        result.push_back([=] { real->SetValue(real->GetMin()); });
    } else if (auto *integer = dynamic_cast<IInteger *>(feature)) {
        result.push_back([=] {
            const auto list = integer->GetListOfValidValues();
            const std::int64_t steps = (integer->GetMax() - integer->GetMin()) / integer->GetInc();
            integer->SetValue(list.size() ? list[list.size() - 1] : integer->GetMin() + steps * integer->GetInc());
        });
        result.push_back([=] { integer->SetValue(integer->GetMin()); });
    }
    return result;
}

} // namespace

class TestDescriptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsInAravis_data() { models(); }
    void loadsInAravis();
    void referencesResolve_data() { models(); }
    void referencesResolve();
    void everyFeatureIsSound_data() { models(); }
    void everyFeatureIsSound();
    void cachesFollowTheFirmware_data() { models(); }
    void cachesFollowTheFirmware();

private:
    static void models()
    {
        QTest::addColumn<Model>("model");
        QTest::newRow("frame A/B") << Model::FrameAB;
        QTest::newRow("plain") << Model::Plain;
        QTest::newRow("color") << Model::Color;
    }
};

// CTest fails it for what Aravis complains of.
void TestDescriptions::loadsInAravis()
{
    QFETCH(Model, model);
    const std::string xml = MoxSim::description(model);
    arv_debug_enable("genicam:2,dom:2");
    ArvGc *genicam = arv_gc_new(nullptr, xml.data(), xml.size());
    QVERIFY(genicam && arv_gc_get_node(genicam, "Root") && arv_gc_get_node(genicam, "Width"));
    g_clear_object(&genicam);
}

void TestDescriptions::referencesResolve()
{
    QFETCH(Model, model);
    const QStringList kinds = QStringLiteral("Category Integer IntReg MaskedIntReg StructReg StructEntry IntConverter "
                                             "IntSwissKnife Float FloatReg Converter SwissKnife Boolean Command String "
                                             "StringReg Enumeration EnumEntry Register Port")
                                  .split(QLatin1Char(' '));
    QSet<QString> names;
    QSet<QString> references;
    QSet<QString> tags;
    QXmlStreamReader reader(QByteArray::fromStdString(MoxSim::description(model)));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString tag = reader.name().toString();
        tags += tag;
        if (kinds.contains(tag) && tag != QLatin1String("EnumEntry") && tag != QLatin1String("StructReg")) {
            const QString name = reader.attributes().value(QLatin1String("Name")).toString();
            QVERIFY2(!names.contains(name), qPrintable(name));
            names += name;
        } else if (tag.at(0) == QLatin1Char('p') && tag.at(1).isUpper()) {
            references += reader.readElementText();
        }
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QCOMPARE(references - names, QSet<QString>());
    for (const QString &kind : kinds)
        QVERIFY2(tags.contains(kind), qPrintable(kind));
}

void TestDescriptions::everyFeatureIsSound()
{
    QFETCH(Model, model);
    Bench bench(model);
    // What the camera that stands around a firmware fills in.
    bench.firmware.registers().setInteger("LinkSpeedReg", 8);
    const std::vector<IValue *> all = bench.features();
    QSet<QString> displayNames;
    QSet<int> modes;
    for (IValue *feature : all) {
        INode *node = feature->GetNode();
        const QString name = text(node->GetName());
        const auto why = [&](const char *what) { return name.toUtf8() + ": " + what; };
        QVERIFY2(!node->GetToolTip().empty() && !node->GetDescription().empty(), why("has no text"));
        QVERIFY2(!displayNames.contains(text(node->GetDisplayName())), why("shares its display name"));
        displayNames += text(node->GetDisplayName());
        const EAccessMode mode = feature->GetAccessMode();
        modes += mode;
        if (!IsReadable(mode))
            continue;
        feature->ToString();
        if (auto *integer = dynamic_cast<IInteger *>(feature)) {
            const std::int64_t value = integer->GetValue();
            QVERIFY2(integer->GetMin() <= value && value <= integer->GetMax(), why("lies outside its limits"));
            const std::int64_t step = integer->GetInc();
            // Without a step the limits may be those of the type, whose distance is no number.
            QVERIFY2(step == 1 || (value - integer->GetMin()) % step == 0, why("lies between its steps"));
        } else if (auto *real = dynamic_cast<IFloat *>(feature)) {
            QVERIFY2(real->GetMin() <= real->GetValue() && real->GetValue() <= real->GetMax(), why("out of limits"));
        } else if (auto *enumeration = dynamic_cast<IEnumeration *>(feature)) {
            QVERIFY2(enumeration->GetCurrentEntry(), why("holds no entry"));
            QVERIFY2(IsAvailable(enumeration->GetCurrentEntry()), why("holds an entry that is not available"));
        }
    }
    QCOMPARE(modes, (QSet<int>{NI, NA, WO, RO, RW}));
}

// Writes everything that can be written and compares what the caches say with what the camera says: a difference is a
// missing invalidator.
void TestDescriptions::cachesFollowTheFirmware()
{
    QFETCH(Model, model);
    Bench bench(model);
    bench.firmware.registers().setInteger("LinkSpeedReg", 8);
    const std::vector<IValue *> all = bench.features();
    int written = 0;
    QStringList faults;
    appearances(all); // fills the caches; later on the comparison does
    // A second round meets what the first one made available.
    for (int round = 0; round < 2; ++round) {
        for (IValue *feature : all) {
            if (!IsWritable(feature->GetAccessMode()))
                continue;
            for (const auto &attempt : attempts(feature)) {
                if (!IsWritable(feature->GetAccessMode()))
                    break;
                attempt();
                ++written;
                const QStringList cached = appearances(all);
                bench.map->InvalidateNodes();
                const QStringList fresh = appearances(all);
                for (int i = 0; i < cached.size(); ++i) {
                    if (cached.at(i) != fresh.at(i))
                        faults += text(feature->GetNode()->GetName()) + QLatin1String(" leaves ") + cached.at(i)
                            + QLatin1String(" for ") + fresh.at(i);
                }
            }
        }
    }
    QVERIFY(written > 250);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

MOX_TEST_MAIN(TestDescriptions)
#include "tst_descriptions.moc"
