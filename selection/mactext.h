// MAC addresses as text.
#ifndef MOX_MACTEXT_H
#define MOX_MACTEXT_H

#include <QStringList>

/** The low six bytes of @p address, most significant first: upper-case hexadecimal, joined by colons. */
inline QString macText(quint64 address)
{
    QStringList bytes;
    for (int shift = 40; shift >= 0; shift -= 8)
        bytes << QString::number(address >> shift & 0xFF, 16).rightJustified(2, QLatin1Char('0')).toUpper();
    return bytes.join(QLatin1Char(':'));
}

#endif
