#include "interfacedescription.h"

#include <MoxCameraApi/MoxCam.h>

#include <iterator>
#include <vector>

namespace MoxSdk {

namespace {

using Register = InterfaceRegister;

/** A feature that is one register. */
struct Feature
{
    const char *name;
    const char *displayName;
    const char *toolTip;
    Register place;
    int length; ///< in bytes; more than 8 make a text
    const char *representation; ///< of a number
    bool ofDevice;
    const char *accessMode = "RO";
};

constexpr Feature commonFeatures[] = {
    {"InterfaceID", "Interface ID", "Identifier of the interface.", Register::InterfaceId, 512, "", false},
    {"InterfaceDisplayName", "Interface Name", "Name of the interface.", Register::InterfaceName, 512, "", false},
    {"DeviceID", "Device ID", "Identifier of the selected device.", Register::DeviceId, 512, "", true},
    {"DeviceVendorName", "Device Vendor", "Maker of the selected device.", Register::DeviceVendor, 512, "", true},
    {"DeviceModelName", "Device Model", "Model of the selected device.", Register::DeviceModel, 512, "", true},
    {"DeviceSerialNumber", "Device Serial Number", "Serial number of the selected device.",
     Register::DeviceSerialNumber, 512, "", true},
};

constexpr Feature gigEFeatures[] = {
    {"GevInterfaceMACAddress", "Interface MAC Address", "Hardware address of the adapter.", Register::AdapterMac, 8,
     "MACAddress", false},
    {"GevInterfaceSubnetIPAddress", "Interface IP Address", "Address of the adapter.", Register::AdapterIp, 4,
     "IPV4Address", false},
    {"GevInterfaceSubnetMask", "Interface Subnet Mask", "Netmask of the adapter.", Register::AdapterNetmask, 4,
     "IPV4Address", false},
    {"GevInterfaceGateway", "Interface Gateway", "Default gateway behind the adapter.", Register::AdapterGateway, 4,
     "IPV4Address", false},
    {"GevDeviceMACAddress", "Device MAC Address", "Hardware address of the selected device.", Register::DeviceMac, 8,
     "MACAddress", true},
    {"GevDeviceIPAddress", "Device IP Address", "Present address of the selected device.", Register::DeviceIp, 4,
     "IPV4Address", true},
    {"GevDeviceSubnetMask", "Device Subnet Mask", "Present netmask of the selected device.", Register::DeviceNetmask, 4,
     "IPV4Address", true},
    {"GevDeviceGateway", "Device Gateway", "Present gateway of the selected device.", Register::DeviceGateway, 4,
     "IPV4Address", true},
    {"GevDeviceForceIPAddress", "Device Force IP Address", "Address to assign to the selected device.",
     Register::ForcedIp, 4, "IPV4Address", true, "RW"},
    {"GevDeviceForceSubnetMask", "Device Force Subnet Mask", "Netmask to assign to the selected device.",
     Register::ForcedNetmask, 4, "IPV4Address", true, "RW"},
    {"GevDeviceForceGateway", "Device Force Gateway", "Gateway to assign to the selected device.",
     Register::ForcedGateway, 4, "IPV4Address", true, "RW"},
};

constexpr Feature actionFeatures[] = {
    {"ActionFlags", "Action Flags", "Bit 0 asks for acknowledgements, bit 7 is for an action at the time.",
     Register::ActionFlags, 1, "HexNumber", false, "RW"},
    {"ActionDevKey", "Action Device Key", "Key of the devices that shall act.", Register::ActionDeviceKey, 4,
     "HexNumber", false, "RW"},
    {"ActionGroupKey", "Action Group Key", "Key of the actions that are meant.", Register::ActionGroupKey, 4,
     "HexNumber", false, "RW"},
    {"ActionGroupMask", "Action Group Mask", "Groups that are meant: those that share a bit with it.",
     Register::ActionGroupMask, 4, "HexNumber", false, "RW"},
    {"ActionTimeHi", "Action Time High", "Upper half of the time, of the devices' clocks.", Register::ActionTimeHigh, 4,
     "HexNumber", false, "RW"},
    {"ActionTimeLo", "Action Time Low", "Lower half of the time.", Register::ActionTimeLow, 4, "HexNumber", false,
     "RW"},
    {"CntWaitActionAcks", "Acknowledgements To Wait For",
     "Acknowledgements that are waited for; 0 for as many as come in 5 seconds.", Register::ActionAnswers, 4,
     "PureNumber", false, "RW"},
};

constexpr Feature usbFeatures[] = {
    {"DeviceUSBVersionDetected", "Device USB Version Detected",
     "Version of USB that the selected device's link runs at, 0x0300 for 3.0; 0 when it is not known.",
     Register::UsbVersion, 4, "HexNumber", true},
};

// The features that are more than a register, and the registers that are no features.
constexpr char frame[] = R"(
<Integer Name="DeviceSelector" NameSpace="Standard"><ToolTip>Device of the list that discovery found last.</ToolTip>
<DisplayName>Device Selector</DisplayName><Visibility>Beginner</Visibility><pIsAvailable>DeviceCountReg</pIsAvailable>
<pValue>DeviceSelectorReg</pValue><Min>0</Min><pMax>LastDeviceReg</pMax>%SELECTED%</Integer>
<Enumeration Name="InterfaceType" NameSpace="Standard"><ToolTip>Transport of the interface.</ToolTip>
<DisplayName>Interface Type</DisplayName><Visibility>Beginner</Visibility><ImposedAccessMode>RO</ImposedAccessMode>
<EnumEntry Name="%TYPE%" NameSpace="Standard"><Value>0</Value></EnumEntry><Value>0</Value></Enumeration>
<Port Name="Device"/></RegisterDescription>
)";

constexpr char gigENodes[] = R"(
<Enumeration Name="GevInterfaceTransport"><ToolTip>Way of the adapter's packets through the system.</ToolTip>
<DisplayName>Interface Transport</DisplayName><Visibility>Expert</Visibility><ImposedAccessMode>RO</ImposedAccessMode>
<EnumEntry Name="Socket"><Value>0</Value></EnumEntry><Value>0</Value></Enumeration>
<Command Name="GevDeviceForceIP" NameSpace="Standard"><ToolTip>Assigns the address to the selected device.</ToolTip>
<DisplayName>Device Force IP</DisplayName><Visibility>Expert</Visibility><pIsAvailable>DeviceListedReg</pIsAvailable>
<pValue>ForceIpReg</pValue><CommandValue>1</CommandValue></Command>
<Command Name="GevAction"><ToolTip>Sends the action command to all devices of the adapter's subnet.</ToolTip>
<DisplayName>Send Action</DisplayName><Visibility>Beginner</Visibility>
<pValue>SendActionReg</pValue><CommandValue>1</CommandValue></Command>
)";

