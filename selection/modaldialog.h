// Modal dialogs whose parent may be deleted under them.
#ifndef MOX_MODALDIALOG_H
#define MOX_MODALDIALOG_H

#include <QDialog>
#include <QPointer>

#include <utility>

/**
 * A dialog for the length of one call, on the heap: an application that deletes the dialog's parent while exec() runs
 * deletes the dialog with it. exec() gives QDialog::Rejected then, and neither dialog nor parent may be touched any more.
 */
template<class Dialog> class ModalDialog
{
public:
    /** Hands @p arguments to the dialog's constructor, a parent among them. */
    template<class... Arguments>
    explicit ModalDialog(Arguments &&...arguments) : dialog(new Dialog(std::forward<Arguments>(arguments)...))
    { }
    ~ModalDialog() { delete dialog; }
    Q_DISABLE_COPY(ModalDialog)

    Dialog *operator->() const { return dialog; }
    Dialog &operator*() const { return *dialog; }

private:
    const QPointer<Dialog> dialog;
};

#endif
