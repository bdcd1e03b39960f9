#include "labelledrow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

LabelledRow::LabelledRow(QWidget *parent)
    : QWidget(parent), layoutH(new QHBoxLayout), layoutV(new QVBoxLayout(this)) // layoutV owns layoutH
{
    layoutH->setObjectName(QStringLiteral("layoutH"));
    layoutH->setContentsMargins(0, 0, 0, 0);
    layoutH->setSpacing(6);
    layoutV->setObjectName(QStringLiteral("layoutV"));
    layoutV->setContentsMargins(0, 0, 0, 0);
    layoutV->setSpacing(6);
    layoutV->addLayout(layoutH);
}

QString LabelledRow::leftLabelText() const
{
    return labelLeft ? labelLeft->text() : QString();
}

void LabelledRow::setLeftLabelText(const QString &text)
{
    if (!labelLeft) {
        labelLeft = new QLabel(this);
        labelLeft->setObjectName(QStringLiteral("labelLeft"));
        layoutH->insertWidget(0, labelLeft);
    }
    labelLeft->setText(text);
    labelLeft->setVisible(!text.isEmpty());
    nameParts();
}

void LabelledRow::setAccessibleName(const QString &name)
{
    QWidget::setAccessibleName(name);
    nameParts();
}

/** The parts have the focus, and a screen reader tells the name of what has it. */
void LabelledRow::nameParts()
{
    const QString name = accessibleName().isEmpty() ? leftLabelText() : accessibleName();
    const auto parts = findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (part->focusPolicy() != Qt::NoFocus)
            part->setAccessibleName(name);
    }
}

QString LabelledRow::topLabelText() const
{
    return labelUpper ? labelUpper->text() : QString();
}

void LabelledRow::setTopLabelText(const QString &text)
{
    if (!labelUpper) {
        labelUpper = new QLabel(this);
        labelUpper->setObjectName(QStringLiteral("labelUpper"));
        labelUpper->setAlignment(Qt::AlignCenter);
        // The spacers keep label and row together in the middle of a tall control; they stay when the label is hidden.
        layoutV->insertWidget(0, labelUpper);
        layoutV->insertItem(0, new QSpacerItem(40, 20, QSizePolicy::Minimum, QSizePolicy::Expanding)); // layoutV's
        layoutV->addItem(new QSpacerItem(40, 20, QSizePolicy::Minimum, QSizePolicy::Expanding)); // layoutV's
    }
    labelUpper->setText(text);
    labelUpper->setVisible(!text.isEmpty());
}
