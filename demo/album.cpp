#include "album.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QTextStream>
#include <QTimer>

namespace MoxDemo {

void Album::fail(const QString &reason)
{
    QTextStream(stderr) << "moxdemo: " << reason << '\n';
    complete = false;
}

void Album::save(const QPixmap &picture, const char *name)
{
    const QString path = directory.filePath(QString::fromLatin1(name));
    if (picture.save(path))
        QTextStream(stdout) << path << '\n';
    else
        fail(QStringLiteral("cannot write %1").arg(path));
}

void Album::save(QWidget &window, const char *name)
{
    QApplication::processEvents();
    save(window.grab(), name);
}

void Album::render(QWidget &window, const char *name)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    save(window, name);
}

void walk(Album &album, const std::function<void()> &open, const std::vector<Step> &steps)
{
    auto step = steps.begin();
    QTimer user; // ends here, also when nothing opens
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        user.stop(); // the step lets events in
        if (step == steps.end() || dialog->windowTitle() != QLatin1String(step->title)) {
            album.fail(QStringLiteral("a dialog was not expected: %1").arg(dialog->windowTitle()));
            dialog->reject();
        } else {
            (step++)->act(*dialog);
        }
        user.start();
    });
    user.start(0);
    open();
    for (; step != steps.end(); ++step)
        album.fail(QStringLiteral("a dialog did not open: %1").arg(QLatin1String(step->title)));
}

} // namespace MoxDemo
