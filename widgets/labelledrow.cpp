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
