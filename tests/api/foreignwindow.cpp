// A window of another process: shows it, prints its native handle, and goes when its input ends.
#include <QGuiApplication>
#include <QRasterWindow>
#include <QSocketNotifier>

#include <cstdio>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QRasterWindow window;
    window.resize(300, 200);
    window.show();
    std::printf("%lu\n", static_cast<unsigned long>(window.winId()));
    std::fflush(stdout);
    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &app, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
