#include "moxgenparamtreeview.h"

#include "cutsignals.h"
#include "genparamcontroldata.h"
#include "genparamdelegate.h"
#include "genparamtreemodel.h"
#include "genparamtreevisibilityfilterproxymodel.h"
#include "moxgenparamtreeview_p.h"
#include "treeviewresizer.h"

#include "ui_generrorsdlg.h"
#include "ui_genparamtreeview.h"

#include <QAction>
#include <QCheckBox>
#include <QPointer>
#include <QSplitter>
#include <QTimer>

#include <MoxCameraApi/MoxGenParam.h>

#include <utility>

namespace MoxGui {

namespace {

/** Captions are the form's, also those that the code adds. */
struct Form
{
    Q_DECLARE_TR_FUNCTIONS(GenParamTreeView)
};

QIcon image(const char *name)
{
    return QIcon(QStringLiteral("://images//%1.png").arg(QLatin1String(name)));
}

} // namespace

bool isCategory(const QModelIndex &index)
{
    const GenApi::CValuePtr value(index.data(IValueRole).value<GenApi::IValue *>());
    return GenApi::CNodePtr(value->GetNode())->GetPrincipalInterfaceType() == GenApi::intfICategory;
}

MoxGenParamTreeViewPrivate::MoxGenParamTreeViewPrivate(MoxGenParamTreeView *dialog)
    : q_ptr(dialog), ui(std::make_unique<Ui_GenParamTreeView>())
{ }

MoxGenParamTreeViewPrivate::~MoxGenParamTreeViewPrivate() = default;

void MoxGenParamTreeViewPrivate::initForm()
{
    ui->setupUi(q_ptr);
    splitter = new QSplitter(Qt::Vertical, q_ptr);
    ui->verticalLayout->addWidget(splitter);
    splitter->addWidget(ui->treeView);
    splitter->addWidget(ui->whatsThisLabel);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({1000, 10}); // the description takes no more than it needs
}

void MoxGenParamTreeViewPrivate::initEditing()
{
    ui->treeView->setItemDelegateForColumn(1, new GenParamDelegate(q_ptr));
    auto *resizer = new TreeViewResizer(ui->treeView); // child of the tree
    QObject::connect(resizer, &TreeViewResizer::showed, &receiver, [this, resizer] {
        if (!columnWidthRestored)
            balanceColumns();
        resizer->disconnect(); // at the first show only
    });
}

void MoxGenParamTreeViewPrivate::initFilterWidget(QWidget *dialog)
{
    QLineEdit *field = ui->filterLineEdit;
    QAction *clear = field->addAction(image("clear_left"), QLineEdit::TrailingPosition);
    clear->setToolTip(Form::tr("Clear filter"));
    QObject::connect(clear, &QAction::triggered, field, &QLineEdit::clear);

    filterOptionsAction = field->addAction(image("options"), QLineEdit::LeadingPosition);
    filterOptionsAction->setToolTip(Form::tr("Filter options"));
    // Its button takes no focus.
    filterOptionsAction->setShortcut(Qt::ALT | Qt::Key_Down);
    filterOptionsAction->setShortcutContext(Qt::WidgetShortcut);
    field->setAccessibleDescription(Form::tr("Alt+Down opens the filter options"));
    QObject::connect(filterOptionsAction, &QAction::triggered, &receiver, [this, field] {
        filterOptions->move(field->mapToGlobal(QPoint(0, field->height() - 1)));
        filterOptions->show();
    });
    // Room for the hint between the two icons.
    field->setMinimumWidth(3 * field->sizeHint().height()
                           + dialog->fontMetrics().horizontalAdvance(field->placeholderText()));

    filterOptions = new QWidget(field, Qt::Popup);
    filterOptions->setObjectName(QStringLiteral("FilterOptions"));
    auto *layout = new QVBoxLayout(filterOptions);
    layout->setObjectName(QStringLiteral("verticalLayout"));
    checkBoxCase = new QCheckBox(Form::tr("Case Sensitive"), filterOptions);
    checkBoxCase->setObjectName(QStringLiteral("checkBoxCase"));
    layout->addWidget(checkBoxCase);
    checkBoxWhole = new QCheckBox(Form::tr("Whole Words Only"), filterOptions);
    checkBoxWhole->setObjectName(QStringLiteral("checkBoxWhole"));
    layout->addWidget(checkBoxWhole);
    checkBoxCase->setFocus(); // has it whenever the pop-up opens
}

void MoxGenParamTreeViewPrivate::initPolling()
{
    pollTimer = new QTimer(q_ptr);
    pollTimer->setInterval(1000);
    QObject::connect(pollTimer, &QTimer::timeout, &receiver, [this] {
        if (nodeMap)
            nodeMap->Poll(pollTimer->interval()); // the nominal time, not the one that really went by
    });
}

void MoxGenParamTreeViewPrivate::clearModel()
{
    QTreeView *tree = ui->treeView;
    if (QAbstractItemModel *proxy = tree->model()) { // the parent of the model
        QItemSelectionModel *selection = tree->selectionModel();
        tree->setModel(nullptr);
        proxy->deleteLater();
        selection->deleteLater();
    }
    nodeMap = nullptr;
    ui->whatsThisLabel->clear();
}

void MoxGenParamTreeViewPrivate::setModel(GenApi_3_0::INodeMap *map)
{
    clearModel();
    if (!map)
        return;
    auto proxy = std::make_unique<GenParamTreeVisibilityFilterProxyModel>(q_ptr);
    auto *model = new GenParamTreeModel(map, proxy.get());
    proxy->setSourceModel(model);
    // The level counts at once; what stands in the filter field and its options counts from its next change on.
    proxy->setFilterVisibility(ui->cbVisibility->currentIndex());
    nodeMap = map;
    keepFocusFromRemovals(proxy.get());
    // The selection model of an empty tree is nobody's any more.
    const std::unique_ptr<QItemSelectionModel> empty(ui->treeView->selectionModel());
    ui->treeView->setModel(proxy.get());
    connectModel(model, proxy.release());

    balanceColumns();
    // Once: categories that a later change of the filter brings are not spanned.
    const QAbstractItemModel *rows = ui->treeView->model();
    for (int row = 0; row < rows->rowCount(); ++row)
        setSpanForChildren(rows->index(row, 0));
}

void MoxGenParamTreeViewPrivate::keepFocusFromRemovals(const QAbstractItemModel *proxy)
{
    // A row that leaves makes its neighbour current, which must not open an editor there: whoever types a filter text goes
    // on typing it. Connected before the tree, so that it comes before the tree's own answer.
    QObject::connect(proxy, &QAbstractItemModel::rowsAboutToBeRemoved, &receiver, [this] {
        const QAbstractItemView::EditTriggers triggers = ui->treeView->editTriggers();
        suspendedTriggers |= triggers & QAbstractItemView::CurrentChanged; // another removal may be under way
        ui->treeView->setEditTriggers(triggers & ~QAbstractItemView::CurrentChanged);
    });
    QObject::connect(proxy, &QAbstractItemModel::rowsRemoved, &receiver, [this] {
        ui->treeView->setEditTriggers(ui->treeView->editTriggers() | std::exchange(suspendedTriggers, {}));
    });
}

void MoxGenParamTreeViewPrivate::connectModel(GenParamTreeModel *model, GenParamTreeVisibilityFilterProxyModel *proxy)
{
    QTreeView *tree = ui->treeView;
    QObject::connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, &receiver, [this] {
        ui->whatsThisLabel->setText(ui->treeView->currentIndex().data(Qt::WhatsThisRole).toString());
    });
    QObject::connect(ui->cbVisibility, QOverload<int>::of(&QComboBox::currentIndexChanged), proxy,
                     &GenParamTreeVisibilityFilterProxyModel::setFilterVisibility);
    connectFilter(proxy);
    // Each model adds one more connection, and none is cut: the tree expands as often as it has had models.
    QObject::connect(ui->pbExpandAll, &QAbstractButton::clicked, tree, &QTreeView::expandAll);
    QObject::connect(ui->pbCollapseAll, &QAbstractButton::clicked, tree, &QTreeView::collapseAll);
    QObject::connect(model, &GenParamTreeModel::errorAppeared, &receiver,
                     [this](const QModelIndex &index, const QString &name, const QString &text, int id) {
                         onErrorAppeared(index, name, text, id);
                     });
    QObject::connect(
        model, &GenParamTreeModel::errorDisappeared, &receiver,
        [this](const QModelIndex &index, const QString &name, int id) { onErrorDisappeared(index, name, id); });
    cutSignals(ui->pbStatus);
    QObject::connect(ui->pbStatus, &QAbstractButton::clicked, &receiver, [this] { showErrors(); });
}

