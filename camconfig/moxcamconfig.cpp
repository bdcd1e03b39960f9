#include "moxcamconfig.h"

#include "moxcamconfig_p.h"
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
        buildWindow();
        initialized = true;
    }
    MoxCamErr err = MoxCamError::Success;
    params = device ? device->GetCameraParameters(&err) : nullptr;
    if (params && err == MoxCamError::Success)
        getNeededParams();
    else
        forgetParams();
    q->setEnabled(true);
    mapper.clearMappings();
    timer->start(1000);
    doLastAdjustment();
    if (device) {
        // Undone first, so that there is one subscription however often a device is taken up.
        device->UnregisterEvent(MoxCam::EventDeviceDisconnected, &CameraDisconnectCallback, this);
        device->RegisterEvent(MoxCam::EventDeviceDisconnected, &CameraDisconnectCallback, this);
        device->UnregisterEvent(MoxCam::EventDeviceConnected, &CameraConnectCallback, this);
        device->RegisterEvent(MoxCam::EventDeviceConnected, &CameraConnectCallback, this);
    }
    return true;
}

void MoxCamConfigPrivate::buildWindow()
{
    createDialogs();

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
}

void MoxCamConfigPrivate::createDialogs()
{
    functions = {{
        {ui->pushBtnFrameAB, ui->actionFrame_A_B},
        {ui->pushBtnTrigger, ui->actionTrigger},
        {ui->pushBtnPulse, ui->actionPulse},
        {ui->pushBtnStrobe, ui->actionStrobe},
        {ui->pushBtnDataOut, ui->actionData_Out},
        {ui->pushBtnColor, ui->actionColor},
    }};
}

void MoxCamConfigPrivate::adjustViewMenuActions()
{
    for (const Function &function : functions) {
        QObject::connect(function.action, &QAction::triggered, q, [&function](bool checked) {
            function.button->setVisible(checked);
            if (!checked && function.dialog)
                function.dialog->close();
        });
    }
}

void MoxCamConfigPrivate::initButtons()
{
    for (const Function &function : functions) {
        // There is nothing to open without a dialog.
        function.button->setEnabled(function.dialog);
        if (function.dialog) {
            QObject::connect(function.button, &QAbstractButton::toggled, function.dialog, [&function](bool checked) {
                if (checked)
                    function.dialog->show();
                else
                    function.dialog->close();
            });
        }
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

void MoxCamConfigPrivate::doLastAdjustment()
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
    updateBoth();
    for (const Function &function : functions) {
        const bool show = function.action->isVisible() && function.action->isChecked();
        function.button->setVisible(show);
        if (!show && function.dialog)
            function.dialog->close();
    }
    updateStatus();
    adjustAbout();
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
    d->setDevice(device);
    // A device of the window's own is not released here, and nobody else does it: the window no longer owns any.
    d->ownDevice.release();
}

void MoxCamConfig::showEvent(QShowEvent *event)
{
    d->updateTemperature();
    QMainWindow::showEvent(event);
}

} // namespace MoxGui
