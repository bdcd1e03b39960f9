// The language and the colours of the windows.
#ifndef MOXDEMO_APPEARANCE_H
#define MOXDEMO_APPEARANCE_H

#include <QLocale>
#include <QPalette>
#include <QTranslator>

namespace MoxDemo {

/**
 * The captions of the library's windows, and those of Qt's own buttons, in the language of a locale: for the windows that
 * are made as long as this object lives. It needs an application object. GUI thread only.
 */
class Translation
{
public:
    /** Without a translation for the locale the captions stay English. */
    explicit Translation(const QLocale &locale);

    /** Whether there is one of the library's captions. */
    bool isFound() const { return !m_library.isEmpty(); }

private:
    QTranslator m_qt; // they leave the application when they end
    QTranslator m_library;
};

/** Light text on dark windows, for the style "Fusion". */
QPalette darkPalette();

/** The style "Fusion" with the dark palette, as long as this object lives. It needs a QApplication. GUI thread only. */
class DarkWindows
{
    Q_DISABLE_COPY(DarkWindows)
public:
    DarkWindows();
    ~DarkWindows();

private:
    const QString m_style;
    const QPalette m_palette;
};

} // namespace MoxDemo

#endif