void MoxGenParamTreeViewPrivate::connectFilter(GenParamTreeVisibilityFilterProxyModel *proxy)
{
    cutSignals(ui->filterLineEdit);
    QObject::connect(ui->filterLineEdit, &QLineEdit::textChanged, proxy,
                     &GenParamTreeVisibilityFilterProxyModel::setFilterText);
    // A dialog that is constructed with a node map has no options yet. They stay without effect there until the next
    // model connects them.
    if (!filterOptions)
        return;
    cutSignals(checkBoxCase);
    QObject::connect(checkBoxCase, &QAbstractButton::clicked, proxy, [this, proxy](bool checked) {
        setOptionIcon();
        proxy->regExp.setCaseSensitivity(checked ? Qt::CaseSensitive : Qt::CaseInsensitive);
        proxy->invalidate();
    });
    cutSignals(checkBoxWhole);
    QObject::connect(checkBoxWhole, &QAbstractButton::clicked, proxy, [this, proxy](bool checked) {
        setOptionIcon();
        proxy->wholeWords = checked;
        proxy->invalidate();
    });
}

void MoxGenParamTreeViewPrivate::setOptionIcon()
{
    const bool matchesCase = checkBoxCase->isChecked();
    const bool matchesWhole = checkBoxWhole->isChecked();
    filterOptionsAction->setIcon(matchesCase ? image(matchesWhole ? "options-cw" : "options-c")
                                             : image(matchesWhole ? "options-w" : "options"));
}

