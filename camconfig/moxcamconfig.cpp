#include "moxcamconfig.h"

#include "deviceparams.h"
#include "moxcamconfig_p.h"
#include "moxcamconfigcolordialog.h"
#include "moxcamconfigframeabdialog.h"
#include "moxcamconfigoutputdialog.h"
#include "moxcamconfigpulsedialog.h"
#include "moxcamconfigstrobedialog.h"
#include "moxcamconfigtriggerdialog.h"
#include "moxcameraselectordialog.h"

#include "ui_moxcamconfigaboutdialog.h"
#include "ui_moxcamconfigmainwindow.h"

#include <QDate>
#include <QLabel>
#include <QLayout>
#include <QTimer>

namespace MoxGui {

MoxCamConfigPrivate::MoxCamConfigPrivate()
    : ui(std::make_unique<Ui_MoxCamConfigMainWindow>()), aboutUi(std::make_unique<Ui_MoxCamConfigAboutDialog>())
{ }

MoxCamConfigPrivate::~MoxCamConfigPrivate() = default;

bool MoxCamConfigPrivate::init(MoxCamConfig *window, MoxCam::Device *newDevice)
{
    q = window;
    if (!initialized) {
        ui->setupUi(q);
        aboutDialog = new QDialog(q);
        aboutUi->setupUi(aboutDialog);
        if (!newDevice) {
            const QPointer<QWidget> alive(q);
            std::unique_ptr<MoxCam::Device, Releaser> selected = selectDevice();
            if (!alive)
                return false;
            ownDevice = std::move(selected);
            newDevice = ownDevice.get();
        }
    }

    device = newDevice;
    if (!initialized) {
        if (!buildWindow())
            return false;
        initialized = true;
    }
    params = paramsOf(device);
    if (params)
        getNeededParams();
    else
        forgetParams();
    q->setEnabled(true);
    mapper.clearMappings();
    timer->start(1000);
    if (!doLastAdjustment())
        return false;
    if (device) {
        // Undone first, so that there is one subscription however often a device is taken up.
        device->UnregisterEvent(MoxCam::EventDeviceDisconnected, &CameraDisconnectCallback, this);
        device->RegisterEvent(MoxCam::EventDeviceDisconnected, &CameraDisconnectCallback, this);
        device->UnregisterEvent(MoxCam::EventDeviceConnected, &CameraConnectCallback, this);
        device->RegisterEvent(MoxCam::EventDeviceConnected, &CameraConnectCallback, this);
    }
    return true;
}

bool MoxCamConfigPrivate::buildWindow()
{
    if (!createDialogs())
        return false;

    // The units in which the camera counts, whatever the form says.
    const QString seconds = QStringLiteral("%1s").arg(QChar(0x03BC));
    ui->lblExposure->setText(seconds);
    ui->lblFrameTime->setText(seconds);
    ui->lblTemperature->setText(QStringLiteral("%1C").arg(QChar(0x00B0)));

    // Not in the form: a form takes an icon file's first picture, which is its smallest.
    aboutUi->label->setPixmap(QIcon(QStringLiteral(":/icons/moxicon.ico")).pixmap(48));
    aboutUi->lblAppName->setText(QStringLiteral("MoxCameraConfiguration"));
    aboutUi->lblAppVersion->setText(QStringLiteral("1.5.0.83"));
    aboutUi->lblCopyright->setText(QStringLiteral("Copyright %1 %2 The MoxCameraGuiApi authors")
                                       .arg(QChar(0x00A9))
                                       .arg(QDate::currentDate().year()));

    QObject::connect(ui->actionQuit, &QAction::triggered, q, &QWidget::close);
    QObject::connect(ui->actionConnect, &QAction::triggered, q, [this] { connectDevice(); });
    QObject::connect(ui->actionDisconnect, &QAction::triggered, q, [this] { disconnectDevice(); });
    QObject::connect(ui->actionAbout, &QAction::triggered, aboutDialog, &QWidget::show);
    adjustViewMenuActions();

    statusText = new QLabel(q);
    statusText->setTextFormat(Qt::PlainText); // the camera's own words
    statusText->setContentsMargins(4, 0, 0, 0);
    ui->statusbar->addWidget(statusText);
    statusIcon = new QLabel(q);
    statusIcon->setContentsMargins(0, 0, 4, 0); // no size grip keeps it off the edge
    ui->statusbar->addPermanentWidget(statusIcon);

    initButtons();

    timer = new QTimer(q);
    QObject::connect(timer, &QTimer::timeout, q, [this] { tick(); });
    return true;
}

bool MoxCamConfigPrivate::createDialogs()
{
    return makeFunction<MoxCamConfigFrameABDialog>(0, ui->pushBtnFrameAB, ui->actionFrame_A_B)
        && makeFunction<MoxCamConfigTriggerDialog>(1, ui->pushBtnTrigger, ui->actionTrigger)
        && makeFunction<MoxCamConfigPulseDialog>(2, ui->pushBtnPulse, ui->actionPulse)
        && makeFunction<MoxCamConfigStrobeDialog>(3, ui->pushBtnStrobe, ui->actionStrobe)
        && makeFunction<MoxCamConfigOutputDialog>(4, ui->pushBtnDataOut, ui->actionData_Out)
        && makeFunction<MoxCamConfigColorDialog>(5, ui->pushBtnColor, ui->actionColor);
}

void MoxCamConfigPrivate::adjustViewMenuActions()
{
    for (const Function &function : functions) {
        QObject::connect(function.action, &QAction::triggered, q, [&function](bool checked) {
            function.button->setVisible(checked);
            if (!checked)
                function.dialog->close();
        });
    }
}

void MoxCamConfigPrivate::initButtons()
{
    for (const Function &function : functions) {
        QObject::connect(function.button, &QAbstractButton::toggled, function.dialog, [&function](bool checked) {
            if (checked)
                function.dialog->show();
            else
                function.dialog->close();
        });
    }
}

std::array<MoxCamConfigPrivate::Column, 2> MoxCamConfigPrivate::columns() const
{
    return {{{ui->lineEditSizeFrameA, ui->lineEditFpsFrameA, ui->lineEditFtmFrameA, ui->lineEditExpFrameA},
             {ui->lineEditSizeFrameB, ui->lineEditFpsFrameB, ui->lineEditFtmFrameB, ui->lineEditExpFrameB}}};
}

void MoxCamConfigPrivate::isShowFrameABStuff(bool show)
{
    int row = 0;
    const auto [a, b] = columns();
    for (const auto edit : {&Column::size, &Column::fps, &Column::frameTime, &Column::exposureTime}) {
        ++row; // the captions are row 0
        ui->gridLayout->removeWidget(a.*edit);
        ui->gridLayout->removeWidget(b.*edit);
        ui->gridLayout->addWidget(a.*edit, row, 1, 1, show ? 1 : 2);
        if (show)
            ui->gridLayout->addWidget(b.*edit, row, 2);
        (b.*edit)->setVisible(show);
    }
    // As wide as what stands above it.
    ui->gridLayout->removeWidget(ui->lineEditTemperature);
    ui->gridLayout->addWidget(ui->lineEditTemperature, row + 1, 1, 1, show ? 1 : 2);
    ui->lblFrameA->setVisible(show);
    ui->lblFrameB->setVisible(show);
    ui->actionFrame_A_B->setVisible(show);
}

bool MoxCamConfigPrivate::doLastAdjustment()
{
    ui->pushBtnFrameAB->setVisible(hasFrameAB);
    const int width = hasFrameAB
        ? ui->lineEditExpFrameA->fontMetrics().horizontalAdvance(QStringLiteral("xxxxxxxxxxxx"))
        : QWIDGETSIZE_MAX;
    for (const Column &column : columns()) {
        for (QLineEdit *edit : {column.size, column.fps, column.frameTime, column.exposureTime})
            edit->setMaximumWidth(width);
    }
    isShowFrameABStuff(hasFrameAB);
    const QPointer<QObject> same(bound.get());
    updateBoth();
    for (const Function &function : functions) {
        if (!same)
            return false;
        const bool show = function.action->isVisible() && function.action->isChecked();
        function.button->setVisible(show);
        if (!show)
            function.dialog->close(); // which can write what was being typed
    }
    if (!same)
        return false;
    updateStatus();
    adjustAbout();
    return true;
}

MoxCamConfig::MoxCamConfig(MoxCam::Device *device, QWidget *parent, Qt::WindowFlags flags)
    : QMainWindow(parent, flags), d(std::make_unique<MoxCamConfigPrivate>())
{
    if (!d->init(this, device))
        return;
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    if (!flags)
        setWindowFlags(windowFlags() & ~Qt::WindowMaximizeButtonHint);
}

MoxCamConfig::~MoxCamConfig()
{
    d->shutDown();
}

void MoxCamConfig::SetDevice(MoxCam::Device *device)
{
    // A device of the window's own is not released here, and nobody else does it: the window no longer owns any.
    static_cast<void>(d->ownDevice.release());
    d->setDevice(device);
}

void MoxCamConfig::showEvent(QShowEvent *event)
{
    d->updateTemperature();
    QMainWindow::showEvent(event);
}

} // namespace MoxGui
