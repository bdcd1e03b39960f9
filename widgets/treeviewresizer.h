// Column resizing for tree views without a header.
#ifndef MOX_TREEVIEWRESIZER_H
#define MOX_TREEVIEWRESIZER_H

#include <QModelIndex>
#include <QObject>

class QMouseEvent;
class QTreeView;

/**
 * Lets the user drag the column boundaries of a tree in its body, where a hidden header leaves nothing to grab.
 *
 * Watches the tree and its viewport as an event filter; a drag keeps its mouse events from the tree. Child of the tree,
 * GUI thread only.
 */
class TreeViewResizer : public QObject
{
    Q_OBJECT

public:
    /**
     * Watches @p tree, which becomes the parent. Turns on mouse tracking in its viewport and lowers its header's minimum
     * section size to the smallest width that a drag gives, 10 pixels.
     */
    explicit TreeViewResizer(QTreeView *tree);

    /** The index whose right edge can be dragged at @p pos, in viewport coordinates; otherwise the invalid index. */
    QModelIndex ifResizable(const QPoint &pos) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /** The tree receives a show event: its columns have sizes worth using. Emitted at every show. */
    void showed();

private:
    bool hover(const QMouseEvent &event);
    bool press(const QMouseEvent &event);
    bool drag(const QMouseEvent &event);
    bool release(const QMouseEvent &event);

    QTreeView *tree;
    int margin = 5; // pixels
    bool resizing = false;
    int section = 0; // logical column of the drag
    int lastX = 0; // global, of the drag's last mouse position
};

#endif
