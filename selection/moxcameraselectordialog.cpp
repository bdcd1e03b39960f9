#include "moxcameraselectordialog.h"

#include "devicetreemodel.h"
#include "moxcameraselectordialog_p.h"
#include "sdkmetatypes.h"
#include "treeviewresizer.h"

#include "ui_moxcameraselectordialog.h"

#include <QMenu>
#include <QPointer>
#include <QPushButton>

#include <chrono>
#include <utility>

namespace MoxGui {

namespace {

constexpr std::chrono::seconds pollPeriod{1};

bool canBeOpened(MoxCam::DeviceInfo *info)
{
    const int status = info->GetAccessStatus();
    return status != MoxCam::AccessNoAccess && status != MoxCam::AccessSubnetMismatch;
}

bool isGigEVision(MoxCam::Interface *iface)
{
    return iface && iface->GetType() == MoxCam::InterfaceGigEVision;
}

} // namespace

MoxCameraSelectorDialogPrivate::MoxCameraSelectorDialogPrivate(bool poll)
    : forwarder(this), ui(std::make_unique<Ui_MoxCameraSelectorDialog>()), polling(poll)
{ }

MoxCameraSelectorDialogPrivate::~MoxCameraSelectorDialogPrivate()
{
    stopThread();
}

void MoxCameraSelectorDialogPrivate::Init(MoxCameraSelectorDialog *dialog, MoxCam::System *system)
{
    q = dialog;
    ui->setupUi(q);
    // Children of the panels, whose hidden headers leave nothing to grab.
    new TreeViewResizer(ui->interfaceInfoTreeView);
    new TreeViewResizer(ui->deviceInfoTreeView);

    // Text and height: room for the caption and the frame around it.
    ui->setIpBtn->setMinimumWidth(ui->setIpBtn->fontMetrics().horizontalAdvance(ui->setIpBtn->text())
                                  + ui->setIpBtn->sizeHint().height());
    ui->chPoll->setChecked(polling.load(std::memory_order_relaxed));

    rescanButton = new QPushButton(MoxCameraSelectorDialog::tr("&Rescan"), q);
    rescanButton->setEnabled(false);
    ui->buttonBox->addButton(rescanButton, QDialogButtonBox::ActionRole);

    deviceMenu = new QMenu(q);
    QObject::connect(deviceMenu->addAction(MoxCameraSelectorDialog::tr("Set IP Address")), &QAction::triggered,
                     &forwarder, [this] { choose(&MoxCameraSelectorDialogPrivate::setIpAddress); });
    interfaceMenu = new QMenu(q);
    QObject::connect(interfaceMenu->addAction(MoxCameraSelectorDialog::tr("Connect by IP Address")),
                     &QAction::triggered, &forwarder,
                     [this] { choose(&MoxCameraSelectorDialogPrivate::connectByIpAddress); });

    model = new DeviceTreeModel(system, q);
    QTreeView *view = ui->cameraTreeView;
    view->setModel(model);

    QObject::connect(
        view->selectionModel(), &QItemSelectionModel::currentChanged, &forwarder,
        [this](const QModelIndex &current, const QModelIndex &previous) { onCurrentChanged(current, previous); });
    QObject::connect(view, &QAbstractItemView::activated, ui->buttonBox->button(QDialogButtonBox::Ok),
                     &QAbstractButton::click);
    QObject::connect(view, &QWidget::customContextMenuRequested, &forwarder,
                     [this](const QPoint &pos) { showContextMenu(pos); });
    QObject::connect(ui->chPoll, &QAbstractButton::clicked, &forwarder, [this](bool checked) { setPolling(checked); });
    QObject::connect(ui->setIpBtn, &QAbstractButton::clicked, &forwarder, [this] { setIpAddress(); });
    QObject::connect(rescanButton, &QAbstractButton::clicked, &forwarder, [this] { rescan(); });
    // Expanding fetches, so every reset fills the whole tree. It comes after the view's own answer to the reset.
    QObject::connect(model, &QAbstractItemModel::modelReset, view, &QTreeView::expandAll);
    QObject::connect(&forwarder, &PrivateSlotForwarder::systemChanged, &forwarder,
                     &PrivateSlotForwarder::onSystemChanged, Qt::QueuedConnection);

    view->expandAll();
    setPolling(ui->chPoll->isChecked());
}

void MoxCameraSelectorDialogPrivate::onCurrentChanged(const QModelIndex &current, const QModelIndex &)
{
    lastItemId = model->getItemID(current);
    FillInfo(current);
    auto *info = current.data(Qt::UserRole).value<MoxCam::DeviceInfo *>();
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(info && canBeOpened(info));
    ui->setIpBtn->setEnabled(info && isGigEVision(info->GetInterface()));
}

void MoxCameraSelectorDialogPrivate::setPolling(bool poll)
{
    stopThread();
    if (poll) {
        polling.store(true, std::memory_order_relaxed);
        thread = std::make_unique<std::thread>(&MoxCameraSelectorDialogPrivate::pollThread, this);
    }
    // Rescanning writes what the poll thread reads.
    rescanButton->setEnabled(!poll);
}

void MoxCameraSelectorDialogPrivate::stopThread()
{
    polling.store(false, std::memory_order_relaxed);
    if (thread && thread->joinable())
        thread->join();
    thread.reset();
}

// An SDK that throws here has no caller to throw at: such an enumeration finds nothing new, and the next one may.
bool MoxCameraSelectorDialogPrivate::hasNewDevices()
{
    try {
        return model->checkNew();
    } catch (...) {
        return false;
    }
}

void MoxCameraSelectorDialogPrivate::pollThread()
{
    while (polling.load(std::memory_order_relaxed)) {
        if (hasNewDevices()) {
            changed.store(true);
            Q_EMIT forwarder.systemChanged();
        }
        if (!polling.load(std::memory_order_relaxed))
            return;
        std::this_thread::sleep_for(pollPeriod);
    }
}

void MoxCameraSelectorDialogPrivate::rescan()
{
    model->rescan();
    const QModelIndex current = ui->cameraTreeView->selectionModel()->currentIndex();
    onCurrentChanged(current, current);
}

void MoxCameraSelectorDialogPrivate::showContextMenu(const QPoint &pos)
{
    const QVariant object = ui->cameraTreeView->indexAt(pos).data(Qt::UserRole);
    QMenu *menu = nullptr;
    if (auto *info = object.value<MoxCam::DeviceInfo *>())
        menu = isGigEVision(info->GetInterface()) ? deviceMenu : nullptr;
    else if (isGigEVision(object.value<MoxCam::Interface *>()))
        menu = interfaceMenu;
    if (!menu)
        return;
    const QPointer<QMenu> same(menu);
    openMenu = menu;
    // The view's own coordinates, though the position is one of its viewport.
    menu->exec(ui->cameraTreeView->mapToGlobal(pos));
    if (!same) // deleted with the selector
        return;
    openMenu = nullptr;
    if (const Handler handler = std::exchange(chosen, nullptr))
        (this->*handler)();
}

/**
 * Runs what a menu's entry is for, when its menu is left: Qt still writes to a menu whose entry is running, and an
 * application that deletes the selector meanwhile deletes the menu with it.
 */
void MoxCameraSelectorDialogPrivate::choose(Handler handler)
{
    if (!openMenu) {
        (this->*handler)();
        return;
    }
    chosen = handler;
    openMenu->hide(); // a screen reader leaves it open
}

MoxCameraSelectorDialog::MoxCameraSelectorDialog(MoxCam::System *system, QWidget *parent, bool poll)
    : QDialog(parent), d(std::make_unique<MoxCameraSelectorDialogPrivate>(poll))
{
    d->Init(this, system);
}

MoxCameraSelectorDialog::~MoxCameraSelectorDialog() = default;

MoxCam::DeviceInfo *MoxCameraSelectorDialog::selectedCamera() const
{
    if (d->selected)
        return d->selected;
    return d->ui->cameraTreeView->currentIndex().data(Qt::UserRole).value<MoxCam::DeviceInfo *>();
}

// Changes nothing: the user alone decides. It stays for the applications that call it.
void MoxCameraSelectorDialog::setSelectedCamera(MoxCam::DeviceInfo *)
{ }

bool MoxCameraSelectorDialog::isPollChecked()
{
    return d->polling.load(std::memory_order_relaxed);
}

} // namespace MoxGui
