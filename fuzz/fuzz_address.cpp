// Addresses as text: each line of the input is what stands in a field of the address dialogs.
#include "fuzzer.h"
#include "ip4validator.h"

#include <QRegularExpression>

#include <optional>

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

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 512)
        return -1;
    MoxFuzz::Input input(data, size);
    do
        checkValidator(QString::fromUtf8(QByteArray::fromStdString(input.until('\n'))));
    while (!input.isAtEnd());
    return 0;
}
