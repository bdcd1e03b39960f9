// Random use of the parameter tree by a user, the device and another thread at once; in the end every cell shows what the
// camera holds.
#include "genparamcontroldata.h"
#include "genparamtreemodel.h"
#include "genparamtreevisibilityfilterproxymodel.h"
#include "livecamera.h"
#include "memoryport.h"
#include "testmain.h"
#include "treescene.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryFile>

#include <future>
#include <random>

using namespace GenApi;
using namespace MoxGui;
using namespace MoxTest;

namespace {

/** The model with children under its first column alone, which QAbstractItemModelTester insists on. */
struct OneColumnTree : GenParamTreeModel
{
    using GenParamTreeModel::GenParamTreeModel;
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.column() > 0 ? 0 : GenParamTreeModel::rowCount(parent);
    }
};

/** Groups whose features, and in part they themselves, are implemented as long as switches among the features are on. */
QByteArray switchingDescription()
{
    QByteArray root, nodes;
    for (char group = 'a'; group < 'f'; ++group) {
        root += QByteArray("<pFeature>Group#</pFeature><pFeature>On#</pFeature>").replace('#', group);
        nodes +=
            QByteArray("; Category Deep# Visibility=Expert pFeature=Count# pFeature=Lock#; Boolean On# pValue=OnReg#"
                       "; Integer Number# pValue=NumberReg# pMax=CountReg#"
                       "; Float Real# pValue=Half# pIsImplemented=OnReg#"
                       "; Enumeration Choice# pValue=ChoiceReg# Entry.A=0 Entry.B=1 Entry.C=7 pIsAvailable=OnReg#"
                       "; StringReg Text# @#80 Length=16 pIsImplemented=OnReg#"
                       "; Integer Count# pValue=CountReg# Visibility=Guru"
                       "; Command Run# pValue=ChoiceReg# CommandValue=1"
                       "; Integer Lock# pValue=NumberReg# pIsLocked=OnReg#"
                       "; Converter Half# FormulaTo=FROM*2 FormulaFrom=TO/2 pValue=CountReg#; IntReg OnReg# @#00"
                       "; IntReg NumberReg# @#08 PollingTime=300; IntReg CountReg# @#10 PollingTime=50"
                       "; IntReg ChoiceReg# @#18; Category Group# pFeature=Number# pFeature=Real# pFeature=Choice#"
                       " pFeature=Text# pFeature=Run# pFeature=Deep#")
                .replace('#', group);
        nodes += group % 2 ? "" : QByteArray(" pIsImplemented=On") + char(group - 1);
    }
    return "<RegisterDescription><Category Name='Root'>" + root + "</Category><Port Name='Device'/>"
        + described(nodes.mid(2)) + "</RegisterDescription>";
}

QString nameOf(const QModelIndex &index)
{
    return QString::fromUtf8(index.data(IValueRole).value<IValue *>()->GetNode()->GetName().c_str());
}

/** The values by feature, without those that can only be read: a camera's counters and clocks run by themselves. */
QMap<QString, QString> valuesOf(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QMap<QString, QString> values;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data(IValueRole).value<IValue *>()->GetAccessMode() != RO)
            values[nameOf(index)] = index.siblingAtColumn(1).data().toString();
        values.unite(valuesOf(model, index));
    }
    return values;
}

/** A model and its filter beside the dialog's, and what one sees who reads cells only when told to. */
struct Watched
{
    explicit Watched(INodeMap *map) : model(map), shown(valuesOf(model))
    {
        proxy.setSourceModel(&model);
        // Ends the program when it finds something: its reports to QtTest would cost ten times what is tested.
        new QAbstractItemModelTester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal, &context);
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &context,
                         [this](auto &cell) { shown[nameOf(cell)] = cell.data().toString(); });
    }

    OneColumnTree model;
    GenParamTreeVisibilityFilterProxyModel proxy{nullptr};
    QMap<QString, QString> shown;
    QObject context;
};

class Storm
{
public:
    Storm(unsigned seed, const MoxSim::CameraSetup &setup) : random(seed), camera(setup)
    {
        view.show();
        show();
    }
    ~Storm() { close(); }

    void step()
    {
        QAbstractItemModel &shownModel = *view.treeView()->model();
        const int kind = below(1000);
        if (kind < 400) {
            watched->model.setData(any(watched->model), anyValue());
        } else if (kind < 550) {
            shownModel.setData(any(shownModel), anyValue());
        } else if (kind < 630) {
            auto *feature = any(watched->model).data(IValueRole).value<IValue *>();
            const auto write = [feature, text = anyValue().toString().toUtf8()] { feature->FromString(text.data()); };
            other = {}; // one at a time
            other = std::async(std::launch::async, [write] { thrown(write); });
        } else if (kind < 700) {
            map->Poll(below(400));
        } else if (kind < 850) {
            view.treeView()->setExpanded(any(shownModel).siblingAtColumn(0), below(2));
        } else if (kind < 925) {
            const QModelIndex cell = any(shownModel);
            for (int role = 0; role <= Qt::UserRole; ++role)
                cell.data(role);
        } else if (kind < 950) {
            QCoreApplication::processEvents();
        } else if (kind < 970) {
            filter();
        } else if (kind < 998) {
            edit();
        } else if (MoxSim::isPlugged(camera.id)) {
            MoxSim::setPlugged(camera.id, false);
        } else {
            reopen();
        }
    }

