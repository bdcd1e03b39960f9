// Uses an action command console as its user does.
#ifndef MOX_CONSOLE_H
#define MOX_CONSOLE_H

#include "moxcameraactiondialog.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>

struct Console : public MoxGui::MoxCameraActionDialog
{
    explicit Console(MoxCam::System *system, int ticked, QSettings *store = nullptr)
        : MoxCameraActionDialog(system, nullptr, store)
    {
        for (int row = 0; row < ticked; ++row)
            rows->item(row)->setCheckState(Qt::Checked);
    }
    /** Gives the log, and dots behind it when all of the time went by. */
    QString send(int cntWait)
    {
        findChild<QSpinBox *>()->setValue(cntWait);
        QElapsedTimer timer;
        timer.start();
        findChild<QPushButton *>()->click();
        return log->toPlainText() + QLatin1String(timer.elapsed() < 3000 ? "" : "...");
    }

    QListWidget *const rows = findChild<QListWidget *>();
    QTextEdit *const log = findChild<QTextEdit *>();
};

#endif
