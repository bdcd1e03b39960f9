#include "genparamdelegate.h"

#include "genparamcontroldata.h"
#include "qtmoxspinboxval64.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>

namespace {

void select(QComboBox *combo, const QVariant &value)
{
    // A value that is not in the list shows an empty box.
    combo->setCurrentIndex(combo->findData(value, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

} // namespace

/** Watches the application's mouse for one editor, its parent. Gone with it, and idle after the first click outside. */
class GenParamDelegate::MouseTracker : public QObject
{
public:
    explicit MouseTracker(QWidget *watchedEditor) : QObject(watchedEditor), editor(watchedEditor) { }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress && !editor->underMouse() && !isEditorsMenuOpen()) {
            // The lost focus makes the stock delegate commit, and what hears of the new value may end the editor and this.
            qApp->removeEventFilter(this);
            editor->clearFocus();
            return false; // the click goes on to what was clicked
        }
        return QObject::eventFilter(watched, event);
    }

private:
    /** The editor's own context menu is a part of it, though the mouse is over another window then. */
    bool isEditorsMenuOpen() const
    {
        const QObject *popup = QApplication::activePopupWidget();
        while (popup && popup != editor)
            popup = popup->parent();
        return popup;
    }

    QWidget *const editor;
};

GenParamDelegate::GenParamDelegate(QObject *parent) : QStyledItemDelegate(parent)
{ }

QWidget *GenParamDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    const QVariant data = index.data(ControlDataRole);
    if (!data.canConvert<ControlData>()) {
        QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
        if (editor)
            captureMouseForEditor(editor);
        return editor;
    }

    const auto control = data.value<ControlData>();
    if (!control.widget)
        return nullptr;
    control.widget->setParent(parent);
    control.widget->setAutoFillBackground(true); // the selection would shine through around a box without a frame

    // Emitting from here takes the cast that Qt's own delegates use. The first load of the value may change the combo
    // box already; the view does not know the editor then and ignores both signals.
    auto *self = const_cast<GenParamDelegate *>(this);
    switch (control.kind) {
    case ButtonControl:
        if (auto *button = qobject_cast<QPushButton *>(control.widget)) {
            connect(button, &QPushButton::clicked, self, [self, button] {
                button->setWindowModified(true); // tells setModelData a click from a lost focus
                Q_EMIT self->commitData(button);
            });
        }
        break;
    case ComboControl:
        if (auto *combo = qobject_cast<QComboBox *>(control.widget)) {
            // Also when a value from the device changes the box during an edit: that ends the edit.
            connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), self, [self, combo] {
                Q_EMIT self->commitData(combo);
                Q_EMIT self->closeEditor(combo, QAbstractItemDelegate::NoHint);
            });
        }
        break;
    case IntSpinControl:
    case DoubleSpinControl:
    case LineEditControl:
        captureMouseForEditor(control.widget);
        break;
    }
    return control.widget;
}

void GenParamDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::EditRole);
    switch (value.userType()) {
    case QMetaType::LongLong:
        if (auto *spinBox = qobject_cast<QtMoxSpinBoxVal64 *>(editor))
            spinBox->setValue(value.toLongLong());
        return;
    case QMetaType::Double:
        if (auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor))
            spinBox->setValue(value.toDouble());
        return;
    case QMetaType::QString:
        // A spin box stays as it is: one for a MAC address, and any that meets the text of a failed read.
        if (auto *lineEdit = qobject_cast<QLineEdit *>(editor))
            lineEdit->setText(value.toString());
        return;
    case QMetaType::Bool:
    case QMetaType::ULongLong:
        if (auto *combo = qobject_cast<QComboBox *>(editor))
            select(combo, value);
        return;
    default:
        break;
    }
    if (value.type() != QVariant::UserType)
        QStyledItemDelegate::setEditorData(editor, index);
    else if (auto *combo = qobject_cast<QComboBox *>(editor))
        select(combo, value.value<VariantData>().value);
}

void GenParamDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (const auto *combo = qobject_cast<QComboBox *>(editor)) {
        // An empty box stands for a value that is no entry of its list. Passing over it with the keys must not write.
        if (combo->currentIndex() != -1)
            model->setData(index, combo->currentData(Qt::UserRole), Qt::EditRole);
    } else if (auto *intSpinBox = qobject_cast<QtMoxSpinBoxVal64 *>(editor)) {
        // Typed text becomes the value when the focus is about to leave; the Tab key commits before that.
        QEvent leaving(QEvent::FocusAboutToChange);
        QCoreApplication::sendEvent(intSpinBox, &leaving);
        model->setData(index, intSpinBox->value(), Qt::EditRole);
    } else if (const auto *doubleSpinBox = qobject_cast<QDoubleSpinBox *>(editor)) {
        model->setData(index, doubleSpinBox->value(), Qt::EditRole);
    } else if (const auto *lineEdit = qobject_cast<QLineEdit *>(editor)) {
        model->setData(index, lineEdit->text(), Qt::EditRole);
    } else if (auto *button = qobject_cast<QPushButton *>(editor)) {
        // A command runs when its button is clicked, not when the button loses the focus.
        if (button->isWindowModified()) {
            model->setData(index, true, Qt::EditRole);
            button->setWindowModified(false);
        }
    } else {
        QStyledItemDelegate::setModelData(editor, model, index);
    }
}

void GenParamDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &) const
{
    editor->setGeometry(option.rect);
}

void GenParamDelegate::captureMouseForEditor(QWidget *editor) const
{
    qApp->installEventFilter(new MouseTracker(editor));
}
