// The size of images.
#ifndef MOXSDK_IMAGEGEOMETRY_H
#define MOXSDK_IMAGEGEOMETRY_H

#include "firmware.h"

namespace MoxSdk {

/** Keeps offsets, sizes, pixel format and the bytes of an image in step with each other. */
class ImageGeometry final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void derive() override;

private:
    void derivePixelFormat();
    void deriveSingle(const std::string &size, const std::string &offset, const std::string &direction);
    void deriveFrame(int frame);
    std::int64_t payloadSize() const;
};

} // namespace MoxSdk

#endif
