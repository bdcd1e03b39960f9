#include "signallist.h"

#include <QHeaderView>

namespace MoxDemo {

SignalList::SignalList(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderLabels({tr("Widget"), tr("Setting"), tr("Signal"), tr("Arguments")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(true);
}

void SignalList::add(const QString &widget, const QString &setting, const QString &signal, const QString &arguments)
{
    auto *line = new QTreeWidgetItem(this, {widget, setting, signal, arguments});
    if (topLevelItemCount() > capacity)
        delete topLevelItem(0);
    scrollToItem(line);
}

} // namespace MoxDemo
