#include "setipdialog.h"

#include "ip4validator.h"
#include "mactext.h"
#include "ui_setipdialog.h"

SetIpDialog::SetIpDialog(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui_SetIpDialog>())
{
    ui->setupUi(this);

    // Read-only fields look disabled, but their text can be selected and copied.
    QPalette readOnly = palette();
    readOnly.setBrush(QPalette::All, QPalette::Base, QBrush(readOnly.color(QPalette::Disabled, QPalette::Base)));
    for (QLineEdit *edit : {ui->macAddressLineEdit, ui->nicMacLineEdit, ui->nicIpLineEdit, ui->nicSubnetMaskLineEdit})
        edit->setPalette(readOnly);

    // Room for a whole address, also in a font wider than the one that the form was drawn with.
    for (QLineEdit *edit : {ui->macAddressLineEdit, ui->nicMacLineEdit})
        edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("DD:DD:DD:DD:DD:DD"))
                              + edit->sizeHint().height());

    for (QLineEdit *edit : {ui->ipAddressLineEdit, ui->subnetMaskLineEdit, ui->defaultGatewayLineEdit})
        edit->setValidator(new IP4Validator(this));

    // The gateway takes no part in the verdict.
    connect(ui->ipAddressLineEdit, &QLineEdit::textChanged, this, &SetIpDialog::checkSubnet);
    connect(ui->subnetMaskLineEdit, &QLineEdit::textChanged, this, &SetIpDialog::checkSubnet);
}

SetIpDialog::~SetIpDialog() = default;

quint32 SetIpDialog::ipAddress() const
{
    return IP4Validator::getIp(ui->ipAddressLineEdit->text());
}

quint32 SetIpDialog::Netmask() const
{
    return IP4Validator::getIp(ui->subnetMaskLineEdit->text());
}

quint32 SetIpDialog::Gateway() const
{
    return IP4Validator::getIp(ui->defaultGatewayLineEdit->text());
}

void SetIpDialog::setMACLineEdit(QLineEdit *edit, unsigned long long value)
{
    edit->setText(macText(value));
}

void SetIpDialog::setMACAddress(qulonglong value)
{
    setMACLineEdit(ui->macAddressLineEdit, value);
}

void SetIpDialog::setIPAddress(uint value)
{
    ui->ipAddressLineEdit->setText(IP4Validator::getIpStr(value));
}

void SetIpDialog::setNetmask(uint value)
{
    ui->subnetMaskLineEdit->setText(IP4Validator::getIpStr(value));
}

void SetIpDialog::setGateway(uint value)
{
    ui->defaultGatewayLineEdit->setText(IP4Validator::getIpStr(value));
}

void SetIpDialog::setNicMACAddress(qulonglong value)
{
    setMACLineEdit(ui->nicMacLineEdit, value);
}

void SetIpDialog::setNicIPAddress(uint value)
{
    ui->nicIpLineEdit->setText(IP4Validator::getIpStr(value));
}

void SetIpDialog::setNicNetmask(uint value)
{
    ui->nicSubnetMaskLineEdit->setText(IP4Validator::getIpStr(value));
}

void SetIpDialog::checkSubnet(const QString &)
{
    const quint32 ip = IP4Validator::getIp(ui->ipAddressLineEdit->text());
    const quint32 nicIp = IP4Validator::getIp(ui->nicIpLineEdit->text());
    const quint32 mask = IP4Validator::getIp(ui->subnetMaskLineEdit->text());
    const quint32 nicMask = IP4Validator::getIp(ui->nicSubnetMaskLineEdit->text());

    const bool sameNet = (ip & mask) == (nicIp & nicMask);
    ipOk = sameNet && ip != nicIp && (ip & 0xFF000000) != 0;
    maskOk = mask == nicMask;

    QString verdict;
    if (!maskOk)
        verdict = QStringLiteral("Subnet mask mismatch!");
    else if (ipOk)
        verdict = QStringLiteral("IP Configuration OK");
    else if (sameNet)
        verdict = QStringLiteral("Incorrect IP address!");
    else
        verdict = QStringLiteral("Subnet IP mismatch!");
    ui->ipStatusLabel->setText(verdict);
    ui->ipStatusLabel->setStyleSheet(isConfigurationOk() ? QStringLiteral("color: rgb(0, 192, 0);")
                                                         : QStringLiteral("color: rgb(255, 0, 0);"));
}

void SetIpDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    QLineEdit *edit = ui->ipAddressLineEdit;
    edit->setFocus(Qt::OtherFocusReason);
    const int host = edit->text().lastIndexOf(QLatin1Char('.')) + 1;
    edit->setSelection(host, edit->text().size() - host);
}
