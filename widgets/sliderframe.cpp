#include "sliderframe.h"

#include "slideraccessible.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>

SliderFrame::SliderFrame(Qt::Orientation orientation, QWidget *parent)
    : QFrame(parent),
      labelMax(new QLabel(this)),
      labelMin(new QLabel(this)),
      innerSlider(new QSlider(orientation, this))
{
    labelMax->setObjectName(QStringLiteral("labelMax"));
    labelMin->setObjectName(QStringLiteral("labelMin"));
    innerSlider->setObjectName(QStringLiteral("slider"));
    setFocusProxy(innerSlider);
    SliderAccessible::install();
    buildLayout();
}

void SliderFrame::setMaxLabelVisiable(bool visible)
{
    labelMax->setVisible(visible);
}

void SliderFrame::setMinLabelVisiable(bool visible)
{
    labelMin->setVisible(visible);
}

bool SliderFrame::isMaxLabelVisiable() const
{
    return labelMax->isVisible();
}

bool SliderFrame::isMinLabelVisiable() const
{
    return labelMin->isVisible();
}

Qt::Orientation SliderFrame::orientation() const
{
    return innerSlider->orientation();
}

void SliderFrame::setOrientation(Qt::Orientation orientation)
{
    innerSlider->setOrientation(orientation);
    delete layout();
    buildLayout();
}

bool SliderFrame::hasTracking() const
{
    return innerSlider->hasTracking();
}

void SliderFrame::setTracking(bool on)
{
    innerSlider->setTracking(on);
}

void SliderFrame::buildLayout()
{
    const bool vertical = orientation() == Qt::Vertical;
    labelMax->setAlignment(vertical ? Qt::AlignCenter : Qt::AlignRight);
    labelMin->setAlignment(vertical ? Qt::AlignCenter : Qt::AlignLeft);

    auto *layoutV = new QVBoxLayout(this);
    layoutV->setObjectName(QStringLiteral("layoutV"));
    layoutV->setContentsMargins(0, 0, 0, 0);
    layoutV->setSpacing(0);
    auto *layoutH = new QHBoxLayout; // becomes layoutV's below
    layoutH->setObjectName(QStringLiteral("layoutH"));
    layoutH->setContentsMargins(0, 0, 0, 0);
    layoutH->setSpacing(vertical ? 0 : 6);

    if (vertical) {
        layoutH->addWidget(innerSlider);
        layoutV->addWidget(labelMax);
        layoutV->addLayout(layoutH);
        layoutV->addWidget(labelMin);
    } else {
        layoutH->addWidget(labelMin);
        layoutH->addWidget(labelMax);
        layoutV->addWidget(innerSlider);
        layoutV->addLayout(layoutH);
    }
}
