// A floating-point spin box that can keep to a grid and can leave typed text alone.
#ifndef MOX_QTMOXDOUBLESPINBOXVAL_H
#define MOX_QTMOXDOUBLESPINBOXVAL_H

#include <QDoubleSpinBox>

/**
 * A QDoubleSpinBox with two switches: validate() snaps every value to the grid of singleStep() that starts at minimum(), and
 * validateTyping(), when off, keeps keystrokes from the value until Return or Enter.
 *
 * Steps do not wrap, stop at the bounds, and leave the text unselected. GUI thread only.
 */
class QtMoxDoubleSpinBoxVal : public QDoubleSpinBox
{
    Q_OBJECT

public:
    /** Both switches are as in a QDoubleSpinBox: no grid, and typed text becomes the value. @p parent may be null. */
    explicit QtMoxDoubleSpinBoxVal(QWidget *parent = nullptr);

    /** Whether setValue() and stepBy() snap to the grid; off at first. */
    bool validate() const { return m_validate; }
    void setValidate(bool validate) { m_validate = validate; } ///< Sets validate(); the value stays.
    /**
     * Whether typed text becomes the value as in a QDoubleSpinBox; on at first. When off, Return or Enter is the only way in,
     * and text that is left behind is dropped. They see no number in a text with prefix, suffix or group separators.
     */
    bool validateTyping() const { return m_validateTyping; }
    void setValidateTyping(bool validate) { m_validateTyping = validate; } ///< Sets validateTyping().

    /** Sets the text of the line edit alone. */
    void setLineEditText(const QString &text);
    /**
     * @p val snapped to the grid, at most maximum(); the ends of the range stay. One below minimum() is not brought back
     * to it. With a step of 0.0 the result is not a number, which setValue() takes for the maximum.
     */
    double doValidation(double val) const;

    /** The base's verdict; with validateTyping() off, never Acceptable but Intermediate. */
    QValidator::State validate(QString &input, int &pos) const override;
    /** Moves by @p steps times the step through setValue(): up to the bound, and never around to the other one. */
    void stepBy(int steps) override;

public Q_SLOTS:
    /** Sets the value, snapped if validate() and clamped to the range, also with wrapping. Hides the base's. */
    void setValue(double val);

protected:
    /**
     * With validateTyping() off, Return and Enter set the number that was typed, with a decimal point whatever the
     * locale, and go no further. With a step of 0.0 they are left to the base.
     */
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(QtMoxDoubleSpinBoxVal)

    bool m_validate = false;
    bool m_validateTyping = true;
};

#endif
