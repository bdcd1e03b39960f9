/**
 * @file
 * The knobs of the open SDK, for demonstrations and tests: which world it shows, and what happens in the simulated one.
 *
 * An application that ships uses none of this. All functions may be called from any thread; what they change is seen by
 * the next discovery or port access. Identifiers are those of `MoxCam::Interface::GetID` and `MoxCam::DeviceInfo::GetID`;
 * an unknown one throws std::invalid_argument.
 */
#ifndef MOXCAMERAAPI_MOXSIMULATION_H
#define MOXCAMERAAPI_MOXSIMULATION_H

#include <Base/GCLinkage.h>

#include <cstdint>
#include <string>
#include <vector>

namespace MoxSim {

/** Where `MoxCam_GetSystem` looks for cameras. May be combined. */
enum World : unsigned {
    RealWorld = 1, ///< network adapters and USB hosts
    SimulatedWorld = 2 ///< what the functions below set up
};

/** Chooses the worlds of every later `System::GetInterfaceList`. The start is `RealWorld`. */
MOXSDK_EXPORT void setWorlds(unsigned worlds);
/** The worlds chosen. */
MOXSDK_EXPORT unsigned worlds();

/** The kinds of camera that can be put into the simulated world. */
enum class Model {
    FrameAB, ///< GigE Vision, monochrome, two alternating frames A and B
    Plain, ///< GigE Vision, monochrome, one frame
    Color ///< USB3 Vision, colour, one frame
};

/** Where a camera stands towards its host. */
enum class Reach {
    Open, ///< can be opened
    Busy, ///< another host controls it
    WrongSubnet, ///< its address lies outside the adapter's subnet
    Undiscovered ///< answers to its address only, not to discovery
};

/** What a new camera is like. */
struct CameraSetup
{
    Model model = Model::Plain; ///< passed over with a description file
    /** Also the end of the identifier. Its first 16 printable ASCII characters count; made up when there are none. */
    std::string serialNumber;
    std::string userName; ///< DeviceUserID
    Reach reach = Reach::Open; ///< where it starts
    bool slowLink = false; ///< USB3 Vision on a USB 2 link
    /** Path of a GenICam description to use instead of the model's own. Its registers only store, and start at 0. */
    std::string descriptionFile;
};

/** Empties the simulated world and plugs in the standard one, which shows every case that a user meets. */
MOXSDK_EXPORT void resetWorld();
/** Empties the simulated world. Cameras that are open are lost to their users. */
MOXSDK_EXPORT void clearWorld();

/**
 * Adds an interface behind those that are there. @p type is a `MoxCam::InterfaceType`; another one
 * throws std::invalid_argument. Gives its identifier.
 */
MOXSDK_EXPORT std::string addInterface(int type, const std::string &description);
/** Takes an interface away for good. Its cameras are lost to their users. */
MOXSDK_EXPORT void removeInterface(const std::string &interfaceId);

/**
 * Plugs a new camera into an interface and gives its identifier. Throws std::runtime_error with the reason when the
 * setup's description file cannot be used or a camera with that identifier is there, and std::invalid_argument for a
 * model that does not exist.
 */
MOXSDK_EXPORT std::string addCamera(const std::string &interfaceId, const CameraSetup &setup);
/** Takes a camera away for good; it is lost to its user. */
MOXSDK_EXPORT void removeCamera(const std::string &cameraId);

/** The identifiers in the simulated world, plugged or not, in their order. */
MOXSDK_EXPORT std::vector<std::string> interfaces();
/** The identifiers of an interface's cameras, in their order. */
MOXSDK_EXPORT std::vector<std::string> cameras(const std::string &interfaceId);

/** Pulls the plug, or puts it back. An open device gets event 1004 or 1003; its registers survive. */
MOXSDK_EXPORT void setPlugged(const std::string &cameraId, bool plugged);
/** Whether the camera's own plug is in; that of its interface plays no part. */
MOXSDK_EXPORT bool isPlugged(const std::string &cameraId);
/** Hides an interface with its cameras, or shows it again at its place. */
MOXSDK_EXPORT void setInterfacePlugged(const std::string &interfaceId, bool plugged);

/** Moves a camera, which gets the address that it starts with there. One that is open stays open. */
MOXSDK_EXPORT void setReach(const std::string &cameraId, Reach reach);
/** Where the camera stands now, also after its address was changed from outside. */
MOXSDK_EXPORT Reach reach(const std::string &cameraId);
/** The dotted address that a camera has now, also while nothing discovers it; empty for one without addresses. */
MOXSDK_EXPORT std::string ipAddress(const std::string &cameraId);
/** Sets DeviceUserID, as if another host had. */
MOXSDK_EXPORT void setUserName(const std::string &cameraId, const std::string &userName);

/** Makes each port access of a camera take that much longer. */
MOXSDK_EXPORT void setAccessDelay(const std::string &cameraId, unsigned milliseconds);
/** Makes the @p nth port access from now fail, counted from 1; 0 takes it back. With @p repeat every n-th fails. */
MOXSDK_EXPORT void failAccess(const std::string &cameraId, unsigned nth, bool repeat = false);
/** Port accesses of a camera so far, reads and writes. */
MOXSDK_EXPORT std::uint64_t accessCount(const std::string &cameraId);
/** Makes each discovery on an interface take that much time, at most the limit that its caller gives. */
MOXSDK_EXPORT void setDiscoveryTime(const std::string &interfaceId, unsigned milliseconds);

/** The GenICam description of a model, as XML. */
MOXSDK_EXPORT std::string description(Model model);

} // namespace MoxSim

#endif
