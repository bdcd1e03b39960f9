// The application object of fuzzers that use widgets.
#ifndef MOXFUZZ_APPLICATION_H
#define MOXFUZZ_APPLICATION_H

#include <QApplication>

namespace MoxFuzz {

/** Makes the one application object, off the screen; to be called before the first widget is made. It is never deleted. */
inline void needApplication()
{
    static QApplication *const application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "fuzz";
        static char *arguments[] = {name, nullptr};
        return new QApplication(count, arguments); // has no parent
    }();
    Q_UNUSED(application)
}

} // namespace MoxFuzz

#endif
