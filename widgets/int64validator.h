// 64-bit integers as text.
#ifndef MOX_INT64VALIDATOR_H
#define MOX_INT64VALIDATOR_H

#include <QValidator>

#include <limits>

/**
 * Judges whether a text is a signed 64-bit integer within a range: what QIntValidator is for int, in any base.
 *
 * The text is read as QString::toLongLong() reads it: without group separators, and without regard to the locale. GUI
 * thread only; may belong to a parent or be held by value.
 */
class Int64Validator : public QValidator
{
    Q_OBJECT
    Q_PROPERTY(qlonglong bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(qlonglong top READ top WRITE setTop NOTIFY topChanged)

public:
    /** Accepts every signed 64-bit number in base 10. @p parent may be null. */
    explicit Int64Validator(QObject *parent = nullptr);
    /** Accepts @p bottom to @p top in base 10. The bounds are not ordered. @p parent may be null. */
    Int64Validator(qlonglong bottom, qlonglong top, QObject *parent = nullptr);

    /**
     * The empty text is Intermediate, a lone minus sign too where bottom() is negative. A range on one side of zero lets
     * a number stand as Intermediate that is still too short, or that lacks its minus sign; a range that spans zero
     * refuses outright what lies outside. Changes neither @p input nor @p pos.
     */
    State validate(QString &input, int &pos) const override;
    /** Changes nothing. */
    void fixup(QString &input) const override;

    /** The smallest accepted number. */
    qlonglong bottom() const { return m_bottom; }
    /** Sets the smallest accepted number; it may lie above top(), and then nothing is accepted. */
    void setBottom(qlonglong bottom);
    /** The largest accepted number. */
    qlonglong top() const { return m_top; }
    /** Sets the largest accepted number; it may lie below bottom(), and then nothing is accepted. */
    void setTop(qlonglong top);
    /** Sets both bounds as they are, the bottom first. */
    void setRange(qlonglong bottom, qlonglong top);
    /** Sets the radix, one that QString::toLongLong() knows; not checked. */
    void setBase(int base);

Q_SIGNALS:
    /** The smallest accepted number is another one now. */
    void bottomChanged(qlonglong bottom);
    /** The largest accepted number is another one now. */
    void topChanged(qlonglong top);

private:
    Q_DISABLE_COPY(Int64Validator)

    qlonglong m_bottom = std::numeric_limits<qlonglong>::min();
    qlonglong m_top = std::numeric_limits<qlonglong>::max();
    int m_base = 10;
};

#endif
