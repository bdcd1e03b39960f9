#include "treescreenshots.h"

#include "album.h"
#include "cameras.h"

#include <MoxCameraApi/MoxSimulation.h>
#include <moxgenparamtreeview.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QSplitter>
#include <QTreeView>

namespace MoxDemo {

namespace {

/** A window over a camera's features, without a flash on a real screen. */
class Scene
{
public:
    Scene(Album &album, MoxCam::DeviceInfo *camera, MoxGui::Visibility level)
        : m_album(album), m_opened(openCamera(camera)), m_view(nullptr)
    {
        m_view.setAttribute(Qt::WA_DontShowOnScreen);
        m_view.setWindowTitle(QString::fromUtf8(camera->GetDisplayName()));
        m_view.resize(540, 600);
        m_view.setVisibility(level);
        if (m_opened.parameters)
            m_view.setParams(m_opened.parameters);
        else
            album.fail(m_opened.failure);
        m_view.show();
        m_view.findChild<QSplitter *>()->setSizes({380, 160}); // more of the description
    }

    MoxGui::MoxGenParamTreeView &view() { return m_view; }
    template<class Widget> Widget *part(const char *name) const
    {
        return m_view.findChild<Widget *>(QString::fromLatin1(name));
    }
    /** The name's cell of a feature or category, by what it displays. */
    QModelIndex find(const char *name) const
    {
        const QAbstractItemModel *model = m_view.treeView()->model();
        const QModelIndexList found = model
            ? model->match(model->index(0, 0), Qt::DisplayRole, QString::fromLatin1(name), 1,
                           Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive)
            : QModelIndexList();
        if (found.isEmpty())
            m_album.fail(QStringLiteral("no feature is called %1").arg(QLatin1String(name)));
        return found.value(0);
    }
    void expand(std::initializer_list<const char *> categories)
    {
        for (const char *category : categories)
            m_view.treeView()->expand(find(category));
    }
    /** Goes to a feature's value, which opens the editor of one that can be written, and gives that. */
    QWidget *edit(const char *name)
    {
        QTreeView *tree = m_view.treeView();
        const QModelIndex index = find(name);
        tree->setCurrentIndex(index.sibling(index.row(), 1));
        tree->scrollTo(tree->currentIndex(), QAbstractItemView::PositionAtCenter);
        QApplication::processEvents();
        return tree->indexWidget(tree->currentIndex());
    }

private:
    Album &m_album;
    const OpenedCamera m_opened; // ends after the view
    MoxGui::MoxGenParamTreeView m_view;
};

/** A part of a widget, with a pop-up over it as the user sees it. */
QPixmap grabWithPopup(QWidget &widget, const QRect &part, QWidget &popup)
{
    QApplication::processEvents();
    QPixmap picture = widget.grab(part);
    QPainter(&picture).drawPixmap(widget.mapFromGlobal(popup.pos()) - part.topLeft(), popup.grab());
    return picture;
}

void renderAllFeatures(Album &album, Scene &scene, const char *name)
{
    scene.expand({"Device Control"});
    scene.edit("Device Temperature Selector");
    scene.view().treeView()->scrollToTop();
    album.save(scene.view(), name);
}

void renderFilter(Album &album, Scene &scene)
{
    scene.part<QLineEdit>("filterLineEdit")->setText(QStringLiteral("Trigger*"));
    scene.view().treeView()->expandAll();
    scene.edit("Trigger Source");
    auto *options = scene.part<QWidget>("FilterOptions");
    options->setAttribute(Qt::WA_DontShowOnScreen);
    const auto actions = scene.part<QLineEdit>("filterLineEdit")->actions();
    for (QAction *action : actions) {
        if (action->toolTip() == QLatin1String("Filter options"))
            action->trigger();
    }
    scene.part<QCheckBox>("checkBoxWhole")->click();
    album.save(grabWithPopup(scene.view(), scene.view().rect(), *options), "tree-filter.png");
    options->close();
}

/** Types or chooses a value as the user does. A chosen one is written and ends the edit. */
void enter(QWidget *editor, const char *value)
{
    if (auto *combo = qobject_cast<QComboBox *>(editor))
        combo->setCurrentText(QString::fromLatin1(value));
    else if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->setText(QString::fromLatin1(value));
    else if (editor) // a spin box
        editor->findChild<QLineEdit *>()->setText(QString::fromLatin1(value));
}

/** The row of each kind of editor, between its neighbours. */
void renderEditors(Album &album, Scene &scene)
{
    QTreeView *tree = scene.view().treeView();
    tree->expandAll();
    // What these two allow can be edited then.
    enter(scene.edit("Trigger Mode"), "On");
    enter(scene.edit("IP Configuration Persistent IP"), "True");

    struct
    {
        const char *feature;
        const char *value; // to be typed, or null
        const char *picture;
    } const editors[] = {
        {"Width", "1920", "tree-editors-spin.png"},
        {"Maintenance Key", "4d6f78", "tree-editors-hex.png"},
        {"Trigger Delay", "12.5us", "tree-editors-double.png"},
        {"Pixel Format", nullptr, "tree-editors-combo.png"},
        {"Persistent IP Address", "192.168.10.20", "tree-editors-address.png"},
        {"Device User ID", nullptr, "tree-editors-text.png"},
        {"Acquisition Start", nullptr, "tree-editors-button.png"},
    };
    for (const auto &[feature, value, picture] : editors) {
        QWidget *editor = scene.edit(feature);
        if (!editor) {
            album.fail(QStringLiteral("%1 has no editor").arg(QLatin1String(feature)));
            continue;
        }
        if (value)
            enter(editor, value);
        const int height = editor->height();
        const QRect rows(0, editor->y() - height, tree->viewport()->width(), 3 * height);
        album.save(tree->viewport()->grab(rows), picture);
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            QWidget *list = combo->view()->window();
            list->setAttribute(Qt::WA_DontShowOnScreen);
            combo->showPopup();
            const int count = list->height() / height + 2;
            const QRect below(0, editor->y(), tree->viewport()->width(), count * height);
            album.save(grabWithPopup(*tree->viewport(), rows | below, *list), "tree-editors-list.png");
            combo->hidePopup();
        }
    }
}

/** A value that the camera does not take, one that it does not give, and what the report tells of them. */
void renderError(Album &album, Scene &scene, const std::string &camera)
{
    scene.expand({"Image Format Control"});
    enter(scene.edit("Height"), "720");
    MoxSim::failAccess(camera, 1);
    scene.edit("Test Pattern"); // leaves the editor of the height, which writes
    MoxSim::failAccess(camera, 1, true);
    scene.expand({"LUT Control"});
    album.save(scene.view(), "tree-error.png");
    MoxSim::failAccess(camera, 0);
    walk(album, [&] { scene.part<QAbstractButton>("pbStatus")->click(); }, {{"Gen<i>Cam errors", [&](QDialog &dialog) {
                                                                                 album.save(dialog, "tree-report.png");
                                                                                 dialog.reject();
                                                                             }}});
}

} // namespace

void renderParameterTree(Album &album, MoxCam::System *system)
{
    MoxCam::DeviceInfo *camera = cameraWithStatus(system, MoxCam::AccessReadWrite);
    if (!camera)
        return album.fail(QStringLiteral("no camera can be opened"));
    {
        Scene scene(album, camera, MoxGui::VisibilityBasic);
        scene.expand({"Image Format Control", "Acquisition Control"});
        scene.edit("Width");
        scene.view().treeView()->scrollToTop();
        album.save(scene.view(), "tree-basic.png");
    }
    {
        Scene scene(album, camera, MoxGui::VisibilityGuru);
        renderAllFeatures(album, scene, "tree-guru.png");
        renderFilter(album, scene);
    }
    {
        Scene scene(album, camera, MoxGui::VisibilityGuru);
        renderEditors(album, scene);
    }
    Scene scene(album, camera, MoxGui::VisibilityBasic);
    renderError(album, scene, camera->GetID());
}

void renderParameterTreeAgain(Album &album, MoxCam::DeviceInfo *camera, const char *name)
{
    Scene scene(album, camera, MoxGui::VisibilityGuru);
    renderAllFeatures(album, scene, name);
}

} // namespace MoxDemo
