// What the parameter tree's model hands to its view and delegate beyond Qt's own roles.
#ifndef MOX_GENPARAMCONTROLDATA_H
#define MOX_GENPARAMCONTROLDATA_H

#include <QMetaType>
#include <QVariant>

#include <GenApi/GenApi.h>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/** Item roles of GenParamTreeModel, the same in both columns. */
enum GenParamItemRole {
    IValueRole = Qt::UserRole, // the node, as `GenApi::IValue *`
    ControlDataRole // a new editor for the node, as ControlData
};

/** How the delegate treats an editor. */
enum ControlKind : quint8 { ComboControl, ButtonControl, IntSpinControl, DoubleSpinControl, LineEditControl };

/** An editor made for one node. Every read of the role makes another one. */
struct ControlData
{
    QWidget *widget = nullptr; // without a parent; whoever reads the role owns it
    ControlKind kind = ComboControl;
};

/** A number that is edited in a combo box: the wrapping tells it from one for a spin box. */
struct VariantData
{
    QVariant value;
};

Q_DECLARE_METATYPE(GenApi::IValue *)
Q_DECLARE_METATYPE(ControlData)
Q_DECLARE_METATYPE(VariantData)

#endif
