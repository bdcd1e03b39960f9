#ifndef MOX_GENPARAMTREEVISIBILITYFILTERPROXYMODEL_H
#define MOX_GENPARAMTREEVISIBILITYFILTERPROXYMODEL_H

#include <QRegExp>
#include <QSortFilterProxyModel>

/**
 * Shows the features up to a visibility level that the device implements and whose display name matches a text.
 *
 * Categories are exempt from the text, so that a feature is never cut off from its parents; one above the level takes its
 * features along. Rows are tested afresh at each dataChanged(): features come and go with the device's state. A row whose
 * node throws is hidden until the next test; one without a node is shown.
 *
 * A view that lets rows go may commit an edit, and so change further rows, while rows are being removed here; the base class
 * does not survive a removal inside of another. So what changes meanwhile keeps its place, and is tested again once the event
 * loop runs.
 *
 * Expects the node from IValueRole in column 0, and changes of single rows. Owned by the view's dialog; GUI thread only.
 */
class GenParamTreeVisibilityFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit GenParamTreeVisibilityFilterProxyModel(QObject *parent);

    void setSourceModel(QAbstractItemModel *sourceModel) override;

    /**
     * Tests all rows afresh, as rows that go and come. What the base class has under this name keeps the rows below a
     * hidden parent if a view remembers one of them, and writes out of bounds when one of those changes.
     */
    void invalidate() { refilter(); }

    // Call invalidate() after a change of these.
    int visibility = 0; // highest GenApi level shown
    QRegExp regExp; // of the display name; an empty pattern lets all names pass
    bool wholeWords = false; // the pattern must match the whole name and not some part of it

public Q_SLOTS:
    void setFilterText(const QString &text);
    void setFilterVisibility(int level);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    void refilter();
    void refilterLater();
    void enterChange(const QModelIndex &changed);
    /**
     * Asks from the top: mapping a row makes the base class keep rows below its parent, and it loses count of those when
     * one of them goes while the parent is hidden.
     */
    bool isShown(const QModelIndex &sourceRow) const;

    int depth = 0; // of refilter() and changes of the source that are under way, one inside of another
    QModelIndex heldRow; // of the source: changes inside of another change
    bool heldRowIsShown = false;
    bool refilterPending = false;
};

#endif
