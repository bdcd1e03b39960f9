// The descriptions of the three models: complete, consistent, and true about the firmware behind them.
#include "../featurescript.h"
#include "bench.h"

#include <datarow.h>
#include <testmain.h>

#include <arv.h>

#include <QSet>
#include <QXmlStreamReader>

using namespace GenApi_3_0;
using MoxSim::Model;
using MoxTest::Bench;

namespace {

QString text(const gcstring &from)
{
    return QString::fromUtf8(from.c_str());
}

/** What a user sees of features now. */
QStringList appearances(const std::vector<IValue *> &features)
{
    QStringList result;
    for (IValue *feature : features) {
        const EAccessMode mode = feature->GetAccessMode();
        result += text(feature->GetNode()->GetName()) + QLatin1Char(' ') + QString::number(mode);
        if (!IsReadable(mode))
            continue;
        result.last() += QLatin1Char(' ') + text(feature->ToString());
        if (dynamic_cast<IInteger *>(feature) || dynamic_cast<IFloat *>(feature))
            result.last() += QLatin1Char(' ') + MoxTest::limits(feature);
        NodeList_t entries;
        if (auto *enumeration = dynamic_cast<IEnumeration *>(feature))
            enumeration->GetEntries(entries);
        for (INode *entry : entries)
            result.last() += QStringLiteral(" %1").arg(entry->GetAccessMode());
    }
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

void models()
{
    MoxTest::columns<int>("model");
    MoxTest::row("frame A/B", Model::FrameAB);
    MoxTest::row("plain", Model::Plain);
    MoxTest::row("color", Model::Color);
}

} // namespace

class TestDescriptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loads_data() { models(); }
    // Aravis too reads it; CTest fails it for what Aravis complains of. All references are to nodes.
    void loads()
    {
        QFETCH(int, model);
        const std::string xml = MoxSim::description(Model(model));
        arv_debug_enable("genicam:2,dom:2");
        ArvGc *genicam = arv_gc_new(nullptr, xml.data(), xml.size());
        QVERIFY(genicam && arv_gc_get_node(genicam, "Root") && arv_gc_get_node(genicam, "Width"));
        g_clear_object(&genicam);

        QStringList names;
        QSet<QString> references;
        QXmlStreamReader reader(QByteArray::fromStdString(xml));
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            static const QSet<QString> local{QStringLiteral("EnumEntry"), QStringLiteral("pVariable"),
                                             QStringLiteral("Constant"), QStringLiteral("Expression")};
            const QString tag = reader.name().toString();
            const QString name = reader.attributes().value(QLatin1String("Name")).toString();
            if (!name.isEmpty() && !local.contains(tag))
                names += name;
            else if (tag.at(0) == QLatin1Char('p') && tag.at(1).isUpper())
                references += reader.readElementText();
        }
        QCOMPARE(names.removeDuplicates(), 0);
        QCOMPARE(references - QSet<QString>(names.begin(), names.end()), QSet<QString>());
    }

    void everyFeatureIsSound_data() { models(); }
    void everyFeatureIsSound()
    {
        QFETCH(int, model);
        Bench bench{Model(model)};
        // What the camera that stands around a firmware fills in.
        bench.firmware.registers().setInteger("LinkSpeedReg", 8);
        QSet<QString> displayNames;
        QSet<int> modes;
        for (IValue *feature : bench.features()) {
            INode *node = feature->GetNode();
            const auto why = [&](const char *what) { return text(node->GetName()).toUtf8() + ": " + what; };
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
                QVERIFY2(real->GetMin() <= real->GetValue() && real->GetValue() <= real->GetMax(),
                         why("out of limits"));
            } else if (auto *enumeration = dynamic_cast<IEnumeration *>(feature)) {
                const auto *entry = enumeration->GetCurrentEntry();
                QVERIFY2(entry && IsAvailable(enumeration->GetCurrentEntry()), why("holds no entry that is available"));
            }
        }
        QCOMPARE(modes, (QSet<int>{NI, NA, WO, RO, RW}));
    }

    void cachesFollowTheFirmware_data() { models(); }
    // Writes everything that can be written and compares what the caches say with what the camera says: a difference is
    // a missing invalidator.
    void cachesFollowTheFirmware()
    {
        QFETCH(int, model);
        Bench bench{Model(model)};
        bench.firmware.registers().setInteger("LinkSpeedReg", 8);
        const std::vector<IValue *> all = bench.features();
        int written = 0;
        QStringList faults;
        appearances(all); // fills the caches; later on the comparison does
        // A second round meets what the first one made available.
        for (int i = 0; i < int(2 * all.size()); ++i) {
            IValue *feature = all[std::size_t(i) % all.size()];
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
                for (int k = 0; k < cached.size(); ++k) {
                    if (cached.at(k) != fresh.at(k))
                        faults += text(feature->GetNode()->GetName()) + QLatin1String(" leaves ") + cached.at(k)
                            + QLatin1String(" for ") + fresh.at(k);
                }
            }
        }
        QVERIFY(written > 250);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }
};

MOX_TEST_MAIN(TestDescriptions)
#include "tst_descriptions.moc"
