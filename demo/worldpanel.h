// The panel that changes the simulated world.
#ifndef MOXDEMO_WORLDPANEL_H
#define MOXDEMO_WORLDPANEL_H

#include "cameras.h"

#include <QGroupBox>
#include <QHash>

class QComboBox;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace MoxDemo {

class WorldSettings;

/**
 * Shows the simulated interfaces and cameras, plugs and unplugs them, and turns the knobs of the current one.
 *
 * The world itself holds the state: the panel asks it again after each change, and once a second because a selector's
 * "Set IP Address" changes it too. It is disabled while only the real world is shown. It lives on the GUI thread, and
 * must end before the system does.
 */
class WorldPanel : public QGroupBox
{
    Q_OBJECT
public:
    WorldPanel(MoxCam::System *system, QWidget *parent);

    /** Shows the world as it is now. */
    void refresh();
    /** Makes an interface or camera current, or nothing when the world has no such identifier. */
    void setCurrent(const QString &id);

Q_SIGNALS:
    /** Tells what was asked of the world, and what came of it. */
    void worldAsked(const QString &call, const MoxDemo::Outcome &outcome);
    /** A description file is plugged in as the camera with that identifier. */
    void descriptionOpened(const QString &id);

private:
    QWidget *createActions();
    void rebuild();
    void tell(const QString &call, const Outcome &outcome);

    void plug(QTreeWidgetItem *item);
    void addInterface(int type, const QString &name);
    void addCamera();
    void openDescription();
    void removeCurrent();
    void resetWorld();

    /** The interface that new cameras go to: the current one, else the first. */
    std::string targetInterface() const;

    MoxCam::System *const m_system;
    QHash<QString, QString> m_names; // by identifier; what is unplugged keeps the name that it had

    QTreeWidget *m_tree;
    WorldSettings *m_settings;
    QComboBox *m_model = nullptr;
    QPushButton *m_addCamera = nullptr;
    QPushButton *m_openDescription = nullptr;
    QPushButton *m_remove = nullptr;
};

} // namespace MoxDemo

#endif
