// An integer spin box that can keep to a grid and can leave typed text alone.
#ifndef MOX_QTMOXSPINBOXVAL_H
#define MOX_QTMOXSPINBOXVAL_H

#include <QSpinBox>

/**
 * A QSpinBox with two switches: validate() snaps every value to the grid of singleStep() that starts at minimum(), and
 * validateTyping(), when off, keeps keystrokes from the value until Return or Enter.
 *
 * Steps do not wrap, stop at the bounds, and leave the text unselected. GUI thread only.
 */
class QtMoxSpinBoxVal : public QSpinBox
{
    Q_OBJECT

public:
    /** Both switches are as in a QSpinBox: no grid, and typed text becomes the value. @p parent may be null. */
    explicit QtMoxSpinBoxVal(QWidget *parent = nullptr);

    /** Whether setValue() and stepBy() snap to the grid; off at first. */
    bool validate() const { return m_validate; }
    void setValidate(bool validate) { m_validate = validate; } ///< Sets validate(); the value stays.
    /**
     * Whether typed text becomes the value as in a QSpinBox; on at first. When off, Return or Enter is the only way in,
     * and text that is left behind is dropped. They see no number in a text with prefix, suffix or group separators.
     */
    bool validateTyping() const { return m_validateTyping; }
    void setValidateTyping(bool validate) { m_validateTyping = validate; } ///< Sets validateTyping().

    /** Sets the text of the line edit alone. */
    void setLineEditText(const QString &text);
    /**
     * @p val snapped to the grid, at most maximum(); the ends of the range stay. One below minimum() is not brought back
     * to it. With a step of 0 there is no grid and nothing moves.
     */
    int doValidation(int val) const;

    /** The base's verdict; with validateTyping() off, never Acceptable but Intermediate. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Moves by @p steps times the step through setValue(): up to the bound, and never around to the other one. */
    void stepBy(int steps) override;

public Q_SLOTS:
    /** Sets the value, snapped if validate() and clamped to the range, also with wrapping. Hides the base's. */
    void setValue(int val);

protected:
    /** With validateTyping() off, Return and Enter set the number that was typed and go no further. */
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(QtMoxSpinBoxVal)

    bool m_validate = false;
    bool m_validateTyping = true;
};

#endif
