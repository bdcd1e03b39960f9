#ifndef MOX_MOXGENPARAMTREEVIEW_P_H
#define MOX_MOXGENPARAMTREEVIEW_P_H

#include "genparamerrorcontroller.h"

#include <QAbstractItemView>
#include <QVector>

#include <memory>
#include <string>

QT_BEGIN_NAMESPACE
class QAction;
class QCheckBox;
class QSplitter;
class QTimer;
class QWidget;
QT_END_NAMESPACE

class GenParamTreeModel;
class GenParamTreeVisibilityFilterProxyModel;
class Ui_GenParamTreeView;

namespace GenApi_3_0 {
struct INodeMap;
}

namespace MoxGui {

class MoxGenParamTreeView;

/**
 * What stands behind the parameter tree dialog: form, filter options, errors, poll timer, state text.
 *
 * Owned by the dialog and destroyed before the dialog's children. Lives on the GUI thread.
 */
class MoxGenParamTreeViewPrivate
{
public:
    explicit MoxGenParamTreeViewPrivate(MoxGenParamTreeView *dialog);
    ~MoxGenParamTreeViewPrivate();
    Q_DISABLE_COPY(MoxGenParamTreeViewPrivate)

    // Construction, in this order; a constructor that is given a node map calls setModel in between.
    void initForm();
    void initEditing();
    void initFilterWidget(QWidget *dialog);
    void initPolling();

    /** Takes the model from the tree. It and its callbacks live until the event loop runs. */
    void clearModel();
    /** Shows a node map; null shows nothing. */
    void setModel(GenApi_3_0::INodeMap *map);

    /** The entries of an index and the categories below it, each with @p delimiter behind. */
    std::string saveState(const QModelIndex &index, const std::string &delimiter) const;
    /** Expands or collapses an index and the categories below it. */
    void loadState(const QModelIndex &index, const std::string &parentPath, const std::string &state);

    MoxGenParamTreeView *const q_ptr;
    QSplitter *splitter = nullptr; // tree above, description below; child of the dialog
    std::unique_ptr<Ui_GenParamTreeView> ui;
    std::string stateText; // what saveState() gave out
    bool columnWidthRestored = false; // the first show leaves the width alone then
    const QVector<int> errorRoles{Qt::ForegroundRole}; // what an error changes
    GenParamErrorController errors; // of all node maps shown so far
    QAction *filterOptionsAction = nullptr; // of the filter field
    QWidget *filterOptions = nullptr; // pop-up, child of the filter field
    QCheckBox *checkBoxCase = nullptr;
    QCheckBox *checkBoxWhole = nullptr;
    QTimer *pollTimer = nullptr; // child of the dialog
    GenApi_3_0::INodeMap *nodeMap = nullptr; // not owned

private:
    void keepFocusFromRemovals(const QAbstractItemModel *proxy);
    void connectModel(GenParamTreeModel *model, GenParamTreeVisibilityFilterProxyModel *proxy);
    void connectFilter(GenParamTreeVisibilityFilterProxyModel *proxy);
    void setOptionIcon();
    void balanceColumns();
    void setSpanForChildren(const QModelIndex &index);
    void onErrorAppeared(const QModelIndex &index, const QString &name, const QString &text, int id);
    void onErrorDisappeared(const QModelIndex &index, const QString &name, int id);
    void repaintRow(const QModelIndex &index);
    void showErrors();

    QAbstractItemView::EditTriggers suspendedTriggers; // that the tree gets back when rows have left it
    QObject receiver; // context of what calls this object: none of it outlives this object
};

/** Whether the row of an index is a category. A row without a node throws GenICam_3_0::LogicalErrorException. */
bool isCategory(const QModelIndex &index);

} // namespace MoxGui

#endif
