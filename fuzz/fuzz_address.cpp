// Addresses as text: the input is what stands in the fields of the address dialogs, a line for each.
#include "application.h"
#include "connectbyipdialog.h"
#include "fuzzer.h"
#include "ip4validator.h"
#include "setipdialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include <optional>
#include <utility>

namespace {

/** The number of an address by the book: four plain decimal numbers up to 255, and nothing else. */
std::optional<quint32> plainAddress(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    quint32 address = 0;
    for (int i = 1; i <= 4; ++i) {
        const uint number = match.captured(i).toUInt();
        if (number > 255)
            return std::nullopt;
        address = address * 256 + number;
    }
    return address;
}

QValidator::State verdictOn(const IP4Validator &validator, const QString &text)
{
    QString input = text;
    int pos = text.size();
    const QValidator::State verdict = validator.validate(input, pos);
    MOX_FUZZ_CHECK(input == text && pos == text.size());
    return verdict;
}

void checkValidator(const QString &text)
{
    static const IP4Validator validator(nullptr);
    const QValidator::State verdict = verdictOn(validator, text);
    const auto address = plainAddress(text);
    if (address) {
        MOX_FUZZ_CHECK(verdict == QValidator::Acceptable);
        MOX_FUZZ_CHECK(IP4Validator::getIp(text) == *address);
    }
    if (text.isEmpty())
        MOX_FUZZ_CHECK(verdict == QValidator::Acceptable);
    // Each text that the rule lets stand can be typed from its first character on; signs alone can only be pasted.
    static const QRegularExpression unsignedForm(QStringLiteral("\\A[0-9.\\s]*\\z"));
    if (verdict != QValidator::Invalid && unsignedForm.match(text).hasMatch()) {
        for (int size = 1; size < text.size(); ++size)
            MOX_FUZZ_CHECK(verdictOn(validator, text.left(size)) != QValidator::Invalid);
    }
    // What is accepted is an address: its number as text is accepted, and means the same.
    const quint32 number = IP4Validator::getIp(text);
    const QString written = IP4Validator::getIpStr(number);
    MOX_FUZZ_CHECK(plainAddress(written) == number);
    if (verdict == QValidator::Acceptable && !text.isEmpty()) {
        QString bare;
        const QStringList parts = text.split(QLatin1Char('.'));
        for (const QString &part : parts)
            bare += (bare.isEmpty() ? QString() : QStringLiteral(".")) + QString::number(part.trimmed().toInt());
        MOX_FUZZ_CHECK(written == bare);
    }
}

void checkDialogs(const QStringList &lines)
{
    static auto *const connectDialog = new ConnectByIpDialog(nullptr); // lives to the end
    const QString &text = lines[0];
    connectDialog->setIPAddress(text);
    auto *edit = connectDialog->findChild<QLineEdit *>(QStringLiteral("ipAddressLineEdit"));
    QString shown = connectDialog->ipAddress();
    int pos = 0;
    const bool isAccepted = edit->validator()->validate(shown, pos) == QValidator::Acceptable;
    // Nothing is told while the text stays the same.
    static QString last;
    if (shown != last)
        MOX_FUZZ_CHECK(connectDialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled()
                       == isAccepted);
    last = shown;

    static auto *const setDialog = new SetIpDialog(nullptr); // lives to the end
    const quint32 nicAddress = IP4Validator::getIp(lines[3]);
    const quint32 nicMask = IP4Validator::getIp(lines[4]);
    setDialog->setNicIPAddress(nicAddress);
    setDialog->setNicNetmask(nicMask);
    const auto field = [](const char *name) { return setDialog->findChild<QLineEdit *>(QLatin1String(name)); };
    // It judges when a text changes.
    for (const QString &typed : {lines[0] + QLatin1Char('1'), lines[0]})
        field("ipAddressLineEdit")->setText(typed);
    field("subnetMaskLineEdit")->setText(lines[1]);
    field("defaultGatewayLineEdit")->setText(lines[2]);
    MOX_FUZZ_CHECK(setDialog->Gateway() == IP4Validator::getIp(lines[2]));
    const quint32 address = setDialog->ipAddress();
    const bool isNear = (address & setDialog->Netmask()) == (nicAddress & nicMask);
    const bool isGood = setDialog->Netmask() == nicMask && isNear && address != nicAddress && address >= 0x01000000;
    const QString verdict = setDialog->findChild<QLabel *>(QStringLiteral("ipStatusLabel"))->text();
    MOX_FUZZ_CHECK(setDialog->isConfigurationOk() == isGood);
    MOX_FUZZ_CHECK((verdict == QLatin1String("IP Configuration OK")) == isGood);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 512)
        return -1;
    MoxFuzz::needApplication();
    MoxFuzz::Input input(data, size);
    QStringList lines;
    for (int i = 0; i < 5; ++i)
        lines << QString::fromUtf8(QByteArray::fromStdString(input.until('\n')));
    for (const QString &line : std::as_const(lines))
        checkValidator(line);
    checkDialogs(lines);
    return 0;
}
