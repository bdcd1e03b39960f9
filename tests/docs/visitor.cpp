// The user of a program from the pages: chooses a camera where one is asked for, and closes every window.
//
// Linked into the program beside its own source. The program fails when no window came up, and at any warning of Qt.

#include <MoxCameraApi/MoxSimulation.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>

namespace {

bool visited = false;

/** On top of all others that are visible: chooses the first camera of the first interface where there are any. */
void visit()
{
    QWidget *window = QApplication::activeModalWidget();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (int i = 0; !window && i < windows.size(); ++i)
        window = windows[i]->isVisible() ? windows[i] : nullptr;
    if (!window)
        return;
    visited = true;
    auto *tree = window->findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
    auto *buttons = window->findChild<QDialogButtonBox *>();
    if (!tree || !buttons) {
        window->close();
        return;
    }
    const QAbstractItemModel *model = tree->model();
    tree->setCurrentIndex(model->index(0, 0, model->index(0, 0)));
    if (!buttons->button(QDialogButtonBox::Ok)->isEnabled())
        qWarning("The first simulated camera cannot be chosen");
    buttons->button(QDialogButtonBox::Ok)->click();
}

void failOnWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // The offscreen platform says so of every window with a minimum size.
    if (type == QtDebugMsg || message == QLatin1String("This plugin does not support propagateSizeHints()"))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
    std::_Exit(1);
}

void setUp()
{
    qInstallMessageHandler(failOnWarnings);
    MoxSim::setWorlds(MoxSim::SimulatedWorld);
    auto *timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, QCoreApplication::instance(), visit);
    timer->start(500);
    std::atexit([] {
        if (!visited) {
            std::fputs("No window came up\n", stderr);
            std::_Exit(1);
        }
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(setUp)
