#include "testmain.h"
#include "treeviewresizer.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTreeView>

/** Global positions, and the widths that they bring. */
using Moves = QVector<QPair<double, int>>;
Q_DECLARE_METATYPE(Moves)

class TestTreeViewResizer : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTreeView> tree;
    std::unique_ptr<QStandardItemModel> model;
    TreeViewResizer *resizer = nullptr;

    /** By hand: the global position must not depend on where the window is. */
    bool send(QEvent::Type type, const QPointF &pos, Qt::MouseButton button = Qt::LeftButton, double globalX = 1000)
    {
        QMouseEvent event(type, pos, QPointF(globalX, 500), button, button, Qt::NoModifier);
        return resizer->eventFilter(tree->viewport(), &event);
    }
    /** On the right edge of a column, in the middle of a row. */
    QPoint edge(int column = 0, int row = 1) const
    {
        const QRect cell = tree->visualRect(model->index(row, column));
        return {cell.right(), cell.center().y()};
    }

private Q_SLOTS:
    void init()
    {
        tree = std::make_unique<QTreeView>();
        model = std::make_unique<QStandardItemModel>(4, 3);
        tree->setRootIsDecorated(false);
        tree->setHeaderHidden(true);
        tree->setModel(model.get());
        resizer = new TreeViewResizer(tree.get());
        tree->resize(500, 300);
        tree->show();
        tree->setColumnWidth(0, 100);
        tree->setColumnWidth(1, 100);
    }
    void cleanup() { tree.reset(); }

    void zone()
    {
        const QVector<QPair<int, double>> places{{0, -5},  {0, -4}, {0, 0}, {0, 4}, {0, 4.4}, // halves are rounded
                                                 {0, 4.5}, {0, 40}, {1, 4}, {2, 0}};
        for (const auto &[column, distance] : places) {
            const bool inside = column < 2 && qAbs(distance) < 4.5;
            const QPointF pos = edge(column) + QPointF(distance, 0);
            QCOMPARE(resizer->ifResizable(pos.toPoint()).column(), inside ? column : -1);
            // From the other cursor, so that both answers must be given.
            tree->viewport()->setCursor(inside ? Qt::ArrowCursor : Qt::SplitHCursor);
            QVERIFY(!send(QEvent::MouseMove, pos, Qt::NoButton));
            QCOMPARE(tree->viewport()->cursor().shape(), inside ? Qt::SplitHCursor : Qt::ArrowCursor);
            QVERIFY(!send(QEvent::MouseButtonPress, pos, Qt::RightButton));
            QCOMPARE(send(QEvent::MouseButtonPress, pos), inside);
            // The drag goes on: neither a second press nor another button's release ends it.
            QVERIFY(!send(QEvent::MouseButtonPress, pos));
            QVERIFY(!send(QEvent::MouseButtonRelease, pos, Qt::RightButton));
            QCOMPARE(send(QEvent::MouseButtonRelease, pos), inside);
            QVERIFY(!send(QEvent::MouseButtonRelease, pos));
        }
    }

    void noZone()
    {
        // The probe lies six pixels above the mouse.
        QVERIFY(!resizer->ifResizable(QPoint(edge().x(), 5)).isValid());
        QVERIFY(resizer->ifResizable(QPoint(edge().x(), 6)).isValid());
        const std::function<void()> changes[] = {
            [&] { tree->header()->setSectionResizeMode(0, QHeaderView::Fixed); },
            [&] { tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents); },
            [&] { model->setColumnCount(1); },
            [&] { model->setRowCount(0); },
            [&] { tree->setModel(nullptr); },
            [&] { model = std::make_unique<QStandardItemModel>(); }};
        for (const auto &change : changes) {
            init();
            const QPoint pos = edge();
            QVERIFY(send(QEvent::MouseButtonPress, pos));
            change(); // in the middle of a drag: it goes on without harm
            QVERIFY(send(QEvent::MouseMove, pos, Qt::LeftButton, 1200));
            QVERIFY(send(QEvent::MouseButtonRelease, pos));
            QVERIFY(!send(QEvent::MouseButtonPress, QPoint(tree->columnWidth(0) - 1, pos.y())));
        }
    }

    // The probed cell's own rectangle counts, and that of a spanned row is as wide as all columns.
    void spannedRow()
    {
        tree->setFirstColumnSpanned(1, QModelIndex(), true);
        const QPoint right = edge();
        QVERIFY(right.x() > 200);
        QCOMPARE(resizer->ifResizable(right + QPoint(0, 6)), model->index(1, 0));
        QVERIFY(!resizer->ifResizable(QPoint(99, right.y() + 6)).isValid());
    }

    void drag_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("start");
        QTest::addColumn<Moves>("moves");
        QTest::newRow("first column") << 0 << 1000.0 << Moves{{1030, 130}, {990, 90}, {990, 90}};
        QTest::newRow("second column") << 1 << 1000.0 << Moves{{1020, 120}};
        QTest::newRow("stops at 10 and grows from there") << 0 << 1000.0 << Moves{{700, 10}, {690, 10}, {705, 25}};
        QTest::newRow("whole pixels") << 0 << 1000.4 << Moves{{1000.49, 100}, {1000.5, 101}};
    }

    // The position in the viewport plays no part. When another window takes the release, the drag goes on until the next
    // one, whatever the buttons say.
    void drag()
    {
        QFETCH(int, column);
        QFETCH(double, start);
        QFETCH(Moves, moves);
        QVERIFY(!send(QEvent::MouseMove, edge(column), Qt::NoButton));
        QVERIFY(send(QEvent::MouseButtonPress, edge(column), Qt::LeftButton, start));
        for (const auto &[globalX, width] : moves) {
            for (const Qt::MouseButton button : {Qt::NoButton, Qt::LeftButton}) {
                QVERIFY(send(QEvent::MouseMove, {}, button, globalX));
                QCOMPARE(tree->columnWidth(column), width);
            }
        }
        QVERIFY(send(QEvent::MouseButtonRelease, {}));
        QCOMPARE(tree->viewport()->cursor().shape(), Qt::SplitHCursor); // left to the next move
        QVERIFY(!send(QEvent::MouseMove, {}, Qt::NoButton, 1050));
        QCOMPARE(tree->viewport()->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(tree->columnWidth(column), moves.last().second);
        QCOMPARE(tree->columnWidth(1 - column), 100);
    }

    void throughTheWindow()
    {
        const QPoint pos = edge();
        QVERIFY(tree->viewport()->hasMouseTracking());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QVERIFY(!tree->currentIndex().isValid());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos - QPoint(5, 0));
        QCOMPARE(tree->currentIndex(), model->index(1, 0));

        QSignalSpy showed(resizer, &TreeViewResizer::showed);
        tree->hide();
        tree->show();
        tree->viewport()->hide();
        tree->viewport()->show();
        QCOMPARE(showed.count(), 1);
    }
};

MOX_TEST_MAIN(TestTreeViewResizer)
#include "tst_treeviewresizer.moc"
