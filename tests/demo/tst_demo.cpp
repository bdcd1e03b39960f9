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

std::vector<std::string> allCameras()
{
    std::vector<std::string> all;
    for (const std::string &interface : MoxSim::interfaces()) {
        for (const std::string &camera : MoxSim::cameras(interface))
            all.push_back(camera);
    }
    return all;
}

/** The first camera of the world that its host reaches so. */
std::string cameraWith(MoxSim::Reach reach)
{
    const std::vector<std::string> all = allCameras();
    return *std::find_if(all.begin(), all.end(), [=](const std::string &id) { return MoxSim::reach(id) == reach; });
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

Options parsed(const QByteArray &arguments)
{
    return parseOptions(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

/** Offscreen; told of a window that is brought to the front. */
void ignoreRaise()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        MoxSim::resetWorld();
        MoxSim::setWorlds(MoxSim::SimulatedWorld);
    }

    void options()
    {
        const Options none = parsed("moxdemo");
        QVERIFY(!none.exitCode && none.worlds == MoxSim::SimulatedWorld && !none.family && !none.poll && !none.dark);
        QVERIFY(!none.list && none.descriptions.isEmpty() && none.language.isEmpty() && none.screenshots.isEmpty());
        const Options all = parsed("moxdemo --world both --poll --open gallery --description a.xml --description b.xml "
                                   "--language zh_CN --palette dark --list --screenshots out");
        QVERIFY(!all.exitCode && all.worlds == (MoxSim::RealWorld | MoxSim::SimulatedWorld));
        QVERIFY(all.poll && all.dark && all.list && all.family == Family::Gallery);
        QCOMPARE(all.descriptions, QStringList({QStringLiteral("a.xml"), QStringLiteral("b.xml")}));
        QCOMPARE(all.language + all.screenshots, QStringLiteral("zh_CNout"));
        QCOMPARE(parsed("moxdemo --world=real").worlds, unsigned(MoxSim::RealWorld));
    }

    void refusedOptions_data()
    {
        MoxTest::columns<int, QByteArray>("exitCode", "message");
        MoxTest::row("--version", 0, "tst_demo 9.8\n");
        MoxTest::row("--open trees", 1, "moxdemo: no such family: trees (select, tree, config, action or gallery)\n");
        MoxTest::row("--world flat", 1, "moxdemo: no such world: flat (simulated, real or both)\n");
        MoxTest::row("--palette pink", 1, "moxdemo: no such palette: pink (system or dark)\n");
        MoxTest::row("--pol", 1, "moxdemo: Unknown option 'pol'.\n");
        MoxTest::row("camera.xml", 1, "moxdemo: unexpected argument: camera.xml\n");
    }

    void refusedOptions()
    {
        QCoreApplication::setApplicationName(QStringLiteral("tst_demo"));
        QCoreApplication::setApplicationVersion(QStringLiteral("9.8"));
        const Options read = parsed(QByteArray("moxdemo ") + QTest::currentDataTag());
        QTEST(read.exitCode.value_or(-1), "exitCode");
        QTEST(read.message.toUtf8(), "message");
    }

    void plugging()
    {
        WorldPanel panel(m_system.get(), nullptr);
        int asked = 0;
        connect(&panel, &WorldPanel::worldAsked, this, [&asked] { ++asked; });
        const std::string camera = cameraWith(MoxSim::Reach::Open);
        for (const bool plugged : {false, true}) {
            itemOf(panel, camera)->setCheckState(0, plugged ? Qt::Checked : Qt::Unchecked);
            QCOMPARE(MoxSim::isPlugged(camera), plugged);
            QCOMPARE(itemOf(panel, camera)->text(2),
                     plugged ? QStringLiteral("read and write") : QStringLiteral("not seen"));
        }
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

    void cameraSettings()
    {
        WorldPanel panel(m_system.get(), nullptr);
        const std::string camera = cameraWith(MoxSim::Reach::Open);
        choose(panel, camera);

        auto *reach = part<QComboBox>(panel, "reach");
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
        activate(reach, 0);

        auto *userName = part<QLineEdit>(panel, "userName");
        QCOMPARE(userName->text(), QStringLiteral("Conveyor top"));
        userName->clear();
        QTest::keyClicks(userName, QStringLiteral("Gate 7"));
        panel.refresh();
        QCOMPARE(userName->text(), QStringLiteral("Gate 7"));
        QTest::keyClick(userName, Qt::Key_Return);
        QCOMPARE(cameraInfo(camera)->GetUserDefinedName(), "Gate 7");

        // Failing and slow accesses belong to the camera and are shown again when it is.
        part<QSpinBox>(panel, "failAccess")->setValue(1);
        QVERIFY(!openAndDescribe(cameraInfo(camera)).ok);
        choose(panel, cameraWith(MoxSim::Reach::Busy));
        QCOMPARE(part<QSpinBox>(panel, "failAccess")->value(), 0);
        QCOMPARE(userName->text(), QStringLiteral("Conveyor side"));
        choose(panel, camera);
        QCOMPARE(part<QSpinBox>(panel, "failAccess")->value(), 1);

        itemOf(panel, camera)->setCheckState(0, Qt::Unchecked);
        QVERIFY(!userName->isEnabled());
        part<QPushButton>(panel, "resetWorld")->click();
        choose(panel, camera);
        QCOMPARE(part<QSpinBox>(panel, "failAccess")->value(), 0);
    }

    void addAndRemove()
    {
        WorldPanel panel(m_system.get(), nullptr);
        const std::size_t cameras = allCameras().size();
        const std::size_t interfaces = MoxSim::interfaces().size();
        QVERIFY(!part<QPushButton>(panel, "remove")->isEnabled());

        part<QPushButton>(panel, "addInterface")->menu()->actions().constFirst()->trigger();
        QCOMPARE(MoxSim::interfaces().size(), interfaces + 1);
        const std::string added = MoxSim::interfaces().back();
        part<QPushButton>(panel, "addCamera")->click();
        QCOMPARE(MoxSim::cameras(added).size(), std::size_t(1));
        part<QPushButton>(panel, "remove")->click(); // the new camera, which is current now
        QVERIFY(MoxSim::cameras(added).empty());
        choose(panel, added);
        part<QPushButton>(panel, "remove")->click();
        QCOMPARE(MoxSim::interfaces().size(), interfaces);

        const QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("North gate.xml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(MoxSim::description(MoxSim::Model::Plain).c_str());
        file.close();
        const Outcome described = addDescription(MoxSim::interfaces().front(), path);
        QVERIFY2(described.ok, qPrintable(described.text));
        QCOMPARE(cameraInfo(described.text.toStdString())->GetUserDefinedName(), "North gate");

        MoxSim::clearWorld();
        panel.refresh();
        QCOMPARE(part<QTreeWidget>(panel, "worldTree")->topLevelItemCount(), 0);
        QVERIFY(!part<QPushButton>(panel, "addCamera")->isEnabled());
        part<QPushButton>(panel, "resetWorld")->click();
        QCOMPARE(allCameras().size(), cameras);
        QCOMPARE(part<QTreeWidget>(panel, "worldTree")->topLevelItemCount(), static_cast<int>(interfaces));
    }

    void realWorldOnly()
    {
        MainWindow window(m_system.get(), false);
        const std::pair<unsigned, bool> rows[] = {{MoxSim::RealWorld, false},
                                                  {MoxSim::RealWorld | MoxSim::SimulatedWorld, true}};
        for (int row : {0, 1}) {
            activate(part<QComboBox>(window, "worlds"), row + 1);
            QCOMPARE(MoxSim::worlds(), rows[row].first);
            QCOMPARE(window.findChild<WorldPanel *>()->isEnabled(), rows[row].second);
        }
        QCOMPARE(lastLog(window, 2), QStringLiteral("Both"));
    }

    void modalSelector()
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

    void modelessSelectorFollowsThePanel()
    {
        MainWindow window(m_system.get(), true);
        window.show();
        part<QPushButton>(window, "modeless")->click();
        auto *selector = window.findChild<MoxGui::MoxCameraSelectorDialog *>();
        QVERIFY(selector->isVisible());
        QVERIFY(!selector->isModal());
        ignoreRaise();
        part<QPushButton>(window, "modeless")->click();
        QCOMPARE(window.findChildren<MoxGui::MoxCameraSelectorDialog *>().size(), 1);

        auto *tree = part<QTreeView>(*selector, "cameraTreeView");
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
        MoxCam::DeviceInfo *chosen = selector->selectedCamera();
        itemOf(window, cameraWith(MoxSim::Reach::Busy))->setCheckState(0, Qt::Unchecked);
        QTRY_COMPARE(tree->model()->rowCount(tree->model()->index(0, 0)), 2);
        QCOMPARE(selector->selectedCamera(), chosen);

        selector->accept();
        QCOMPARE(lastLog(window, 1), QStringLiteral("MoxCameraSelectorDialog"));
        QCOMPARE(lastLog(window, 2), describe(chosen));
        QTRY_COMPARE(window.findChildren<MoxGui::MoxCameraSelectorDialog *>().size(), 0);
        part<QPushButton>(window, "modeless")->click();
        selector = window.findChild<MoxGui::MoxCameraSelectorDialog *>();
        tree = part<QTreeView>(*selector, "cameraTreeView");
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
        selector->reject();
        QCOMPARE(lastLog(window, 2), QStringLiteral("Nothing chosen"));
        QTRY_COMPARE(window.findChildren<MoxGui::MoxCameraSelectorDialog *>().size(), 0);

        // A window that closes with its selector open takes it along.
        part<QPushButton>(window, "modeless")->click();
    }

    void openChosenCamera()
    {
        MainWindow window(m_system.get(), false);
        const std::string id = cameraWith(MoxSim::Reach::Open);
        window.setChosenCamera(cameraInfo(id));
        window.openChosenCamera();
        const QRegularExpression facts(QStringLiteral("^Moxara MX-4K-AB, serial no. 000001: [1-9]\\d* features in "
                                                      "[1-9]\\d* categories, \\d+ ms$"));
        QVERIFY2(lastLog(window, 2).contains(facts), qPrintable(lastLog(window, 2)));
        MoxSim::setReach(id, MoxSim::Reach::Busy);
        window.setChosenCamera(cameraInfo(id));
        window.openChosenCamera();
        QCOMPARE(lastLog(window, 2), QStringLiteral("Moxara MX-4K-AB (000001) cannot be opened: in use"));
    }

    void parameterTree()
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
        {
            MainWindow window(m_system.get(), false);
            window.show();
            MoxGui::MoxGenParamTreeView *view = openTree(window);
            QVERIFY(view && view->isVisible() && !view->isModal() && view->isPollingEnabled());
            MoxCam::DeviceInfo *camera = cameraInfo(allCameras().front()); // the first that can be opened
            QCOMPARE(lastLog(window, 1), QStringLiteral("CreateGenParamTreeViewForArrayA"));
            QCOMPARE(view->windowTitle(), QString::fromUtf8(camera->GetDisplayName()));
            ignoreRaise();
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

    /** By the panel, in the middle of an edit and of polling. */
    void treeOfARemovedCamera()
    {
        MainWindow window(m_system.get(), false);
        window.show();
        MoxGui::MoxGenParamTreeView *view = openTree(window);
        QTreeView *tree = view->treeView();
        const QPersistentModelIndex category = cellOf(*view, "Device Control");
        tree->expand(category);
        const QModelIndex name = cellOf(*view, "Device User ID");
        const QPersistentModelIndex value = name.sibling(name.row(), 1);
        tree->setCurrentIndex(value);
        qobject_cast<QLineEdit *>(tree->indexWidget(value))->setText(QStringLiteral("Gate 7"));
        part<QPushButton>(window, "resetWorld")->click();
        tree->setCurrentIndex(category); // leaves the editor, which writes
        QCOMPARE(value.data().toString(), QStringLiteral("<Value not available>"));
        QSignalSpy polls(view->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly), &QTimer::timeout);
        view->setPollingTime(10);
        QTRY_VERIFY(polls.size() > 2);
        view->close();
        QTRY_COMPARE(window.findChildren<MoxGui::MoxGenParamTreeView *>().size(), 0);
    }

    void configuration()
    {
        const std::string id = cameraWith(MoxSim::Reach::Open);
        MainWindow window(m_system.get(), false);
        window.show();
        window.setChosenCamera(cameraInfo(id));
        const auto configurations = [&] { return window.findChildren<MoxGui::MoxCamConfig *>(); };
        window.open(Family::Configuration);
        QCOMPARE(lastLog(window, 1), QStringLiteral("MoxCamConfig"));
        QCOMPARE(configurations().size(), 1);
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

private:
    MoxCam::DeviceInfo *cameraInfo(const std::string &id) const { return cameraWithId(m_system.get(), id); }

    SdkPointer<MoxCam::System> m_system{MoxCam_GetSystem()};
};

MOX_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
