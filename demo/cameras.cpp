#include "cameras.h"

#include <GenApi/GenApi.h>
#include <MoxCameraApi/MoxGenParam.h>
#include <MoxCameraApi/MoxSimulation.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <set>

namespace MoxDemo {

namespace {

/** A text parameter, empty when the camera has none. A failure to read it goes to @p error, success does not. */
QString parameter(MoxGenParam::Array *parameters, const char *name, MoxCamErr *error)
{
    MoxGenParam::String *text = parameters->GetString(name, nullptr);
    if (!text)
        return QString();
    MoxCamErr result = MoxCamError::Success;
    QString value = QString::fromUtf8(text->GetValue(&result));
    if (result != MoxCamError::Success)
        *error = result;
    return value;
}

/** Walks the categories below a node. A feature may stand in several of them and counts once. */
void collectFeatures(GenApi::INode *node, std::set<GenApi::INode *> &categories, std::set<GenApi::INode *> &features)
{
    const GenApi::CCategoryPtr category = node;
    if (!category) {
        features.insert(node);
        return;
    }
    if (!categories.insert(node).second)
        return;
    GenApi::FeatureList_t children;
    category->GetFeatures(children);
    for (GenApi::IValue *child : children)
        collectFeatures(child->GetNode(), categories, features);
}

/** The first camera found that is as @p wanted says; null without any. */
template<class Predicate> MoxCam::DeviceInfo *findCamera(MoxCam::System *system, Predicate wanted)
{
    for (const FoundInterface &entry : discover(system)) {
        for (MoxCam::DeviceInfo *camera : entry.cameras) {
            if (wanted(camera))
                return camera;
        }
    }
    return nullptr;
}

QString whyNotOpened(int accessStatus)
{
    switch (accessStatus) {
    case MoxCam::AccessNoAccess:
        return QStringLiteral("in use"); // by another host, or by another window here
    case MoxCam::AccessSubnetMismatch:
        return QStringLiteral("outside the adapter's subnet");
    default:
        return QStringLiteral("no answer, or no usable description");
    }
}

} // namespace

std::vector<MoxCam::Interface *> interfacesOf(MoxCam::System *system)
{
    std::vector<MoxCam::Interface *> interfaces;
    const SdkPointer<MoxCam::InterfaceList> list(system->GetInterfaceList(0xff));
    if (!list)
        return interfaces;
    for (MoxCam::Interface *interface = list->GetFirst(); interface; interface = list->GetNext())
        interfaces.push_back(interface);
    return interfaces;
}

std::vector<MoxCam::DeviceInfo *> camerasOf(MoxCam::Interface *interface, unsigned limit)
{
    interface->ReDiscoverDevices(nullptr, limit);
    std::vector<MoxCam::DeviceInfo *> cameras;
    const SdkPointer<MoxCam::DeviceInfoList> list(interface->GetDeviceInfoList());
    if (!list)
        return cameras;
    for (MoxCam::DeviceInfo *camera = list->GetFirst(); camera; camera = list->GetNext())
        cameras.push_back(camera);
    return cameras;
}

std::vector<FoundInterface> discover(MoxCam::System *system)
{
    constexpr unsigned limit = 500; // some cameras take their time to answer a broadcast
    std::vector<FoundInterface> found;
    for (MoxCam::Interface *interface : interfacesOf(system))
        found.push_back({interface, camerasOf(interface, limit)});
    return found;
}

MoxCam::DeviceInfo *cameraWithStatus(MoxCam::System *system, int accessStatus)
{
    return findCamera(system, [=](MoxCam::DeviceInfo *camera) { return camera->GetAccessStatus() == accessStatus; });
}

MoxCam::DeviceInfo *cameraWithId(MoxCam::System *system, const std::string &id)
{
    return findCamera(system, [&](MoxCam::DeviceInfo *camera) { return id == camera->GetID(); });
}

QString listing(const std::vector<FoundInterface> &found)
{
    if (found.empty())
        return QStringLiteral("No interfaces\n");
    QString lines;
    for (const FoundInterface &entry : found) {
        lines +=
            QStringLiteral("%1 [%2]\n")
                .arg(QString::fromUtf8(entry.interface->GetDescription()), QString::fromUtf8(entry.interface->GetID()));
        for (MoxCam::DeviceInfo *camera : entry.cameras)
            lines += QStringLiteral("    %1\n").arg(describe(camera));
        if (entry.cameras.empty())
            lines += QStringLiteral("    no cameras\n");
    }
    return lines;
}

QString accessText(int accessStatus)
{
    switch (accessStatus) {
    case MoxCam::AccessReadWrite:
        return QStringLiteral("read and write");
    case MoxCam::AccessReadOnly:
        return QStringLiteral("read only");
    case MoxCam::AccessNoAccess:
        return QStringLiteral("no access");
    case MoxCam::AccessSubnetMismatch:
        return QStringLiteral("subnet mismatch");
    default:
        return QStringLiteral("unknown access");
    }
}

QString describe(MoxCam::DeviceInfo *camera)
{
    return QStringLiteral("%1 [%2], %3")
        .arg(QString::fromUtf8(camera->GetDisplayName()), QString::fromUtf8(camera->GetID()),
             accessText(camera->GetAccessStatus()));
}

OpenedCamera openCamera(MoxCam::DeviceInfo *camera)
{
    constexpr int controlAccess = 2;
    const QString name = QString::fromUtf8(camera->GetDisplayName());
    OpenedCamera opened;
    opened.device.reset(MoxCam_CreateDevice(camera, controlAccess, 0));
    if (!opened.device) {
        opened.failure = QStringLiteral("%1 cannot be opened: %2").arg(name, whyNotOpened(camera->GetAccessStatus()));
        return opened;
    }
    MoxCamErr error = MoxCamError::Success;
    MoxGenParam::Array *parameters = opened.device->GetCameraParameters(&error);
    if (parameters && parameters->GetNodeMap(&error))
        opened.parameters = parameters;
    else
        opened.failure = QStringLiteral("%1 gives no parameters: error %2").arg(name, QString::number(error));
    return opened;
}

Outcome openAndDescribe(MoxCam::DeviceInfo *camera)
{
    QElapsedTimer clock;
    clock.start();
    const OpenedCamera opened = openCamera(camera);
    MoxGenParam::Array *parameters = opened.parameters;
    if (!parameters)
        return {false, opened.failure};

    const QString name = QString::fromUtf8(camera->GetDisplayName());
    MoxCamErr error = MoxCamError::Success;
    const QString vendor = parameter(parameters, "DeviceVendorName", &error);
    const QString model = parameter(parameters, "DeviceModelName", &error);
    const QString serialNumber = parameter(parameters, "DeviceSerialNumber", &error);
    if (error != MoxCamError::Success)
        return {false, QStringLiteral("%1 cannot be read: error %2").arg(name, QString::number(error))};

    std::set<GenApi::INode *> categories;
    std::set<GenApi::INode *> features;
    try {
        if (GenApi::INode *root = parameters->GetNodeMap(nullptr)->GetNode("Root")) {
            collectFeatures(root, categories, features);
            categories.erase(root); // what stands below it counts; no user sees the root itself
        }
    } catch (const GenICam::GenericException &failure) {
        return {false, QStringLiteral("%1 cannot be read: %2").arg(name, QString::fromUtf8(failure.GetDescription()))};
    }
    return {true,
            QStringLiteral("%1 %2, serial no. %3: %4 features in %5 categories, %6 ms")
                .arg(vendor, model, serialNumber, QString::number(features.size()), QString::number(categories.size()),
                     QString::number(clock.elapsed()))};
}

Outcome addDescription(const std::string &interfaceId, const QString &file)
{
    MoxSim::CameraSetup setup;
    setup.userName = QFileInfo(file).completeBaseName().toStdString();
    setup.descriptionFile = QFile::encodeName(file).toStdString();
    return attempt([&] { return QString::fromStdString(MoxSim::addCamera(interfaceId, setup)); });
}

} // namespace MoxDemo
