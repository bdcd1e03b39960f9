// The dialog that asks for a camera's address.
#ifndef MOX_CONNECTBYIPDIALOG_H
#define MOX_CONNECTBYIPDIALOG_H

#include <QDialog>

#include <memory>

class Ui_ConnectByIpDialog;

/** Asks for a dotted address. Lives for the call that runs it, GUI thread only. */
class ConnectByIpDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(ConnectByIpDialog)

public:
    /** The field starts empty and Ok enabled; an empty address may be accepted. */
    explicit ConnectByIpDialog(QWidget *parent);
    ~ConnectByIpDialog() override;

    /** The field's text as it stands. */
    QString ipAddress() const;
    void setIPAddress(const QString &address);

    /** Enables Ok exactly when the field's text is acceptable. Runs at every change of the text, not before the first. */
    void checkAddress();

private:
    std::unique_ptr<Ui_ConnectByIpDialog> const ui;
};

#endif
