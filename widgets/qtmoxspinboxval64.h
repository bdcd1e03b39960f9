// A spin box for signed 64-bit integers.
#ifndef MOX_QTMOXSPINBOXVAL64_H
#define MOX_QTMOXSPINBOXVAL64_H

#include <QAbstractSpinBox>

#include <memory>

class QtMoxSpinBoxVal64Private;

/**
 * What QSpinBox is for int, with range, value and step of 64 bits. It differs from Qt's own in five ways:
 *
 * - typed text and value are kept apart: with keyboard tracking off, text reaches the value by Return or Enter, and
 *   ignoreFocusOut() tells what becomes of it when the focus leaves or a step is pressed;
 * - with keyboard tracking on, a half-typed number cannot stand: every edit is committed or undone at once;
 * - a held step button or arrow key can move the display alone and commit once when it is released (buttonTracking());
 * - values can be snapped to a grid that starts at the minimum (validateStepping());
 * - a step that would leave the range is refused as a whole and does not stop at the bound.
 *
 * Numbers are never clamped: one outside the range is ignored without a report, and so is text that is no number. Wrapping,
 * read-only, acceleration, keyboard tracking and group separators are those of QAbstractSpinBox; text that shows group
 * separators cannot be committed, though, and goes back to the value.
 *
 * GUI thread only.
 */
class QtMoxSpinBoxVal64 : public QAbstractSpinBox
{
    Q_OBJECT
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)
    Q_PROPERTY(QString prefix READ prefix WRITE setPrefix)
    Q_PROPERTY(QString cleanText READ cleanText)
    Q_PROPERTY(qlonglong minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(qlonglong maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(qlonglong singleStep READ singleStep WRITE setSingleStep)
    Q_PROPERTY(qlonglong value READ value WRITE setValue NOTIFY valueChanged USER true)
    Q_PROPERTY(int displayIntegerBase READ displayIntegerBase WRITE setDisplayIntegerBase)

public:
    /** Shows 0 in the range 0 to 99 with step 1, in base 10. @p parent may be null. */
    explicit QtMoxSpinBoxVal64(QWidget *parent = nullptr);
    /** Drops text that is not committed; emits nothing. */
    ~QtMoxSpinBoxVal64() override;

    /** The committed value: neither what is being typed nor where a held step stands. */
    qlonglong value() const;

    /** The text in front of the number; empty at first. */
    QString prefix() const;
    /**
     * Sets the text in front of the number and shows it, unless the value lies outside the range. With
     * validateStepping() this also snaps the value, and emits if that moves it. The size hints keep their width.
     */
    void setPrefix(const QString &prefix);
    void setPrefix(QString &&prefix); ///< As above.
    /** The text behind the number; empty at first. */
    QString suffix() const;
    /** Sets the text behind the number, as setPrefix() sets the one in front. */
    void setSuffix(const QString &suffix);
    void setSuffix(QString &&suffix); ///< As above.
    /** The value in base 10, whatever base is on display, without prefix, suffix and group separators. */
    QString cleanText() const;

    /** The distance of one step and of the grid's lines; 1 at first. */
    qlonglong singleStep() const;
    /** Sets the step without a check. Below 1 it makes no sense together with validateStepping(); 0 then does not snap. */
    void setSingleStep(qlonglong step);
    /** The lower end of the range, and the grid's origin; 0 at first. */
    qlonglong minimum() const;
    /** Sets the lower end, and raises the upper one to it if need be. The value stays, even where it is outside now. */
    void setMinimum(qlonglong minimum);
    /** The upper end of the range; 99 at first. */
    qlonglong maximum() const;
    /** Sets the upper end, and lowers the lower one to it if need be. The value stays, even where it is outside now. */
    void setMaximum(qlonglong maximum);
    /**
     * Sets both ends. With @p maximum below @p minimum the range is @p minimum alone, and no typed text is a number in
     * it. The value stays, even where it is outside now.
     */
    void setRange(qlonglong minimum, qlonglong maximum);
    /** The base in which numbers are shown and read; 10 at first. */
    int displayIntegerBase() const;
    /** Sets the base, 2 to 36; not checked. What is on show stays until the next commit. */
    void setDisplayIntegerBase(int base);

    /** Whether the digits are selected after a step and when the focus comes in; on at first. */
    bool selectWhenStepping() const;
    void setSelectWhenStepping(bool select); ///< Sets selectWhenStepping().
    /**
     * Whether text that is not committed is thrown away, not committed, when the focus is about to change or a step is
     * pressed. On at first; of no effect with keyboard tracking.
     */
    bool ignoreFocusOut() const;
    void setIgnoreFocusOut(bool ignore); ///< Sets ignoreFocusOut().
    /** Whether values are snapped to the grid of singleStep() that starts at minimum(); off at first. */
    bool validateStepping() const;
    void setValidateStepping(bool validate); ///< Sets validateStepping(); the value stays.
    /**
     * Whether every step commits. On at first. When off, steps under a held mouse button or arrow key move the display
     * alone; the release commits, unless the display has left the range: then value and display stay apart until the
     * next commit.
     */
    bool buttonTracking() const;
    void setButtonTracking(bool track); ///< Sets buttonTracking().

    /** Wide enough for prefix, both ends of the range, and suffix. Computed once per range. */
    QSize sizeHint() const override;
    /** As sizeHint(), with the line edit's smallest height. */
    QSize minimumSizeHint() const override;
    /** Judges the number in @p input; cuts it out by the lengths of prefix and suffix alone. Changes neither argument. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Changes nothing. */
    void fixup(QString &input) const override;
    /**
     * Moves by @p steps times the step: the value, or only the display while a step is held and buttonTracking() is off.
     * A step that leaves the range is refused, or goes to the other end with wrapping(); under a held step without
     * wrapping() the display may leave the range. Products and sums beyond 64 bits wrap around.
     */
    void stepBy(int steps) override;
    /**
     * @p value as shown between prefix and suffix: in base 10 by the locale, in others with plain digits and a minus
     * sign. Reimplementing it changes the size hints alone.
     */
    virtual QString textFromValue(qlonglong value) const;
    /** The number in @p text, prefix and suffix included; minimum() if it is not acceptable. Not used by the widget. */
    virtual qlonglong valueFromText(const QString &text) const;

public Q_SLOTS:
    /**
     * Sets the value, snapped if validateStepping(), shows it and puts the cursor behind it; emits if it is another one.
     * Outside the range: does nothing.
     */
    void setValue(qlonglong val);
    /** Selects the digits, not the prefix and the suffix; the cursor stands in front of them then. */
    void selectAll();
    /** Empties the digits; the value stays and nothing is emitted. */
    void clear() override;

Q_SIGNALS:
    /** The committed value is another one now. */
    void valueChanged(qlonglong value);
    /** As above, and right after it; with the text on show, prefix and suffix included. */
    void valueChanged(const QString &text);

protected:
    /** Both with wrapping; otherwise by where the display stands, held steps included. None when read only. */
    StepEnabled stepEnabled() const override;

private:
    Q_DISABLE_COPY(QtMoxSpinBoxVal64)
    friend class QtMoxSpinBoxVal64Private;

    std::unique_ptr<QtMoxSpinBoxVal64Private> const d;
};

#endif
