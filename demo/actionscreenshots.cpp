#include "actionscreenshots.h"

#include "album.h"

#include <moxcameraactiondialog.h>

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace MoxDemo {

void renderActions(Album &album, MoxCam::System *system)
{
    MoxGui::MoxCameraActionDialog console(system, nullptr, nullptr);
    album.render(console, "action.png");
    QListWidgetItem *interface = console.findChild<QListWidget *>(QStringLiteral("interfacesList"))->item(0);
    if (!interface)
        return album.fail(QStringLiteral("there is no GigE Vision interface"));
    interface->setCheckState(Qt::Checked);
    console.findChild<QCheckBox *>(QStringLiteral("cbRequestAck"))->setChecked(true);
    console.findChild<QSpinBox *>(QStringLiteral("sbCntWaitAck"))->setValue(2);
    console.findChild<QPushButton *>(QStringLiteral("pbSend"))->click();
    album.save(console, "action-sent.png");
}

} // namespace MoxDemo
