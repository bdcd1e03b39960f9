#include "mainwindow.h"

#include "demosettings.h"
#include "parametertree.h"
#include "widgetgallery.h"
#include "worldpanel.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxcamconfig.h>
#include <moxcameraactiondialog.h>
#include <moxcameraguiapi.h>
#include <moxcameraselectordialog.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QTime>
#include <QTreeWidget>

namespace MoxDemo {

namespace {

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

QCommandLinkButton *createEntry(const QString &name, const QString &caption, const QString &purpose, QWidget *parent)
{
    auto *entry = new QCommandLinkButton(caption, purpose, parent);
    entry->setObjectName(name);
    // By itself it would give up its second line where room is scarce.
    entry->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return entry;
}

/** Brings an open window to the front. False when it is null. */
bool bringToFront(QWidget *window)
{
    if (!window)
        return false;
    window->raise();
    window->activateWindow();
    return true;
}

} // namespace

MainWindow::MainWindow(MoxCam::System *system, bool poll) : m_system(system)
{
    setWindowTitle(tr("Mox camera demo"));

    // In the order in which the keyboard walks them.
    auto *left = new QWidget(this);
    auto *leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(createWorldChooser());
    leftLayout->addWidget(createFamilies(poll));
    leftLayout->addWidget(createChosenCamera());
    leftLayout->addStretch();

    m_worldPanel = new WorldPanel(system, this);
    connect(m_worldPanel, &WorldPanel::worldAsked, this, &MainWindow::log);
    connect(m_worldPanel, &WorldPanel::descriptionOpened, this, [this](const QString &id) {
        // Its interface may be hidden.
        if (MoxCam::DeviceInfo *camera = cameraWithId(m_system, id.toStdString()))
            setChosenCamera(camera);
    });
    auto *scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(m_worldPanel);

    auto *top = new QSplitter(this);
    top->setChildrenCollapsible(false);
    top->addWidget(left);
    top->addWidget(scroll);
    top->setStretchFactor(1, 1);

    auto *all = new QSplitter(Qt::Vertical, this);
    all->setChildrenCollapsible(false);
    all->addWidget(top);
    all->addWidget(createLog());
    all->setStretchFactor(0, 1);

    auto *content = new QWidget(this);
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(all);
    setCentralWidget(content);
    setChosenCamera(nullptr);
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    resize(QSize(1040, 840).boundedTo(room));
}

QWidget *MainWindow::createWorldChooser()
{
    auto *chooser = new QGroupBox(tr("World"), this);
    m_worlds = new QComboBox(chooser);
    m_worlds->setObjectName(QStringLiteral("worlds"));
    m_worlds->addItem(tr("Simulated"), MoxSim::SimulatedWorld);
    m_worlds->addItem(tr("Real"), MoxSim::RealWorld);
    m_worlds->addItem(tr("Both"), MoxSim::RealWorld | MoxSim::SimulatedWorld);
    m_worlds->setCurrentIndex(m_worlds->findData(MoxSim::worlds()));
    connect(m_worlds, QOverload<int>::of(&QComboBox::activated), this,
            [this] { setWorlds(m_worlds->currentData().toUInt()); });
    auto *layout = new QVBoxLayout(chooser);
    layout->addWidget(m_worlds);
    return chooser;
}

QWidget *MainWindow::createFamilies(bool poll)
{
    auto *group = new QGroupBox(tr("Open"), this);
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(0);
    for (const FamilyInfo &info : families) {
        QPushButton *entry = createEntry(latin1(info.key), latin1(info.caption), latin1(info.purpose), group);
        entry->setToolTip(latin1(info.function));
        connect(entry, &QPushButton::clicked, this, [this, family = info.family] { open(family); });
        layout->addWidget(entry);
        if (info.family == Family::Select)
            addSelectorOptions(layout, poll);
    }
    return group;
}

void MainWindow::addSelectorOptions(QVBoxLayout *layout, bool poll)
{
    QPushButton *modeless = createEntry(QStringLiteral("modeless"), tr("Select a camera (modeless)"),
                                        tr("Beside this window"), layout->parentWidget());
    modeless->setToolTip(tr("MoxCameraSelectorDialog: plug and unplug cameras while it is polling"));
    connect(modeless, &QPushButton::clicked, this, &MainWindow::openModelessSelector);
    m_poll = new QCheckBox(tr("Start with polling"), layout->parentWidget());
    m_poll->setObjectName(QStringLiteral("poll"));
    m_poll->setChecked(poll);
    layout->addWidget(modeless);
    layout->addWidget(m_poll);
}

QWidget *MainWindow::createChosenCamera()
{
    auto *group = new QGroupBox(tr("Chosen camera"), this);
    m_chosenText = new QLabel(group);
    m_chosenText->setTextFormat(Qt::PlainText);
    m_chosenText->setWordWrap(true);
    m_openChosen = new QPushButton(tr("Open chosen camera"), group);
    m_openChosen->setObjectName(QStringLiteral("openChosen"));
    m_openChosen->setToolTip(tr("Opens the camera, reads who it is and what it offers, and closes it"));
    connect(m_openChosen, &QPushButton::clicked, this, &MainWindow::openChosenCamera);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(m_chosenText);
    layout->addWidget(m_openChosen);
    return group;
}

QWidget *MainWindow::createLog()
{
    auto *group = new QGroupBox(tr("What the calls returned"), this);
    m_log = new QTreeWidget(group);
    m_log->setObjectName(QStringLiteral("log"));
    m_log->setHeaderLabels({tr("Time"), tr("Call"), tr("Result")});
    m_log->setRootIsDecorated(false);
    m_log->setAlternatingRowColors(true);
    m_log->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_log->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(m_log);
    return group;
}

void MainWindow::log(const QString &call, const Outcome &outcome)
{
    auto *line = new QTreeWidgetItem(m_log, {QTime::currentTime().toString(Qt::ISODate), call, outcome.text});
    if (!outcome.ok)
        line->setIcon(1, style()->standardIcon(QStyle::SP_MessageBoxWarning));
    line->setToolTip(2, outcome.text);
    m_log->scrollToItem(line);
}

void MainWindow::setWorlds(unsigned worlds)
{
    MoxSim::setWorlds(worlds);
    m_worlds->setCurrentIndex(m_worlds->findData(worlds));
    m_worldPanel->refresh();
    log(QStringLiteral("MoxSim::setWorlds"), {true, m_worlds->currentText()});
}

void MainWindow::setChosenCamera(MoxCam::DeviceInfo *camera)
{
    m_chosen = camera;
    m_chosenText->setText(camera ? describe(camera) : tr("None yet"));
    m_openChosen->setEnabled(camera);
    if (camera)
        m_worldPanel->setCurrent(QString::fromUtf8(camera->GetID()));
}

void MainWindow::openChosenCamera()
{
    if (m_chosen)
        log(QStringLiteral("MoxCam_CreateDevice"), openAndDescribe(m_chosen));
}

void MainWindow::open(Family family)
{
    switch (family) {
    case Family::Select:
        selectModally();
        break;
    case Family::ParameterTree:
        openParameterTree();
        break;
    case Family::Configuration:
        openConfiguration();
        break;
    case Family::Action:
        openActionConsole();
        break;
    case Family::Gallery:
        openGallery();
        break;
    }
}

void MainWindow::selectModally()
{
    // Without a native parent nothing else is blocked while the dialog is open.
    centralWidget()->setEnabled(false);
    MoxCam::DeviceInfo *camera =
        SelectCameraA(m_system, tr("Select a camera").toUtf8().constData(), 0, m_poll->isChecked());
    centralWidget()->setEnabled(true);
    selected(QStringLiteral("SelectCameraA"), camera);
}

void MainWindow::openModelessSelector()
{
    if (bringToFront(m_selector))
        return;
    m_selector = new MoxGui::MoxCameraSelectorDialog(m_system, this, m_poll->isChecked());
    m_selector->setAttribute(Qt::WA_DeleteOnClose);
    // The dialog asks for modality itself; without it the world panel stays usable.
    m_selector->setModal(false);
    m_selector->setWindowModality(Qt::NonModal);
    connect(m_selector, &QDialog::finished, this, [this](int result) {
        selected(QStringLiteral("MoxCameraSelectorDialog"),
                 result == QDialog::Accepted ? m_selector->selectedCamera() : nullptr);
    });
    m_selector->show();
}

void MainWindow::openParameterTree()
{
    if (!m_chosen)
        setChosenCamera(cameraWithStatus(m_system, MoxCam::AccessReadWrite));
    const QString call = QStringLiteral("CreateGenParamTreeViewForArrayA");
    if (!m_chosen)
        return log(call, {false, tr("There is no camera that can be opened")});
    QPointer<ParameterTree> &tree = m_trees[m_chosen];
    if (tree && tree->isOpen())
        return tree->raise();
    delete tree; // one that was just closed still holds the camera

    OpenedCamera opened = openCamera(m_chosen);
    if (!opened.parameters)
        return log(call, {false, opened.failure});
    tree = new ParameterTree(std::move(opened), m_chosen, this);
    connect(tree, &ParameterTree::closed, this, [this](const QString &state) {
        log(QStringLiteral("IMoxGenParamTreeView::saveState"), {true, state});
    });
    log(call, {true, describe(m_chosen)});
}

void MainWindow::openConfiguration()
{
    const QString call = QStringLiteral("MoxCamConfig");
    QPointer<MoxGui::MoxCamConfig> &known = m_configurations[m_chosen];
    if (known && known->isVisible() && bringToFront(known))
        return;
    delete known; // one that was just closed still holds the camera

    OpenedCamera opened;
    if (m_chosen) {
        opened = openCamera(m_chosen);
        if (!opened.device)
            return log(call, {false, opened.failure});
    }
    // Without a device the window lets the user select one first.
    auto *window = new MoxGui::MoxCamConfig(opened.device.get(), this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (MoxCam::Device *device = opened.device.release())
        connect(window, &QObject::destroyed, window, [device] { device->Release(); }); // the window has let go of it
    m_configurations[m_chosen] = window;
    window->show();
    log(call, {true, m_chosen ? describe(m_chosen) : tr("The window's own camera, or none")});
}

void MainWindow::openActionConsole()
{
    if (bringToFront(m_actionConsole))
        return;
    auto settings = std::make_unique<DemoSettings>();
    m_actionConsole = new MoxGui::MoxCameraActionDialog(m_system, this, settings.get());
    settings.release()->setParent(m_actionConsole); // the console saves its state in them when it ends
    m_actionConsole->setAttribute(Qt::WA_DeleteOnClose);
    m_actionConsole->show();
    log(QStringLiteral("MoxCameraActionDialog"), {true, tr("With the interfaces of now")});
}

void MainWindow::openGallery()
{
    if (bringToFront(m_gallery))
        return;
    m_gallery = new WidgetGallery(this);
    m_gallery->setAttribute(Qt::WA_DeleteOnClose);
    m_gallery->show();
}

void MainWindow::selected(const QString &call, MoxCam::DeviceInfo *camera)
{
    log(call, {true, camera ? describe(camera) : tr("Nothing chosen")});
    if (camera)
        setChosenCamera(camera);
}

} // namespace MoxDemo
