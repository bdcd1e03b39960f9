#include "ip4validator.h"

#include <QStringList>

IP4Validator::IP4Validator(QObject *parent) : QValidator(parent)
{ }

QValidator::State IP4Validator::validate(QString &input, int &) const
{
    // An empty field is no error to this rule: dialogs may be accepted with it.
    if (input.isEmpty())
        return Acceptable;

    const QStringList parts = input.split(QLatin1Char('.'));
    if (parts.size() > 4)
        return Invalid;
    bool emptyPart = false;
    for (const QString &part : parts) {
        if (part.trimmed().isEmpty()) {
            emptyPart = true;
            continue;
        }
        // Blanks around a number are let through, as toInt lets them through.
        bool ok = false;
        const int number = part.toInt(&ok, 10);
        if (!ok || number < 0 || number > 255)
            return Invalid;
    }
    return parts.size() < 4 || emptyPart ? Intermediate : Acceptable;
}

quint32 IP4Validator::getIp(const QString &text)
{
    quint32 address = 0;
    const QStringList parts = text.split(QLatin1Char('.'));
    // A short address is not filled up, and a part above 255 spills into the byte before it.
    for (const QString &part : parts)
        address = address << 8 | part.toUInt(nullptr, 10);
    return address;
}

QString IP4Validator::getIpStr(quint32 address)
{
    QStringList parts;
    for (int shift = 24; shift >= 0; shift -= 8)
        parts << QString::number(address >> shift & 0xFF);
    return parts.join(QLatin1Char('.'));
}
