// What users do with the library, from end to end.
#include "configscene.h"
#include "console.h"
#include "livecamera.h"
#include "moxcameraguiapi.h"
#include "moxgenparamtreeview.h"
#include "scenario.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QTabWidget>
#include <QTemporaryFile>

namespace MoxTest {

namespace {

QWidget *modal()
{
    return QApplication::activeModalWidget();
}

/** As its user does, where it is there and can be. */
void press(QAbstractButton *button)
{
    if (button && button->isVisible() && button->isEnabled())
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2)); // a check box's indicator
}

/** Of the modal window, by its caption. */
template<class Clickable> Clickable *find(const char *text)
{
    const auto all = modal() ? modal()->findChildren<Clickable *>() : QList<Clickable *>();
    for (Clickable *each : all) {
        if (each->text().remove(QLatin1Char('&')) == QLatin1String(text))
            return each;
    }
    return nullptr;
}

void press(const char *text)
{
    press(find<QAbstractButton>(text));
}

/** Types into an editor and commits; a combo box goes from its first entry to the second, or one up. */
void enter(QWidget *editor, const char *text)
{
    if (auto *button = qobject_cast<QAbstractButton *>(editor))
        return press(button);
    if (auto *combo = qobject_cast<QComboBox *>(editor))
        return QTest::keyClick(combo, combo->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, QLatin1String(text));
    QTest::keyClick(editor, Qt::Key_Return);
}

/** Of the selector that is open. */
QTreeView *cameraTree()
{
    return modal() ? modal()->findChild<QTreeView *>(QStringLiteral("cameraTreeView")) : nullptr;
}

QModelIndex adapter()
{
    return cameraTree()->model()->index(0, 0);
}

void pick(int row)
{
    if (QTreeView *tree = cameraTree())
        tree->setCurrentIndex(tree->model()->index(row, 0, adapter()));
}

/** What a camera holds now, past all caches; empty when it is gone. */
std::string valueOf(MoxGenParam::Array *params, const char *feature)
{
    try {
        GenApi::INodeMap *map = params ? params->GetNodeMap(nullptr) : nullptr;
        const GenApi::CValuePtr value(map ? map->GetNode(feature) : nullptr);
        return value->ToString(false, true).c_str();
    } catch (const GenICam::GenericException &) {
        return {};
    }
}

/** Over the standard world of simulated cameras, of which @p row is the one that matters. */
struct SystemScenario : Scenario
{
    explicit SystemScenario(std::size_t row)
    {
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
        MoxSim::resetWorld();
        cameras = MoxSim::cameras(MoxSim::interfaces().front());
        camera = cameras[row];
        system.reset(wrappedSystem());
    }
    bool succeeded() override { return selected && selected->GetID() == camera; }

    std::vector<std::string> cameras;
    SdkPointer<MoxCam::System> system;
    MoxCam::DeviceInfo *selected = nullptr;
};

struct Selecting final : SystemScenario
{
    using SystemScenario::SystemScenario;

    void play(User &user) override
    {
        user.plan({
            [] { cameraTree()->collapseAll(); },
            [] { cameraTree()->expandAll(); },
            [] { pick(0); },
            [this] { MoxSim::setPlugged(cameras[1], false); },
            [] { press(modal()->findChild<QCheckBox *>(QStringLiteral("chPoll"))); },
            [] { return cameraTree()->model()->rowCount(adapter()) < 3; },
            [] { press(modal()->findChild<QCheckBox *>(QStringLiteral("chPoll"))); },
            [this] { MoxSim::setPlugged(cameras[1], true); },
            [] { press("Rescan"); },
            [] { pick(0); },
            [] { press("OK"); },
        });
        selected = SelectCameraA(system.get(), "Sweep", 0, false);
    }
};

/** From cameras that cannot be chosen, one on the wrong subnet and one that hides, to a chosen one. */
struct RepairingAddresses final : SystemScenario
{
    using SystemScenario::SystemScenario;

    void play(User &user) override
    {
        const std::string hidden = MoxSim::ipAddress(cameras[3]);
        user.plan({
            [] { pick(2); },
            [] { press("Set IP Address"); },
            [] {
                if (!cameraTree()) // in the dialog that opened
                    press("OK");
            },
            [] { pick(1); },
            [] { pick(2); },
            [this] { isRepaired = find<QAbstractButton>("OK") && find<QAbstractButton>("OK")->isEnabled(); },
            [] {
                if (cameraTree())
                    cameraTree()->setCurrentIndex(adapter());
            },
            [] {
                if (auto *action = find<QAction>("Connect by IP Address"))
                    action->trigger();
            },
            [=] {
                if (modal() && !cameraTree())
                    enter(modal()->findChild<QLineEdit *>(), hidden.c_str());
            },
        });
        selected = SelectCameraA(system.get(), "Sweep", 0, false);
    }
    bool succeeded() override
    {
        return isRepaired && MoxSim::reach(camera) == MoxSim::Reach::Open && selected
            && selected->GetID() == cameras[3];
    }

