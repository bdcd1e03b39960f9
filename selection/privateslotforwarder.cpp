#include "privateslotforwarder.h"

#include "devicetreemodel.h"
#include "moxcameraselectordialog_p.h"

#include "ui_moxcameraselectordialog.h"

namespace MoxGui {

PrivateSlotForwarder::PrivateSlotForwarder(MoxCameraSelectorDialogPrivate *owner) : d(owner)
{ }

void PrivateSlotForwarder::onSystemChanged()
{
    // Signals that have piled up cause one update.
    bool expected = true;
    if (!d->changed.compare_exchange_strong(expected, false))
        return;
    d->model->updateModel();
    QModelIndex index = d->model->getItemIdx(d->lastItemId);
    if (!index.isValid())
        index = d->model->getFirstIdx();
    // With all interfaces gone there is none: nothing becomes current, and the panels and buttons keep what they showed.
    QTreeView *view = d->ui->cameraTreeView;
    view->selectionModel()->select(index, QItemSelectionModel::Select);
    // The reset left nothing current, so this reports the current item anew, also when it is the same one.
    view->setCurrentIndex(index);
}

} // namespace MoxGui
