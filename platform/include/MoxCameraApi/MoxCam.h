/**
 * @file
 * Discovery and devices of the camera SDK.
 *
 * Texts are UTF-8, may be null, belong to the object that gave them and stay valid as long as it does. `err` arguments are
 * optional and may be null. Calls may come from several threads at once. No operation throws.
 */
#ifndef MOXCAMERAAPI_MOXCAM_H
#define MOXCAMERAAPI_MOXCAM_H

#include <Base/GCLinkage.h>
#include <MoxCameraApi/MoxCamErr.h>

#include <cstddef>
#include <cstdint>

namespace MoxGenParam {
class Array;
}

namespace MoxCam {

class Interface;
class DeviceInfo;

/**
 * Receives an event on a thread of the SDK; @p data is valid during the call only. It must not wait for a thread that
 * may be unregistering it or releasing its device, since those calls wait for it to end.
 */
using EventCallback = void (*)(const void *data, unsigned long size, void *context);

/**
 * Events of a device, and of an interface for the last one: a camera obeys an action command of this interface. Its data
 * are 8 bytes, big-endian: the camera's address (4), the acknowledgement's status word (2), which is 0, and the number
 * of the command (2). It comes once for a camera and a command; refusals and late acknowledgements are none.
 */
enum EventId {
    EventDeviceConnected = 1003, ///< the camera is back; without data
    EventDeviceDisconnected = 1004, ///< the camera is lost; without data
    EventActionAcknowledge = 1005 ///< of an interface
};

/** Transport codes of `Interface::GetType`. */
enum InterfaceType {
    InterfaceCustom = 0, ///< none of the others
    InterfaceUsb3Vision = 1, ///< USB3 Vision
    InterfaceGigEVision = 2, ///< GigE Vision
    InterfaceCameraLink = 3, ///< Camera Link
    InterfaceCoaXPress = 4, ///< CoaXPress
    InterfaceHdSdi = 5 ///< HD-SDI
};

/** Codes of `DeviceInfo::GetAccessStatus`: the GenTL standard's, and one for an address outside the subnet. */
enum AccessStatus {
    AccessUnknown = 0, ///< not known
    AccessReadWrite = 1, ///< can be opened with control
    AccessReadOnly = 2, ///< can be opened for reading
    AccessNoAccess = 3, ///< another application controls it, also this one
    AccessSubnetMismatch = 1001 ///< its address lies outside the subnet of the adapter
};

/** Walks what a lookup found; the state of the walk lives in the list, so `GetNext` follows `GetFirst` in sequence. */
class MOXSDK_INTERFACE InterfaceList
{
public:
    /** Ends the list, not the interfaces. */
    virtual void Release() = 0;
    /** Number of interfaces. */
    virtual std::size_t GetCount() = 0;
    /** Begins the walk anew; null when the list is empty. */
    virtual Interface *GetFirst() = 0;
    /** The one after the last that was given; null behind the end. */
    virtual Interface *GetNext() = 0;

protected:
    ~InterfaceList() = default;
};

/** As InterfaceList, over the devices of an interface. */
class MOXSDK_INTERFACE DeviceInfoList
{
public:
    /** Ends the list, not the device infos. */
    virtual void Release() = 0;
    /** Number of devices. */
    virtual std::size_t GetCount() = 0;
    /** Begins the walk anew; null when the list is empty. */
    virtual DeviceInfo *GetFirst() = 0;
    /** The one after the last that was given; null behind the end. */
    virtual DeviceInfo *GetNext() = 0;

protected:
    ~DeviceInfoList() = default;
};

/** The SDK's view of the machine. Interfaces and device infos belong to it and stay valid until `Release`. */
class MOXSDK_INTERFACE System
{
public:
    /** Ends one call of MoxCam_GetSystem(). With the last one interfaces and device infos end; devices go before. */
    virtual void Release() = 0;
    /**
     * Interfaces of the transports in the mask, which has bit n set for the `InterfaceType` n; 255 asks for all. The caller
     * releases the list. Null means none. No discovery is run.
     */
    virtual InterfaceList *GetInterfaceList(std::uint32_t typeMask) = 0;

protected:
    ~System() = default;
};

/** A network adapter, a USB host, a frame grabber. */
class MOXSDK_INTERFACE Interface
{
public:
    /** What the last discovery found; the caller releases the list. */
    virtual DeviceInfoList *GetDeviceInfoList() = 0;
    /**
     * Asks for a GigE Vision device at a dotted address, which may be one that discovery does not reach. Returns within
     * half a second, and at once for a text that is no address and on other transports. Null when none answers there.
     * The device info belongs to the system as those of discovery do, and is the same object when both find a device.
     * It does not join the list that discovery makes. It may be opened right away, also outside the adapter's subnet.
     */
    virtual DeviceInfo *ConnectByIp(const char *ipAddress) = 0;
    /**
     * Runs a discovery that takes at most @p timeout milliseconds; for USB it takes what listing the bus takes, without
     * a limit. A discovery that another thread has under way here is waited for first: when it does not end within
     * @p timeout, this call leaves the list to it. @p changed, which may be null, tells whether this call changed it.
     */
    virtual void ReDiscoverDevices(bool *changed, std::uint32_t timeout) = 0;
    /** A name for the user. */
    virtual const char *GetDescription() = 0;
    /** One of `InterfaceType`. */
    virtual int GetType() = 0;
    /** Tells this interface from all others of the system, also at the next start. */
    virtual const char *GetID() = 0;
    /** Version of the transport's standard, such as "2.0". */
    virtual const char *GetVersion() = 0;
    /**
     * Calls @p callback at each event of that `EventId`; the same callback with the same context counts once. There is no
     * way back: @p context, which may be null, must outlive the system.
     */
    virtual void RegisterEventCallback(std::uint32_t eventId, EventCallback callback, void *context) = 0;
    /**
     * The interface's own parameters; null, with "not available" in @p err, for a transport that has none. They belong
     * to the interface and stay valid until the system's `Release`. From any thread; @p err may be null.
     */
    virtual MoxGenParam::Array *GetParameters(MoxCamErr *err) = 0;

protected:
    ~Interface() = default;
};

/** A camera that discovery found. It goes on answering after the camera is gone. */
class MOXSDK_INTERFACE DeviceInfo
{
public:
    /** The interface that it was found on; never null. */
    virtual Interface *GetInterface() = 0;
    /** Tells this camera from all others, also at the next start. */
    virtual const char *GetID() = 0;
    /** The maker's name. */
    virtual const char *GetVendor() = 0;
    /** The model's name. */
    virtual const char *GetModel() = 0;
    /** A name for the user, made of maker, model and serial number. */
    virtual const char *GetDisplayName() = 0;
    /** What the user called it: the feature DeviceUserID of the GenICam SFNC. */
    virtual const char *GetUserDefinedName() = 0;
    /** The maker's serial number. */
    virtual const char *GetSerialNumber() = 0;
    /** Version of the device. */
    virtual const char *GetVersion() = 0;
    /** One of `AccessStatus`, as the last discovery found it. */
    virtual int GetAccessStatus() = 0;
    /** Dotted address of a GigE Vision device; empty, with "not available" in @p err, on other transports. */
    virtual const char *GetIPAddress(MoxCamErr *err) = 0;
    /** Dotted netmask, as GetIPAddress(). */
    virtual const char *GetNetmask(MoxCamErr *err) = 0;
    /** Dotted address of the gateway, "0.0.0.0" without one, as GetIPAddress(). */
    virtual const char *GetGateway(MoxCamErr *err) = 0;
    /**
     * Assigns an address until the camera's next start; first dotted number in the most significant byte. What no host
     * can have is for the camera to refuse. With @p ip 0 the camera looks for an address by itself, as at its
     * start, and the others are passed over. From any thread; waits for the camera, for 1.2 s at most.
     *
     * After a success this object answers with the new address at once; whether the camera stays reachable there is not
     * part of it. Failures:
     *  - GenTLNotImplemented: the transport has no addresses, or the camera does not know the request,
     *  - GenTLTimeout: the camera does not answer and is not found at @p ip,
     *  - GenTLInvalidParameter: the camera refuses the address, or has no hardware address to be told apart by,
     *  - GenTLAccessDenied, GenTLResourceInUse: an application controls the camera, or it is busy,
     *  - GenTLError: it refuses for another reason.
     */
    virtual MoxCamErr ForceIP(std::uint32_t ip, std::uint32_t netmask, std::uint32_t gateway) = 0;

protected:
    ~DeviceInfo() = default;
};

/** An opened camera. */
class MOXSDK_INTERFACE Device
{
public:
    /**
     * Closes the camera and ends its parameters and node map. Waits for an event callback of this device that is
     * running, unless it is called inside one. Must not be called inside a callback of a GenApi node; inside a parameter
     * sink it may.
     */
    virtual void Release() = 0;
    /**
     * Calls @p callback at each `EventDeviceConnected` or `EventDeviceDisconnected`, whichever @p eventId names. Any other
     * number, and a null callback, give "invalid argument".
     */
    virtual MoxCamErr RegisterEvent(int eventId, EventCallback callback, void *context) = 0;
    /**
     * Ends a registration, if there is one with these arguments. Waits for a running call of this callback, unless it is
     * called inside an event callback.
     */
    virtual MoxCamErr UnregisterEvent(int eventId, EventCallback callback, void *context) = 0;
    /** The camera's parameters, valid until `Release`; null with an error when the camera gave none. */
    virtual MoxGenParam::Array *GetCameraParameters(MoxCamErr *err) = 0;

protected:
    ~Device() = default;
};

} // namespace MoxCam

extern "C" {

/** The one system of the process, counted by call; null when the SDK cannot start. Each call is ended by `Release`. */
MOXSDK_EXPORT MoxCam::System *MoxCam_GetSystem();

/**
 * Opens a camera. Null when it is gone, in use, not reached at its address, or gives no usable description.
 * @p accessMode 2 asks for control; @p flags is 0.
 */
MOXSDK_EXPORT MoxCam::Device *MoxCam_CreateDevice(MoxCam::DeviceInfo *info, int accessMode, int flags);
}

#endif
