// What the parameter tree costs beside Qt's own machinery: the dialog over a node map whose port is memory, and a plain
// QTreeView over a ready QStandardItemModel of the same rows. Each figure is the processor time of the quickest of the rounds
// in which both take turns; no side has to wait for a device or a screen.
//
//   bench_genparam               200, 450, 5,000 and 20,000 features
//   bench_genparam <features>    that many
#include "genapi/nodemapfactory.h"
#include "genparamcontroldata.h"
#include "genparamtreemodel.h"
#include "genparamtreevisibilityfilterproxymodel.h"
#include "moxgenparamtreeview.h"
#include "syntheticdevice.h"
#include "table.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTreeView>

#include <functional>

using namespace GenApi;
using namespace MoxBench;

namespace {

constexpr QSize windowSize(600, 700);
constexpr int LevelRole = Qt::UserRole;

/** The stock proxy with a level; categories are exempt from the text as they are in the tree. */
class StockFilter : public QSortFilterProxyModel
{
public:
    StockFilter() { setFilterCaseSensitivity(Qt::CaseInsensitive); }
    void setLevel(int newLevel)
    {
        level = newLevel;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        if (index.data(LevelRole).toInt() > level)
            return false;
        return sourceModel()->hasChildren(index) || QSortFilterProxyModel::filterAcceptsRow(row, parent);
    }

private:
    int level = 0;
};

/** Tells when the tree on the screen is up to date. */
class Painted : public QObject
{
public:
    explicit Painted(QTreeView *tree) { tree->viewport()->installEventFilter(this); }

    /** Runs what is due until the tree has been painted. */
    void wait()
    {
        const int before = count;
        for (int turn = 0; count == before; ++turn) {
            if (turn == 1000)
                qFatal("nothing is painted");
            QCoreApplication::processEvents();
        }
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }

private:
    int count = 0;
};

/** One node map over memory, ready to be shown. */
struct Device
{
    explicit Device(const std::string &description) : map(MoxGenApi::createNodeMap(description, port, "bench")) { }
    CountingPort port;
    const std::unique_ptr<INodeMap> map;
};

/** The tree under test. */
struct Ours
{
    explicit Ours(Device &shown) : device(shown), view(shown.map.get(), nullptr) { }

    QTreeView *tree() const { return view.treeView(); }
    QWidget *window() { return &view; }
    auto *filter() const { return static_cast<GenParamTreeVisibilityFilterProxyModel *>(tree()->model()); }
    void waitForPaint() { painted.wait(); }
    void setText(const QString &text) { filter()->setFilterText(text); }
    void setLevel(int level) { view.setVisibility(MoxGui::Visibility(level)); }
    void changeAll() { device.map->InvalidateNodes(); }

    Device &device;
    MoxGui::MoxGenParamTreeView view;
    Painted painted{tree()};
};

/** Qt's own: a tree with the settings of the dialog's, over ready rows. By itself, or in place of the dialog's. */
struct Stock
{
    explicit Stock(QStandardItemModel &rows, bool inDialog = false) : items(rows)
    {
        if (inDialog)
            frame = std::make_unique<MoxGui::MoxGenParamTreeView>(nullptr);
        else
            frame = std::make_unique<QTreeView>();
        auto *dialog = dynamic_cast<MoxGui::MoxGenParamTreeView *>(frame.get());
        view = dialog ? dialog->treeView() : static_cast<QTreeView *>(frame.get());
        painted = std::make_unique<Painted>(view);
        view->setAlternatingRowColors(true);
        view->setUniformRowHeights(true);
        view->setHeaderHidden(true);
        proxy.setSourceModel(&rows);
        view->setModel(&proxy);
        view->setColumnWidth(0, (view->columnWidth(0) + view->columnWidth(1)) / 2);
        span({});
    }

    QTreeView *tree() { return view; }
    QWidget *window() { return frame.get(); }
    void waitForPaint() { painted->wait(); }
    void setText(const QString &text) { proxy.setFilterWildcard(text); }
    void setLevel(int level) { proxy.setLevel(level); }
    void changeAll() { change({}); }