std::string element(const char *tag, const std::string &content)
{
    return '<' + std::string(tag) + '>' + content + "</" + tag + '>';
}

/** An integer or text node. Discovery changes the contents behind the node map's back, so none of them is kept. */
std::string registerNode(const char *name, const std::string &head, Register place, int length, const char *accessMode,
                         const char *representation)
{
    const bool isText = length > 8;
    const std::string kind = isText ? "StringReg" : "IntReg";
    std::string node = '<' + kind + " Name=\"" + name + "\" NameSpace=\"Standard\">" + head
        + element("Address", std::to_string(static_cast<std::int64_t>(place)))
        + element("Length", std::to_string(length)) + element("AccessMode", accessMode) + element("pPort", "Device")
        + element("Cachable", "NoCache");
    if (!isText) {
        node +=
            element("Sign", "Unsigned") + element("Endianess", "BigEndian") + element("Representation", representation);
    }
    return node + "</" + kind + ">\n";
}

std::string featureNode(const Feature &feature)
{
    std::string head = element("ToolTip", feature.toolTip) + element("DisplayName", feature.displayName)
        + element("Visibility", "Beginner");
    if (feature.ofDevice)
        head += element("pIsAvailable", "DeviceListedReg");
    return registerNode(feature.name, head, feature.place, feature.length, feature.accessMode, feature.representation);
}

