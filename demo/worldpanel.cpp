#include "worldpanel.h"

#include "worldsettings.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace MoxDemo {

namespace {

enum Column { NameColumn, AddressColumn, HostColumn };

QString idOf(const QTreeWidgetItem *item)
{
    return item->data(NameColumn, Qt::UserRole).toString();
}

bool isInterface(const QTreeWidgetItem *item)
{
    return !item->parent();
}

/** The world's identifiers in the order of the tree's rows. */
QStringList worldIds()
{
    QStringList ids;
    for (const std::string &interfaceId : MoxSim::interfaces()) {
        ids << QString::fromStdString(interfaceId);
        for (const std::string &cameraId : MoxSim::cameras(interfaceId))
            ids << QString::fromStdString(cameraId);
    }
    return ids;
}

QTreeWidgetItem *createItem(const std::string &id)
{
    auto *item = new QTreeWidgetItem({QString::fromStdString(id)}); // without parent: the caller inserts it
    item->setData(NameColumn, Qt::UserRole, QString::fromStdString(id));
    item->setToolTip(NameColumn, QString::fromStdString(id));
    return item;
}

} // namespace

WorldPanel::WorldPanel(MoxCam::System *system, QWidget *parent)
    : QGroupBox(tr("Simulated world"), parent),
      m_system(system),
      m_tree(new QTreeWidget(this)),
      m_settings(new WorldSettings(this))
{
    m_tree->setObjectName(QStringLiteral("worldTree"));
    m_tree->setHeaderLabels({tr("Plugged in"), tr("Address"), tr("Host sees")});
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(AddressColumn, QHeaderView::ResizeToContents);
    m_tree->header()->setSectionResizeMode(HostColumn, QHeaderView::ResizeToContents);
    connect(m_tree, &QTreeWidget::itemChanged, this, &WorldPanel::plug);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &WorldPanel::refresh);
    connect(m_settings, &WorldSettings::worldAsked, this, &WorldPanel::tell);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_settings);
    auto *line = new QFrame(this);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line);
    layout->addWidget(createActions());

    refresh();
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &WorldPanel::refresh);
    timer->start(1000);
}

QWidget *WorldPanel::createActions()
{
    auto *actions = new QWidget(this);
    auto *layout = new QGridLayout(actions);
    layout->setContentsMargins(0, 0, 0, 0);

    const auto addButton = [&](const QString &name, const QString &text) {
        auto *button = new QPushButton(text, actions);
        button->setObjectName(name);
        return button;
    };

    m_model = new QComboBox(actions);
    m_model->setObjectName(QStringLiteral("model"));
    m_model->addItem(tr("GigE Vision, frames A and B"), static_cast<int>(MoxSim::Model::FrameAB));
    m_model->addItem(tr("GigE Vision, one frame"), static_cast<int>(MoxSim::Model::Plain));
    m_model->addItem(tr("USB3 Vision, colour"), static_cast<int>(MoxSim::Model::Color));
    m_addCamera = addButton(QStringLiteral("addCamera"), tr("Add &camera"));
    connect(m_addCamera, &QPushButton::clicked, this, &WorldPanel::addCamera);

    m_openDescription = addButton(QStringLiteral("openDescription"), tr("Open a description &file as a camera..."));
    connect(m_openDescription, &QPushButton::clicked, this, &WorldPanel::openDescription);

    auto *types = new QMenu(actions);
    const auto addType = [this, types](int type, const QString &name) {
        connect(types->addAction(name), &QAction::triggered, this, [this, type, name] { addInterface(type, name); });
    };
    addType(MoxCam::InterfaceGigEVision, tr("GigE Vision"));
    addType(MoxCam::InterfaceUsb3Vision, tr("USB3 Vision"));
    auto *addInterfaceButton = addButton(QStringLiteral("addInterface"), tr("Add &interface"));
    addInterfaceButton->setMenu(types);

    m_remove = addButton(QStringLiteral("remove"), tr("Re&move"));
    connect(m_remove, &QPushButton::clicked, this, &WorldPanel::removeCurrent);
    auto *reset = addButton(QStringLiteral("resetWorld"), tr("Reset &world"));
    connect(reset, &QPushButton::clicked, this, &WorldPanel::resetWorld);
    layout->addWidget(m_model, 0, 0, 1, 2);
    layout->addWidget(m_addCamera, 0, 2);
    layout->addWidget(m_openDescription, 1, 0, 1, 3);
    layout->addWidget(addInterfaceButton, 2, 0);
    layout->addWidget(m_remove, 2, 1);
    layout->addWidget(reset, 2, 2);
    return actions;
}

