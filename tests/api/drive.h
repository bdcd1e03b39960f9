// Acts as the user of a dialog that an entry function runs.
#ifndef MOX_DRIVE_H
#define MOX_DRIVE_H

#include "fakesdk.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QTreeView>

/** The camera tree of a selector dialog. */
inline QTreeView *cameraTree(const QDialog *dialog)
{
    return dialog->findChild<QTreeView *>(QStringLiteral("cameraTreeView"));
}

/** Makes a camera of the first interface current. */
inline void selectCamera(const QDialog *dialog, int row)
{
    QTreeView *tree = cameraTree(dialog);
    const QAbstractItemModel *model = tree->model();
    tree->setCurrentIndex(model->index(row, 0, model->index(0, 0)));
}

/** Runs @p user with the dialog that is opened next over a system, once its event loop runs. */
inline void atNextDialog(MoxTest::FakeSystem &system, std::function<void(QDialog *)> user)
{
    // From within the enumeration: an application object is there by then, whoever has made it.
    system.atNextEnumeration = [user = std::move(user)] {
        QTimer::singleShot(0, qApp, [user] { user(qobject_cast<QDialog *>(QApplication::activeModalWidget())); });
    };
}

#endif
