// Presentation: what the cells show, and the values that editors start from.
#include "genparamtreemodel.h"
#include "genparamtreemodel_p.h"

#include "ip4validator.h"

#include <QBrush>
#include <QPalette>
#include <QSet>

using namespace GenApi;
using GenICam::GenericException;

namespace {

QBrush errorBrush()
{
    static const QBrush brush(QColor(255, 0, 0));
    return brush;
}

// Asked for each time: the palette may change.
QBrush paletteBrush(QPalette::ColorGroup group, QPalette::ColorRole role)
{
    return QPalette().color(group, role);
}

QSet<QByteArray> initializeSet()
{
    return {"GevCurrentIPAddress",
            "GevCurrentSubnetMask",
            "GevCurrentDefaultGateway",
            "GevPersistentIPAddress",
            "GevPersistentSubnetMask",
            "GevPersistentDefaultGateway",
            "GevPrimaryApplicationIPAddress",
            "GevMCDA",
            "GevSCDA"};
}

/** Whether any cell has something for a role; views ask for many that none has. */
bool isServed(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
    case Qt::WhatsThisRole:
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
    case IValueRole:
    case ControlDataRole:
        return true;
    }
    return false;
}

/** Six bytes in hexadecimal, the highest first. */
QString macText(qint64 value)
{
    QString text;
    for (int shift = 40; shift >= 0; shift -= 8)
        text += QStringLiteral("%1:").arg(value >> shift & 0xff, 2, 16, QLatin1Char('0'));
    text.chop(1);
    return text.toUpper();
}

} // namespace

QVariant GenParamTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !isServed(role))
        return {};
    const auto *record = static_cast<const IndexFeature::Record *>(index.internalPointer());
    IValue *value = record ? record->first : nullptr;
    try {
        switch (role) {
        case IValueRole:
            return value ? QVariant::fromValue(value) : QVariant();
        case ControlDataRole:
            return d->ControlDataRoleImp(value);
        case Qt::WhatsThisRole:
            return d->WhatsThis(value);
        }
        INode &node = nodeOf(value);
        const gcstring name = node.GetName();
        switch (index.column()) {
        case 0:
            return nameData(index, node, name, role);
        case 1:
            return valueData(index, value, node, name, role);
        }
    } catch (const GenericException &) {
        // A node that cannot even tell its name has nowhere to keep an error.
    }
    return {};
}

QVariant GenParamTreeModel::nameData(const QModelIndex &index, INode &node, const gcstring &name, int role) const
{
    try {
        switch (role) {
        case Qt::DisplayRole: {
            const gcstring displayName = node.GetDisplayName();
            return toQString(displayName.empty() ? name : displayName);
        }
        case Qt::ToolTipRole: {
            if (const QString *error = errorOf(name))
                return *error;
            const gcstring toolTip = node.GetToolTip();
            return toolTip.empty() ? data(index, Qt::DisplayRole) : toQString(toolTip);
        }
        case Qt::BackgroundRole:
            if (node.GetPrincipalInterfaceType() == intfICategory)
                return paletteBrush(QPalette::Active, QPalette::Midlight);
            break;
        case Qt::ForegroundRole:
            if (errorOf(name))
                return errorBrush();
            break;
        }
    } catch (const GenericException &e) {
        if (role == Qt::DisplayRole)
            return tr("ERROR");
        if (role == Qt::ToolTipRole)
            return reasonOf(e);
    }
    return {};
}

QVariant GenParamTreeModel::valueData(const QModelIndex &index, IValue *value, INode &node, const gcstring &name,
                                      int role) const
{
    try {
        const EInterfaceType type = node.GetPrincipalInterfaceType();
        if (type == intfICategory)
            return {};
        QVariant result;
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: {
            const EAccessMode mode = value->GetAccessMode();
            if (!IsAvailable(mode))
                result = tr("<Value not available>");
            else if (type != intfICommand && !IsReadable(mode))
                result = tr("<Value not readable>");
            else
                result = role == Qt::DisplayRole ? d->DisplayRoleImp(value) : d->EditRoleImp(value);
            break;
        }
        case Qt::ToolTipRole: {
            const QString *error = errorOf(name);
            return error ? *error : toQString(node.GetToolTip());
        }
        case Qt::ForegroundRole:
            // An error shows even where the read that it stands for is about to be told good below.
            if (errorOf(name)) {
                result = errorBrush();
            } else {
                const EAccessMode mode = value->GetAccessMode();
                if ((!IsReadable(mode) && type != intfICommand) || !IsWritable(mode))
                    result = paletteBrush(QPalette::Disabled, QPalette::Text);
            }
            break;
        default:
            return {};
        }
        if (!errors.IsEmpty())
            dropError(index, toQString(name), role);
        return result;
    } catch (const GenericException &e) {
        const QString reason = reasonOf(e);
        keepError(index, toQString(name), reason, role);
        return role == Qt::DisplayRole || role == Qt::EditRole ? reason : QVariant();
    }
}

