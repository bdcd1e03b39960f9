#include "genparamtreevisibilityfilterproxymodel.h"

#include "genparamcontroldata.h"

#include <QScopedValueRollback>

GenParamTreeVisibilityFilterProxyModel::GenParamTreeVisibilityFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent), regExp(QStringLiteral("*"), Qt::CaseInsensitive, QRegExp::WildcardUnix)
{ }

void GenParamTreeVisibilityFilterProxyModel::setSourceModel(QAbstractItemModel *newModel)
{
    if (sourceModel())
        sourceModel()->disconnect(this);
    // The base class answers a change between these two.
    if (newModel)
        connect(newModel, &QAbstractItemModel::dataChanged, this, &GenParamTreeVisibilityFilterProxyModel::enterChange);
    QSortFilterProxyModel::setSourceModel(newModel);
    if (newModel)
        connect(newModel, &QAbstractItemModel::dataChanged, this, [this] { --depth; });
}

void GenParamTreeVisibilityFilterProxyModel::setFilterText(const QString &text)
{
    regExp.setPattern(text);
    refilter();
}

void GenParamTreeVisibilityFilterProxyModel::setFilterVisibility(int level)
{
    visibility = level;
    refilter();
}

void GenParamTreeVisibilityFilterProxyModel::refilter()
{
    if (depth > 0) {
        refilterLater();
        return;
    }
    const QScopedValueRollback<int> entered(depth, depth + 1);
    invalidateFilter();
}

void GenParamTreeVisibilityFilterProxyModel::refilterLater()
{
    if (refilterPending)
        return;
    refilterPending = true;
    const auto run = [this] {
        refilterPending = false;
        refilter();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

void GenParamTreeVisibilityFilterProxyModel::enterChange(const QModelIndex &changed)
{
    if (depth > 0) {
        const QModelIndex row = changed.sibling(changed.row(), 0);
        heldRow = {}; // while the base class may have to test it for the first time
        heldRowIsShown = isShown(row);
        heldRow = row;
        refilterLater();
    }
    ++depth;
}

bool GenParamTreeVisibilityFilterProxyModel::isShown(const QModelIndex &sourceRow) const
{
    return !sourceRow.isValid() || (isShown(sourceRow.parent()) && mapFromSource(sourceRow).isValid());
}

bool GenParamTreeVisibilityFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    // Each row of a camera comes here with each keystroke: the cheap tests go first, the text last.
    try {
        const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
        if (depth > 1 && index == heldRow)
            return heldRowIsShown;
        auto *value = index.data(IValueRole).value<GenApi::IValue *>();
        if (!value)
            return true;
        GenApi::INode *node = value->GetNode();
        // What is not available stays: its cell says so. What is not implemented goes.
        if (!node || visibility < node->GetVisibility() || !GenApi::IsImplemented(value))
            return false;
        if (node->GetPrincipalInterfaceType() == GenApi::intfICategory || regExp.isEmpty())
            return true;
        const QString name = QString::fromUtf8(node->GetDisplayName().c_str());
        return wholeWords ? regExp.exactMatch(name) : regExp.indexIn(name) != -1;
    } catch (const GenICam::GenericException &) {
        return false;
    }
}