void WorldPanel::refresh()
{
    setEnabled(MoxSim::worlds() & MoxSim::SimulatedWorld);
    if (!isEnabled())
        return;

    // Only the simulated interfaces are asked, and without any wait: a discovery cut short would hide real cameras.
    const QStringList ids = worldIds();
    QHash<QString, MoxCam::DeviceInfo *> cameras;
    QStringList interfaces;
    for (MoxCam::Interface *interface : interfacesOf(m_system)) {
        const QString interfaceId = QString::fromUtf8(interface->GetID());
        if (!ids.contains(interfaceId))
            continue;
        interfaces << interfaceId;
        m_names[interfaceId] = QString::fromUtf8(interface->GetDescription());
        for (MoxCam::DeviceInfo *camera : camerasOf(interface, 0)) {
            const QString cameraId = QString::fromUtf8(camera->GetID());
            cameras[cameraId] = camera;
            m_names[cameraId] = QString::fromUtf8(camera->GetDisplayName());
        }
    }

    const QSignalBlocker quiet(m_tree);
    QStringList shown;
    for (QTreeWidgetItemIterator item(m_tree); *item; ++item)
        shown << idOf(*item);
    if (shown != ids)
        rebuild();
    for (QTreeWidgetItemIterator position(m_tree); *position; ++position) {
        QTreeWidgetItem *item = *position;
        const QString id = idOf(item);
        MoxCam::DeviceInfo *camera = cameras.value(id);
        const bool plugged = isInterface(item) ? interfaces.contains(id) : MoxSim::isPlugged(id.toStdString());
        item->setText(NameColumn, m_names.value(id, id));
        item->setCheckState(NameColumn, plugged ? Qt::Checked : Qt::Unchecked);
        if (!isInterface(item)) {
            // The world tells it also of a camera that only its address finds.
            item->setText(AddressColumn, QString::fromStdString(MoxSim::ipAddress(id.toStdString())));
            item->setText(HostColumn, camera ? accessText(camera->GetAccessStatus()) : tr("not seen"));
        }
    }

    const QTreeWidgetItem *current = m_tree->currentItem();
    m_addCamera->setEnabled(!ids.isEmpty());
    m_openDescription->setEnabled(!ids.isEmpty());
    m_remove->setEnabled(current);
    if (!current)
        m_settings->showNothing();
    else if (isInterface(current))
        m_settings->showInterface(idOf(current));
    else
        m_settings->showCamera(idOf(current), cameras.value(idOf(current)));
}

void WorldPanel::rebuild()
{
    const QString currentId = m_tree->currentItem() ? idOf(m_tree->currentItem()) : QString();
    m_tree->clear();
    for (const std::string &interfaceId : MoxSim::interfaces()) {
        QTreeWidgetItem *interface = createItem(interfaceId);
        m_tree->addTopLevelItem(interface);
        for (const std::string &cameraId : MoxSim::cameras(interfaceId))
            interface->addChild(createItem(cameraId));
    }
    m_tree->expandAll();
    setCurrent(currentId);
}

void WorldPanel::tell(const QString &call, const Outcome &outcome)
{
    refresh();
    Q_EMIT worldAsked(call, outcome);
}

void WorldPanel::plug(QTreeWidgetItem *item)
{
    const QString id = idOf(item);
    const bool plugged = item->checkState(NameColumn) == Qt::Checked;
    tell(plugged ? tr("Plug in %1").arg(id) : tr("Unplug %1").arg(id), attempt([&] {
             if (isInterface(item))
                 MoxSim::setInterfacePlugged(id.toStdString(), plugged);
             else
                 MoxSim::setPlugged(id.toStdString(), plugged);
             return m_names.value(id, id);
         }));
}

void WorldPanel::addInterface(int type, const QString &name)
{
    const Outcome added = attempt(
        [&] { return QString::fromStdString(MoxSim::addInterface(type, tr("Simulated %1").arg(name).toStdString())); });
    tell(tr("Add an interface"), added);
    if (added.ok)
        setCurrent(added.text);
}

void WorldPanel::addCamera()
{
    MoxSim::CameraSetup setup;
    setup.model = static_cast<MoxSim::Model>(m_model->currentData().toInt());
    const Outcome added = attempt([&] { return QString::fromStdString(MoxSim::addCamera(targetInterface(), setup)); });
    tell(tr("Add a camera"), added);
    if (added.ok)
        setCurrent(added.text);
}

void WorldPanel::openDescription()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open a description file as a camera"), QString(),
                                                      tr("GenICam descriptions (*.xml);;All files (*)"));
    if (file.isEmpty())
        return;
    const Outcome added = addDescription(targetInterface(), file);
    tell(tr("Open %1").arg(file), added);
    if (!added.ok) {
        QMessageBox::warning(this, tr("Open a description file"), added.text);
        return;
    }
    setCurrent(added.text);
    Q_EMIT descriptionOpened(added.text);
}

void WorldPanel::removeCurrent()
{
    const QTreeWidgetItem *item = m_tree->currentItem();
    const QString id = idOf(item);
    tell(tr("Remove %1").arg(id), attempt([&] {
             if (isInterface(item))
                 MoxSim::removeInterface(id.toStdString());
             else
                 MoxSim::removeCamera(id.toStdString());
             return m_names.value(id, id);
         }));
}

void WorldPanel::resetWorld()
{
    m_settings->forget();
    tell(tr("Reset the world"), attempt([] {
             MoxSim::resetWorld();
             return tr("Done");
         }));
}

std::string WorldPanel::targetInterface() const
{
    const QTreeWidgetItem *item = m_tree->currentItem() ? m_tree->currentItem() : m_tree->topLevelItem(0);
    return item ? idOf(isInterface(item) ? item : item->parent()).toStdString() : std::string();
}

void WorldPanel::setCurrent(const QString &id)
{
    QTreeWidgetItemIterator item(m_tree);
    while (*item && idOf(*item) != id)
        ++item;
    m_tree->setCurrentItem(*item);
}

} // namespace MoxDemo
