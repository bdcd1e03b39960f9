#include "worldsettings.h"

#include <MoxCameraApi/MoxSimulation.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace MoxDemo {

namespace {

enum Page { NothingPage, InterfacePage, CameraPage };

QSpinBox *createMilliseconds(const QString &name, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(0, 5000);
    box->setSingleStep(10);
    box->setSuffix(WorldSettings::tr(" ms"));
    box->setKeyboardTracking(false);
    return box;
}

/** Shows a value that is no wish of the user. */
void setQuietly(QSpinBox *box, int value)
{
    const QSignalBlocker quiet(box);
    box->setValue(value);
}

} // namespace

WorldSettings::WorldSettings(QWidget *parent) : QStackedWidget(parent)
{
    auto *nothing = new QLabel(tr("Choose an interface or a camera above to change it."), this);
    nothing->setAlignment(Qt::AlignCenter);
    nothing->setWordWrap(true);
    insertWidget(NothingPage, nothing);
    insertWidget(InterfacePage, createInterfacePage());
    insertWidget(CameraPage, createCameraPage());
}

QWidget *WorldSettings::createInterfacePage()
{
    auto *page = new QWidget(this);
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    m_discoveryTime = createMilliseconds(QStringLiteral("discoveryTime"), page);
    form->addRow(tr("&Discovery takes"), m_discoveryTime);
    connect(m_discoveryTime, QOverload<int>::of(&QSpinBox::valueChanged), this, &WorldSettings::setDiscoveryTime);
    return page;
}

QWidget *WorldSettings::createCameraPage()
{
    auto *page = new QWidget(this);
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);

    m_reach = new QComboBox(page);
    m_reach->setObjectName(QStringLiteral("reach"));
    m_reach->addItem(tr("Open"), static_cast<int>(MoxSim::Reach::Open));
    m_reach->addItem(tr("Busy: another host controls it"), static_cast<int>(MoxSim::Reach::Busy));
    m_reach->addItem(tr("Wrong subnet"), static_cast<int>(MoxSim::Reach::WrongSubnet));
    m_reach->addItem(tr("Undiscovered: answers to its address only"), static_cast<int>(MoxSim::Reach::Undiscovered));
    form->addRow(tr("R&each"), m_reach);
    connect(m_reach, QOverload<int>::of(&QComboBox::activated), this, &WorldSettings::setReach);

    m_userName = new QLineEdit(page);
    m_userName->setObjectName(QStringLiteral("userName"));
    form->addRow(tr("&User name"), m_userName);
    connect(m_userName, &QLineEdit::editingFinished, this, &WorldSettings::setUserName);

    m_accessDelay = createMilliseconds(QStringLiteral("accessDelay"), page);
    form->addRow(tr("Each &access takes"), m_accessDelay);
    connect(m_accessDelay, QOverload<int>::of(&QSpinBox::valueChanged), this, &WorldSettings::setAccessDelay);

    m_failAccess = new QSpinBox(page);
    m_failAccess->setObjectName(QStringLiteral("failAccess"));
    m_failAccess->setRange(0, 100000);
    m_failAccess->setSpecialValueText(tr("none"));
    m_failAccess->setKeyboardTracking(false);
    m_failRepeatedly = new QCheckBox(tr("again and again"), page);
    m_failRepeatedly->setObjectName(QStringLiteral("failRepeatedly"));
    auto *failure = new QHBoxLayout;
    failure->addWidget(m_failAccess, 1);
    failure->addWidget(m_failRepeatedly);
    form->addRow(tr("Fail the &n-th access"), failure);
    static_cast<QLabel *>(form->labelForField(failure))->setBuddy(m_failAccess);
    connect(m_failAccess, QOverload<int>::of(&QSpinBox::valueChanged), this, &WorldSettings::setFailure);
    connect(m_failRepeatedly, &QCheckBox::clicked, this, &WorldSettings::setFailure);
    return page;
}

void WorldSettings::showNothing()
{
    m_id.clear();
    setCurrentIndex(NothingPage);
}

void WorldSettings::showInterface(const QString &id)
{
    // A number that is being typed stays when the same interface is shown once more.
    if (id != m_id) {
        m_id = id;
        setQuietly(m_discoveryTime, m_knobs.value(id).discoveryTime);
    }
    setCurrentIndex(InterfacePage);
}

void WorldSettings::showCamera(const QString &id, MoxCam::DeviceInfo *camera)
{
    if (id != m_id) {
        m_id = id;
        const Knobs knobs = m_knobs.value(id);
        setQuietly(m_accessDelay, knobs.accessDelay);
        setQuietly(m_failAccess, knobs.failAccess);
        m_failRepeatedly->setChecked(knobs.failRepeatedly);
        m_userName->setText(QString()); // unlike clear(), this counts as unmodified
    }
    if (!m_reach->view()->isVisible())
        m_reach->setCurrentIndex(m_reach->findData(static_cast<int>(MoxSim::reach(id.toStdString()))));
    m_userName->setEnabled(camera);
    const QString userName = camera ? QString::fromUtf8(camera->GetUserDefinedName()) : QString();
    if (!m_userName->isModified() && m_userName->text() != userName)
        m_userName->setText(userName);
    setCurrentIndex(CameraPage);
}

void WorldSettings::forget()
{
    m_knobs.clear();
    showNothing();
}

void WorldSettings::setReach()
{
    Q_EMIT worldAsked(tr("Change the reach of %1").arg(m_id), attempt([this] {
                          MoxSim::setReach(m_id.toStdString(),
                                           static_cast<MoxSim::Reach>(m_reach->currentData().toInt()));
                          return m_reach->currentText();
                      }));
}

void WorldSettings::setUserName()
{
    if (!m_userName->isModified())
        return;
    m_userName->setModified(false);
    Q_EMIT worldAsked(tr("Rename %1").arg(m_id), attempt([this] {
                          MoxSim::setUserName(m_id.toStdString(), m_userName->text().toStdString());
                          return m_userName->text();
                      }));
}

void WorldSettings::setAccessDelay(int milliseconds)
{
    m_knobs[m_id].accessDelay = milliseconds;
    Q_EMIT worldAsked(tr("Delay accesses to %1").arg(m_id), attempt([&] {
                          MoxSim::setAccessDelay(m_id.toStdString(), static_cast<unsigned>(milliseconds));
                          return tr("%1 ms").arg(milliseconds);
                      }));
}

void WorldSettings::setFailure()
{
    Knobs &knobs = m_knobs[m_id];
    knobs.failAccess = m_failAccess->value();
    knobs.failRepeatedly = m_failRepeatedly->isChecked();
    Q_EMIT worldAsked(tr("Fail accesses to %1").arg(m_id), attempt([&] {
                          MoxSim::failAccess(m_id.toStdString(), static_cast<unsigned>(knobs.failAccess),
                                             knobs.failRepeatedly);
                          if (knobs.failAccess == 0)
                              return tr("None");
                          return knobs.failRepeatedly ? tr("Every one in %1").arg(knobs.failAccess)
                                                      : tr("Number %1 from now").arg(knobs.failAccess);
                      }));
}

void WorldSettings::setDiscoveryTime(int milliseconds)
{
    m_knobs[m_id].discoveryTime = milliseconds;
    Q_EMIT worldAsked(tr("Slow down discovery on %1").arg(m_id), attempt([&] {
                          MoxSim::setDiscoveryTime(m_id.toStdString(), static_cast<unsigned>(milliseconds));
                          return tr("%1 ms").arg(milliseconds);
                      }));
}

} // namespace MoxDemo
