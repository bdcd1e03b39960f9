// What an SDK exports.
#include "fakesdk.h"

#include "fakefeatures.h"

MoxCam::System *MoxCam_GetSystem()
{
    return MoxTest::FakeSystem::current;
}

MoxCam::Device *MoxCam_CreateDevice(MoxCam::DeviceInfo *info, int accessMode, int flags)
{
    return accessMode == 2 && flags == 0 ? static_cast<MoxTest::FakeDeviceInfo *>(info)->device : nullptr;
}

MoxGenParam::ParamEventSink::~ParamEventSink()
{
    MoxTest::FakeFeature::forget(this);
}
