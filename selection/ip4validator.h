// Dotted IPv4 addresses as text.
#ifndef MOX_IP4VALIDATOR_H
#define MOX_IP4VALIDATOR_H

#include <QValidator>

/**
 * The rule for a dotted address while it is typed, and the conversion between such texts and numbers.
 *
 * Numbers are unsigned 32-bit with the first dotted number in the most significant byte. Keeps no state.
 */
class IP4Validator : public QValidator
{
    Q_OBJECT

public:
    explicit IP4Validator(QObject *parent);

    /**
     * Acceptable: four numbers from 0 to 255, or nothing at all. Intermediate: numbers or dots are missing at some place.
     * Changes neither @p input nor @p pos.
     */
    State validate(QString &input, int &pos) const override;

    /**
     * The number of an address. Any text gives one: parts that are no numbers count as 0, and neither their count nor
     * their range is checked.
     */
    static quint32 getIp(const QString &text);
    /** The text of an address: four decimal numbers without padding. */
    static QString getIpStr(quint32 address);
};

#endif
