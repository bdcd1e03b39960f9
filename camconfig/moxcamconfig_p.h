#ifndef MOX_MOXCAMCONFIG_P_H
#define MOX_MOXCAMCONFIG_P_H

#include "moxcamconfigmapper.h"

#include <MoxCameraApi/MoxCam.h>
#include <MoxCameraApi/MoxGenParam.h>

#include <QAction>
#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include <array>
#include <atomic>
#include <memory>

class QLabel;
class QLineEdit;
class QTimer;
class Ui_MoxCamConfigAboutDialog;
class Ui_MoxCamConfigMainWindow;

namespace MoxGui {

class MoxCamConfig;
class MoxCameraSelectorDialog;

/** The parameters that the main window reads. Null without a camera, and for what the camera lacks. */
struct MoxCamConfigParams
{
    MoxGenParam::Enum *frameABSelector = nullptr, *frameMode = nullptr, *sensorType = nullptr;
    MoxGenParam::Int *temperature = nullptr, *exposureTime = nullptr, *frameTime = nullptr, *width = nullptr,
                     *height = nullptr;
    MoxGenParam::String *vendorName = nullptr, *modelName = nullptr, *familyName = nullptr, *deviceVersion = nullptr,
                        *firmwareVersion = nullptr, *manufacturerInfo = nullptr, *serialNumber = nullptr,
                        *userId = nullptr;
    MoxGenParam::Int *rgsId = nullptr, *fpgaId = nullptr, *epcsId = nullptr, *firmwareImage = nullptr,
                     *customerId = nullptr, *familyId = nullptr, *xmlVersion = nullptr;
};

/**
 * What stands behind the configuration main window: forms, camera and tick.
 *
 * Owned by the window, whose destructor disconnects first. Lives on the GUI thread but for the two callbacks, which run
 * on a thread of the SDK and only store what has happened; the next tick acts on it. Updates of parameters, too, only
 * note what the next tick is to do.
 */
class MoxCamConfigPrivate final : public MoxGenParam::ParamEventSink
{
public:
    MoxCamConfigPrivate();
    ~MoxCamConfigPrivate();
    Q_DISABLE_COPY(MoxCamConfigPrivate)

    /** One of the dialogs, with the button and the View action that go with it. */
    struct Function
    {
        QPushButton *button;
        QAction *action;
        QDialog *dialog; // child of the window
        void (*setDevice)(QDialog *dialog, MoxCam::Device *device);
    };

    /** Makes the function at @p index with its dialog, which needs SetDevice() and the signal closing(). */
    template<class Dialog> bool makeFunction(int index, QPushButton *button, QAction *action);

    // What returns a bool can write to the camera through one of the dialogs, and a refusal is told in a message box.
    // False says that the window was deleted in its event loop, when nothing of this object is there any more, or was
    // given another device, or has seen its own come or go. Whoever called leaves all the rest alone then.

    /**
     * Takes up a device, or none for null; on the first call builds the window and lets the user select a device if none
     * is given.
     */
    bool init(MoxCamConfig *window, MoxCam::Device *newDevice);
    /** Lets go of the device and goes over to another one or null, along with the dialogs. */
    void setDevice(MoxCam::Device *newDevice);
    /** The user's commands. Both end a selection under way. */
    void connectDevice();
    void disconnectDevice();
    /** Ends everything that points to this object, before the window is destroyed. */
    void shutDown();

    bool createDialogs();
    void initButtons();
    void adjustViewMenuActions();
    void getNeededParams();
    /** Once a second. */
    void tick();
    void updateStatus();
    void isShowFrameABStuff(bool show);
    void updateFrameAInfo();
    void updateFrameBInfo();
    void updateBoth();
    void updateTemperature();
    void adjustAbout();
    bool doLastAdjustment();
    void OnParameterUpdate(MoxGenParam::Param *param) override;

    /** Events of the device; @p context is the private object. */
    static void CameraConnectCallback(const void *data, unsigned long size, void *context);
    static void CameraDisconnectCallback(const void *data, unsigned long size, void *context);

    enum ConnectionEvent { NoEvent, DeviceDisconnected, DeviceConnected };
    enum FrameMode { OnlyFrameA, OnlyFrameB, OtherFrameMode };
    struct Releaser
    {
        template<class T> void operator()(T *object) const { object->Release(); }
    };

    MoxCamConfig *q = nullptr;
    MoxCam::Device *device = nullptr; // kept while it is unplugged
    QPointer<MoxCameraSelectorDialog> selector; // while it is open
    std::unique_ptr<MoxCam::System, Releaser> system; // of the last selection
    std::unique_ptr<MoxCam::Device, Releaser> ownDevice; // the device, if the user has selected it here
    MoxGenParam::Array *params = nullptr; // null with no device, an unplugged one, and one that gives none
    MoxCamConfigParams needed;
    std::unique_ptr<Ui_MoxCamConfigMainWindow> ui;
    std::unique_ptr<Ui_MoxCamConfigAboutDialog> aboutUi;
    bool initialized = false;
    bool hasFrameAB = false; // of the last camera
    bool needBothUpdate = false; // the next tick reads both frames, if the frame mode lets it
    bool frameBSelected = false;
    FrameMode frameMode = OnlyFrameA;
    std::atomic<int> connectionEvent{NoEvent};
    QTimer *timer = nullptr; // child of the window
    std::array<Function, 6> functions{}; // in the order of the buttons
    QDialog *aboutDialog = nullptr; // child of the window
    QLabel *statusText = nullptr; // in the status bar
    QLabel *statusIcon = nullptr;
    MoxCamConfigMapper mapper; // binds nothing: this window only displays
    std::unique_ptr<QObject> bound; // another one as soon as the parameters are taken up or let go of

private:
    /** The line edits of a frame. */
    struct Column
    {
        QLineEdit *size, *fps, *frameTime, *exposureTime;
    };

    std::unique_ptr<MoxCam::Device, Releaser> selectDevice();
    void letGo();
    /** The figures go with them. */
    void forgetParams();
    bool setDialogDevice(MoxCam::Device *newDevice);
    std::array<Column, 2> columns() const;
    void updateFrameInfo(const Column &column);
    bool selectFrame(const char *frame);
    void setFrameMode(const QString &mode);
    void subscribe(MoxGenParam::Enum *param);
    bool buildWindow();
};

template<class Dialog> bool MoxCamConfigPrivate::makeFunction(int index, QPushButton *button, QAction *action)
{
    const QPointer<QWidget> alive(q);
    auto *dialog = new Dialog(device, q);
    if (!alive)
        return false;
    const auto release = [button] { button->setChecked(false); };
    QObject::connect(dialog, &Dialog::closing, button, release);
    QObject::connect(dialog, &QDialog::finished, button, release); // Escape hides a dialog without closing it
    functions[index] = {button, action, dialog, [](QDialog *made, MoxCam::Device *newDevice) {
                            static_cast<Dialog *>(made)->SetDevice(newDevice);
                        }};
    return true;
}

} // namespace MoxGui

#endif
