// The knobs of one simulated interface or camera.
#ifndef MOXDEMO_WORLDSETTINGS_H
#define MOXDEMO_WORLDSETTINGS_H

#include "cameras.h"

#include <QHash>
#include <QStackedWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace MoxDemo {

/**
 * The lower part of the world panel, a page for an interface and one for a camera. Every change goes to the world at
 * once. What the world does not tell (delays, failures) is remembered here by identifier.
 */
class WorldSettings : public QStackedWidget
{
    Q_OBJECT
public:
    explicit WorldSettings(QWidget *parent);

    void showNothing();
    void showInterface(const QString &id);
    /** @p camera is null while its host does not see it; there is no name to change then. */
    void showCamera(const QString &id, MoxCam::DeviceInfo *camera);
    /** Drops what was remembered, for a world that starts anew. */
    void forget();

Q_SIGNALS:
    /** Tells what was asked of the world, and what came of it. */
    void worldAsked(const QString &call, const MoxDemo::Outcome &outcome);

private:
    QWidget *createInterfacePage();
    QWidget *createCameraPage();
    void setReach();
    void setUserName();
    void setAccessDelay(int milliseconds);
    void setFailure();
    void setDiscoveryTime(int milliseconds);

    struct Knobs
    {
        int accessDelay = 0;
        int failAccess = 0;
        bool failRepeatedly = false;
        int discoveryTime = 0;
    };

    QString m_id;
    QHash<QString, Knobs> m_knobs;

    QComboBox *m_reach = nullptr;
    QLineEdit *m_userName = nullptr;
    QSpinBox *m_accessDelay = nullptr;
    QSpinBox *m_failAccess = nullptr;
    QCheckBox *m_failRepeatedly = nullptr;
    QSpinBox *m_discoveryTime = nullptr;
};

} // namespace MoxDemo

#endif
