#ifndef MOX_MOXCAMCONFIGFRAMEABDIALOG_P_H
#define MOX_MOXCAMCONFIGFRAMEABDIALOG_P_H

#include "imoxcamconfigintconverter.h"
#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <QMutex>
#include <QVector>

#include <memory>

class Ui_MoxCamConfigFrameABDialog;

namespace MoxGui {

class MoxCamConfigFrameABDialog;

/**
 * What stands behind the dialog of frames A and B: its form, the bindings, and what the mapper cannot do. That is the
 * arithmetic between lines, clocks and microseconds, the digital gain, which the camera keeps as a coarse and a fine
 * part, and the moving of the controls between tabs and output modes.
 *
 * Its own subscriptions to parameters come beside those of the mapper. Neither are undone; they end with the device.
 * Every write to the camera can put up a message box and run an event loop in it, where the dialog may be deleted or be
 * given another device: what goes on after a write asks first whether the bindings are still the same.
 *
 * Owned by the dialog. GUI thread only.
 */
class MoxCamConfigFrameABDialogPrivate final : public IMoxCamConfigIntConverter, public MoxGenParam::ParamEventSink
{
public:
    MoxCamConfigFrameABDialogPrivate();
    ~MoxCamConfigFrameABDialogPrivate();
    Q_DISABLE_COPY(MoxCamConfigFrameABDialogPrivate)

    /**
     * Takes up a device, or none for null; on the first call builds the dialog. False when there are no parameters, and
     * when the dialog was deleted or given another device meanwhile.
     */
    bool init(MoxCamConfigFrameABDialog *dialog, MoxCam::Device *newDevice);
    /** Before the dialog is shown. */
    void resizePopups();

    /** Lines to microseconds, rounded; 0 with a pixel clock of 0. */
    long ToControl(long value, MoxGenParam::Int *param) override;
    /** Microseconds to lines, rounded; 0 with a line time of 0. */
    long ToDevice(long value, MoxGenParam::Int *param) override;
    void OnParameterUpdate(MoxGenParam::Param *param) override;

private:
    void buildDialog();
    void setLeftLabels();

    void getNeededParams();
    void initComboBoxes();
    void initSpinBoxes();
    void initRadioButtons();
    void initSliders();
    void initTabWidget();
    void initCheckBoxes();
    void initLineEdit();
    void initDigitalGain();
    void subscribe(MoxGenParam::Param *param);

    void onFrameModeChanged(const QString &text);
    void onPageChanged(int index);
    void moveLayout(int index);

    void readExposure(MoxGenParam::Int *param, qint64 *value, qint64 *maximum);
    void updateExposureTime();
    void connectExposureTime();
    void setExposureTime(int microseconds);
    void updateFixedFramePeriod();
    void showDigitalGain();
    void setDigitalGain(double gain, MoxGenParam::Int *coarse, MoxGenParam::Int *fine);

    void showSize();
    void forgetSize();

    MoxCamConfigFrameABDialog *q = nullptr; // null until init()
    MoxGenParam::Array *params = nullptr; // null with no device, and with one that gives none
    std::unique_ptr<Ui_MoxCamConfigFrameABDialog> ui;
    bool triggerActive = false; // kept current and asked by nobody
    qint64 pixelClock = 160; // clocks in a microsecond
    qint64 lineTime = 0; // in clocks
    qint64 exposureLines = 0, exposureLinesMax = 0;
    qint64 exposureClocks = 0, exposureClocksMax = 0;
    qint64 coarseGain = 0, fineGain = 0; // doublings, and what is left in steps of 1/64
    QButtonGroup *shutterGroup = nullptr, *adcGroup = nullptr,
                 *exposureControlGroup = nullptr; // children of the dialog
    QButtonGroup *aoiGroup = nullptr, *subsamplingGroup = nullptr, *analogGainGroup = nullptr;
    MoxGenParam::Int *widthActual = nullptr, *heightActual = nullptr;
    QTimer *sizeTimer = nullptr; // child of the dialog; there with the parameters only
    QMutex sizeMutex; // of the three before it
    MoxCamConfigMapper mapper;
    QVector<QWidget *> expCompanions; // what is enabled with the lines and the clocks of the exposure
    std::unique_ptr<QObject> bound; // ends the dialog's own connections: with the device, and before the controls
};

} // namespace MoxGui

#endif
