#include "moxcamconfigmapper.h"

#include "cutsignals.h"
#include "imoxcamconfigintconverter.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace MoxGui {

namespace {

/**
 * Makes a control's signal write to a parameter and tell the user of a failure, in a box over @p parent, which may be
 * null. What the connection holds dies with the control, and so may the control, its dialog and the parameter while a
 * write is going on: an update inside the write can put up a box, too. The control's death is the sign for all of them.
 */
template<class Control, class Signal, class Param, class Write>
void connectWrite(Control *control, Signal signal, Param *param, QWidget *parent, Write write)
{
    const QPointer<Control> guardedControl(control);
    const QPointer<QWidget> guardedParent(parent);
    QObject::connect(
        control, signal, control,
        [=](const auto &...values) {
            if (!param->IsWritable())
                return;
            const MoxCamErr err = write(values...);
            if (guardedControl)
                MoxCamConfigMapper::showErrorMessage(err, guardedParent, param);
        },
        Qt::DirectConnection);
}

} // namespace

QString MoxCamConfigMapper::nameOf(MoxGenParam::Param *param)
{
    return QString::fromUtf8(param->GetName());
}

/** What a record's signals come from. */
QObject *MoxCamConfigMapper::controlOf(const MoxCamConfigMapData &record)
{
    if (record.type == MoxCamConfigMapData::RadioGroupEnum)
        return static_cast<QButtonGroup *>(record.aux);
    return record.widget;
}

void MoxCamConfigMapper::setEnabled(const Records &records, bool enabled)
{
    for (const MoxCamConfigMapData &record : records) {
        if (auto *group = qobject_cast<QButtonGroup *>(controlOf(record))) {
            const QList<QAbstractButton *> buttons = group->buttons();
            for (QAbstractButton *button : buttons)
                button->setEnabled(enabled);
        } else if (record.widget) {
            record.widget->setEnabled(enabled);
        }
    }
}

/** How every binding begins: subscribed once however often it is made, nothing connected, enabled by the parameter. */
bool MoxCamConfigMapper::begin(MoxGenParam::Param *param, const Records &records)
{
    if (!param) {
        setEnabled(records, false);
        return false;
    }
    param->UnregisterEventSink(this);
    cutSignals(controlOf(records.first()));
    setEnabled(records, param->IsAvailable() && param->IsWritable());
    return true;
}

void MoxCamConfigMapper::store(MoxGenParam::Param *param, const Records &records)
{
    const QString name = nameOf(param);
    const Records earlier = bindings.value(name);
    // Of the earlier binding the control alone goes, its companions keep their state. The same control bound anew has
    // been cut loose already, and must stay enabled.
    if (!earlier.isEmpty() && controlOf(earlier.first()) != controlOf(records.first()))
        unmapControl(earlier.first());
    bindings.insert(name, records);
}

bool MoxCamConfigMapper::mapIntParam(MoxGenParam::Int *param, QtMoxSpinBox *spinBox)
{
    return mapIntParam(param, spinBox, {});
}

