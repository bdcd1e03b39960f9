// What an interface tells of the cameras that obey its action commands.
#ifndef MOX_ACKEVENTS_H
#define MOX_ACKEVENTS_H

#include <MoxCameraApi/MoxCam.h>

#include <QByteArray>
#include <QThread>

#include <mutex>
#include <string>

namespace MoxTest {

/** The data of an interface's events 1005 in base 16, each with a blank behind it. Must outlive the interface. */
class Events
{
public:
    void listenTo(MoxCam::Interface &interface)
    {
        interface.RegisterEventCallback(MoxCam::EventActionAcknowledge, take, this);
    }

    QByteArray data()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return QByteArray::fromStdString(m_data); // a copy of its own
    }

private:
    static void take(const void *data, unsigned long size, void *context)
    {
        auto &events = *static_cast<Events *>(context);
        const std::lock_guard<std::mutex> lock(events.m_mutex);
        if (QThread::currentThread() == events.m_creator)
            events.m_data += "on the creator's thread: ";
        events.m_data += QByteArray(static_cast<const char *>(data), int(size)).toHex().toStdString() + ' ';
    }

    QThread *const m_creator = QThread::currentThread();
    std::mutex m_mutex;
    std::string m_data;
};

} // namespace MoxTest

#endif
