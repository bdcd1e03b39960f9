// What the action command console costs above its form, and a send above the writes that it consists of. The interfaces are
// fakes that answer at once, so nothing waits.
#include "console.h"
#include "fakeparams.h"
#include "fakesdk.h"
#include "table.h"
#include "ui_moxcameraactiondialog.h"

#include <QApplication>
#include <QLoggingCategory>

using namespace MoxTest;

namespace {

/** Interfaces whose cameras answer an action within the command. */
struct World
{
    explicit World(int interfaceCount, int answers) : params(std::size_t(interfaceCount))
    {
        for (FakeParams &one : params) {
            FakeInterface *iface = system.add("G", "Adapter");
            iface->parameters = &one;
            for (const char *name : {"ActionFlags", "ActionDevKey", "ActionGroupKey", "ActionGroupMask", "ActionTimeHi",
                                     "ActionTimeLo", "CntWaitActionAcks"})
                one.numbers[name] = {0};
            one.commands["GevAction"] = [iface, answers] {
                const auto listener = iface->subscriptions.find(1005);
                for (int i = 0; i < answers; ++i) {
                    const uchar data[] = {192, 168, 1, uchar(i), 0};
                    listener->second(data, sizeof data);
                }
            };
        }
    }
    /** Drops what the fakes have kept of the last send. */
    void clear()
    {
        for (FakeParams &one : params)
            one.calls.clear();
        for (FakeInterface *iface : system.plugged())
            iface->subscriptions.clear();
    }

    FakeSystem system;
    std::vector<FakeParams> params;
};

template<class Dialog> void show(Dialog &dialog)
{
    dialog.show();
    QCoreApplication::processEvents();
}

void opening(MoxBench::Table &table, int interfaceCount)
{
    World world(interfaceCount, 0);
    table.compare(
        "opened and painted, beside its bare form", interfaceCount, 30, 1,
        [] {
            QDialog dialog;
            Ui_MoxCameraActionDialog form;
            form.setupUi(&dialog);
            show(dialog);
        },
        [&] {
            MoxGui::MoxCameraActionDialog dialog(&world.system, nullptr, nullptr);
            show(dialog);
        });
}

QStringList heard;

void hear(const void *data, unsigned long, void *)
{
    const auto *byte = static_cast<const uchar *>(data);
    heard << QStringLiteral("%1.%2.%3.%4").arg(byte[0]).arg(byte[1]).arg(byte[2]).arg(byte[3]);
}

/** What an application without the console does: seven writes, the command, and hearing who answers. */
void sendDirectly(World &world, int answers)
{
    heard.clear();
    FakeInterface *iface = world.system.plugged().front();
    MoxGenParam::Array *params = iface->GetParameters(nullptr);
    for (const char *name : {"ActionFlags", "ActionDevKey", "ActionGroupKey", "ActionGroupMask", "ActionTimeHi",
                             "ActionTimeLo", "CntWaitActionAcks"})
        params->SetIntegerValue(name, 1);
    iface->RegisterEventCallback(MoxCam::EventActionAcknowledge, &hear, nullptr);
    params->ExecuteCommand("GevAction");
    if (heard.size() != answers)
        qFatal("not all have answered");
}

void sending(MoxBench::Table &table, int answers)
{
    World world(1, answers);
    Console console(&world.system, 1);
    show(console);
    console.findChild<QSpinBox *>()->setValue(answers);
    auto *button = console.findChild<QPushButton *>();
    QTextEdit plainLog;
    plainLog.resize(console.log->size());
    show(plainLog);

    constexpr int sends = 20;
    const auto repeated = [&world](auto work) {
        return [&world, work] {
            for (int i = 0; i < sends; ++i) {
                world.clear();
                work();
            }
        };
    };
    const auto send = repeated([button] { button->click(); });
    table.compare("a send, beside the same writes and answers", answers, 30, sends,
                  repeated([&] { sendDirectly(world, answers); }), send);
    table.compare("a send, beside the same with the answers shown in a QTextEdit", answers, 30, sends, repeated([&] {
                      plainLog.clear();
                      sendDirectly(world, answers);
                      for (const QString &address : qAsConst(heard))
                          plainLog.insertPlainText(address + QLatin1Char('\n'));
                      QCoreApplication::processEvents();
                  }),
                  send);
    if (console.log->toPlainText().count(QLatin1String("[OK]")) != answers)
        qFatal("the console does not show all answers");
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // the platform's, of each window
    MoxBench::Table table("action console");
    for (const int interfaceCount : {2, 16})
        opening(table, interfaceCount);
    for (const int answers : {2, 16})
        sending(table, answers);
    return 0;
}
