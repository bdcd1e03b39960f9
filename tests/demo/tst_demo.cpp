// The demo's parts.

#include "datarow.h"
#include "testmain.h"

#include "mainwindow.h"
#include "options.h"
#include "worldpanel.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcamconfig.h>
#include <moxcameraselectordialog.h>
#include <moxgenparamtreeview.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using namespace MoxDemo;

namespace {

/** The first camera of the world that its host reaches so. */
std::string cameraWith(MoxSim::Reach reach)
{
    for (const std::string &interface : MoxSim::interfaces()) {
        for (const std::string &camera : MoxSim::cameras(interface)) {
            if (MoxSim::reach(camera) == reach)
                return camera;
        }
    }
    return {};
}

std::size_t cameraCount()
{
    std::size_t count = 0;
    for (const std::string &interface : MoxSim::interfaces())
        count += MoxSim::cameras(interface).size();
    return count;
}

template<class Widget> Widget *part(const QWidget &parent, const char *name)
{
    return parent.findChild<Widget *>(QLatin1String(name));
}

QTreeWidgetItem *itemOf(const QWidget &parent, const std::string &id)
{
    QTreeWidgetItemIterator item(part<QTreeWidget>(parent, "worldTree"));
    while (*item && (*item)->data(0, Qt::UserRole).toString().toStdString() != id)
        ++item;
    return *item;
}

void choose(const QWidget &parent, const std::string &id)
{
    part<QTreeWidget>(parent, "worldTree")->setCurrentItem(itemOf(parent, id));
}

/** Chooses a row of a combo box as the user does. */
void activate(QComboBox *box, int row)
{
    box->setCurrentIndex(row);
    Q_EMIT box->activated(row);
}

MoxGui::MoxGenParamTreeView *openTree(MainWindow &window)
{
    window.open(Family::ParameterTree);
    const auto views = window.findChildren<MoxGui::MoxGenParamTreeView *>();
    return views.isEmpty() ? nullptr : views.constLast();
}

/** The name's cell of a feature or category. */
QModelIndex cellOf(const MoxGui::MoxGenParamTreeView &view, const char *name)
{
    const QAbstractItemModel *model = view.treeView()->model();
    return model
        ->match(model->index(0, 0), Qt::DisplayRole, QString::fromLatin1(name), 1,
                Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}

QString lastLog(const MainWindow &window, int column)
{
    const auto *log = part<QTreeWidget>(window, "log");
    const QTreeWidgetItem *line = log->topLevelItem(log->topLevelItemCount() - 1);
    return line ? line->text(column) : QString();
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void options_data();
    void options();
    void plugging();
    void cameraSettings();
    void addAndRemove();
    void description();
    void realWorldOnly();
    void modalSelector();
    void modelessSelectorFollowsThePanel();
    void openChosenCamera();
    void parameterTree();
    void parameterTreeOfALostCamera_data();
    void parameterTreeOfALostCamera();
    void configuration();

private:
    MoxCam::DeviceInfo *cameraInfo(const std::string &id) const;

    SdkPointer<MoxCam::System> m_system{MoxCam_GetSystem()};
};

void TestDemo::init()
{
    MoxSim::resetWorld();
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
}

MoxCam::DeviceInfo *TestDemo::cameraInfo(const std::string &id) const
{
    for (const FoundInterface &entry : discover(m_system.get())) {
        for (MoxCam::DeviceInfo *camera : entry.cameras) {
            if (id == camera->GetID())
                return camera;
        }
    }
    return nullptr;
}

void TestDemo::options_data()
{
    // The exit code, -1 to go on, and what was read, or the message when it leaves.
    MoxTest::columns<QByteArray, int, QByteArray>("arguments", "exitCode", "summary");
    const auto row = [](const char *arguments, int exitCode, const char *summary) {
        MoxTest::row(*arguments ? arguments : "nothing", arguments, exitCode, summary);
    };
    row("", -1, "world 2");
    row("--world real", -1, "world 1");
    row("--world both --poll", -1, "world 3 poll");
    row("--open select", -1, "world 2 open 0");
    row("--open gallery", -1, "world 2 open 4");
    row("--description a.xml --description b.xml", -1, "world 2 a.xml b.xml");
    row("--list --world=real", -1, "world 1 list");
    row("--screenshots out", -1, "world 2 into out");
    row("--version", 0, "tst_demo 9.8\n");
    row("--open tree", -1, "world 2 open 1");
    row("--open config", -1, "world 2 open 2");
    row("--open action", -1, "world 2 open 3");
    row("--open trees", 1, "moxdemo: no such family: trees (select, tree, config, action or gallery)\n");
    row("--language zh_CN --palette dark", -1, "world 2 zh_CN dark");
    row("--world flat", 1, "moxdemo: no such world: flat (simulated, real or both)\n");
    row("--palette pink", 1, "moxdemo: no such palette: pink (system or dark)\n");
    row("--pol", 1, "moxdemo: Unknown option 'pol'.\n");
    row("camera.xml", 1, "moxdemo: unexpected argument: camera.xml\n");
}

void TestDemo::options()
{
    QFETCH(QByteArray, arguments);
    QFETCH(int, exitCode);
    QCoreApplication::setApplicationName(QStringLiteral("tst_demo"));
    QCoreApplication::setApplicationVersion(QStringLiteral("9.8"));

    const Options read = parseOptions(QString::fromLatin1("moxdemo " + arguments).trimmed().split(QLatin1Char(' ')));
    QCOMPARE(read.exitCode.value_or(-1), exitCode);
    QString summary = read.message;
    if (!read.exitCode) {
        summary = QStringLiteral("world %1").arg(read.worlds);
        if (read.family)
            summary += QStringLiteral(" open %1").arg(static_cast<int>(*read.family));
        for (const QString &file : read.descriptions)
            summary += QLatin1Char(' ') + file;
        if (read.poll)
            summary += QStringLiteral(" poll");
        if (!read.language.isEmpty())
            summary += QLatin1Char(' ') + read.language;
        if (read.dark)
            summary += QStringLiteral(" dark");
        if (read.list)
            summary += QStringLiteral(" list");
        if (!read.screenshots.isEmpty())
            summary += QStringLiteral(" into ") + read.screenshots;
    }
    QTEST(summary.toLatin1(), "summary");
}

void TestDemo::plugging()
{
    WorldPanel panel(m_system.get(), nullptr);
    int asked = 0;
    connect(&panel, &WorldPanel::worldAsked, this, [&asked] { ++asked; });
    const std::string camera = cameraWith(MoxSim::Reach::Open);
    QCOMPARE(itemOf(panel, camera)->text(2), QStringLiteral("read and write"));

    itemOf(panel, camera)->setCheckState(0, Qt::Unchecked);
    QVERIFY(!MoxSim::isPlugged(camera));
    QCOMPARE(itemOf(panel, camera)->text(2), QStringLiteral("not seen"));
    itemOf(panel, camera)->setCheckState(0, Qt::Checked);
    QVERIFY(MoxSim::isPlugged(camera));
    QCOMPARE(itemOf(panel, camera)->text(2), QStringLiteral("read and write"));

    const std::size_t interfaces = discover(m_system.get()).size();
    const std::string interface = MoxSim::interfaces().front();
    itemOf(panel, interface)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(discover(m_system.get()).size(), interfaces - 1);
    QCOMPARE(itemOf(panel, camera)->text(2), QStringLiteral("not seen"));
    QCOMPARE(itemOf(panel, camera)->checkState(0), Qt::Checked);
    QCOMPARE(asked, 3);

    // What changes the world from elsewhere is no change by the user.
    MoxSim::setInterfacePlugged(interface, true);
    panel.refresh();
    QCOMPARE(itemOf(panel, interface)->checkState(0), Qt::Checked);
    QCOMPARE(asked, 3);
}

void TestDemo::cameraSettings()
{
    WorldPanel panel(m_system.get(), nullptr);
    const std::string camera = cameraWith(MoxSim::Reach::Open);
    choose(panel, camera);

    auto *reach = part<QComboBox>(panel, "reach");
    QCOMPARE(reach->currentIndex(), 0);
    activate(reach, 1);
    QCOMPARE(MoxSim::reach(camera), MoxSim::Reach::Busy);
    QCOMPARE(itemOf(panel, camera)->text(2), QStringLiteral("no access"));
    const auto address = [&](const std::string &id) { return itemOf(panel, id)->text(1); };
    QCOMPARE(address(camera), QStringLiteral("192.168.10.10"));
    MoxSim::setReach(camera, MoxSim::Reach::WrongSubnet);
    panel.refresh();
    QCOMPARE(reach->currentIndex(), 2);
    QCOMPARE(address(camera), QStringLiteral("172.16.5.10"));
    QCOMPARE(address(cameraWith(MoxSim::Reach::Undiscovered)), QStringLiteral("192.168.10.13"));
    QCOMPARE(address(MoxSim::cameras("Sim::U3V0").front()), QString());
    activate(reach, 0);

    auto *userName = part<QLineEdit>(panel, "userName");
    QCOMPARE(userName->text(), QStringLiteral("Conveyor top"));
    userName->clear();
    QTest::keyClicks(userName, QStringLiteral("Gate 7"));
    panel.refresh();
    QCOMPARE(userName->text(), QStringLiteral("Gate 7"));
    QTest::keyClick(userName, Qt::Key_Return);
    QCOMPARE(QString::fromUtf8(cameraInfo(camera)->GetUserDefinedName()), QStringLiteral("Gate 7"));

    // Failing and slow accesses belong to the camera and are shown again when it is.
    part<QSpinBox>(panel, "failAccess")->setValue(1);
    part<QSpinBox>(panel, "accessDelay")->setValue(1);
    QVERIFY(!openAndDescribe(cameraInfo(camera)).ok);
    choose(panel, cameraWith(MoxSim::Reach::Busy));
    QCOMPARE(part<QSpinBox>(panel, "failAccess")->value(), 0);
    QCOMPARE(userName->text(), QStringLiteral("Conveyor side"));
    choose(panel, camera);
    QCOMPARE(part<QSpinBox>(panel, "failAccess")->value(), 1);
    QCOMPARE(part<QSpinBox>(panel, "accessDelay")->value(), 1);

    itemOf(panel, camera)->setCheckState(0, Qt::Unchecked);
    QVERIFY(!userName->isEnabled());
}

void TestDemo::addAndRemove()
{
    WorldPanel panel(m_system.get(), nullptr);
    const std::size_t cameras = cameraCount();
    const std::size_t interfaces = MoxSim::interfaces().size();
    QVERIFY(!part<QPushButton>(panel, "remove")->isEnabled());

    part<QPushButton>(panel, "addInterface")->menu()->actions().constFirst()->trigger();
    QCOMPARE(MoxSim::interfaces().size(), interfaces + 1);
    const std::string added = MoxSim::interfaces().back();
    part<QPushButton>(panel, "addCamera")->click();
    QCOMPARE(MoxSim::cameras(added).size(), std::size_t(1));
    QCOMPARE(cameraCount(), cameras + 1);

    part<QPushButton>(panel, "remove")->click(); // the new camera, which is current now
    QVERIFY(MoxSim::cameras(added).empty());
    choose(panel, added);
    part<QPushButton>(panel, "remove")->click();
    QCOMPARE(MoxSim::interfaces().size(), interfaces);

    MoxSim::clearWorld();
    panel.refresh();
    QCOMPARE(part<QTreeWidget>(panel, "worldTree")->topLevelItemCount(), 0);
    QVERIFY(!part<QPushButton>(panel, "addCamera")->isEnabled());
    part<QPushButton>(panel, "resetWorld")->click();
    QCOMPARE(cameraCount(), cameras);
    QCOMPARE(part<QTreeWidget>(panel, "worldTree")->topLevelItemCount(), static_cast<int>(interfaces));
}

void TestDemo::description()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("North gate.xml"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(MoxSim::description(MoxSim::Model::Plain).c_str());
    file.close();

    const std::string interface = MoxSim::interfaces().front();
    const Outcome added = addDescription(interface, path);
    QVERIFY2(added.ok, qPrintable(added.text));
    QCOMPARE(added.text.toStdString(), MoxSim::cameras(interface).back());
    QCOMPARE(cameraInfo(added.text.toStdString())->GetUserDefinedName(), "North gate");
    QVERIFY(!addDescription(interface, directory.filePath(QStringLiteral("missing.xml"))).ok);
}

void TestDemo::realWorldOnly()
{
    MainWindow window(m_system.get(), false);
    auto *panel = window.findChild<WorldPanel *>();
    QVERIFY(panel->isEnabled());
    auto *worlds = part<QComboBox>(window, "worlds");
    activate(worlds, 1);
    QCOMPARE(MoxSim::worlds(), unsigned(MoxSim::RealWorld));
    QVERIFY(!panel->isEnabled());
    activate(worlds, 2);
    QCOMPARE(MoxSim::worlds(), unsigned(MoxSim::RealWorld | MoxSim::SimulatedWorld));
    QVERIFY(panel->isEnabled());
    QCOMPARE(lastLog(window, 2), QStringLiteral("Both"));
}

void TestDemo::modalSelector()
{
    MainWindow window(m_system.get(), true);
    const MoxCam::DeviceInfo *camera = cameraInfo(cameraWith(MoxSim::Reach::Open));
    window.show();
    bool poll = false;
    bool blocked = false;
    const auto close = [&](int result) {
        QTimer::singleShot(0, &window, [&, result] {
            blocked = !window.centralWidget()->isEnabled();
            if (blocked) // a click that opened a second one would not return
                QTest::mouseClick(part<QPushButton>(window, "select"), Qt::LeftButton);
            auto *selector = qobject_cast<MoxGui::MoxCameraSelectorDialog *>(QApplication::activeModalWidget());
            poll = selector->isPollChecked();
            auto *tree = part<QTreeView>(*selector, "cameraTreeView");
            tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
            selector->done(result);
        });
        part<QPushButton>(window, "select")->click();
    };

    close(QDialog::Rejected);
    QVERIFY(poll);
    QVERIFY(blocked);
    QVERIFY(window.centralWidget()->isEnabled());
    QCOMPARE(part<QTreeWidget>(window, "log")->topLevelItemCount(), 1); // one call
    QCOMPARE(lastLog(window, 1), QStringLiteral("SelectCameraA"));
    QCOMPARE(lastLog(window, 2), QStringLiteral("Nothing chosen"));
    QVERIFY(!part<QPushButton>(window, "openChosen")->isEnabled());

    part<QAbstractButton>(window, "poll")->click();
    close(QDialog::Accepted);
    QVERIFY(!poll);
    QCOMPARE(lastLog(window, 2), describe(const_cast<MoxCam::DeviceInfo *>(camera)));
    QVERIFY(part<QPushButton>(window, "openChosen")->isEnabled());
}

void TestDemo::modelessSelectorFollowsThePanel()
{
    MainWindow window(m_system.get(), true);
    window.show();
    part<QPushButton>(window, "modeless")->click();
    auto *selector = window.findChild<MoxGui::MoxCameraSelectorDialog *>();
    QVERIFY(selector->isVisible());
    QVERIFY(!selector->isModal());
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    part<QPushButton>(window, "modeless")->click();
    QCOMPARE(window.findChildren<MoxGui::MoxCameraSelectorDialog *>().size(), 1);

    auto *tree = part<QTreeView>(*selector, "cameraTreeView");
    const auto cameras = [tree] { return tree->model()->rowCount(tree->model()->index(0, 0)); };
    const int before = cameras();
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    MoxCam::DeviceInfo *chosen = selector->selectedCamera();
    itemOf(window, cameraWith(MoxSim::Reach::Busy))->setCheckState(0, Qt::Unchecked);
    QTRY_COMPARE(cameras(), before - 1);
    QCOMPARE(selector->selectedCamera(), chosen);

    selector->accept();
    QCOMPARE(lastLog(window, 1), QStringLiteral("MoxCameraSelectorDialog"));
    QCOMPARE(lastLog(window, 2), describe(chosen));
    QTRY_COMPARE(window.findChildren<MoxGui::MoxCameraSelectorDialog *>().size(), 0);

    // A window that closes with its selector open takes it along.
    part<QPushButton>(window, "modeless")->click();
}

void TestDemo::openChosenCamera()
{
    MainWindow window(m_system.get(), false);
    const std::string id = cameraWith(MoxSim::Reach::Open);
    MoxCam::DeviceInfo *camera = cameraInfo(id);
    window.setChosenCamera(camera);
    window.openChosenCamera();
    QVERIFY2(lastLog(window, 2).startsWith(QLatin1String("Moxara MX-4K-AB, serial no. 000001: ")),
             qPrintable(lastLog(window, 2)));
    QVERIFY(lastLog(window, 2).contains(
        QRegularExpression(QStringLiteral(": [1-9]\\d* features in [1-9]\\d* categories, \\d+ ms$"))));

    MoxSim::setReach(id, MoxSim::Reach::Busy);
    window.setChosenCamera(cameraInfo(id));
    window.openChosenCamera();
    const QString name = QString::fromUtf8(camera->GetDisplayName());
    QCOMPARE(lastLog(window, 2), name + QStringLiteral(" cannot be opened: in use"));
    MoxSim::setPlugged(id, false);
    window.openChosenCamera();
    QVERIFY2(lastLog(window, 2).startsWith(name + QStringLiteral(" cannot be opened: ")),
             qPrintable(lastLog(window, 2)));
}

void TestDemo::parameterTree()
{
    const auto close = [](const MainWindow &window, MoxGui::MoxGenParamTreeView *view) {
        QPointer<MoxGui::MoxGenParamTreeView> closed = view;
        view->close();
        QTRY_VERIFY(!closed);
        QCOMPARE(lastLog(window, 1), QStringLiteral("IMoxGenParamTreeView::saveState"));
    };
    const auto isExpanded = [](const MoxGui::MoxGenParamTreeView *view, const char *category) {
        return view->treeView()->isExpanded(cellOf(*view, category));
    };
    const std::string id = cameraWith(MoxSim::Reach::Open);
    {
        MainWindow window(m_system.get(), false);
        window.show();
        MoxGui::MoxGenParamTreeView *view = openTree(window);
        QVERIFY(view && view->isVisible() && !view->isModal() && view->isPollingEnabled());
        MoxCam::DeviceInfo *camera = cameraInfo(id); // the first that can be opened
        QCOMPARE(lastLog(window, 1), QStringLiteral("CreateGenParamTreeViewForArrayA"));
        QCOMPARE(view->windowTitle(), QString::fromUtf8(camera->GetDisplayName()));
        if (QGuiApplication::platformName() == QLatin1String("offscreen"))
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QCOMPARE(openTree(window), view);
        QCOMPARE(window.findChildren<MoxGui::MoxGenParamTreeView *>().size(), 1);
        QVERIFY(!openAndDescribe(camera).ok);

        part<QLineEdit>(*view, "filterLineEdit")->setText(QStringLiteral("Widt"));
        QVERIFY(cellOf(*view, "Width").isValid());
        part<QCheckBox>(*view, "checkBoxWhole")->click();
        QVERIFY(!cellOf(*view, "Width").isValid());
        part<QLineEdit>(*view, "filterLineEdit")->clear();

        // Below a category that only the level shows.
        view->setVisibility(MoxGui::VisibilityGuru);
        view->treeView()->expand(cellOf(*view, "GigE Vision"));
        close(window, view);
        QVERIFY(openAndDescribe(camera).ok);

        // Opened again at once, while the closed window still holds the camera.
        view = openTree(window);
        view->treeView()->expand(cellOf(*view, "LUT Control"));
        view->close();
        view = openTree(window);
        QVERIFY(view->isVisible());
        QCOMPARE(view->visibility(), MoxGui::VisibilityGuru);
        QVERIFY(isExpanded(view, "GigE Vision") && isExpanded(view, "LUT Control"));
        view->setVisibility(MoxGui::VisibilityExpert);

        // Another camera has its own.
        window.setChosenCamera(cameraInfo(MoxSim::cameras("Sim::U3V0").front()));
        MoxGui::MoxGenParamTreeView *other = openTree(window);
        QCOMPARE(other->visibility(), MoxGui::VisibilityBasic);
        QVERIFY(!isExpanded(other, "LUT Control"));
    } // closes both

    MainWindow window(m_system.get(), false);
    window.show();
    MoxGui::MoxGenParamTreeView *view = openTree(window);
    QCOMPARE(view->visibility(), MoxGui::VisibilityExpert);
    QVERIFY(isExpanded(view, "LUT Control"));
    close(window, view);

    MoxSim::clearWorld();
    window.setChosenCamera(nullptr);
    QCOMPARE(openTree(window), nullptr);
    QCOMPARE(lastLog(window, 2), QStringLiteral("There is no camera that can be opened"));
}

void TestDemo::parameterTreeOfALostCamera_data()
{
    MoxTest::columns<bool>("isReset"); // by the panel, or else pulled out
    MoxTest::row("pulled out", false);
    MoxTest::row("world reset", true);
}

void TestDemo::parameterTreeOfALostCamera()
{
    QFETCH(bool, isReset);
    const std::string id = cameraWith(MoxSim::Reach::Open);
    MainWindow window(m_system.get(), false);
    window.show();
    MoxGui::MoxGenParamTreeView *view = openTree(window);
    QTreeView *tree = view->treeView();
    tree->expand(cellOf(*view, "Device Control"));
    const auto value = [&] {
        const QModelIndex name = cellOf(*view, "Device User ID");
        return name.sibling(name.row(), 1);
    };
    const auto type = [&](const char *text) {
        tree->setCurrentIndex(value());
        qobject_cast<QLineEdit *>(tree->indexWidget(value()))->setText(QString::fromLatin1(text));
    };

    type("Gate 7");
    if (isReset)
        part<QPushButton>(window, "resetWorld")->click();
    else
        MoxSim::setPlugged(id, false);
    tree->setCurrentIndex(cellOf(*view, "Device Control")); // leaves the editor, which writes
    QCOMPARE(value().data().toString(), QStringLiteral("<Value not available>"));
    QSignalSpy polls(view->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly), &QTimer::timeout);
    view->setPollingTime(10);
    QTRY_VERIFY(polls.size() > 2);

    if (!isReset) {
        MoxSim::setPlugged(id, true);
        type("Gate 8");
        tree->setCurrentIndex(cellOf(*view, "Device Control"));
        QCOMPARE(value().data().toString(), QStringLiteral("Gate 8"));
    }
    view->close();
    QTRY_COMPARE(window.findChildren<MoxGui::MoxGenParamTreeView *>().size(), 0);
}

void TestDemo::configuration()
{
    const std::string id = cameraWith(MoxSim::Reach::Open);
    MainWindow window(m_system.get(), false);
    window.show();
    window.setChosenCamera(cameraInfo(id));
    const auto configurations = [&] { return window.findChildren<MoxGui::MoxCamConfig *>(); };
    const auto size = [&] { return part<QLineEdit>(*configurations().constFirst(), "lineEditSizeFrameA")->text(); };
    window.open(Family::Configuration);
    QCOMPARE(lastLog(window, 1), QStringLiteral("MoxCamConfig"));
    QCOMPARE(configurations().size(), 1);
    const QString live = size();
    QVERIFY(live.contains(QLatin1Char('x')));

    MoxSim::setPlugged(id, false);
    QTRY_COMPARE(size(), QString());
    MoxSim::setPlugged(id, true);
    QTRY_COMPARE(size(), live);
    QVERIFY(!openAndDescribe(cameraInfo(id)).ok);

    // Opened again at once, while the closed window still holds the camera.
    configurations().constFirst()->close();
    window.open(Family::Configuration);
    QCOMPARE(configurations().size(), 1);
    QVERIFY(configurations().constFirst()->isVisible());
    configurations().constFirst()->close();
    QTRY_VERIFY(configurations().isEmpty());
    QVERIFY(openAndDescribe(cameraInfo(id)).ok);
    window.open(Family::Configuration); // ends with the main window
}

MOX_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
