#ifndef MOX_MOXCAMCONFIGSTROBEDIALOG_P_H
#define MOX_MOXCAMCONFIGSTROBEDIALOG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <memory>

class QComboBox;
class Ui_MoxCamConfigStrobeDialog;

namespace MoxGui {

class MoxCamConfigStrobeDialog;

/**
 * What stands behind the strobe dialog: its form, the bindings of the form's controls, and the choice of the picture.
 *
 * Owned by the dialog. GUI thread only.
 */
class MoxCamConfigStrobeDialogPrivate
{
public:
    MoxCamConfigStrobeDialogPrivate();
    ~MoxCamConfigStrobeDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigStrobeDialogPrivate)

    /** Makes the form on the first call; binds it to a device on every call, or to none for null. */
    bool init(MoxCamConfigStrobeDialog *dialog, MoxCam::Device *newDevice);
    /** Shows the timing for the references of both strobes; leaves the picture while one of them cannot be set. */
    void setImageState();

    MoxCamConfigStrobeDialog *q = nullptr; // null until init()
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigStrobeDialog> ui;
    MoxCamConfigMapper mapper;

private:
    bool bind(const char *name, QComboBox *comboBox);
    void bindReference(const char *name, QComboBox *comboBox);
};

} // namespace MoxGui

#endif
