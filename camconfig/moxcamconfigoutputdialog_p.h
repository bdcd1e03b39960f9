#ifndef MOX_MOXCAMCONFIGOUTPUTDIALOG_P_H
#define MOX_MOXCAMCONFIGOUTPUTDIALOG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <memory>

class Ui_MoxCamConfigOutputDialog;

namespace MoxGui {

class MoxCamConfigOutputDialog;

/**
 * What stands behind the data output dialog: its form and the bindings of the form's controls.
 *
 * Owned by the dialog. GUI thread only.
 */
class MoxCamConfigOutputDialogPrivate
{
public:
    MoxCamConfigOutputDialogPrivate();
    ~MoxCamConfigOutputDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigOutputDialogPrivate)

    /** Makes the form on the first call; binds it to a device on every call, or to none for null. */
    bool init(MoxCamConfigOutputDialog *dialog, MoxCam::Device *newDevice);

    MoxCamConfigOutputDialog *q = nullptr; // null until init()
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigOutputDialog> ui;
    MoxCamConfigMapper mapper;
};

} // namespace MoxGui

#endif
