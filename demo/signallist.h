// The gallery's list of signals.
#ifndef MOXDEMO_SIGNALLIST_H
#define MOXDEMO_SIGNALLIST_H

#include <QTreeWidget>

namespace MoxDemo {

/** What widgets emitted, the last line at the bottom. Owned by the gallery, GUI thread. */
class SignalList : public QTreeWidget
{
    Q_OBJECT
public:
    /** Older lines than these many are dropped. */
    static constexpr int capacity = 300;

    explicit SignalList(QWidget *parent);

    /** Adds a line and scrolls to it: who emitted, which of its kind, what, and with which arguments. */
    void add(const QString &widget, const QString &setting, const QString &signal, const QString &arguments);
};

} // namespace MoxDemo

#endif
