// The parameter tree of an opened camera.
#ifndef MOXDEMO_PARAMETERTREE_H
#define MOXDEMO_PARAMETERTREE_H

#include "cameras.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace MoxGui {
class MoxGenParamTreeView;
}

namespace MoxDemo {

/**
 * Keeps a camera open as long as the window with its features is, and the window's state from one opening to the next.
 *
 * The state is kept by vendor and model in the demo's own settings.
 * Owned by its parent. When the user closes the window, it deletes itself and with that the window. GUI thread.
 */
class ParameterTree : public QObject
{
    Q_OBJECT
public:
    /** Opens a window over @p window, which becomes the parent too. @p opened must have parameters. */
    ParameterTree(OpenedCamera opened, MoxCam::DeviceInfo *camera, QWidget *window);
    /** Closes the window, and then the camera. */
    ~ParameterTree() override;

    /** False from the moment when the user closes it. */
    bool isOpen() const;
    /** Brings the window to the front. */
    void raise();

Q_SIGNALS:
    /** The user closed the window; @p state is what was kept of it. */
    void closed(const QString &state);

private:
    QString saveState();

    const OpenedCamera m_opened; // released last
    const QString m_stateKey;
    QPointer<MoxGui::MoxGenParamTreeView> m_view; // gone before this when the parent takes it along
};

} // namespace MoxDemo

#endif
