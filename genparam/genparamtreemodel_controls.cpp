// Editors: which control a node gets.
#include "genparamtreemodel_p.h"

#include "ip4validator.h"
#include "qtmoxspinboxval64.h"
#include "saturate.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>

#include <cstdint>
#include <limits>
#include <memory>

using namespace GenApi;

namespace {

template<class Widget> std::unique_ptr<Widget> frameless()
{
    auto widget = std::make_unique<Widget>();
    widget->setFrame(false);
    return widget;
}

template<class Widget> QVariant control(std::unique_ptr<Widget> widget, ControlKind kind)
{
    return QVariant::fromValue(ControlData{widget.release(), kind});
}

QVariant addressControl()
{
    auto edit = frameless<QLineEdit>();
    edit->setAlignment(Qt::AlignCenter);
    edit->setValidator(new IP4Validator(edit.get()));
    return control(std::move(edit), LineEditControl);
}

// Of a float only the integral part is written.
qlonglong writtenOf(double value)
{
    return Saturate::truncated(value);
}
qlonglong writtenOf(std::int64_t value)
{
    return value;
}

/** A combo box of the node's valid values; what cannot be fetched is missing in it. */
template<class Node, class Text> QVariant listControl(Node *node, Text text)
{
    auto box = frameless<QComboBox>();
    try {
        const auto values = node->GetListOfValidValues(true);
        const QString unit = toQString(node->GetUnit());
        for (std::size_t i = 0; i < values.size(); ++i)
            box->addItem(text(values[i]) + unit, writtenOf(values[i]));
    } catch (const GenICam::GenericException &) { }
    return control(std::move(box), ComboControl);
}

QVariant integerControl(IInteger *integer)
{
    if (integer->GetIncMode() == listIncrement)
        return listControl(integer, [](std::int64_t value) { return QString::number(value); });
    auto box = frameless<QtMoxSpinBoxVal64>();
    box->setAccelerated(true);
    box->setKeyboardTracking(false);
    box->setIgnoreFocusOut(false);
    // As declared, also where the cell shows an address for the name's sake.
    if (integer->GetRepresentation() == HexNumber)
        box->setDisplayIntegerBase(16);
    const std::int64_t step = integer->GetInc();
    box->setSingleStep(step);
    if (step > 1)
        box->setValidateStepping(true);
    box->setRange(integer->GetMin(), integer->GetMax());
    return control(std::move(box), IntSpinControl);
}

QVariant booleanControl()
{
    auto box = frameless<QComboBox>();
    box->addItem(QStringLiteral("True"), true);
    box->addItem(QStringLiteral("False"), false);
    return control(std::move(box), ComboControl);
}

QVariant floatControl(IFloat *number)
{
    if (number->GetIncMode() == listIncrement)
        return listControl(number, [](double value) { return QString::number(value, 'g', 6); });
    auto box = frameless<QDoubleSpinBox>();
    box->setAccelerated(true);
    box->setDecimals(digitsOf(*number)); // the range is rounded to these, so they go first
    box->setRange(number->GetMin(), number->GetMax());
    box->setSuffix(toQString(number->GetUnit()));
    if (number->HasInc()) // with a step of nothing the arrows would be dead
        box->setSingleStep(number->GetInc());
    return control(std::move(box), DoubleSpinControl);
}

QVariant stringControl()
{
    auto edit = frameless<QLineEdit>();
    edit->setMaxLength(std::numeric_limits<int>::max()); // the camera alone limits it
    return control(std::move(edit), LineEditControl);
}

QVariant enumerationControl(IEnumeration *enumeration)
{
    auto box = frameless<QComboBox>();
    NodeList_t entries;
    enumeration->GetEntries(entries);
    for (INode *node : entries) {
        const CEnumEntryPtr entry(node);
        if (IsAvailable(entry->GetAccessMode()))
            box->addItem(toQString(entry->GetSymbolic()), qlonglong(entry->GetValue()));
    }
    return control(std::move(box), ComboControl);
}

} // namespace

QVariant GenParamTreeModelPrivate::ControlDataRoleImp(IValue *value) const
{
    switch (nodeOf(value).GetPrincipalInterfaceType()) {
    case intfIInteger: {
        const CIntegerPtr integer(value);
        return effectiveRepresentation(integer) == IPV4Address ? addressControl() : integerControl(integer);
    }
    case intfIBoolean:
        return booleanControl();
    case intfICommand:
        return control(std::make_unique<QPushButton>(QStringLiteral("Execute")), ButtonControl);
    case intfIFloat:
        return floatControl(CFloatPtr(value));
    case intfIString:
        return stringControl();
    case intfIEnumeration:
        return enumerationControl(CEnumerationPtr(value));
    default:
        return {};
    }
}
