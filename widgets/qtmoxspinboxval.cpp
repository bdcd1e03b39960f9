#include "qtmoxspinboxval.h"

#include "saturate.h"
#include "stepgrid.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

QtMoxSpinBoxVal::QtMoxSpinBoxVal(QWidget *parent) : QSpinBox(parent)
{ }

void QtMoxSpinBoxVal::setLineEditText(const QString &text)
{
    lineEdit()->setText(text);
}

int QtMoxSpinBoxVal::doValidation(int val) const
{
    return StepGrid::snap(val, minimum(), maximum(), singleStep());
}

QValidator::State QtMoxSpinBoxVal::validate(QString &input, int &pos) const
{
    const QValidator::State verdict = QSpinBox::validate(input, pos);
    // The base takes only acceptable text, per keystroke and when the focus leaves; then it falls back to the value.
    return m_validateTyping || verdict == QValidator::Invalid ? verdict : QValidator::Intermediate;
}

void QtMoxSpinBoxVal::stepBy(int steps)
{
    setValue(Saturate::toInt(value() + qint64(singleStep()) * steps));
}

void QtMoxSpinBoxVal::setValue(int val)
{
    // Clamped here: with wrapping on, the base would take what lies outside to the other end of the range.
    QSpinBox::setValue(std::clamp(m_validate ? doValidation(val) : val, minimum(), maximum()));
}

void QtMoxSpinBoxVal::keyPressEvent(QKeyEvent *event)
{
    if (!m_validateTyping && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        bool ok = false;
        const int number = lineEdit()->text().toInt(&ok, 10);
        if (ok) {
            // The key ends here: no editingFinished, and no default button of the dialog around.
            setValue(number);
            event->accept();
            return;
        }
    }
    QAbstractSpinBox::keyPressEvent(event);
}
