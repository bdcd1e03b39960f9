// The dialog that asks for a camera's new network configuration.
#ifndef MOX_SETIPDIALOG_H
#define MOX_SETIPDIALOG_H

#include <QDialog>

#include <memory>

class QLineEdit;
class Ui_SetIpDialog;

/**
 * Shows the network adapter's configuration beside the one proposed for the camera, and says whether the two agree.
 *
 * The verdict follows every edit and is advice only: Ok stays enabled. Addresses are numbers as IP4Validator has them,
 * MAC addresses have their six bytes in the low part. Lives for the call that runs it, GUI thread only.
 */
class SetIpDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(SetIpDialog)

public:
    explicit SetIpDialog(QWidget *parent);
    ~SetIpDialog() override;

    /** What the camera's fields hold, converted by IP4Validator::getIp. */
    quint32 ipAddress() const;
    quint32 Netmask() const;
    quint32 Gateway() const;

    /** The last verdict: the camera's address and mask both suit the adapter. False before the first. */
    bool isConfigurationOk() const { return ipOk && maskOk; }

    /** Shows a MAC address in @p edit, as macText() writes it. */
    void setMACLineEdit(QLineEdit *edit, unsigned long long value);

public Q_SLOTS:
    /** The camera's fields. */
    void setMACAddress(qulonglong value);
    void setIPAddress(uint value);
    void setNetmask(uint value);
    void setGateway(uint value);
    /** The adapter's fields, which are read-only to the user. */
    void setNicMACAddress(qulonglong value);
    void setNicIPAddress(uint value);
    void setNicNetmask(uint value);
    /** Compares the fields, keeps the verdict and shows it. The argument is not used. */
    void checkSubnet(const QString &);

protected:
    /** Puts the focus on the camera's address with its last number selected, so that typing replaces just that. */
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<Ui_SetIpDialog> const ui;
    bool ipOk = false;
    bool maskOk = false;
};

#endif
