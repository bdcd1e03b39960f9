#ifndef MOX_GENPARAMDELEGATE_H
#define MOX_GENPARAMDELEGATE_H

#include <QStyledItemDelegate>

/**
 * Edits the value column of the parameter tree with the widgets that the model makes for its nodes.
 *
 * A combo box commits and closes with the choice, a command's button commits with each click and stays, the other editors
 * commit when they lose the focus, which a click anywhere outside of them brings about. Reaches the model by roles only, so
 * a proxy may stand between. Owned by the view's dialog; GUI thread only.
 */
class GenParamDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit GenParamDelegate(QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

private:
    class MouseTracker;

    /** Lets the first click outside of @p editor take the focus from it. */
    void captureMouseForEditor(QWidget *editor) const;
};

#endif
