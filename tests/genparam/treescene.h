// A parameter tree on the screen over one feature of each kind, and hands to use it.
#ifndef MOXTEST_TREESCENE_H
#define MOXTEST_TREESCENE_H

#include "fakenodes.h"
#include "moxgenparamtreeview.h"

#include <QTest>
#include <QTreeView>

namespace MoxTest {

/** One feature of each kind of editor, all at the top level. */
struct FeatureScene
{
    FakeNodeMap map;
    FakeCategory &root = map.add<FakeCategory>("Root");
    FakeInteger &width = map.add<FakeInteger>("Width");
    FakeInteger &other = map.add<FakeInteger>("Other");
    FakeInteger &binning = map.add<FakeInteger>("Binning");
    FakeInteger &address = map.add<FakeInteger>("GevSCDA");
    FakeInteger &mac = map.add<FakeInteger>("GevMACAddress");
    FakeBoolean &reverse = map.add<FakeBoolean>("Reverse");
    FakeEnumeration &mode = map.add<FakeEnumeration>("Mode");
    FakeString &user = map.add<FakeString>("User");
    FakeCommand &start = map.add<FakeCommand>("Start");
    FakeNode &blob = map.add<FakeNode>("Blob");

    FeatureScene()
    {
        root.features = {&width, &other, &binning, &address, &mac, &reverse, &mode, &user, &start, &blob};
        binning.validValues = {1, 2, 4};
        binning.value = 1;
        address.max = mac.max = INT64_MAX;
        mode.addEntry("Off", 0);
        mode.addEntry("On", 3);
        blob.principalInterface = GenApi::intfIRegister;
    }
};

/** The cell of a feature's value. */
inline QModelIndex valueOf(const MoxGui::MoxGenParamTreeView &view, const char *name)
{
    const QAbstractItemModel *model = view.treeView()->model();
    const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, QLatin1String(name), 1,
                                               Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first().sibling(found.first().row(), 1);
}

/** The editor that is open; null without one. */
template<class Editor = QWidget> Editor *openEditor(const MoxGui::MoxGenParamTreeView &view)
{
    const auto children = view.treeView()->viewport()->findChildren<Editor *>(QString(), Qt::FindDirectChildrenOnly);
    for (Editor *child : children) {
        if (child->isVisible())
            return child;
    }
    return nullptr;
}

/** Presses and releases in the window, as a window system does, over a part of a widget. */
inline void clickAt(QWidget *widget, const QPoint &pos)
{
    QWidget *window = widget->window();
    QTest::mouseMove(widget, pos);
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, widget->mapTo(window, pos));
}

inline void clickCell(const MoxGui::MoxGenParamTreeView &view, const QModelIndex &index)
{
    clickAt(view.treeView()->viewport(), view.treeView()->visualRect(index).center());
}

} // namespace MoxTest

#endif
