// The write path: from an editor's value to the node.
#include "genparamtreemodel.h"
#include "genparamtreemodel_p.h"

#include "ip4validator.h"

#include <QVector>

using namespace GenApi;

namespace {

const QVector<int> s_roles{Qt::EditRole}; // clazy:exclude=non-pod-global-static (one allocation)

gcstring utf8Of(const QVariant &value)
{
    return value.toString().toUtf8().constData();
}

// Floats alone are fitted into their limits; an integer out of range is for the node to refuse.
void writeFloat(const CFloatPtr &node, double number)
{
    const double min = node->GetMin();
    const double max = node->GetMax();
    if (number < min)
        number = min;
    else if (number > max)
        number = max;
    node->SetValue(number, true);
}

void writeEnumeration(const CEnumerationPtr &node, const QVariant &value)
{
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    if (isNumber)
        node->SetIntValue(number, true);
    else
        node->FromString(utf8Of(value), true);
}

/** Writes by the node's type; false for a type that has no value to write. */
bool write(IValue *feature, const QVariant &value)
{
    switch (nodeOf(feature).GetPrincipalInterfaceType()) {
    case intfIInteger: {
        const CIntegerPtr integer(feature);
        if (!integer)
            return false;
        // A text comes from the address editor, whatever the node's representation.
        const bool isAddress = value.type() == QVariant::String;
        integer->SetValue(isAddress ? qint64(IP4Validator::getIp(value.toString())) : value.toLongLong(), true);
        return true;
    }
    case intfIBoolean:
        CBooleanPtr(feature)->SetValue(value.toBool(), true);
        return true;
    case intfICommand:
        CCommandPtr(feature)->Execute(true);
        return true;
    case intfIFloat:
        writeFloat(feature, value.toDouble());
        return true;
    case intfIString:
        CStringPtr(feature)->SetValue(utf8Of(value), true);
        return true;
    case intfIEnumeration:
        writeEnumeration(feature, value);
        return true;
    default:
        return false;
    }
}

} // namespace

// The callbacks of this node and of those that depend on it run within the write, and announce their cells before this
// cell is announced here.
bool GenParamTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.model() != this || index.column() == 0 || role != Qt::EditRole)
        return false;
    const auto *record = static_cast<const IndexFeature::Record *>(index.internalPointer());
    if (!record || !record->first)
        return false;
    IValue *feature = record->first;
    QString name = QStringLiteral("UnknownNode"); // until the node is known to be writable
    try {
        if (!IsWritable(feature->GetAccessMode()))
            return false;
        name = toQString(nodeOf(feature).GetName());
        if (!write(feature, value))
            return false;
        Q_EMIT dataChanged(index, index, s_roles);
        dropError(index, name, GenParamErrorController::WriteErrorId);
        return true;
    } catch (const GenICam::GenericException &e) {
        keepError(index, name, reasonOf(e), GenParamErrorController::WriteErrorId);
        return false;
    }
}
