#include "qtmoxdoublespinboxval.h"

#include "stepgrid.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

QtMoxDoubleSpinBoxVal::QtMoxDoubleSpinBoxVal(QWidget *parent) : QDoubleSpinBox(parent)
{ }

void QtMoxDoubleSpinBoxVal::setLineEditText(const QString &text)
{
    lineEdit()->setText(text);
}

double QtMoxDoubleSpinBoxVal::doValidation(double val) const
{
    return StepGrid::snap(val, minimum(), maximum(), singleStep());
}

QValidator::State QtMoxDoubleSpinBoxVal::validate(QString &input, int &pos) const
{
    const QValidator::State verdict = QDoubleSpinBox::validate(input, pos);
    // The base takes only acceptable text, per keystroke and when the focus leaves; then it falls back to the value.
    return m_validateTyping || verdict == QValidator::Invalid ? verdict : QValidator::Intermediate;
}

void QtMoxDoubleSpinBoxVal::stepBy(int steps)
{
    setValue(value() + singleStep() * steps);
}

void QtMoxDoubleSpinBoxVal::setValue(double val)
{
    // Clamped here: with wrapping on, the base would take what lies outside to the other end of the range.
    QDoubleSpinBox::setValue(std::clamp(m_validate ? doValidation(val) : val, minimum(), maximum()));
}

void QtMoxDoubleSpinBoxVal::keyPressEvent(QKeyEvent *event)
{
    // The step is asked here and not in the integer box; this is settled.
    if (!m_validateTyping && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && singleStep() != 0.0) {
        bool ok = false;
        const double number = lineEdit()->text().toDouble(&ok);
        if (ok) {
            // The key ends here: no editingFinished, and no default button of the dialog around.
            setValue(number);
            event->accept();
            return;
        }
    }
    QAbstractSpinBox::keyPressEvent(event);
}
