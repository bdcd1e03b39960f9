// From the camera to the controls.
#include "moxcamconfigmapper.h"

#include "imoxcamconfigintconverter.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QIntValidator>
#include <QLineEdit>
#include <QPointer>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTabWidget>

#include <algorithm>

namespace MoxGui {

/**
 * Tells whether an update may go on after it has changed a control. The change can write, a refused write puts up a
 * message box, and in the box's event loop anything can happen: the dialog dies, and the mapper with it, or is given
 * another device, and the parameter is gone.
 */
class MoxCamConfigMapper::Watch
{
public:
    Watch(const MoxCamConfigMapper *itsMapper, MoxGenParam::Param *param, QObject *itsControl)
        : mapper(itsMapper), control(itsControl), name(nameOf(param)), records(mapper->bindings.value(name))
    { }

    /** The control's death is that of the mapper. A binding made anew has other records, and this one holds the old. */
    bool holds() const { return control && mapper->bindings.value(name).constData() == records.constData(); }

private:
    const MoxCamConfigMapper *const mapper;
    const QPointer<QObject> control;
    const QString name;
    const Records records;
};

void MoxCamConfigMapper::OnParameterUpdate(MoxGenParam::Param *param)
{
    const Records records = bindings.value(nameOf(param)); // a copy, for what may happen to the table below
    if (records.isEmpty())
        return;
    if (!param->IsAvailable()) {
        setEnabled(records, false);
        return;
    }
    if (param->IsReadable()) {
        const Watch watch(this, param, controlOf(records.first()));
        for (const MoxCamConfigMapData &record : records) {
            refresh(param, record);
            if (!watch.holds())
                return;
        }
    }
    // Last, and for every button of a group: those of entries that are not available become enabled again here.
    setEnabled(records, param->IsWritable());
}

/** Passes over a record whose control or parameter is not of its kind. */
void MoxCamConfigMapper::refresh(MoxGenParam::Param *param, const MoxCamConfigMapData &record)
{
    auto *integer = dynamic_cast<MoxGenParam::Int *>(param);
    auto *enumeration = dynamic_cast<MoxGenParam::Enum *>(param);
    switch (record.type) {
    case MoxCamConfigMapData::CompanionWidget:
    case MoxCamConfigMapData::PushButtonCommand:
        break;
    case MoxCamConfigMapData::ComboBoxEnum:
        updateComboBox(enumeration, qobject_cast<QComboBox *>(record.widget));
        break;
    case MoxCamConfigMapData::CheckBoxEnum:
        updateCheckBox(enumeration, qobject_cast<QCheckBox *>(record.widget));
        break;
    case MoxCamConfigMapData::RadioGroupEnum:
        updateRadioButtons(enumeration, static_cast<QButtonGroup *>(record.aux));
        break;
    case MoxCamConfigMapData::TabWidgetEnum:
        updateTabWidget(enumeration, qobject_cast<QTabWidget *>(record.widget));
        break;
    case MoxCamConfigMapData::ButtonBoolean:
        updateButton(dynamic_cast<MoxGenParam::Boolean *>(param), qobject_cast<QAbstractButton *>(record.widget));
        break;
    case MoxCamConfigMapData::LineEditInt:
        updateLineEdit(integer, qobject_cast<QLineEdit *>(record.widget));
        break;
    case MoxCamConfigMapData::SpinBoxInt:
        updateInteger(integer, qobject_cast<QSpinBox *>(record.widget), nullptr);
        break;
    case MoxCamConfigMapData::MoxSpinBoxInt:
        updateSpinBox(integer, qobject_cast<QtMoxSpinBox *>(record.widget));
        break;
    case MoxCamConfigMapData::SliderInt:
        updateInteger(integer, qobject_cast<QSlider *>(record.widget),
                      static_cast<IMoxCamConfigIntConverter *>(record.aux));
        break;
    case MoxCamConfigMapData::SliderSpinBoxInt:
        updateSliderSpinBox(integer, qobject_cast<QtMoxSliderSpinBox *>(record.widget),
                            static_cast<IMoxCamConfigIntConverter *>(record.aux));
        break;
    }
}

void MoxCamConfigMapper::updateComboBox(MoxGenParam::Enum *param, QComboBox *comboBox)
{
    if (!param || !comboBox || comboBox->count() == 0)
        return;
    if (auto *model = qobject_cast<QStandardItemModel *>(comboBox->model())) {
        for (int row = 0; row < model->rowCount(); ++row) {
            // By the same index, although null entries have no item.
            MoxGenParam::EnumEntry *entry = param->GetEnumEntryByIndex(quint64(row), nullptr);
            QStandardItem *item = model->item(row, 0);
            if (entry && item)
                item->setEnabled(entry->IsAvailable());
        }
    }
    comboBox->setCurrentText(QString::fromUtf8(param->GetValueStr(nullptr)));
}

void MoxCamConfigMapper::updateRadioButtons(MoxGenParam::Enum *param, QButtonGroup *group)
{
    if (!param || !group)
        return;
    const Watch watch(this, param, group);
    if (QAbstractButton *button = group->button(int(param->GetValue(nullptr))))
        button->setChecked(true);
    if (!watch.holds())
        return;
    for (quint64 i = 0, count = param->GetEnumEntriesCount(nullptr); i < count; ++i) {
        MoxGenParam::EnumEntry *entry = param->GetEnumEntryByIndex(i, nullptr);
        QAbstractButton *button = entry ? group->button(int(entry->GetValue(nullptr))) : nullptr;
        if (button)
            button->setEnabled(entry->IsAvailable());
    }
}

void MoxCamConfigMapper::updateTabWidget(MoxGenParam::Enum *param, QTabWidget *tabWidget)
{
    if (!param || !tabWidget)
        return;
    const Watch watch(this, param, tabWidget);
    const QString name = nameOf(param);
    // A text that is not in the table stands for the first tab, and enters the table with it.
    tabWidget->setCurrentIndex(tabs[name][QString::fromUtf8(param->GetValueStr(nullptr))]);
    if (!watch.holds())
        return;
    const quint64 count = std::min<quint64>(param->GetEnumEntriesCount(nullptr), quint64(tabWidget->count()));
    for (quint64 i = 0; i < count; ++i) {
        MoxGenParam::EnumEntry *entry = param->GetEnumEntryByIndex(i, nullptr);
        if (!entry)
            continue;
        if (QWidget *page = tabWidget->widget(tabs[name][QString::fromUtf8(entry->GetValueStr(nullptr))]))
            page->setEnabled(entry->IsAvailable());
    }
}

void MoxCamConfigMapper::updateCheckBox(MoxGenParam::Enum *param, QCheckBox *checkBox)
{
    if (param && checkBox)
        checkBox->setChecked(param->GetValue(nullptr) != 0);
}

void MoxCamConfigMapper::updateButton(MoxGenParam::Boolean *param, QAbstractButton *button)
{
    if (param && button)
        button->setChecked(param->GetValue(nullptr));
}

void MoxCamConfigMapper::updateLineEdit(MoxGenParam::Int *param, QLineEdit *lineEdit)
{
    if (!param || !lineEdit)
        return;
    // The edit hands out a const validator, which is nobody's constant.
    if (auto *validator = const_cast<QIntValidator *>(qobject_cast<const QIntValidator *>(lineEdit->validator())))
        validator->setRange(int(param->GetMin(nullptr)), int(std::min<qint64>(param->GetMax(nullptr), intLimit)));
    lineEdit->setText(QString::number(std::min<qint64>(param->GetValue(nullptr), intLimit)));
}

void MoxCamConfigMapper::updateSpinBox(MoxGenParam::Int *param, QtMoxSpinBox *spinBox)
{
    updateInteger(param, spinBox, nullptr);
}

void MoxCamConfigMapper::updateSliderSpinBox(MoxGenParam::Int *param, QtMoxSliderSpinBox *sliderSpinBox,
                                             IMoxCamConfigIntConverter *converter)
{
    updateInteger(param, sliderSpinBox, converter);
}

template<class Control>
void MoxCamConfigMapper::updateInteger(MoxGenParam::Int *param, Control *control, IMoxCamConfigIntConverter *converter)
{
    if (!param || !control)
        return;
    const auto shown = [=](qint64 value) { return converter ? qint64(converter->ToControl(value, param)) : value; };
    // All is read before anything is shown: the new range may clamp the old value, which is written to the camera then.
    const qint64 deviceMaximum = param->GetMax(nullptr);
    const qint64 deviceValue = param->GetValue(nullptr);
    // Cut to 32 bits; the upper side alone is clamped.
    const int maximum = int(std::min(intLimit, shown(deviceMaximum)));
    const int minimum = int(shown(param->GetMin(nullptr)));
    const int step = int(shown(param->GetIncrement(nullptr)));
    const int value = int(std::min(intLimit, shown(deviceValue)));

    const Watch watch(this, param, control);
    control->setRange(minimum, maximum);
    if (watch.holds())
        control->setSingleStep(step == 0 ? 1 : step);
    if (watch.holds())
        control->setValue(value);
    // A slider on a nonlinear scale answers with what its new position stands for; the next time it does not move.
    if (watch.holds() && control->value() != value)
        control->setValue(value);
}

} // namespace MoxGui
