#include "cameraplan.h"

#include "../genapi/nodemapfactory.h"
#include "descriptions.h"

#include <Base/GCException.h>

#include <glib.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace MoxSdk {

namespace {

/** Stands in for a camera while a description is tried. */
class SilentPort final : public GenApi_3_0::IPort
{
public:
    GenApi_3_0::EAccessMode GetAccessMode() const override { return GenApi_3_0::RW; }
    void Read(void *buffer, std::int64_t, std::int64_t length) override
    {
        std::fill_n(static_cast<char *>(buffer), length, '\0');
    }
    void Write(const void *, std::int64_t, std::int64_t) override { }
};

std::string fileText(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text;
    char block[4096];
    while (file.read(block, sizeof block) || file.gcount() > 0)
        text.append(block, static_cast<std::size_t>(file.gcount()));
    // A directory can be opened, but its end is never reached.
    if (!file.eof())
        throw std::runtime_error("The description " + path + " cannot be read");
    return text;
}

void checkDescription(const std::string &path, const std::string &text)
{
    SilentPort port;
    try {
        MoxGenApi::createNodeMap(text, port, "Device");
    } catch (const GenICam_3_0::GenericException &exception) {
        throw std::runtime_error("The description " + path + " cannot be used: " + exception.GetDescription());
    }
}

/** An attribute of the description's root element; empty when it has none. The text is known to be a description. */
std::string rootAttribute(const std::string &text, const std::string &name)
{
    const std::size_t root = text.find("<RegisterDescription");
    if (root == std::string::npos)
        return std::string();
    const std::string head = text.substr(root, text.find('>', root) - root);
    for (std::size_t at = head.find(name); at != std::string::npos; at = head.find(name, at + 1)) {
        const std::size_t quote = head.find_first_of("\"'", at);
        // Names may end like this one, and values may contain it.
        const bool whole = g_ascii_isspace(head[at - 1]) && head[at + name.size()] == '=';
        if (whole && quote != std::string::npos)
            return head.substr(quote + 1, head.find(head[quote], quote + 1) - quote - 1);
    }
    return std::string();
}

/** Tells the camera's names from its description; @p fallback stands in where a user's description has none. */
std::string nameIn(const std::string &text, const std::string &attribute, const char *fallback)
{
    const std::string name = rootAttribute(text, attribute);
    return name.empty() ? fallback : name;
}

} // namespace

AdapterFacts adapterFacts(int interfaceType, unsigned interfaceNumber)
{
    if (interfaceType != MoxCam::InterfaceGigEVision)
        return {};
    AdapterFacts facts;
    // A locally administered address: nobody's product. Those of the cameras follow it.
    facts.macAddress = 0x024D58000000 + (std::uint64_t(interfaceNumber) << 16);
    const std::uint32_t net = 0xC0A80A00 + (interfaceNumber << 8);
    facts.ipAddress = net + 1;
    facts.netmask = 0xFFFFFF00;
    facts.gateway = net + 254;
    return facts;
}

std::uint32_t cameraAddress(const CameraPosition &position, MoxSim::Reach reach)
{
    if (position.interfaceType != MoxCam::InterfaceGigEVision)
        return 0;
    const AdapterFacts adapter = adapterFacts(position.interfaceType, position.interfaceNumber);
    const std::uint32_t net = reach == MoxSim::Reach::WrongSubnet ? 0xAC100500 : adapter.ipAddress & adapter.netmask;
    return net + 10 + position.cameraNumber;
}

CameraPlan planCamera(const MoxSim::CameraSetup &setup, const CameraPosition &position)
{
    CameraPlan plan;
    plan.position = position;
    plan.model = setup.model;
    plan.slowLink = setup.slowLink;
    plan.reach = setup.reach;
    const ModelDescription &description = modelDescription(setup.model);
    if (setup.descriptionFile.empty()) {
        plan.description = description.text;
        plan.registers = &description.registers;
    } else {
        plan.description = std::make_shared<const std::string>(fileText(setup.descriptionFile));
        checkDescription(setup.descriptionFile, *plan.description);
    }
    DeviceRecord &record = plan.record;
    record.vendor = nameIn(*plan.description, "VendorName", "Simulated");
    record.model = nameIn(*plan.description, "ModelName", "Camera");
    const Register *version = plan.registers ? plan.registers->find("DeviceVersion") : nullptr;
    record.version = version ? version->powerUp.front() : nameIn(*plan.description, "MajorVersion", "1") + ".0";
    record.serialNumber = setup.serialNumber;
    record.userDefinedName = setup.userName;
    record.id = record.vendor + "_" + record.model + "_" + record.serialNumber;
    std::replace(record.id.begin(), record.id.end(), ' ', '_');
    record.displayName = displayName(record);
    if (position.interfaceType == MoxCam::InterfaceGigEVision) {
        const AdapterFacts adapter = adapterFacts(position.interfaceType, position.interfaceNumber);
        record.macAddress = adapter.macAddress + position.cameraNumber + 1;
        record.ipAddress = cameraAddress(position, setup.reach);
        record.netmask = adapter.netmask;
        record.gateway = 0;
    } else if (position.interfaceType == MoxCam::InterfaceUsb3Vision) {
        record.usbVersion = setup.slowLink ? 0x0210 : 0x0300;
    }
    return plan;
}

} // namespace MoxSdk
