// The size of the slider pop-ups in the configuration dialogs.
#ifndef MOX_POPUPSIZE_H
#define MOX_POPUPSIZE_H

#include "qtmoxspinbox.h"

#include <QLabel>

namespace MoxGui {

/** About the size of @p box without its left label, in pixels: a pop-up that belongs to the box. */
inline QSize popupSize(const QtMoxSpinBox &box)
{
    const QSize hint = box.sizeHint();
    QSize size = hint.isValid() ? hint : box.size();
    if (const QLabel *label = box.leftLabel())
        size.rwidth() -= label->width();
    return size;
}

} // namespace MoxGui

#endif
