// The record of one control that is bound to a camera parameter.
#ifndef MOX_MOXCAMCONFIGMAPDATA_H
#define MOX_MOXCAMCONFIGMAPDATA_H

#include <QtGlobal>

class QWidget;

namespace MoxGui {

/** What MoxCamConfigMapper knows of a control. A plain value; owns nothing. */
struct MoxCamConfigMapData
{
    /** The class of the control and that of the parameter. */
    enum Kind : qint32 {
        CompanionWidget = -1, ///< any QWidget, enabled and disabled with the control in front of it
        ComboBoxEnum = 0, ///< QComboBox, Enum
        CheckBoxEnum = 1, ///< QCheckBox, Enum
        RadioGroupEnum = 2, ///< QButtonGroup, Enum
        TabWidgetEnum = 3, ///< QTabWidget, Enum
        PushButtonCommand = 4, ///< QPushButton, Command
        ButtonBoolean = 5, ///< QAbstractButton, Boolean
        LineEditInt = 6, ///< QLineEdit, Int; display only
        SpinBoxInt = 7, ///< QSpinBox, Int; display only
        MoxSpinBoxInt = 8, ///< QtMoxSpinBox, Int
        SliderInt = 9, ///< QSlider, Int; display only
        SliderSpinBoxInt = 10 ///< QtMoxSliderSpinBox, Int
    };

    Kind type;
    QWidget *widget; ///< the control; null for RadioGroupEnum
    /** RadioGroupEnum: the QButtonGroup. SliderInt, SliderSpinBoxInt: the IMoxCamConfigIntConverter or null. */
    void *aux;
};

} // namespace MoxGui

Q_DECLARE_TYPEINFO(MoxGui::MoxCamConfigMapData, Q_PRIMITIVE_TYPE);

#endif
