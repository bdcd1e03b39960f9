#include "int64validator.h"

#include "stepgrid.h"

Int64Validator::Int64Validator(QObject *parent) : QValidator(parent)
{ }

Int64Validator::Int64Validator(qlonglong bottom, qlonglong top, QObject *parent)
    : QValidator(parent), m_bottom(bottom), m_top(top)
{ }

QValidator::State Int64Validator::validate(QString &input, int &) const
{
    if (input.isEmpty())
        return Intermediate;
    if (input == QLatin1String("-"))
        return m_bottom < 0 ? Intermediate : Invalid;
    bool ok = false;
    const qlonglong number = input.toLongLong(&ok, m_base);
    if (!ok)
        return Invalid;

    if (m_bottom >= 0) {
        if (number < 0)
            return Invalid;
        if (number < m_bottom)
            return Intermediate;
        return number <= m_top ? Acceptable : Invalid;
    }
    if (m_top >= 0) // no number is too short here: those outside are refused, whatever could be typed behind them
        return number < m_bottom || number > m_top ? Invalid : Acceptable;
    if (number < m_bottom)
        return Invalid;
    if (number <= m_top)
        return Acceptable;
    // The sign may still be missing. The smallest number is its own negative: with it as bottom this refuses all.
    return number <= StepGrid::wrappingSubtract(qlonglong(0), m_bottom) ? Intermediate : Invalid;
}

void Int64Validator::fixup(QString &input) const
{
    QValidator::fixup(input);
}

void Int64Validator::setBottom(qlonglong bottom)
{
    if (bottom == m_bottom)
        return;
    m_bottom = bottom;
    Q_EMIT bottomChanged(bottom);
}

void Int64Validator::setTop(qlonglong top)
{
    if (top == m_top)
        return;
    m_top = top;
    Q_EMIT topChanged(top);
}

void Int64Validator::setRange(qlonglong bottom, qlonglong top)
{
    setBottom(bottom);
    setTop(top);
}

void Int64Validator::setBase(int base)
{
    m_base = base;
}
