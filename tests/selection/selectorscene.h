// A selector over a network adapter G with cameras g1 and g2, and a USB host U with u1 and u2.
#ifndef MOX_SELECTORSCENE_H
#define MOX_SELECTORSCENE_H

#include "devicetreemodel.h"
#include "fakeparams.h"
#include "fakesdk.h"
#include "moxcameraselectordialog.h"
#include "moxcameraselectordialog_p.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>

namespace MoxTest {

inline QString operator""_s(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/** What a device tree has fetched, in the words of FakeSystem::outline(). */
inline std::string outline(const DeviceTreeModel &model)
{
    std::string text;
    for (int i = 0; i < model.rowCount(); ++i) {
        const QModelIndex iface = model.index(i, 0);
        text += model.getItemID(iface).toStdString() + '[';
        for (int k = 0; k < model.rowCount(iface); ++k)
            text += model.getItemID(model.index(k, 0, iface)).toStdString() + ' ';
        text += ']';
    }
    return text;
}

// An explicit instantiation may name a private member: the way to what stands behind the dialog.
template<auto member> struct Reach
{
    friend MoxGui::MoxCameraSelectorDialogPrivate *privateOf(const MoxGui::MoxCameraSelectorDialog &dialog)
    {
        return (dialog.*member).get();
    }
};
MoxGui::MoxCameraSelectorDialogPrivate *privateOf(const MoxGui::MoxCameraSelectorDialog &dialog);
template struct Reach<&MoxGui::MoxCameraSelectorDialog::d>;

struct Scene
{
    explicit Scene(bool poll = false)
        : dialog(std::make_unique<MoxGui::MoxCameraSelectorDialog>(&system, nullptr, poll))
    {
        gigeParams.numbers = {{"DeviceSelector", {0}},
                              {"GevInterfaceMACAddress", {0x001A2B3C4D5E}},
                              {"GevInterfaceSubnetIPAddress", {0xC0A80180}}, // 192.168.1.128
                              {"GevInterfaceSubnetMask", {0xFFFFFF00}},
                              {"GevDeviceMACAddress", {0x0A0000000001, 0x0A00000000FF}},
                              {"GevDeviceForceGateway", {0, 0xC0A80101}}};
        gigeParams.texts = {{"GevInterfaceTransport", "Socket"}};
        usbParams.numbers = {{"DeviceSelector", {0}}, {"DeviceUSBVersionDetected", {0x0300, 0x0210}}};
        gige->parameters = &gigeParams;
        usb->parameters = &usbParams;
        dialog->show();
    }

    FakeSystem system;
    FakeParams gigeParams;
    FakeParams usbParams;
    FakeInterface *gige = system.add("G", "Adapter");
    FakeInterface *usb = system.add("U", "Host", MoxCam::InterfaceUsb3Vision);
    FakeDeviceInfo *g1 = gige->add("g1");
    FakeDeviceInfo *g2 = gige->add("g2");
    FakeDeviceInfo *u1 = usb->add("u1");
    FakeDeviceInfo *u2 = usb->add("u2");
    std::unique_ptr<MoxGui::MoxCameraSelectorDialog> dialog;

    MoxGui::MoxCameraSelectorDialogPrivate *d = privateOf(*dialog);
    DeviceTreeModel *model = d->model;
    QTreeView *tree = dialog->findChild<QTreeView *>("cameraTreeView"_s);
    QTreeView *interfacePanel = dialog->findChild<QTreeView *>("interfaceInfoTreeView"_s);
    QTreeView *devicePanel = dialog->findChild<QTreeView *>("deviceInfoTreeView"_s);
    QPushButton *setIp = dialog->findChild<QPushButton *>("setIpBtn"_s);
    QPushButton *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);

    /** Makes an item current by its identifier; nothing, when there is no such item. */
    void select(const QString &id) const { tree->setCurrentIndex(model->getItemIdx(id)); }
    QString current() const { return model->getItemID(tree->currentIndex()); }
    /** What the poll thread does in one period. */
    void find() const
    {
        if (model->checkNew()) {
            d->changed = true;
            Q_EMIT d->forwarder.systemChanged();
        }
    }
    /** The same, and what the GUI thread makes of it. */
    void poll() const
    {
        find();
        QCoreApplication::processEvents();
    }
    bool allExpanded() const
    {
        for (int row = 0; row < model->rowCount(); ++row) {
            if (!tree->isExpanded(model->index(row, 0)))
                return false;
        }
        return outline(*model) == system.outline();
    }

    /** A panel's rows, caption and value. */
    static QStringList texts(const QTreeView *panel)
    {
        QStringList found;
        for (int row = 0; panel->model() && row < panel->model()->rowCount(); ++row)
            found << panel->model()->index(row, 0).data().toString() + ": "_s
                    + panel->model()->index(row, 1).data().toString();
        return found;
    }
    /** The value of the row with a caption; invalid when there is none. */
    static QModelIndex value(const QTreeView *panel, const QString &caption)
    {
        const QModelIndexList found = panel->model()->match(panel->model()->index(0, 0), Qt::DisplayRole, caption);
        return found.isEmpty() ? QModelIndex() : found.first().sibling(found.first().row(), 1);
    }
};

} // namespace MoxTest

#endif
