#include "moxcameraactiondialog.h"

#include "moxcameraactiondialog_p.h"

#include "ui_moxcameraactiondialog.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <QCoreApplication>
#include <QPointer>
#include <QSettings>
#include <QThread>
#include <QTime>

namespace MoxGui {

namespace {

// Transport types to ask the system for: all that it has.
constexpr std::uint32_t allTransports = 255;
constexpr int acknowledgeLimit = 3000; // milliseconds, for each interface
constexpr unsigned long checkPeriod = 100; // milliseconds

// In the byte that the command carries.
constexpr int requestAcknowledgement = 0x01;
constexpr int scheduledTime = 0x80;

// What does not read as a hexadecimal number is 0.
quint32 key(const QLineEdit *edit)
{
    return edit->text().toUInt(nullptr, 16);
}

/** Ends the use of an SDK list. */
struct ReleaseList
{
    void operator()(MoxCam::InterfaceList *list) const { list->Release(); }
};

} // namespace

MoxCameraActionDialogPrivate::MoxCameraActionDialogPrivate(MoxCameraActionDialog *dialog)
    : q(dialog), ui(std::make_unique<Ui_MoxCameraActionDialog>())
{ }

MoxCameraActionDialogPrivate::~MoxCameraActionDialogPrivate() = default;

void MoxCameraActionDialogPrivate::listInterfaces(MoxCam::System *system)
{
    const std::unique_ptr<MoxCam::InterfaceList, ReleaseList> list(system->GetInterfaceList(allTransports));
    if (!list || list->GetCount() == 0)
        return;
    for (MoxCam::Interface *iface = list->GetFirst(); iface; iface = list->GetNext()) {
        if (iface->GetType() != MoxCam::InterfaceGigEVision)
            continue;
        interfaces.push_back(iface);
        auto *item = new QListWidgetItem(QString::fromUtf8(iface->GetDescription()), ui->interfacesList);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setData(Qt::CheckStateRole, Qt::Unchecked);
    }
}

void MoxCameraActionDialogPrivate::onSend()
{
    // Acknowledgements are written to these two by a thread of the SDK and read here, without a lock and without atomics.
    // One that comes late may do so in the middle of a read. This is known and left so; the count is never reset.
    static QStringList SourceIPs; // of the interface being served
    static quint32 CountGotActionAcks = 0; // of all sends of the process
    static struct Acknowledgement
    {
        static void EventCallback(const void *data, unsigned long size, void *)
        {
            if (size <= 4 || !data) // an address alone is too short
                return;
            const auto *byte = static_cast<const uchar *>(data);
            SourceIPs << QStringLiteral("%1.%2.%3.%4").arg(byte[0]).arg(byte[1]).arg(byte[2]).arg(byte[3]);
            ++CountGotActionAcks;
        }
    } context; // something to register by; nobody looks at it

    ui->teAck->clear();
    const int flags = (ui->cbRequestAck->isChecked() ? requestAcknowledgement : 0)
        | (ui->cbScheduled->isChecked() ? scheduledTime : 0);
    const quint32 deviceKey = key(ui->leDevKey);
    const quint32 groupKey = key(ui->leGroupKey);
    const quint32 groupMask = key(ui->leGroupMask);
    const auto time = static_cast<quint64>(ui->leScheduledTime->text().toLongLong(nullptr, 10));
    const int cntWait = ui->sbCntWaitAck->value();

    const QPointer<MoxCameraActionDialog> dialog = q;
    for (std::size_t i = 0; i < interfaces.size(); ++i) {
        const QListWidgetItem *item = ui->interfacesList->item(static_cast<int>(i));
        if (!item || item->data(Qt::CheckStateRole).toInt() == Qt::Unchecked)
            continue;
        MoxCamErr err = MoxCamError::Success;
        MoxGenParam::Array *params = interfaces[i]->GetParameters(&err);
        if (err != MoxCamError::Success || !params)
            continue;
        // Refused writes are passed over, and the time is written also when nothing is scheduled.
        params->SetIntegerValue("ActionFlags", flags);
        params->SetIntegerValue("ActionDevKey", deviceKey);
        params->SetIntegerValue("ActionGroupKey", groupKey);
        params->SetIntegerValue("ActionGroupMask", groupMask);
        params->SetIntegerValue("ActionTimeHi", static_cast<std::int64_t>(time >> 32));
        params->SetIntegerValue("ActionTimeLo", static_cast<std::int64_t>(time & 0xffffffff));
        params->SetIntegerValue("CntWaitActionAcks", cntWait);
        if (!params->GetCommand("GevAction", &err))
            continue;
        SourceIPs.clear();
        // There is no way back from it: each send adds a registration, and where the SDK calls each of them, all go on
        // counting.
        interfaces[i]->RegisterEventCallback(MoxCam::EventActionAcknowledge, &Acknowledgement::EventCallback, &context);
        params->ExecuteCommand("GevAction");

        QTime elapsed;
        elapsed.start();
        // No waiting once that many have come since the process began.
        while (CountGotActionAcks < static_cast<quint32>(cntWait) && elapsed.elapsed() < acknowledgeLimit)
            QThread::msleep(checkPeriod);
        for (const QString &ip : qAsConst(SourceIPs))
            ui->teAck->insertPlainText(QStringLiteral("[OK] ") + ip + QLatin1Char('\n'));
        QCoreApplication::processEvents();
        if (!dialog) // deleted by what the events did, and this object with it
            return;
    }
    QCoreApplication::processEvents();
}

MoxCameraActionDialog::MoxCameraActionDialog(MoxCam::System *system, QWidget *parent, QSettings *callersSettings)
    : QDialog(parent), d(std::make_unique<MoxCameraActionDialogPrivate>(this)), settings(callersSettings)
{
    d->ui->setupUi(this);
    // The group's minimum is less than its rows need; the dialog's keeps them whole.
    const QGroupBox *group = d->ui->gbActionCommand;
    const int missing = group->minimumSizeHint().height() - group->minimumHeight();
    setMinimumHeight(minimumSizeHint().height() + qMax(missing, 0));
    d->listInterfaces(system);
    connect(d->ui->pbSend, &QAbstractButton::clicked, this, [this] { d->onSend(); });
    LoadStateFromGlobalSettings();
}

MoxCameraActionDialog::~MoxCameraActionDialog()
{
    SaveStateToGlobalSettings();
}

bool MoxCameraActionDialog::LoadStateFromGlobalSettings()
{
    if (!settings)
        return false;
    const auto text = [this](const char *key, const char *absent) {
        return settings->value(QLatin1String(key), QLatin1String(absent)).toString();
    };
    const auto number = [this](const char *key, const char *absent) {
        return settings->value(QLatin1String(key), QLatin1String(absent)).toInt();
    };
    settings->beginGroup(objectName());
    d->ui->leDevKey->setText(text("devKey", "0x5"));
    d->ui->leGroupKey->setText(text("groupKey", "0x7"));
    d->ui->leGroupMask->setText(text("groupMask", "0xFFFFFFFF"));
    d->ui->cbRequestAck->setChecked(number("reqAck", "0") != 0);
    d->ui->cbScheduled->setChecked(number("scheduled", "0") != 0);
    d->ui->sbCntWaitAck->setValue(number("cntWaitAck", "1"));
    d->ui->leScheduledTime->setText(text("sTime", "0"));
    settings->endGroup();
    return true;
}

bool MoxCameraActionDialog::SaveStateToGlobalSettings()
{
    if (!settings)
        return false;
    settings->beginGroup(objectName());
    settings->setValue(QStringLiteral("devKey"), d->ui->leDevKey->text());
    settings->setValue(QStringLiteral("groupKey"), d->ui->leGroupKey->text());
    settings->setValue(QStringLiteral("groupMask"), d->ui->leGroupMask->text());
    settings->setValue(QStringLiteral("reqAck"), d->ui->cbRequestAck->isChecked() ? 1 : 0);
    settings->setValue(QStringLiteral("scheduled"), d->ui->cbScheduled->isChecked() ? 1 : 0);
    settings->setValue(QStringLiteral("cntWaitAck"), d->ui->sbCntWaitAck->value());
    settings->setValue(QStringLiteral("sTime"), d->ui->leScheduledTime->text());
    settings->endGroup();
    return true;
}

} // namespace MoxGui