    QStandardItemModel &items;
    StockFilter proxy;
    std::unique_ptr<QWidget> frame;
    QTreeView *view;
    std::unique_ptr<Painted> painted;

private:
    void span(const QModelIndex &parent)
    {
        for (int row = 0; row < proxy.rowCount(parent); ++row) {
            const QModelIndex index = proxy.index(row, 0, parent);
            if (!proxy.hasChildren(index))
                continue;
            view->setFirstColumnSpanned(row, parent, true);
            span(index);
        }
    }
    void change(const QModelIndex &parent)
    {
        for (int row = 0; row < items.rowCount(parent); ++row) {
            const QModelIndex cell = items.index(row, 1, parent);
            items.setData(cell, cell.data().toInt() + 1, Qt::DisplayRole);
            change(cell.siblingAtColumn(0));
        }
    }
};

QList<QStandardItem *> itemsOf(const GenParamTreeModel &model, const QModelIndex &index)
{
    QList<QStandardItem *> row;
    for (int column : {0, 1}) {
        const QModelIndex cell = index.siblingAtColumn(column);
        auto *item = new QStandardItem; // owned by its parent or model
        for (int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::BackgroundRole, Qt::ForegroundRole})
            item->setData(cell.data(role), role);
        row << item;
    }
    row.first()->setData(int(index.data(IValueRole).value<IValue *>()->GetNode()->GetVisibility()), LevelRole);
    for (int i = 0; i < model.rowCount(index); ++i)
        row.first()->appendRow(itemsOf(model, model.index(i, 0, index)));
    return row;
}

void fill(QStandardItemModel &items, INodeMap &map)
{
    const GenParamTreeModel model(&map);
    for (int i = 0; i < model.rowCount(); ++i)
        items.appendRow(itemsOf(model, model.index(i, 0)));
}

/** The rows at one size. */
struct Rows
{
    void add(const char *what, const std::vector<double> &ours, const std::vector<double> &stock)
    {
        table.add(what, size, quickest(stock), quickest(ours));
    }
    Table &table;
    const int size;
};

/** Lets all take turns, once in vain and then each as the first equally often; @p work is told whose turn it is. */
template<class Work> void alternate(int rounds, int sides, Work work)
{
    for (int round = -1; round < rounds; ++round) {
        for (int i = 0; i < sides; ++i)
            work((round + 1 + i) % sides, round < 0);
    }
}

struct Life
{
    std::vector<double> opening, painting, opened, expanding;

    template<class Side> void live(const std::function<std::unique_ptr<Side>()> &make, QSize size)
    {
        std::unique_ptr<Side> side;
        opening.push_back(microseconds([&] { side = make(); }));
        side->window()->resize(size);
        painting.push_back(microseconds([&] {
            side->window()->show();
            side->waitForPaint();
        }));
        opened.push_back(opening.back() + painting.back());
        QCoreApplication::processEvents();
        expanding.push_back(microseconds([&] {
            side->tree()->expandAll();
            side->waitForPaint();
        }));
    }
};

