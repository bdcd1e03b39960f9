#ifndef MOX_PRIVATESLOTFORWARDER_H
#define MOX_PRIVATESLOTFORWARDER_H

#include <QObject>

namespace MoxGui {

class MoxCameraSelectorDialogPrivate;

/**
 * The QObject face of the selector's private object, which is none itself. Held by that object by value; lives on the
 * GUI thread. The poll thread emits systemChanged(), and the queued connection to onSystemChanged() is its only way to
 * the GUI thread.
 */
class PrivateSlotForwarder : public QObject
{
    Q_OBJECT

public:
    explicit PrivateSlotForwarder(MoxCameraSelectorDialogPrivate *owner);

Q_SIGNALS:
    /** The poll thread found a change. */
    void systemChanged();

public Q_SLOTS:
    /** Shows what the poll thread found and puts the current item back. */
    void onSystemChanged();

private:
    MoxCameraSelectorDialogPrivate *const d;
};

} // namespace MoxGui

#endif
