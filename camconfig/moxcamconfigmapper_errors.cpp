// What the user is told when the camera refuses a write.
#include "moxcamconfigmapper.h"

#include "modaldialog.h"

#include <QEvent>
#include <QMessageBox>

#include <algorithm>
#include <iterator>

namespace MoxGui {

namespace {

struct Description
{
    MoxCamErr code;
    const char *text;
};

// In the words of the GenTL standard and of the SDK, with the tabs that came with them.
constexpr Description descriptions[] = {
    {-1001, "GenTL: Unspecified runtime error"},
    {-1002, "GenTL: Module or resource not initialized; e.g., GCInitLib was not called."},
    {-1003, "GenTL: Requested operation not implemented;\te.g., no Port functions on a Buffer\tmodule."},
    {-1004, "GenTL: Requested resource is already in use."},
    {-1005, "GenTL: Requested operation is not allowed; e.g., a remote device is opened by another client."},
    {-1006, "GenTL: Given handle does not support the operation; e.g., function call on wrong handle or NULL pointer."},
    {-1007,
     "GenTL: ID could not be connected to a resource; e.g., a device with the given ID is currently not available."},
    {-1008, "GenTL: The function has no data to work on."},
    {-1009, "GenTL: One of the parameter given was not valid or out of range."},
    {-1010, "GenTL: Communication error has occurred; e.g., a read or write operation to a remote device failed."},
    {-1011, "GenTL: An operation\x92s timeout time expired before it could be completed."},
    {-1012,
     "GenTL: An operation has been aborted before it could be completed. For example, a wait operation through "
     "EventGetData has been terminated\tvia a call to EventKill."},
    {-1013,
     "GenTL: The GenTL Consumer has not announced enough buffers to start the\tacquisition in the currently "
     "active\tacquisition mode."},
    {-1014, "GenTL: Resource or information is not available at a given time in a current state."},
    {-1015, "GenTL: A given address is out of range or invalid for internal reasons."},
    {-1016,
     "GenTL: A provided buffer is too small to receive the expected amount of data. This may affect acquisition "
     "buffers in the Data Stream module if the buffers \t\t\tare smaller than the expected payload size but also "
     "buffers passed to any other function of the GenTL Producer\tinterface to retrieve information or IDs."},
    {-1017, "GenTL: A provided index referencing a Producer internal object is out of bounds."},
    {-1018, "GenTL: An error occurred parsing a buffer containing chunk data."},
    {-1019, "GenTL: A register write function was trying to write an invalid value."},
    {-1020,
     "GenTL: A requested resource is exhausted. This is a rather general error which might for example refer to a "
     "limited\tnumber of available handles being available."},
    {-1021, "GenTL: The system and/or other hardware in the system (frame grabber) ran out of memory."},
    {-1022,
     "GenTL: The required operation cannot be\texecuted because the responsible module / entity is busy executing "
     "actions that cannot be performed\tconcurrently \t\t\twith the requested operation."},
    {-40001, "Unknown error"},
    {-40002, "File not found"},
    {-40003, "File read error"},
    {-40004, "Wrong configuration"},
    {-40005, "Invalid index"},
    {-40006, "No device"},
    {-40007, "Invalid argument"},
    {-40051, "Invalid state"},
    {-40101, "Flash erase error"},
    {-40121, "Not enough actual arguments"},
    {-40200, "GenICam: Generic error"},
    {-40201, "GenICam: Tree error"},
    {-40202, "GenICam: Access error"},
    {-40203, "GenICam: Parameter type is invalid"},
    {-40204, "GenICam: Parameter is out of range"},
    {-40205, "GenICam: Unknown parameter"},
    {-40206, "GenICam: Invalid argument"},
    {-40207, "GenICam: Runtime error"},
};

const char *descriptionOf(MoxCamErr err)
{
    const auto found = std::find_if(std::begin(descriptions), std::end(descriptions),
                                    [err](const Description &description) { return description.code == err; });
    return found == std::end(descriptions) ? "Unknown code" : found->text;
}

/** Stays open to the user when its parent is disabled, as the controls of a camera are that is pulled out meanwhile. */
class ErrorBox : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void changeEvent(QEvent *event) override
    {
        QMessageBox::changeEvent(event);
        if (event->type() == QEvent::EnabledChange && !isEnabled())
            setEnabled(true);
    }
};

} // namespace

void MoxCamConfigMapper::showErrorMessage(MoxCamErr err, QWidget *parent, MoxGenParam::Param *param)
{
    if (err == MoxCamError::Success)
        return;
    // The name goes in first, so that one which holds "%2" takes the description. The lone byte 0x92 in one of the
    // descriptions is no UTF-8 and shows as the replacement character.
    const QString text = QStringLiteral("Error while working with '%1' parameter!\r\nDescription: %2")
                             .arg(nameOf(param)) // clazy:exclude=qstring-arg
                             .arg(QString::fromUtf8(descriptionOf(err)));
    // What QMessageBox::critical does, but for the parent that may be deleted or disabled while the box is open.
    const ModalDialog<ErrorBox> box(QMessageBox::Critical, QString(), text, QMessageBox::Ok, parent);
    box->exec();
}

} // namespace MoxGui