    bool isRepaired = false;
};

struct SendingAction final : SystemScenario
{
    using SystemScenario::SystemScenario;

    void play(User &user) override
    {
        Console console(system.get(), 0);
        console.show();
        if (QListWidgetItem *first = console.rows->item(0))
            first->setCheckState(Qt::Checked);
        user.take({
            [&] { press(console.findChild<QCheckBox *>(QStringLiteral("cbRequestAck"))); },
            // They are counted over the whole program.
            [&] { console.findChild<QSpinBox *>()->setValue(FaultPlan::instance().acknowledgements + 2); },
            [&] { press(console.findChild<QPushButton *>()); },
            [&] { log = console.log->toPlainText(); },
            [&] { console.close(); },
        });
    }
    bool succeeded() override { return log == QLatin1String("[OK] 192.168.10.10\n[OK] 192.168.10.11\n"); }

    QString log;
};

/** One feature of each kind, few enough to fail each call. */
const char description[] = R"(<RegisterDescription ModelName="Small" VendorName="Sweep">
<Category Name="Root"><pFeature>Image</pFeature><pFeature>Control</pFeature></Category>
<Category Name="Image"><pFeature>Width</pFeature><pFeature>Gain</pFeature><pFeature>Flip</pFeature></Category>
<Category Name="Control"><pFeature>Mode</pFeature><pFeature>Start</pFeature><pFeature>User</pFeature></Category>
<Integer Name="Width"><ToolTip>Columns</ToolTip><pValue>WidthReg</pValue><pMax>WidthMax</pMax><Inc>4</Inc></Integer>
<IntReg Name="WidthReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <PollingTime>5</PollingTime></IntReg>
<IntSwissKnife Name="WidthMax"><pVariable Name="M">ModeReg</pVariable><Formula>1000+M</Formula></IntSwissKnife>
<FloatReg Name="Gain"><Address>8</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></FloatReg>
<Boolean Name="Flip"><pIsAvailable>ModeReg</pIsAvailable><pValue>FlipReg</pValue></Boolean>
<IntReg Name="FlipReg"><Address>12</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></IntReg>
<Enumeration Name="Mode"><EnumEntry Name="Off"><Value>0</Value></EnumEntry>
  <EnumEntry Name="On"><Value>1</Value></EnumEntry><pValue>ModeReg</pValue></Enumeration>
<IntReg Name="ModeReg"><Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></IntReg>
<Command Name="Start"><pValue>StartReg</pValue><CommandValue>7</CommandValue></Command>
<IntReg Name="StartReg"><Address>20</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></IntReg>
<StringReg Name="User"><Address>24</Address><Length>16</Length><AccessMode>RW</AccessMode>
  <pPort>Device</pPort></StringReg>
<Port Name="Device"/></RegisterDescription>)";

struct EditingTree final : Scenario
{
    EditingTree()
    {
        static QTemporaryFile file;
        if (file.fileName().isEmpty() && file.open()) {
            file.write(description);
            file.close();
        }
        MoxSim::CameraSetup setup;
        setup.descriptionFile = file.fileName().toStdString();
        live = std::make_unique<LiveCamera>(setup);
        camera = live->id;
    }
    void play(User &user) override
    {
        using MoxGui::IMoxGenParamTreeView;
        const std::unique_ptr<IMoxGenParamTreeView, void (*)(IMoxGenParamTreeView *)> owner(
            CreateGenParamTreeViewForArrayA(live->params, "Sweep", 0), DestroyGenParamTreeView);
        auto *view = dynamic_cast<MoxGui::MoxGenParamTreeView *>(owner.get());
        QTreeView *tree = view->treeView();
        auto *filter = child<QLineEdit>(*view, "filterLineEdit");
        std::vector<User::Step> steps{
            [=] { return view->windowHandle()->isExposed(); },
            [=] { tree->expandAll(); },
            [=] { view->setVisibility(MoxGui::VisibilityGuru); },
            [=] { QTest::keyClicks(filter, QStringLiteral("i")); },
            [=] { filter->clear(); },
        };
        for (const auto &[category, row, text] :
             {std::tuple(0, 0, "64"), std::tuple(0, 1, "2.5"), std::tuple(1, 0, ""), std::tuple(0, 2, ""),
              std::tuple(1, 1, ""), std::tuple(1, 2, "abc")}) {
            // Being current opens an editor.
            steps.push_back([=, category = category, row = row] {
                if (const QAbstractItemModel *model = tree->model())
                    tree->setCurrentIndex(model->index(row, 1, model->index(category, 0)));
            });
            steps.push_back([=, text = text] {
                const auto editors = tree->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
                for (QWidget *editor : editors) {
                    if (editor->isVisible())
                        return enter(editor, text);
                }
            });
        }
        QElapsedTimer polling;
        polling.start();
        std::string state;
        const std::initializer_list<User::Step> last = {
            [=] { view->setPollingTime(5); },
            [=] { view->enablePolling(true); },
            [&] { return polling.restart() >= 0; },
            [&] { return polling.elapsed() > 20; },
            [=] { view->enablePolling(false); },
            [=, &state] { state = view->saveState(); },
            [=] { tree->collapseAll(); },
            [=, &state] { view->loadState(state.c_str()); },
            [=] { press(child<QAbstractButton>(*view, "pbStatus")); },
            [=] { return !modal() || modal()->close(); }, // the report
            [=] { view->close(); },
        };
        steps.insert(steps.end(), last);
        user.take(steps);
    }
    bool succeeded() override
    {
        const std::pair<const char *, const char *> values[] = {{"Width", "64"},  {"Gain", "2.5"},   {"Mode", "On"},
                                                                {"Flip", "true"}, {"StartReg", "7"}, {"User", "abc"}};
        return std::all_of(std::begin(values), std::end(values),
                           [this](const auto &value) { return valueOf(live->params, value.first) == value.second; });
    }

