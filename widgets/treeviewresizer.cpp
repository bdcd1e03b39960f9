#include "treeviewresizer.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTreeView>

#include <algorithm>
#include <cstdlib>

TreeViewResizer::TreeViewResizer(QTreeView *watchedTree) : QObject(watchedTree), tree(watchedTree)
{
    tree->installEventFilter(this);
    tree->viewport()->installEventFilter(this);
    tree->viewport()->setAttribute(Qt::WA_MouseTracking);
    // The header's own limit is wider: that of a caption which is never seen here.
    tree->header()->setMinimumSectionSize(2 * margin);
}

QModelIndex TreeViewResizer::ifResizable(const QPoint &pos) const
{
    // The probe lies left of the mouse, inside the cell that ends at the boundary, and by the same number above it:
    // a cell's zone begins and ends a little below the cell, and the topmost pixels of the viewport have none.
    const QModelIndex index = tree->indexAt(pos - QPoint(margin + 1, margin + 1));
    if (!index.isValid())
        return {};
    if (std::abs(tree->visualRect(index).right() - pos.x()) >= margin)
        return {};
    const int columns = index.model()->columnCount(index.parent());
    if (index.column() >= columns - 1)
        return {};
    if (tree->header()->sectionResizeMode(index.column()) != QHeaderView::Interactive)
        return {};
    return index;
}

bool TreeViewResizer::eventFilter(QObject *watched, QEvent *event)
{
    if (!event)
        return false;
    if (watched == tree && event->type() == QEvent::Show)
        Q_EMIT showed();

    // The event is looked at first: other events arrive while the tree is being destroyed, when it has no viewport.
    const auto *mouse = dynamic_cast<QMouseEvent *>(event);
    if (!mouse || watched != tree->viewport())
        return false;
    switch (mouse->type()) {
    case QEvent::MouseMove:
        // A drag lasts until the release arrives here, whatever the event says of buttons: where another window took the
        // release, the next click ends it.
        return resizing ? drag(*mouse) : hover(*mouse);
    case QEvent::MouseButtonPress:
        return press(*mouse);
    case QEvent::MouseButtonRelease:
        return release(*mouse);
    default:
        return false;
    }
}

bool TreeViewResizer::hover(const QMouseEvent &event)
{
    const bool resizable = ifResizable(event.localPos().toPoint()).isValid();
    // A cursor of its own, not unset: elsewhere the viewport shows the arrow, whatever its parents show.
    tree->viewport()->setCursor(resizable ? QCursor(Qt::SplitHCursor) : QCursor());
    return false;
}

bool TreeViewResizer::press(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || resizing)
        return false;
    const QModelIndex index = ifResizable(event.localPos().toPoint());
    if (!index.isValid())
        return false;
    resizing = true;
    lastX = event.screenPos().toPoint().x();
    section = index.column();
    return true;
}

bool TreeViewResizer::drag(const QMouseEvent &event)
{
    // Global coordinates: those of the viewport jump when moving columns scroll it.
    const int x = event.screenPos().toPoint().x();
    const int delta = x - lastX;
    lastX = x;
    QHeaderView *header = tree->header();
    header->resizeSection(section, std::max(header->sectionSize(section) + delta, 2 * margin));
    return true;
}

bool TreeViewResizer::release(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !resizing)
        return false;
    resizing = false; // the cursor stays as it is until the next move
    return true;
}
