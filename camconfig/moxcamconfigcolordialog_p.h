#ifndef MOX_MOXCAMCONFIGCOLORDIALOG_P_H
#define MOX_MOXCAMCONFIGCOLORDIALOG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <QString>
#include <QVector>

#include <array>
#include <memory>

class QLabel;
class QPushButton;
class QtMoxSpinBox;
class QWidget;
class Ui_MoxCamConfigColorDialog;

namespace MoxGui {

class MoxCamConfigColorDialog;

/**
 * What stands behind the colour dialog: its form, the bindings of the form's controls, and the statistics, which show
 * the coefficients as the camera tells them, also while the spin boxes hold something else.
 *
 * Owned by the dialog. The subscriptions outlive it: the destructor does not end them, and the device must send no
 * updates afterwards. GUI thread only, the updates too.
 */
class MoxCamConfigColorDialogPrivate final : public MoxGenParam::ParamEventSink
{
public:
    MoxCamConfigColorDialogPrivate();
    ~MoxCamConfigColorDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigColorDialogPrivate)

    /** Makes the form on the first call; binds it to a device on every call, or to none for null. */
    bool init(MoxCamConfigColorDialog *dialog, MoxCam::Device *newDevice);
    /** From the SDK: brings a coefficient's figure up to date. */
    void OnParameterUpdate(MoxGenParam::Param *param) override;

    /** One of the colours, with what shows it in the form. */
    struct Coefficient
    {
        QString name; // of the parameter
        QtMoxSpinBox *spinBox;
        QPushButton *unity;
        QLabel *label; // in the statistics
        QVector<QWidget *> companions; // enabled and disabled with the spin box
    };

    MoxCamConfigColorDialog *q = nullptr; // null until init()
    MoxCam::Device *device = nullptr;
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigColorDialog> ui;
    MoxCamConfigMapper mapper;
    std::array<Coefficient, 3> coefficients; // red, green, blue
};

} // namespace MoxGui

#endif