    std::unique_ptr<LiveCamera> live;
};

/** What the user does in a dialog of the configuration window, and what the camera says then. */
struct Change
{
    const char *button, *control, *input, *feature, *value;
};

struct Configuring final : Scenario
{
    Configuring(MoxSim::Model model, std::vector<Change> itsChanges) : changes(std::move(itsChanges))
    {
        camera = onlyCamera(setupOf(model));
    }
    /** Lets the window tick until it has the camera, or until it has none. */
    User::Step ticksUntil(bool connected)
    {
        return [this, connected] {
            tick(*window);
            return figures(*window).startsWith(QLatin1String("Disconnected")) != connected;
        };
    }
    static void operate(QWidget *control, const char *input)
    {
        if (!control || !control->isVisible() || !control->isEnabled())
            return;
        if (auto *tabs = qobject_cast<QTabWidget *>(control))
            return QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
        auto *box = control->findChild<QAbstractSpinBox *>();
        enter(box ? box : control, input);
    }
    void play(User &user) override
    {
        user.plan({[] { modal()->close(); }});
        window = std::make_unique<Window>(nullptr);
        window->show();
        std::vector<User::Step> steps{[this] { trigger(*window, "actionConnect"); }, [] { pick(0); },
                                      [] { press("OK"); }, ticksUntil(true)};
        for (const Change &change : changes) {
            steps.push_back([=] {
                auto *button = child<QAbstractButton>(*window, change.button);
                if (!button->isChecked())
                    press(button);
            });
            steps.push_back([=] { operate(child<QWidget>(*window, change.control), change.input); });
        }
        const std::initializer_list<User::Step> last = {
            ticksUntil(true),
            [this] { MoxSim::setPlugged(camera, false); },
            ticksUntil(false),
            [this] { MoxSim::setPlugged(camera, true); },
            ticksUntil(true),
            [this] {
                for (const Change &change : changes)
                    values.push_back(valueOf(privateOf(*window)->params, change.feature));
            },
            [this] { trigger(*window, "actionDisconnect"); },
            [this] { window->close(); },
        };
        steps.insert(steps.end(), last);
        user.take(steps);
        window.reset();
    }
    bool succeeded() override
    {
        return std::equal(values.begin(), values.end(), changes.begin(), changes.end(),
                          [](const std::string &value, const Change &change) { return value == change.value; });
    }

    const std::vector<Change> changes;
    std::unique_ptr<Window> window;
    std::vector<std::string> values;
};

} // namespace

std::unique_ptr<Scenario> makeScenario(const QByteArray &name)
{
    if (name == "select")
        return std::make_unique<Selecting>(0);
    if (name == "address")
        return std::make_unique<RepairingAddresses>(2);
    if (name == "action")
        return std::make_unique<SendingAction>(0);
    if (name == "frames") {
        return std::make_unique<Configuring>(
            MoxSim::Model::FrameAB,
            std::vector<Change>{{"pushBtnFrameAB", "cmBoxFrameMode", "", "FrameMode", "FrameB"},
                                {"pushBtnFrameAB", "spBoxExpTime", "2000", "CurrentExposureTime", "2000"},
                                {"pushBtnTrigger", "chBoxTriggerEnable", "", "TriggerMode", "On"},
                                {"pushBtnPulse", "spBoxPeriod", "500", "PulseGenPeriod", "500"},
                                {"pushBtnStrobe", "cmBoxStrobe2Mode", "", "Strobe2Mode", "Timed"},
                                {"pushBtnDataOut", "chBoxHorMirror", "", "ReverseX", "true"}});
    }
    if (name == "color") {
        return std::make_unique<Configuring>(
            MoxSim::Model::Color,
            std::vector<Change>{{"pushBtnTrigger", "chBoxTriggerEnable", "", "TriggerMode", "On"},
                                {"pushBtnColor", "spBoxRed", "300", "RedCoefficient", "300"}});
    }
    return std::make_unique<EditingTree>();
}

} // namespace MoxTest
