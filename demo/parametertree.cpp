#include "parametertree.h"

#include "demosettings.h"

#include <moxcameraguiapi.h>
#include <moxgenparamtreeview.h>

#include <QUrl>
#include <QWidget>

namespace MoxDemo {

namespace {

/** Cameras of one model have the same features. Slashes of a name would be groups in the settings. */
QString stateKey(MoxCam::DeviceInfo *camera)
{
    const QString model =
        QString::fromUtf8(camera->GetVendor()) + QLatin1Char(' ') + QString::fromUtf8(camera->GetModel());
    return QStringLiteral("ParameterTree/") + QString::fromLatin1(QUrl::toPercentEncoding(model));
}

} // namespace

ParameterTree::ParameterTree(OpenedCamera opened, MoxCam::DeviceInfo *camera, QWidget *window)
    : QObject(window), m_opened(std::move(opened)), m_stateKey(stateKey(camera))
{
    MoxGui::IMoxGenParamTreeView *view =
        CreateGenParamTreeViewForArrayA(m_opened.parameters, camera->GetDisplayName(), window->winId());
    view->setParams(m_opened.parameters); // once more: only from then on do the filter's two options count
    view->enablePolling(true);

    const QByteArray state = DemoSettings().value(m_stateKey).toString().toUtf8();
    // Twice: categories come before the level in the text, so the first time misses those that only the level brings.
    view->loadState(state.constData());
    view->loadState(state.constData());

    // Of the interface alone nothing can be heard.
    m_view = dynamic_cast<MoxGui::MoxGenParamTreeView *>(view);
    connect(m_view, &QDialog::finished, this, [this] {
        Q_EMIT closed(saveState());
        deleteLater(); // the window is still in the middle of it
    });
}

ParameterTree::~ParameterTree()
{
    if (isOpen())
        saveState();
    // At once and not later: it must not outlive the node map.
    DestroyGenParamTreeView(m_view);
}

bool ParameterTree::isOpen() const
{
    return m_view && m_view->isVisible();
}

void ParameterTree::raise()
{
    m_view->raise();
    m_view->activateWindow();
}

QString ParameterTree::saveState()
{
    QString state = QString::fromUtf8(m_view->saveState());
    DemoSettings().setValue(m_stateKey, state);
    return state;
}

} // namespace MoxDemo
