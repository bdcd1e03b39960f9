// The tree's state as text: the paths of expanded categories, then three sections that begin with a marker.
//
// The markers are these very characters and no escapes for others. Nothing in the text is escaped, and no order of the
// sections is asked for: the first occurrence of a marker counts.

#include "moxgenparamtreeview.h"
#include "moxgenparamtreeview_p.h"

#include "ui_genparamtreeview.h"

#include <QSplitter>

#include <optional>
#include <stdexcept>

namespace MoxGui {

namespace {

constexpr char expandedEnd[] = "&lt;";
constexpr char widthMark[] = "&amp;W";
constexpr char visibilityMark[] = "&amp;V";
constexpr char splitterMark[] = "&amp;S";

std::string nameOf(const QModelIndex &index)
{
    return index.data(Qt::DisplayRole).toString().toStdString();
}

/** Everything behind a marker; empty also when the marker is missing. */
std::string section(const std::string &state, const std::string &mark)
{
    const std::size_t begin = state.find(mark);
    return begin == std::string::npos ? std::string() : state.substr(begin + mark.size());
}

/** The number at the start of a section; none when there is none, or one that no int holds. */
std::optional<int> leadingNumber(const std::string &text)
{
    try {
        return std::stoi(text);
    } catch (const std::logic_error &) {
        return std::nullopt;
    }
}

/** Whether bytes begin as a splitter's state does. QSplitter takes memory for as many panes as they tell, any number. */
bool isStateOf(const QSplitter &splitter, const QByteArray &bytes)
{
    constexpr int headSize = 12; // mark, version, number of panes
    return bytes.left(headSize) == splitter.saveState().left(headSize);
}

} // namespace

std::string MoxGenParamTreeViewPrivate::saveState(const QModelIndex &index, const std::string &delimiter) const
{
    if (!isCategory(index))
        return {};
    std::string entries;
    if (ui->treeView->isExpanded(index)) {
        entries = nameOf(index);
        for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
            entries.insert(0, nameOf(parent) + '/');
        entries += delimiter;
    }
    // Also below a collapsed category: what is expanded there comes back with it.
    for (int row = 0; row < index.model()->rowCount(index); ++row)
        entries += saveState(index.model()->index(row, 0, index), delimiter);
    return entries;
}

void MoxGenParamTreeViewPrivate::loadState(const QModelIndex &index, const std::string &parentPath,
                                           const std::string &state)
{
    if (!isCategory(index))
        return;
    const std::string path = parentPath.empty() ? nameOf(index) : parentPath + '/' + nameOf(index);
    // Anywhere in the text, also as a part of another entry: who expands Image/Format also gets Image, and a Format at
    // the top.
    ui->treeView->setExpanded(index, state.find(path) != std::string::npos);
    for (int row = 0; row < index.model()->rowCount(index); ++row)
        loadState(index.model()->index(row, 0, index), path, state);
}

const char *MoxGenParamTreeView::saveState() const
{
    d->stateText.clear();
    const QTreeView *tree = d->ui->treeView;
    if (const QAbstractItemModel *model = tree->model()) {
        std::string text;
        for (int row = 0; row < model->rowCount(tree->rootIndex()); ++row)
            text += d->saveState(model->index(row, 0, tree->rootIndex()), expandedEnd);
        text += widthMark + std::to_string(tree->columnWidth(0));
        text += visibilityMark + std::to_string(d->ui->cbVisibility->currentIndex());
        text += splitterMark + d->splitter->saveState().toHex().toStdString();
        d->stateText = std::move(text);
    }
    return d->stateText.c_str();
}

void MoxGenParamTreeView::loadState(const char *state)
{
    QTreeView *tree = d->ui->treeView;
    const QAbstractItemModel *model = tree->model();
    if (!state || !*state || !model)
        return;
    const std::string text = state; // which may be the text kept here
    d->stateText = text;

    // Before the level: a category that only the restored level brings is not reached and stays collapsed.
    for (int row = 0; row < model->rowCount(tree->rootIndex()); ++row)
        d->loadState(model->index(row, 0, tree->rootIndex()), {}, text);

    const int width = leadingNumber(section(text, widthMark)).value_or(0);
    if (width != 0) {
        tree->setColumnWidth(0, width);
        d->columnWidthRestored = true;
    }
    const std::string level = section(text, visibilityMark);
    if (!level.empty()) // a level that does not exist hides every row until the user chooses one
        d->ui->cbVisibility->setCurrentIndex(leadingNumber(level).value_or(0));
    const QByteArray places = QByteArray::fromHex(QByteArray::fromStdString(section(text, splitterMark)));
    if (isStateOf(*d->splitter, places)) {
        d->splitter->restoreState(places);
        d->splitter->setHandleWidth(-1); // the style's; that of the text may be wider than any window
    }
}

} // namespace MoxGui