bool MoxCamConfigMapper::mapIntParam(MoxGenParam::Int *param, QtMoxSpinBox *spinBox,
                                     const QVector<QWidget *> &companions)
{
    Records records{{MoxCamConfigMapData::MoxSpinBoxInt, spinBox, nullptr}};
    for (QWidget *companion : companions)
        records.append({MoxCamConfigMapData::CompanionWidget, companion, nullptr});
    if (!begin(param, records))
        return false;
    store(param, records);
    spinBox->setValidate(true);
    spinBox->setValidateTyping(false);
    updateSpinBox(param, spinBox);
    connectWrite(spinBox, QOverload<int>::of(&QtMoxSpinBox::valueChanged), param, spinBox,
                 [param](int value) { return param->SetValue(value); });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapIntParam(MoxGenParam::Int *param, QtMoxSliderSpinBox *sliderSpinBox,
                                     IMoxCamConfigIntConverter *converter)
{
    const Records records{{MoxCamConfigMapData::SliderSpinBoxInt, sliderSpinBox, converter}};
    if (!begin(param, records))
        return false;
    store(param, records);
    sliderSpinBox->setValidate(true);
    sliderSpinBox->setValidateTyping(false);
    updateSliderSpinBox(param, sliderSpinBox, converter);
    connectWrite(sliderSpinBox, QOverload<int>::of(&QtMoxSliderSpinBox::valueChanged), param, sliderSpinBox,
                 [param, converter](int value) {
                     return param->SetValue(converter ? converter->ToDevice(value, param) : value);
                 });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapEnumParam(MoxGenParam::Enum *param, QComboBox *comboBox)
{
    const Records records{{MoxCamConfigMapData::ComboBoxEnum, comboBox, nullptr}};
    if (!begin(param, records))
        return false;
    comboBox->clear();
    for (quint64 i = 0, count = param->GetEnumEntriesCount(nullptr); i < count; ++i) {
        if (MoxGenParam::EnumEntry *entry = param->GetEnumEntryByIndex(i, nullptr))
            comboBox->addItem(QString::fromUtf8(entry->GetValueStr(nullptr)));
    }
    store(param, records);
    updateComboBox(param, comboBox);
    connectWrite(comboBox, QOverload<const QString &>::of(&QComboBox::currentIndexChanged), param, comboBox,
                 [param](const QString &text) { return param->SetValueStr(text.toUtf8().constData()); });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapEnumParam(MoxGenParam::Enum *param, QTabWidget *tabWidget)
{
    const Records records{{MoxCamConfigMapData::TabWidgetEnum, tabWidget, nullptr}};
    if (!begin(param, records))
        return false;
    const int tabCount = tabWidget->count();
    const int shown = int(std::min<quint64>(param->GetEnumEntriesCount(nullptr), quint64(tabCount)));
    // The index rises while the tabs move down, so that every other surplus tab stays. Forms have one at most.
    for (int i = shown; i < tabCount; ++i) {
        if (QWidget *page = tabWidget->widget(i))
            page->hide();
        tabWidget->removeTab(i);
    }
    QHash<QString, int> &indexes = tabs[nameOf(param)];
    for (int i = 0; i < shown; ++i) {
        MoxGenParam::EnumEntry *entry = param->GetEnumEntryByIndex(quint64(i), nullptr);
        if (!entry) {
            tabWidget->widget(i)->hide();
            continue;
        }
        const QString text = QString::fromUtf8(entry->GetValueStr(nullptr));
        tabWidget->setTabText(i, text);
        indexes[text] = i;
    }
    store(param, records);
    updateTabWidget(param, tabWidget);
    connectWrite(tabWidget, &QTabWidget::currentChanged, param, tabWidget, [param, tabWidget](int index) {
        return param->SetValueStr(tabWidget->tabText(index).toUtf8().constData());
    });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapEnumParam(MoxGenParam::Enum *param, QButtonGroup *group)
{
    const Records records{{MoxCamConfigMapData::RadioGroupEnum, nullptr, group}};
    if (!begin(param, records))
        return false;
    const QList<QAbstractButton *> buttons = group->buttons();
    const quint64 count = param->GetEnumEntriesCount(nullptr);
    for (int i = 0; i < buttons.size(); ++i) {
        QAbstractButton *button = buttons.at(i);
        MoxGenParam::EnumEntry *entry = quint64(i) < count ? param->GetEnumEntryByIndex(quint64(i), nullptr) : nullptr;
        button->setVisible(entry != nullptr);
        group->setId(button, std::numeric_limits<int>::min() + i); // a hidden one keeps no value of the camera before
        if (entry) {
            button->setText(QString::fromUtf8(entry->GetValueStr(nullptr)));
            group->setId(button, int(entry->GetValue(nullptr)));
        }
    }
    store(param, records);
    updateRadioButtons(param, group);
    connectWrite(group, QOverload<int, bool>::of(&QButtonGroup::buttonToggled), param, buttons.value(0),
                 [param](int id, bool checked) { return checked ? param->SetValue(id) : MoxCamError::Success; });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapEnumParam(MoxGenParam::Enum *param, QCheckBox *checkBox)
{
    const Records records{{MoxCamConfigMapData::CheckBoxEnum, checkBox, nullptr}};
    if (!begin(param, records))
        return false;
    store(param, records);
    updateCheckBox(param, checkBox);
    connectWrite(checkBox, &QCheckBox::clicked, param, checkBox,
                 [param](bool checked) { return param->SetValue(std::int64_t{checked}); });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapBooleanParam(MoxGenParam::Boolean *param, QAbstractButton *button)
{
    const Records records{{MoxCamConfigMapData::ButtonBoolean, button, nullptr}};
    if (!begin(param, records))
        return false;
    store(param, records);
    updateButton(param, button);
    connectWrite(button, &QAbstractButton::clicked, param, button,
                 [param](bool checked) { return param->SetValue(checked); });
    param->RegisterEventSink(this);
    return true;
}

bool MoxCamConfigMapper::mapCommandParam(MoxGenParam::Command *param, QPushButton *button, QTimer *timer)
{
    if (!param)
        return false;
    const Records records{{MoxCamConfigMapData::PushButtonCommand, button, nullptr}};
    begin(param, records);
    store(param, records);
    const QPointer<QPushButton> guardedButton(button);
    const QPointer<QTimer> guardedTimer(timer);
    connectWrite(button, &QPushButton::clicked, param, button, [=](bool) {
        const MoxCamErr err = param->Execute();
        // Before the user is told of a failure, so that no second click gets in while the box is open.
        if (guardedButton && guardedTimer) {
            guardedButton->setEnabled(false);
            guardedTimer->start();
        }
        return err;
    });
    param->RegisterEventSink(this);
    return true;
}

void MoxCamConfigMapper::unmapControl(const MoxCamConfigMapData &record)
{
    QObject *control = controlOf(record);
    if (!control)
        return;
    // The connections first: a slider that is being dragged is let go of by disabling it, and would report its value.
    cutSignals(control);
    setEnabled({record}, false);
}

void MoxCamConfigMapper::unmapParam(MoxGenParam::Param *param)
{
    const Records records = bindings.take(nameOf(param));
    if (records.isEmpty())
        return;
    unmapControl(records.first());
    param->UnregisterEventSink(this);
}

void MoxCamConfigMapper::clearMappings()
{
    // The parameters are those of a device that may be gone already: they are not asked to end their subscriptions.
    const QHash<QString, Records> earlier = bindings;
    // All connections before the first control is disabled: that may take the focus from another one, and end its drag.
    for (const Records &records : earlier)
        cutSignals(controlOf(records.first()));
    for (const Records &records : earlier)
        unmapControl(records.first());
    bindings.clear();
    tabs.clear();
}

} // namespace MoxGui