void MoxGenParamTreeViewPrivate::balanceColumns()
{
    QTreeView *tree = ui->treeView;
    tree->setColumnWidth(0, (tree->columnWidth(0) + tree->columnWidth(1)) / 2);
}

void MoxGenParamTreeViewPrivate::setSpanForChildren(const QModelIndex &index)
{
    if (!index.isValid() || !isCategory(index))
        return;
    ui->treeView->setFirstColumnSpanned(index.row(), index.parent(), true);
    for (int row = 0; row < index.model()->rowCount(index); ++row)
        setSpanForChildren(index.model()->index(row, 0, index));
}

void MoxGenParamTreeViewPrivate::onErrorAppeared(const QModelIndex &index, const QString &name, const QString &text,
                                                 int id)
{
    ui->pbStatus->setIcon(image("err"));
    repaintRow(index);
    errors.SetError(name, text, id);
}

void MoxGenParamTreeViewPrivate::onErrorDisappeared(const QModelIndex &index, const QString &name, int id)
{
    errors.ClearError(name, id);
    repaintRow(index);
    // Errors of an earlier model never disappear: nobody is left to tell.
    if (errors.IsEmpty())
        ui->pbStatus->setIcon(image("ok"));
}

void MoxGenParamTreeViewPrivate::repaintRow(const QModelIndex &index)
{
    // Both cells. The index is the model's and not the proxy's: the view finds no row for it and repaints all of them.
    ui->treeView->dataChanged(index.sibling(index.row(), 0), index, errorRoles);
}

void MoxGenParamTreeViewPrivate::showErrors()
{
    // The view may be destroyed while its report is open, and takes the report along.
    const QPointer<QDialog> report = new QDialog(ui->pbStatus);
    Ui_GenErrorsDlg form;
    form.setupUi(report);
    const QString info = errors.GetErrorInfo();
    form.textErrors->setPlainText(info.isEmpty() ? Form::tr("No Errors") : info);
    report->exec();
    delete report;
}

IMoxGenParamTreeView::~IMoxGenParamTreeView() = default;

MoxGenParamTreeView::MoxGenParamTreeView(QWidget *parent)
    : MoxGenParamTreeView(static_cast<GenApi_3_0::INodeMap *>(nullptr), parent)
{ }

MoxGenParamTreeView::MoxGenParamTreeView(MoxGenParam::Array *params, QWidget *parent)
    : MoxGenParamTreeView(params->GetNodeMap(nullptr), parent)
{ }

MoxGenParamTreeView::MoxGenParamTreeView(GenApi_3_0::INodeMap *nodeMap, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxGenParamTreeViewPrivate>(this))
{
    d->initForm();
    // Before the filter has its options, which this model's filter therefore does not hear of.
    d->setModel(nodeMap);
    d->initEditing();
    d->initFilterWidget(this);
    d->initPolling();
}

MoxGenParamTreeView::~MoxGenParamTreeView()
{
    // Here and not in the base: hiding takes the focus from an open editor, and the errors of what that writes are kept
    // by the private object.
    hide();
}

QTreeView *MoxGenParamTreeView::treeView() const
{
    return d->ui->treeView;
}

void MoxGenParamTreeView::setParams(MoxGenParam::Array *params)
{
    d->setModel(params->GetNodeMap(nullptr));
}

void MoxGenParamTreeView::setParams(GenApi_3_0::INodeMap *nodeMap)
{
    d->setModel(nodeMap);
}

void MoxGenParamTreeView::clearParams()
{
    d->clearModel();
}

Visibility MoxGenParamTreeView::visibility() const
{
    return static_cast<Visibility>(d->ui->cbVisibility->currentIndex());
}

void MoxGenParamTreeView::setVisibility(Visibility visibility)
{
    d->ui->cbVisibility->setCurrentIndex(visibility);
}

void MoxGenParamTreeView::setPollingTime(unsigned long milliseconds)
{
    d->pollTimer->setInterval(static_cast<int>(milliseconds));
}

unsigned long MoxGenParamTreeView::getPollingTime()
{
    return static_cast<unsigned long>(d->pollTimer->interval());
}

void MoxGenParamTreeView::enablePolling(bool enable)
{
    if (enable)
        d->pollTimer->start();
    else
        d->pollTimer->stop();
}

bool MoxGenParamTreeView::isPollingEnabled()
{
    return d->pollTimer->isActive();
}

} // namespace MoxGui