void replace(std::string &text, const std::string &mark, const std::string &content)
{
    text.replace(text.find(mark), mark.size(), content);
}

} // namespace

std::string interfaceDescription(int type)
{
    const bool isGigE = type == MoxCam::InterfaceGigEVision;
    if (!isGigE && type != MoxCam::InterfaceUsb3Vision)
        return {};
    std::vector<Feature> features(std::begin(commonFeatures), std::end(commonFeatures));
    if (isGigE)
        features.insert(features.end(), std::begin(gigEFeatures), std::end(gigEFeatures));
    else
        features.insert(features.end(), std::begin(usbFeatures), std::end(usbFeatures));

    std::string nodes;
    std::string ofInterface = element("pFeature", "InterfaceType");
    std::string ofDevice = element("pFeature", "DeviceSelector");
    std::string selected;
    for (const Feature &feature : features) {
        nodes += featureNode(feature);
        (feature.ofDevice ? ofDevice : ofInterface) += element("pFeature", feature.name);
        if (feature.ofDevice)
            selected += element("pSelected", feature.name);
    }
    const auto add = [&nodes](const char *name, Register place, const char *accessMode = "RO") {
        nodes += registerNode(name, {}, place, 4, accessMode, "PureNumber");
    };
    add("DeviceCountReg", Register::DeviceCount);
    add("LastDeviceReg", Register::LastDevice);
    add("DeviceListedReg", Register::DeviceListed);
    add("DeviceSelectorReg", Register::DeviceSelector, "RW");
    if (isGigE) {
        add("ForceIpReg", Register::ForceIp, "WO");
        nodes += gigENodes;
        ofInterface += element("pFeature", "GevInterfaceTransport");
        ofDevice += element("pFeature", "GevDeviceForceIP");
        selected += element("pSelected", "GevDeviceForceIP");
    }
    std::string ofAction;
    if (isGigE) {
        for (const Feature &feature : actionFeatures) {
            nodes += featureNode(feature);
            ofAction += element("pFeature", feature.name);
        }
        add("SendActionReg", Register::SendAction, "WO");
        ofAction += element("pFeature", "GevAction");
    }
    std::string rest = frame;
    replace(rest, "%SELECTED%", selected);
    replace(rest, "%TYPE%", isGigE ? "GigEVision" : "USB3Vision");
    const auto category = [](const char *name, const std::string &content) {
        return "<Category Name=\"" + std::string(name) + "\" NameSpace=\"Standard\">" + content + "</Category>\n";
    };
    return R"(<RegisterDescription ModelName="Interface" VendorName="Moxara" StandardNameSpace="None")"
           R"( SchemaMajorVersion="1" SchemaMinorVersion="1" SchemaSubMinorVersion="0" MajorVersion="1")"
           R"( MinorVersion="0" SubMinorVersion="0" ToolTip="An interface and what is found on it")"
           R"( ProductGuid="3f5d0c9e-5a0e-4c57-8a3c-0b9c1d6e7f10" VersionGuid="3f5d0c9e-5a0e-4c57-8a3c-0b9c1d6e7f11")"
           R"( xmlns="http://www.genicam.org/GenApi/Version_1_1">)"
           "\n"
        + category("Root",
                   std::string("<pFeature>InterfaceInformation</pFeature><pFeature>DeviceEnumeration</pFeature>")
                       + (isGigE ? "<pFeature>ActionControl</pFeature>" : ""))
        + category("InterfaceInformation", ofInterface) + category("DeviceEnumeration", ofDevice)
        + (isGigE ? category("ActionControl", ofAction) : std::string()) + nodes + rest;
}

} // namespace MoxSdk
