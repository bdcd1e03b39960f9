// The diagrams of the configuration dialogs.
#ifndef MOX_DIAGRAM_H
#define MOX_DIAGRAM_H

#include <QIcon>
#include <QImageReader>

namespace MoxGui {

/**
 * A picture of the resources in its own size, and with more pixels where the screen has them and the application asks
 * for them (Qt::AA_UseHighDpiPixmaps): an icon takes the file "@2x" then, a pixmap would not.
 */
inline QPixmap diagram(const QString &path)
{
    return QIcon(path).pixmap(QImageReader(path).size());
}

} // namespace MoxGui

#endif
