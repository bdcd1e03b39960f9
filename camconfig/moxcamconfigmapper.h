// Keeps camera parameters and form controls in step.
#ifndef MOX_MOXCAMCONFIGMAPPER_H
#define MOX_MOXCAMCONFIGMAPPER_H

#include "moxcamconfigmapdata.h"

#include <MoxCameraApi/MoxGenParam.h>

#include <QHash>
#include <QString>
#include <QVector>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QObject;
class QPushButton;
class QTabWidget;
class QTimer;
class QtMoxSliderSpinBox;
class QtMoxSpinBox;

namespace MoxGui {

class IMoxCamConfigIntConverter;

/**
 * Ties camera parameters to form controls. What the user changes in a control is written to the camera; what changes on
 * the camera shows in the control, along with its range, its step, the entries that are available, and whether it can be
 * written at all.
 *
 * Held by value by the dialog whose controls it serves, which are to live as long as the mapper. Used again and again as
 * the device changes. No pointer to a parameter is kept but in the connections made on the controls. The subscriptions
 * to parameters are never undone, except by unmapParam(): they end with the device, which must send no update to a
 * mapper that is gone.
 *
 * No signal is ever blocked. A control that reports a change that came from the camera writes that value back once, and
 * the update which this raises finds the control as it is; so each update may write, and may run inside another one. A
 * control goes on showing a value that the camera has refused until the next update.
 *
 * GUI thread only, the updates too. Controls must not be null.
 */
class MoxCamConfigMapper final : public MoxGenParam::ParamEventSink
{
public:
    MoxCamConfigMapper() = default;

    // Bind a parameter to a control, which loses all the connections made from it before: the dialog's own connections
    // come afterwards. A parameter has one control: one bound before is cut loose, and its companions stay as they are.
    // The first display writes nothing. For a null parameter the control is disabled, nothing is bound, and false is
    // returned; otherwise true.

    /** Shows the parameter from its minimum to its maximum, cut at intLimit, with snapping to its increment. */
    bool mapIntParam(MoxGenParam::Int *param, QtMoxSpinBox *spinBox);
    /** The same; the @p companions are enabled and disabled with the control. */
    bool mapIntParam(MoxGenParam::Int *param, QtMoxSpinBox *spinBox, const QVector<QWidget *> &companions);
    /** The same for a slider spin box. @p converter may be null and must outlive the binding. */
    bool mapIntParam(MoxGenParam::Int *param, QtMoxSliderSpinBox *sliderSpinBox, IMoxCamConfigIntConverter *converter);
    /** Replaces the items by the entries, without those that are null. */
    bool mapEnumParam(MoxGenParam::Enum *param, QComboBox *comboBox);
    /**
     * Names the tabs after the entries and takes away the surplus tab for good. Of several surplus tabs every other one
     * stays, since the index rises while the tabs move down.
     */
    bool mapEnumParam(MoxGenParam::Enum *param, QTabWidget *tabWidget);
    /** Gives each button an entry's text and its value as id, and hides surplus buttons. */
    bool mapEnumParam(MoxGenParam::Enum *param, QButtonGroup *group);
    /** Shows any value but 0 as checked, and writes 0 and 1. */
    bool mapEnumParam(MoxGenParam::Enum *param, QCheckBox *checkBox);
    /** Binds a checkable button. */
    bool mapBooleanParam(MoxGenParam::Boolean *param, QAbstractButton *button);
    /**
     * Runs the command at a click. With a @p timer, which may be null, a click also disables the button and starts the
     * timer; who enables the button again is the dialog's matter. A null parameter leaves the button as it is.
     */
    bool mapCommandParam(MoxGenParam::Command *param, QPushButton *button, QTimer *timer);

    // Bring one control up to date, and do nothing if either pointer is null. Where the control is bound, a value that it
    // did not show before is written back.

    /** Which items are available, and the current text. The n-th item goes by the n-th entry, null ones counted. */
    void updateComboBox(MoxGenParam::Enum *param, QComboBox *comboBox);
    /** The checked button, and which buttons are available. */
    void updateRadioButtons(MoxGenParam::Enum *param, QButtonGroup *group);
    /** Range, step and value. An increment of 0 counts as 1. */
    void updateSpinBox(MoxGenParam::Int *param, QtMoxSpinBox *spinBox);
    /** The same through @p converter, if there is one; also to be called when what it computes has changed. */
    void updateSliderSpinBox(MoxGenParam::Int *param, QtMoxSliderSpinBox *sliderSpinBox,
                             IMoxCamConfigIntConverter *converter);
    /** The current tab, the first one for an unknown text, and which pages are available. */
    void updateTabWidget(MoxGenParam::Enum *param, QTabWidget *tabWidget);

    /** Disables a control and takes all its connections. The binding and the subscription stay. */
    void unmapControl(const MoxCamConfigMapData &record);
    /** Undoes a parameter's binding as a whole, the subscription too; nothing for a parameter that is not bound. */
    void unmapParam(MoxGenParam::Param *param);
    /** Cuts all controls loose, but not their companions, and forgets all bindings. The subscriptions stay. */
    void clearMappings();

    /** From the SDK: brings the parameter's control up to date. A name that is not bound is ignored. */
    void OnParameterUpdate(MoxGenParam::Param *param) override;

    /**
     * Tells the user in a modal box that writing @p param failed, and returns when it is dismissed, or when @p parent,
     * which may be null, is deleted under it. Nothing for success. @p param is not touched once the box is open.
     */
    static void showErrorMessage(MoxCamErr err, QWidget *parent, MoxGenParam::Param *param);

private:
    Q_DISABLE_COPY(MoxCamConfigMapper)

    /** A control's record, followed by those of its companions. Never empty in the table. */
    using Records = QVector<MoxCamConfigMapData>;
    class Watch;

    /** The largest integer that a control is given. */
    static constexpr qint64 intLimit = 0x7FFFFFFF;

    static QString nameOf(MoxGenParam::Param *param);
    static QObject *controlOf(const MoxCamConfigMapData &record);
    static void setEnabled(const Records &records, bool enabled);

    bool begin(MoxGenParam::Param *param, const Records &records);
    void store(MoxGenParam::Param *param, const Records &records);

    void refresh(MoxGenParam::Param *param, const MoxCamConfigMapData &record);
    void updateButton(MoxGenParam::Boolean *param, QAbstractButton *button);
    void updateCheckBox(MoxGenParam::Enum *param, QCheckBox *checkBox);
    void updateLineEdit(MoxGenParam::Int *param, QLineEdit *lineEdit);
    template<class Control>
    void updateInteger(MoxGenParam::Int *param, Control *control, IMoxCamConfigIntConverter *converter);

    QHash<QString, Records> bindings; // by the parameter's name
    QHash<QString, QHash<QString, int>> tabs; // by the parameter's name and the entry's text: the tab that shows it
};

} // namespace MoxGui

#endif