    /** What cells show that is not what the camera holds. */
    QStringList faults()
    {
        if (!MoxSim::isPlugged(camera.id))
            reopen();
        other = {};
        view.treeView()->setCurrentIndex({});
        map->Poll(1000000);
        QCoreApplication::processEvents();
        QStringList wrong;
        const QStringList rows = valuesOf(watched->proxy).keys();
        watched->proxy.invalidate(); // tests all rows afresh
        if (rows != valuesOf(watched->proxy).keys())
            wrong << QStringLiteral("rows ") + rows.join(QLatin1Char(' '));
        auto shown = watched->shown;
        shown.unite(valuesOf(*view.treeView()->model())); // two texts of a feature
        reopen();
        const QMap<QString, QString> held = valuesOf(watched->model);
        for (auto value = shown.cbegin(); value != shown.cend(); ++value) {
            if (held.contains(value.key()) && *value != held[value.key()])
                wrong << value.key() + QLatin1Char('=') + *value + QLatin1String(" for ") + held[value.key()];
        }
        return wrong;
    }

private:
    void show()
    {
        map = camera.params->GetNodeMap(nullptr);
        view.setParams(map);
        watched = std::make_unique<Watched>(map);
    }
    void close()
    {
        other = {}; // waits
        view.clearParams();
        watched.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        camera.device.reset();
    }
    void reopen()
    {
        close();
        MoxSim::setPlugged(camera.id, true);
        camera.open();
        show();
    }
    int below(int end) { return int(random() % unsigned(end)); }
    /** A value's cell, or that of a category. */
    QModelIndex any(const QAbstractItemModel &model)
    {
        QModelIndex index;
        for (int rows = model.rowCount(); rows > 0; rows = below(8) ? model.rowCount(index) : 0)
            index = model.index(below(rows), 0, index);
        return index.siblingAtColumn(1);
    }
    QVariant anyValue()
    {
        const QVariant values[] = {qlonglong(below(3000)), below(1000) / 8.0, below(2) == 0, QString::number(below(9)),
                                   QStringLiteral("Größe")};
        return values[below(int(std::size(values)))];
    }
    void filter()
    {
        if (below(2)) {
            view.setVisibility(Visibility(below(3)));
            watched->proxy.setFilterVisibility(below(3));
        } else {
            static const char *const texts[] = {"", "*", "e", "[a-c]", "n*r", "Größe", "o", "["};
            const QString pattern = QString::fromUtf8(texts[below(int(std::size(texts)))]);
            view.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"))->setText(pattern);
            watched->proxy.setFilterText(pattern);
        }
    }
    void edit()
    {
        view.treeView()->setCurrentIndex(any(*view.treeView()->model()));
        QWidget *editor = openEditor(view);
        if (auto *combo = qobject_cast<QComboBox *>(editor))
            combo->setCurrentIndex(below(3));
        else if (auto *button = qobject_cast<QPushButton *>(editor))
            button->click();
        else if (editor)
            QTest::keyClick(editor, below(2) ? Qt::Key_Up : Qt::Key_7);
        if (below(2)) // else it stays open
            view.treeView()->setCurrentIndex({});
    }

    std::mt19937 random;
    LiveCamera camera;
    INodeMap *map = nullptr;
    MoxGenParamTreeView view{nullptr};
    std::unique_ptr<Watched> watched;
    std::future<void> other; // ends before what it uses
};

/** Of the environment, or else @p usual. */
int chosen(const char *name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int usualOperations = 9000; // each takes ten times as long
#else
constexpr int usualOperations = 90000;
#endif

} // namespace

/** MOX_STORM_SEED repeats a failure, MOX_STORM_OPERATIONS chooses the length. */
class TestGenParamStorm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsShowWhatTheCameraHolds()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(switchingDescription());
        file.flush();
        MoxSim::CameraSetup setup;
        setup.serialNumber = "storm";
        setup.descriptionFile = QFile::encodeName(file.fileName()).toStdString();
        const int seed = chosen("MOX_STORM_SEED", 7);
        qInfo("seed %d", seed); // known also when there is no end
        Storm storm(unsigned(seed), setup);
        for (int i = chosen("MOX_STORM_OPERATIONS", usualOperations); i > 0; --i)
            storm.step();
        QCOMPARE(storm.faults().join(QLatin1String("; ")), QString());
    }
};

MOX_TEST_MAIN(TestGenParamStorm)

#include "tst_genparamstorm.moc"
