// What the demo asks of the camera SDK.
#ifndef MOXDEMO_CAMERAS_H
#define MOXDEMO_CAMERAS_H

#include <MoxCameraApi/MoxCam.h>

#include <QString>

#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace MoxGenParam {
class Array;
}

namespace MoxDemo {

/** Ends the use of an SDK object. */
struct Release
{
    template<class T> void operator()(T *object) const { object->Release(); }
};
template<class T> using SdkPointer = std::unique_ptr<T, Release>;

struct FoundInterface
{
    MoxCam::Interface *interface;
    std::vector<MoxCam::DeviceInfo *> cameras;
};

/** Whether something worked, and what there is to tell about it. */
struct Outcome
{
    bool ok;
    QString text;
};

/** Runs a call that gives a text, and turns what it throws into the outcome. */
template<class Call> Outcome attempt(Call call)
{
    try {
        return {true, call()};
    } catch (const std::exception &failure) {
        return {false, QString::fromUtf8(failure.what())};
    }
}

/** An opened camera, or why there is none. */
struct OpenedCamera
{
    SdkPointer<MoxCam::Device> device;
    MoxGenParam::Array *parameters = nullptr; ///< with a node map; null when the camera could not be opened
    QString failure;
};

/** The interfaces that the system shows now. */
std::vector<MoxCam::Interface *> interfacesOf(MoxCam::System *system);

/** Runs a discovery of at most @p limit milliseconds, and gives what it found. */
std::vector<MoxCam::DeviceInfo *> camerasOf(MoxCam::Interface *interface, unsigned limit);

/** Both of the above: everything that the system sees. */
std::vector<FoundInterface> discover(MoxCam::System *system);

/** The first camera that discovery finds with a code of `MoxCam::AccessStatus`, or with an identifier; null without any. */
MoxCam::DeviceInfo *cameraWithStatus(MoxCam::System *system, int accessStatus);
MoxCam::DeviceInfo *cameraWithId(MoxCam::System *system, const std::string &id);

/** The interfaces and cameras as lines of text. */
QString listing(const std::vector<FoundInterface> &found);

/** A code of `MoxCam::AccessStatus` in words. */
QString accessText(int accessStatus);

/** Name, identifier and access of a camera in one line. */
QString describe(MoxCam::DeviceInfo *camera);

/** Opens a camera for control. */
OpenedCamera openCamera(MoxCam::DeviceInfo *camera);

/**
 * Opens a camera, reads who it is, counts the features of its node map, and closes it. The text tells these, or why the
 * camera could not be opened.
 */
Outcome openAndDescribe(MoxCam::DeviceInfo *camera);

/**
 * Plugs a GenICam description in as a simulated camera that is named after the file. The text tells the identifier, or
 * why the file cannot be used.
 */
Outcome addDescription(const std::string &interfaceId, const QString &file);

} // namespace MoxDemo

#endif
