#include "connectbyipdialog.h"

#include "ip4validator.h"
#include "ui_connectbyipdialog.h"

#include <QPushButton>

ConnectByIpDialog::ConnectByIpDialog(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui_ConnectByIpDialog>())
{
    ui->setupUi(this);
    QLineEdit *edit = ui->ipAddressLineEdit;
    edit->setValidator(new IP4Validator(this));
    // Room for the longest address, also in a font wider than the one that the form was drawn with.
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("255.255.255.255"))
                          + edit->sizeHint().height());
    connect(edit, &QLineEdit::textChanged, this, &ConnectByIpDialog::checkAddress);
}

ConnectByIpDialog::~ConnectByIpDialog() = default;

QString ConnectByIpDialog::ipAddress() const
{
    return ui->ipAddressLineEdit->text();
}

void ConnectByIpDialog::setIPAddress(const QString &address)
{
    ui->ipAddressLineEdit->setText(address);
}

void ConnectByIpDialog::checkAddress()
{
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(ui->ipAddressLineEdit->hasAcceptableInput());
}
