// How pictures of windows are taken.
#ifndef MOXDEMO_ALBUM_H
#define MOXDEMO_ALBUM_H

#include <QDir>

#include <functional>
#include <vector>

class QDialog;
class QPixmap;
class QWidget;

namespace MoxDemo {

/** A directory of pictures that remembers whether one is missing. GUI thread. */
class Album
{
public:
    explicit Album(const QDir &target) : directory(target) { }

    bool isComplete() const { return complete; }
    /** Fails with what went wrong; the pictures after it are taken all the same. */
    void fail(const QString &reason);
    /** Writes a picture, and prints its path. */
    void save(const QPixmap &picture, const char *name);
    /** Writes what a window looks like, once its layout has followed its texts. */
    void save(QWidget &window, const char *name);
    /** Writes what a window looks like when it is shown first, without a flash on a real screen. */
    void render(QWidget &window, const char *name);

private:
    const QDir directory;
    bool complete = true;
};

/** What to do with a modal dialog: it must have the title, and the action must close it. */
struct Step
{
    const char *title;
    std::function<void(QDialog &dialog)> act;
};

/** Walks through the modal dialogs that @p open opens one after the other; one that is not expected is rejected. */
void walk(Album &album, const std::function<void()> &open, const std::vector<Step> &steps);

} // namespace MoxDemo

#endif
