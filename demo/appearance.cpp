#include "appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QStyle>

namespace MoxDemo {

Translation::Translation(const QLocale &locale)
{
    if (m_qt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                  QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
    // Beside the programs of the build tree, or where they are installed.
    for (const char *directory : {"../translations", MOXDEMO_TRANSLATIONS}) {
        const QString path = QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(directory);
        if (!m_library.load(locale, QStringLiteral("moxcameraguiapi"), QStringLiteral("_"), path))
            continue;
        QCoreApplication::installTranslator(&m_library);
        return;
    }
}

QPalette darkPalette()
{
    const QColor window(45, 45, 48), base(30, 30, 30), text(225, 225, 225), dim(130, 130, 130), accent(61, 130, 200);
    QPalette palette(window); // the shades of frames too
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(40, 40, 42));
    palette.setColor(QPalette::ToolTipBase, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    palette.setColor(QPalette::Disabled, QPalette::Base, window);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

DarkWindows::DarkWindows() : m_style(QApplication::style()->objectName()), m_palette(QApplication::palette())
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(darkPalette());
}

DarkWindows::~DarkWindows()
{
    QApplication::setStyle(m_style);
    QApplication::setPalette(m_palette);
}

} // namespace MoxDemo
