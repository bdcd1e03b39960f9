// The demo's parts, and the program from outside.

#include "testmain.h"

#include "mainwindow.h"
#include "options.h"
#include "worldpanel.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcameraselectordialog.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using namespace MoxDemo;

namespace {

/** What a run of the program gave. */
struct Run
{
    int exitCode = -1;
    QString output;
    QString errors;
};

Run runDemo(const QStringList &arguments)
{
    QProcess program;
    program.start(QStringLiteral(MOXDEMO_PROGRAM), arguments);
    if (!program.waitForFinished(60000) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

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

/** How the report on an opened camera ends when its node map could be read. */
QRegularExpression features()
{
    return QRegularExpression(QStringLiteral(": [1-9]\\d* features in [1-9]\\d* categories, \\d+ ms$"));
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
    void list();
    void screenshots();
    void refusals_data();
    void refusals();

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
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode"); // -1 to go on
    QTest::addColumn<QString>("summary"); // of what was read; of the message when it leaves

    const auto row = [](const char *name, const QStringList &arguments, int exitCode, const char *summary) {
        QTest::newRow(name) << arguments << exitCode << QString::fromLatin1(summary);
    };
    const auto words = [](const char *line) { return QString::fromLatin1(line).split(QLatin1Char(' ')); };
    row("nothing", {}, -1, "world 2");
    row("real world", words("--world real"), -1, "world 1");
    row("both worlds, polling", words("--world both --poll"), -1, "world 3 poll");
    row("select", words("--open select"), -1, "world 2 open 0");
    row("two descriptions", words("--description a.xml --description b.xml"), -1, "world 2 a.xml b.xml");
    row("list", words("--list --world=real"), -1, "world 1 list");
    row("screenshots", words("--screenshots out"), -1, "world 2 into out");
    row("version", words("--version"), 0, "tst_demo 9.8\n");
    row("unbuilt family", words("--open tree"), 2, "moxdemo: \"Parameter tree\" is not in this build of the library\n");
    row("unknown family", words("--open trees"), 1,
        "moxdemo: no such family: trees (select, tree, config or action)\n");
    row("unknown world", words("--world flat"), 1, "moxdemo: no such world: flat (simulated, real or both)\n");
    row("unknown option", words("--pol"), 1, "moxdemo: Unknown option 'pol'.\n");
    row("argument", words("camera.xml"), 1, "moxdemo: unexpected argument: camera.xml\n");
}

void TestDemo::options()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QCoreApplication::setApplicationName(QStringLiteral("tst_demo"));
    QCoreApplication::setApplicationVersion(QStringLiteral("9.8"));

    const Options read = parseOptions(QStringList(QStringLiteral("moxdemo")) + arguments);
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
        if (read.list)
            summary += QStringLiteral(" list");
        if (!read.screenshots.isEmpty())
            summary += QStringLiteral(" into ") + read.screenshots;
    }
    QTEST(summary, "summary");
}

void TestDemo::plugging()
{
    WorldPanel panel(m_system.get(), nullptr);
    int asked = 0;
    connect(&panel, &WorldPanel::worldAsked, this, [&asked] { ++asked; });
    const std::string camera = cameraWith(MoxSim::Reach::Open);
    QCOMPARE(itemOf(panel, camera)->text(1), QStringLiteral("read and write"));

    itemOf(panel, camera)->setCheckState(0, Qt::Unchecked);
    QVERIFY(!MoxSim::isPlugged(camera));
    QCOMPARE(itemOf(panel, camera)->text(1), QStringLiteral("not seen"));
    itemOf(panel, camera)->setCheckState(0, Qt::Checked);
    QVERIFY(MoxSim::isPlugged(camera));
    QCOMPARE(itemOf(panel, camera)->text(1), QStringLiteral("read and write"));

    const std::size_t interfaces = discover(m_system.get()).size();
    const std::string interface = MoxSim::interfaces().front();
    itemOf(panel, interface)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(discover(m_system.get()).size(), interfaces - 1);
    QCOMPARE(itemOf(panel, camera)->text(1), QStringLiteral("not seen"));
    QCOMPARE(itemOf(panel, camera)->checkState(0), Qt::Checked);
    QCOMPARE(asked, 3);

    // What changes the world from elsewhere is seen at the next look, and is no change by the user.
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
    QCOMPARE(itemOf(panel, camera)->text(1), QStringLiteral("no access"));
    MoxSim::setReach(camera, MoxSim::Reach::WrongSubnet);
    panel.refresh();
    QCOMPARE(reach->currentIndex(), 2);
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
    const Outcome outcome = openAndDescribe(cameraInfo(camera));
    QVERIFY2(!outcome.ok, qPrintable(outcome.text));
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
    const Outcome opened = openAndDescribe(cameraInfo(added.text.toStdString()));
    QVERIFY2(opened.ok && features().match(opened.text).hasMatch(), qPrintable(opened.text));

    const std::size_t cameras = cameraCount();
    const Outcome refused = addDescription(interface, directory.filePath(QStringLiteral("missing.xml")));
    QVERIFY(!refused.ok);
    QVERIFY(!refused.text.isEmpty());
    QCOMPARE(cameraCount(), cameras);
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
    const QString identity = QStringLiteral("%1 %2, serial no. %3: ")
                                 .arg(QString::fromUtf8(camera->GetVendor()), QString::fromUtf8(camera->GetModel()),
                                      QString::fromUtf8(camera->GetSerialNumber()));
    QVERIFY2(lastLog(window, 2).startsWith(identity), qPrintable(lastLog(window, 2)));
    QVERIFY2(features().match(lastLog(window, 2)).hasMatch(), qPrintable(lastLog(window, 2)));

    MoxSim::setReach(id, MoxSim::Reach::Busy);
    window.setChosenCamera(cameraInfo(id));
    window.openChosenCamera();
    const QString name = QString::fromUtf8(camera->GetDisplayName());
    QCOMPARE(lastLog(window, 2), name + QStringLiteral(" cannot be opened: in use by another host"));
    MoxSim::setPlugged(id, false);
    window.openChosenCamera();
    QVERIFY2(lastLog(window, 2).startsWith(name + QStringLiteral(" cannot be opened: ")),
             qPrintable(lastLog(window, 2)));
}

void TestDemo::list()
{
    const Run run = runDemo({QStringLiteral("--list")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QString());
    QCOMPARE(run.output,
             QStringLiteral(
                 "Simulated network adapter [Sim::GEV0]\n"
                 "    Moxara MX-4K-AB (000001) [Moxara_MX-4K-AB_000001], read and write\n"
                 "    Moxara MX-2K-M (000002) [Moxara_MX-2K-M_000002], no access\n"
                 "    Moxara MX-2K-M (000003) [Moxara_MX-2K-M_000003], subnet mismatch\n" // the fourth does not answer
                 "Simulated USB host [Sim::U3V0]\n"
                 "    Moxara MX-2K-C U3 (000005) [Moxara_MX-2K-C_U3_000005], read and write\n"
                 "    Moxara MX-2K-C U3 (000006) [Moxara_MX-2K-C_U3_000006], read and write\n"
                 "Simulated frame grabber [Sim::CL0]\n"
                 "    no cameras\n"));
}

void TestDemo::screenshots()
{
    const QTemporaryDir directory;
    const QString out = directory.filePath(QStringLiteral("made/here"));
    const Run run = runDemo({QStringLiteral("--screenshots"), out});
    QCOMPARE(run.exitCode, 0);
    QStringList files;
    for (const char *name : {"moxdemo", "selector", "selector-polling", "selector-usb", "selector-busy", "set-ip-ok",
                             "set-ip-mask", "set-ip-subnet", "set-ip-address", "connect", "selector-empty"})
        files << QStringLiteral("%1/%2.png").arg(out, QLatin1String(name));
    QStringList printed = run.output.split(QLatin1Char('\n'));
    printed.removeAll(QString());
    printed.removeAll(out + QStringLiteral("/selector-real.png")); // where a camera is connected
    QCOMPARE(printed, files);
    for (const QString &file : qAsConst(files)) {
        const QImage image(file);
        QVERIFY2(image.width() >= 200 && image.height() >= 60, qPrintable(file));
    }
    QVERIFY(QImage(files.at(1)) != QImage(files.at(2)));
    QVERIFY(QImage(files.at(1)) != QImage(files.last()));

    QFile blocker(directory.filePath(QStringLiteral("file")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    QCOMPARE(runDemo({QStringLiteral("--screenshots"), blocker.fileName()}).exitCode, 1);
}

void TestDemo::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("errors");
    QTest::newRow("unbuilt family") << QStringList{QStringLiteral("--open"), QStringLiteral("config")} << 2
                                    << QStringLiteral("moxdemo: \"Camera configuration\" is not in this build");
    QTest::newRow("unusable description")
        << QStringList{QStringLiteral("--list"), QStringLiteral("--description"), QStringLiteral("/missing.xml")} << 1
        << QStringLiteral("moxdemo: The description /missing.xml ");
}

void TestDemo::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, errors);
    const Run run = runDemo(arguments);
    QTEST(run.exitCode, "exitCode");
    QVERIFY2(run.errors.contains(errors), qPrintable(run.errors));
    QCOMPARE(run.output, QString());
}

MOX_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
