// A dialog that shows every feature of a camera and lets the user change them.
#ifndef MOXGENPARAMTREEVIEW_H
#define MOXGENPARAMTREEVIEW_H

#include "moxcameraguiapi_global.h"

#include <QtWidgets/QDialog>

#include <memory>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace GenApi_3_0 {
struct INodeMap;
}

namespace MoxGenParam {
class Array;
}

namespace MoxGui {

class MoxGenParamTreeViewPrivate;

/** Up to which level features are shown. The numbers are the rows of the dialog's level box. */
enum Visibility : int { VisibilityBasic = 0, VisibilityExpert = 1, VisibilityGuru = 2 };

/**
 * The parameter tree as an application sees it that knows nothing of widgets. The entry functions
 * CreateGenParamTreeViewFor...() give one. All of it is used on the GUI thread.
 *
 * The node map shown is not owned. It must outlive the tree, or clearParams() must take it away first, and then the
 * application's event loop must run once before the node map goes: callbacks stay registered until then.
 */
class MOXGUI_EXPORT IMoxGenParamTreeView
{
public:
    virtual ~IMoxGenParamTreeView();

    /** Shows the node map of @p params, which must not be null; one that has no node map shows nothing. */
    virtual void setParams(MoxGenParam::Array *params) = 0;
    /**
     * Shows @p nodeMap, or nothing when it is null. Text typed in an open editor is dropped. Filter text and filter options
     * stay in their fields and count from their next change on; errors of an earlier node map stay in the report.
     * What the node map throws while the tree is built passes through, and nothing is shown then.
     */
    virtual void setParams(GenApi_3_0::INodeMap *nodeMap) = 0;
    /** Shows nothing. Text typed in an open editor is dropped. Polling, errors and the level stay as they are. */
    virtual void clearParams() = 0;

    /** The level chosen; -1 when loadState() has met a level that does not exist. */
    virtual Visibility visibility() const = 0;
    /** Chooses a level. One that does not exist hides every row. */
    virtual void setVisibility(Visibility visibility) = 0;

    /**
     * Which categories are expanded, the width of the name column, the level and the place of the splitter, as one text in
     * UTF-8 for the application to keep. Empty while nothing is shown. Valid until the next saveState() or loadState() and
     * no longer than the tree. Categories that the level hides are lost.
     */
    virtual const char *saveState() const = 0;
    /**
     * Takes back what saveState() gave; its pointer may be given straight back. Expands the categories whose path occurs
     * anywhere in @p state and collapses all others. Text of any other kind does no harm beyond that. Null, an empty text,
     * and a tree that shows nothing change nothing.
     */
    virtual void loadState(const char *state) = 0;

    /** Sets the polling period in milliseconds, also of polling that runs. Only what fits an int counts. */
    virtual void setPollingTime(unsigned long milliseconds) = 0;
    /** The polling period in milliseconds; 1000 at first. */
    virtual unsigned long getPollingTime() = 0;
    /**
     * Starts or stops polling: telling the node map regularly that a period went by, so that it looks after features that
     * change by themselves. Off at first. It runs on across changes of the node map. What a poll throws is not caught and
     * comes out of the application's event loop, which Qt does not support.
     */
    virtual void enablePolling(bool enable) = 0;
    /** Whether polling runs, also while nothing is shown. */
    virtual bool isPollingEnabled() = 0;
};

/**
 * A tree of all features with their live values and editors, a filter, a level, a report of errors, and a description of
 * the current feature. Failures of the camera never open a message: they show in the tree and in the report.
 *
 * Needs a QApplication. All of it is used on the GUI thread.
 */
class MOXGUI_EXPORT MoxGenParamTreeView : public QDialog, public IMoxGenParamTreeView
{
    Q_OBJECT

public:
    /** Shows nothing until setParams(). @p parent may be null. */
    explicit MoxGenParamTreeView(QWidget *parent);
    /** Shows the node map of @p params, which must not be null. @p parent may be null. */
    MoxGenParamTreeView(MoxGenParam::Array *params, QWidget *parent);
    /**
     * Shows @p nodeMap, which may be null, as @p parent may. What the node map throws passes through. Made this way, the
     * dialog's two filter options do nothing until the first setParams().
     */
    MoxGenParamTreeView(GenApi_3_0::INodeMap *nodeMap, QWidget *parent);
    /** Ends a visible edit as a loss of the focus does: what was typed is written. The node map must still be there. */
    ~MoxGenParamTreeView() override;

    /** The tree inside, never null; it belongs to the dialog. */
    QTreeView *treeView() const;

    void setParams(MoxGenParam::Array *params) override;
    void setParams(GenApi_3_0::INodeMap *nodeMap) override;
    void clearParams() override;
    Visibility visibility() const override;
    void setVisibility(Visibility visibility) override;
    const char *saveState() const override;
    void loadState(const char *state) override;
    void setPollingTime(unsigned long milliseconds) override;
    unsigned long getPollingTime() override;
    void enablePolling(bool enable) override;
    bool isPollingEnabled() override;

private:
    Q_DISABLE_COPY(MoxGenParamTreeView)

    std::unique_ptr<MoxGenParamTreeViewPrivate> const d;
};

} // namespace MoxGui

#endif
