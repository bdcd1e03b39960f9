// A real GigE Vision camera for tests: the camera program of Aravis on the loopback adapter.
#ifndef MOX_CAMERAPROGRAM_H
#define MOX_CAMERAPROGRAM_H

#include <QProcess>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

namespace MoxTest {

/** Plugged in while it runs; the port of GigE Vision is free for one at a time. */
class CameraProgram
{
public:
    explicit CameraProgram(const QString &serialNumber) : m_serialNumber(serialNumber) { }
    ~CameraProgram() { stop(); }

    static bool isInstalled() { return !QStandardPaths::findExecutable(QLatin1String(name)).isEmpty(); }

    /** Starts it with another description than its own when @p description, a file, is not empty. */
    bool start(const QString &description = QString())
    {
        QStringList arguments{QStringLiteral("-i"), QStringLiteral("127.0.0.1"), QStringLiteral("-s"), m_serialNumber};
        if (!description.isEmpty())
            arguments << QStringLiteral("-g") << description;
        m_process.start(QLatin1String(name), arguments);
        return m_process.waitForStarted();
    }

    /** Without a word to its users, as when the cable is pulled. */
    void stop()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    static constexpr const char *name = "arv-fake-gv-camera-0.8";

    /** Ends with the test, also when that is killed: left behind, it would keep the port from every later one. */
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGKILL); }
    };

    const QString m_serialNumber;
    Process m_process;
};

} // namespace MoxTest

#endif