void lives(Rows table, const std::string &description, QStandardItemModel &rows, QSize treeSize, int rounds)
{
    Life ours, stock, inDialog;
    alternate(rounds, 3, [&](int turn, bool inVain) {
        Life unused;
        if (turn == 0) {
            Device device(description); // anew, so that nothing is known of it yet
            (inVain ? unused : ours).live<Ours>([&] { return std::make_unique<Ours>(device); }, windowSize);
        } else if (turn == 1) {
            (inVain ? unused : stock).live<Stock>([&] { return std::make_unique<Stock>(rows); }, treeSize);
        } else {
            (inVain ? unused : inDialog).live<Stock>([&] { return std::make_unique<Stock>(rows, true); }, windowSize);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    table.add("opening the dialog, a bare tree", ours.opening, stock.opening);
    table.add("opening, Qt's tree in the same dialog", ours.opening, inDialog.opening);
    table.add("its first paint, a bare tree's", ours.painting, stock.painting);
    table.add("first paint, Qt's tree in the same dialog", ours.painting, inDialog.painting);
    table.add("opened and painted, a bare tree", ours.opened, stock.opened);
    table.add("opened and painted, Qt's tree in the same dialog", ours.opened, inDialog.opened);
    table.add("expanding all, painted", ours.expanding, stock.expanding);
}

template<class OursWork, class StockWork>
void compare(Rows table, const char *what, int rounds, int steps, OursWork oursWork, StockWork stockWork)
{
    std::vector<double> ours, stock;
    alternate(rounds, 2, [&](int turn, bool inVain) {
        QCoreApplication::processEvents();
        const double time = turn == 0 ? microseconds(oursWork) : microseconds(stockWork);
        if (!inVain)
            (turn == 0 ? ours : stock).push_back(time / steps);
    });
    table.add(what, ours, stock);
}

/** Does the same to both windows. */
template<class Work>
void compare(Rows table, const char *what, int rounds, int steps, Ours &ours, Stock &stock, Work work)
{
    compare(
        table, what, rounds, steps, [&] { work(ours); }, [&] { work(stock); });
}

/** Asks for all rows, as a view does that is expanded: a proxy looks only at what it was asked for. */
void visit(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    for (int row = 0; row < model.rowCount(parent); ++row)
        visit(model, model.index(row, 0, parent));
}

const QString keystrokes[] = {QStringLiteral("1"), QStringLiteral("12"), QStringLiteral("1"), QString()};

void proxiesAlone(Rows table, INodeMap &map, QStandardItemModel &rows, int rounds)
{
    GenParamTreeModel model(&map);
    GenParamTreeVisibilityFilterProxyModel ours(nullptr);
    ours.setSourceModel(&model);
    StockFilter stock;
    stock.setSourceModel(&rows);
    visit(ours);
    visit(stock);
    compare(
        table, "filter keystroke, proxy alone", rounds, int(std::size(keystrokes)),
        [&] {
            for (const QString &text : keystrokes)
                ours.setFilterText(text);
        },
        [&] {
            for (const QString &text : keystrokes)
                stock.setFilterWildcard(text);
        });
    compare(
        table, "level change, proxy alone", rounds, 2,
        [&] {
            ours.setFilterVisibility(Guru);
            ours.setFilterVisibility(Beginner);
        },
        [&] {
            stock.setLevel(Guru);
            stock.setLevel(Beginner);
        });
}

void days(Rows table, Ours &ours, Stock &stock, int rounds)
{
    constexpr int steps = 20;
    compare(table, "repaint without a change", rounds, steps, ours, stock, [](auto &side) {
        for (int i = 0; i < steps; ++i)
            side.tree()->viewport()->repaint();
    });
    compare(table, "scrolling, a step", rounds, steps, ours, stock, [](auto &side) {
        QScrollBar *bar = side.tree()->verticalScrollBar();
        for (int i = 1; i <= steps; ++i) {
            bar->setValue(bar->maximum() * (i % steps) / steps);
            side.waitForPaint();
        }
    });
    compare(table, "filter keystroke, painted", rounds, int(std::size(keystrokes)), ours, stock, [](auto &side) {
        for (const QString &text : keystrokes) {
            side.setText(text);
            side.waitForPaint();
        }
    });
    compare(table, "level change, painted", rounds, 2, ours, stock, [](auto &side) {
        for (int level : {Guru, Beginner}) {
            side.setLevel(level);
            side.waitForPaint();
        }
    });
    compare(table, "callback storm of all nodes, painted", rounds, 1, ours, stock, [](auto &side) {
        side.changeAll();
        side.waitForPaint();
    });
    int number = 0;
    constexpr int writes = 10;
    compare(table, "write", rounds, writes, ours, stock, [&number](auto &side) {
        QAbstractItemModel *model = side.tree()->model();
        for (int i = 0; i < writes; ++i) {
            const QModelIndex cell = model->index(0, 1, model->index(2 * i, 0)); // an integer
            if (!model->setData(cell, ++number % 1000))
                qFatal("the write failed");
        }
    });
}

void accesses(Rows table, const std::string &description)
{
    Device device(description);
    std::unique_ptr<Ours> ours;
    const auto count = [&](const std::string &what, const std::function<void()> &work) {
        const long before = device.port.accesses;
        work();
        table.table.count("port accesses: " + what, table.size, device.port.accesses - before);
    };
    const auto repaint = [&ours] { ours->tree()->viewport()->repaint(); };
    count("opening and first paint", [&] {
        ours = std::make_unique<Ours>(device);
        ours->view.resize(windowSize);
        ours->view.show();
        ours->waitForPaint();
    });
    count("expanding all, painted", [&] {
        ours->tree()->expandAll();
        ours->waitForPaint();
    });
    count("repaint without a change", repaint);
    count("poll with nothing due", [&] { device.map->Poll(1); });
    count("repaint after such a poll", repaint);
    count("poll with every tenth feature due", [&] { device.map->Poll(1000); });
    count("repaint after what was due", repaint);
    count("filter keystroke, painted", [&] {
        ours->setText(keystrokes[1]);
        ours->waitForPaint();
        ours->setText({});
        ours->waitForPaint();
    });
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // the platform's, of each window
    std::vector<int> sizes{200, 450, 5000, 20000};
    if (argc > 1)
        sizes = {std::max(std::atoi(argv[1]), 200)};
    Table table("parameter tree");
    for (int features : sizes) {
        const Rows at{table, features};
        const int rounds = features < 1000 ? 24 : features < 10000 ? 10 : 4;
        const std::string description = syntheticDescription(features);
        Device device(description);
        QStandardItemModel rows;
        fill(rows, *device.map);

        Ours ours(device);
        ours.view.resize(windowSize);
        ours.view.show();
        ours.waitForPaint();
        lives(at, description, rows, ours.tree()->size(), rounds);
        proxiesAlone(at, *device.map, rows, rounds);
        Stock stock(rows);
        stock.window()->resize(ours.tree()->size());
        stock.window()->show();
        for (QTreeView *tree : {ours.tree(), stock.tree()})
            tree->expandAll();
        days(at, ours, stock, rounds);
        accesses(at, description);
    }
    return 0;
}