const QString *GenParamTreeModel::errorOf(const gcstring &name) const
{
    return errors.IsEmpty() ? nullptr : errors.FirstError(toQString(name));
}

void GenParamTreeModel::keepError(const QModelIndex &index, const QString &name, const QString &text, int id) const
{
    if (errors.SetError(name, text, id))
        Q_EMIT errorAppeared(index, name, text, id);
}

void GenParamTreeModel::dropError(const QModelIndex &index, const QString &name, int id) const
{
    if (errors.ClearError(name, id))
        Q_EMIT errorDisappeared(index, name, id);
}

ERepresentation FixIntegerRepresentation(IInteger *integer, const gcstring &name)
{
    static const QByteArray macName = QByteArrayLiteral("GevMACAddress");
    static const QSet<QByteArray> addressNames = initializeSet();
    const QByteArray key = QByteArray::fromRawData(name.c_str(), int(name.size()));
    if (key == macName)
        return MACAddress;
    return addressNames.contains(key) ? IPV4Address : integer->GetRepresentation();
}

ERepresentation GenParamTreeModelPrivate::effectiveRepresentation(IInteger *integer) const
{
    return deviceMarksAddresses ? integer->GetRepresentation()
                                : FixIntegerRepresentation(integer, nodeOf(integer).GetName());
}

QVariant GenParamTreeModelPrivate::DisplayRoleImp(IValue *value) const
{
    switch (nodeOf(value).GetPrincipalInterfaceType()) {
    case intfIInteger: {
        const CIntegerPtr integer(value);
        switch (effectiveRepresentation(integer)) {
        case IPV4Address:
            return IP4Validator::getIpStr(quint32(integer->GetValue()));
        case MACAddress:
            return macText(integer->GetValue());
        case HexNumber:
            return QString::number(integer->GetValue(), 16).toUpper();
        default:
            return QString(QString::number(integer->GetValue()) + toQString(integer->GetUnit()));
        }
    }
    case intfIBoolean:
        return CBooleanPtr(value)->GetValue() ? QStringLiteral("True") : QStringLiteral("False");
    case intfICommand:
        return QStringLiteral("Execute");
    case intfIFloat: {
        const CFloatPtr number(value);
        const QString text = QString::number(number->GetValue(), 'f', digitsOf(*number));
        return QString(text + toQString(number->GetUnit()));
    }
    case intfIString:
        return toQString(CStringPtr(value)->GetValue());
    case intfIEnumeration:
        return toQString(value->ToString());
    default:
        return {};
    }
}

QVariant GenParamTreeModelPrivate::EditRoleImp(IValue *value) const
{
    switch (nodeOf(value).GetPrincipalInterfaceType()) {
    case intfIInteger: {
        const CIntegerPtr integer(value);
        switch (effectiveRepresentation(integer)) {
        case IPV4Address:
            return IP4Validator::getIpStr(quint32(integer->GetValue()));
        case MACAddress:
            // A text, though the editor is a spin box, which therefore does not start from it.
            return macText(integer->GetValue());
        default:
            break;
        }
        const QVariant number = qlonglong(integer->GetValue());
        return integer->GetIncMode() == listIncrement ? QVariant::fromValue(VariantData{number}) : number;
    }
    case intfIBoolean:
        return CBooleanPtr(value)->GetValue();
    case intfIFloat: {
        const CFloatPtr real(value);
        const QVariant number = real->GetValue();
        return real->GetIncMode() == listIncrement ? QVariant::fromValue(VariantData{number}) : number;
    }
    case intfIString:
        return toQString(CStringPtr(value)->GetValue());
    case intfIEnumeration:
        return qulonglong(CEnumerationPtr(value)->GetIntValue());
    default:
        return {};
    }
}
