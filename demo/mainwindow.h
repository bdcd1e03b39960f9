// The demo's main window.
#ifndef MOXDEMO_MAINWINDOW_H
#define MOXDEMO_MAINWINDOW_H

#include "cameras.h"
#include "families.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QVBoxLayout;

namespace MoxGui {
class MoxCamConfig;
class MoxCameraActionDialog;
class MoxCameraSelectorDialog;
} // namespace MoxGui

namespace MoxDemo {

class ParameterTree;
class WidgetGallery;
class WorldPanel;

/**
 * One entry for each family of the library, the panel of the simulated world, and a log of what every call returned.
 *
 * It owns the windows that it opens, so that all are gone before the system is released.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow(MoxCam::System *system, bool poll);

    /** Opens a family, as its entry does. The selector blocks until it is closed. */
    void open(Family family);
    /** Shows another world, a combination of MoxSim::World, in the selectors and in the panel. */
    void setWorlds(unsigned worlds);
    /** Makes a camera the chosen one, and current in the panel; null for none. */
    void setChosenCamera(MoxCam::DeviceInfo *camera);
    /** Opens the chosen camera, if there is one, and logs who it is. */
    void openChosenCamera();
    void log(const QString &call, const Outcome &outcome);

private:
    QWidget *createWorldChooser();
    QWidget *createFamilies(bool poll);
    void addSelectorOptions(QVBoxLayout *layout, bool poll);
    QWidget *createChosenCamera();
    QWidget *createLog();
    void selectModally();
    void openModelessSelector();
    void openParameterTree();
    void openConfiguration();
    void openActionConsole();
    void openGallery();
    void selected(const QString &call, MoxCam::DeviceInfo *camera);

    MoxCam::System *const m_system;
    MoxCam::DeviceInfo *m_chosen = nullptr;
    QPointer<MoxGui::MoxCameraSelectorDialog> m_selector; // the modeless one, while it is open
    QHash<MoxCam::DeviceInfo *, QPointer<ParameterTree>> m_trees; // one for each camera
    QHash<MoxCam::DeviceInfo *, QPointer<MoxGui::MoxCamConfig>> m_configurations; // one for each camera, and for none
    QPointer<MoxGui::MoxCameraActionDialog> m_actionConsole; // while it is open, like the next
    QPointer<WidgetGallery> m_gallery;

    WorldPanel *m_worldPanel = nullptr;
    QComboBox *m_worlds = nullptr;
    QCheckBox *m_poll = nullptr;
    QLabel *m_chosenText = nullptr;
    QPushButton *m_openChosen = nullptr;
    QTreeWidget *m_log = nullptr;
};

} // namespace MoxDemo

#endif
