#include "imagegeometry.h"

#include <algorithm>

namespace MoxSdk {

void ImageGeometry::derive()
{
    derivePixelFormat();
    if (m_registers.has("WidthMaxReg")) {
        deriveSingle("Width", "OffsetX", "Horizontal");
        deriveSingle("Height", "OffsetY", "Vertical");
    } else {
        deriveFrame(0);
        deriveFrame(1);
    }
    m_registers.setInteger("PayloadSizeReg", payloadSize());
    m_registers.setInteger("U3vRequiredPayloadSizeReg", payloadSize());
}

void ImageGeometry::derivePixelFormat()
{
    if (m_registers.integer("SensorADCBitDepthReg") != 0)
        return;
    // Formats of 12 bits give way to those of 10 when the conversion has no more.
    static constexpr std::int64_t replacements[][2] = {
        {0x01100005, 0x01100003}, // Mono12, Mono10
        {0x010C0006, 0x010C0004}, // Mono12Packed, Mono10Packed
        {0x01100011, 0x0110000D}, // BayerRG12, BayerRG10
    };
    for (const auto &replacement : replacements) {
        if (m_registers.integer("PixelFormatReg") == replacement[0])
            m_registers.setInteger("PixelFormatReg", replacement[1]);
    }
}

void ImageGeometry::deriveSingle(const std::string &size, const std::string &offset, const std::string &direction)
{
    const std::int64_t factor =
        m_registers.integer("Binning" + direction + "Reg") * m_registers.integer("Decimation" + direction + "Reg");
    const std::int64_t whole = m_registers.integer("Sensor" + size + "Reg") / std::max<std::int64_t>(factor, 1);
    m_registers.setInteger(size + "MaxReg", whole);
    // The size has precedence; the offset takes what is left.
    const std::int64_t present = std::min(m_registers.integer(size + "Reg"), whole);
    m_registers.setInteger(size + "Reg", present);
    m_registers.setInteger(offset + "Reg", std::min(m_registers.integer(offset + "Reg"), whole - present));
}

void ImageGeometry::deriveFrame(int frame)
{
    std::int64_t factor = 1;
    switch (m_registers.integer("Frame_DecimationModeReg", frame)) {
    case 1:
        factor = m_registers.integer("Frame_SubsamplingMReg", frame);
        break;
    case 2:
        factor = m_registers.integer("Frame_AveragingReg", frame);
        break;
    }
    for (const char *size : {"Width", "Height"}) {
        const std::string name = std::string("Frame_") + size;
        const std::int64_t whole = m_registers.integer(name + "Reg", frame);
        // Pairs at least, since the sensor reads two rows and two columns at a time.
        const std::int64_t actual = whole / std::max<std::int64_t>(factor, 1) / 2 * 2;
        m_registers.setInteger(name + "ActualReg", std::max<std::int64_t>(actual, 2), frame);
    }
}

std::int64_t ImageGeometry::payloadSize() const
{
    const auto frame = static_cast<int>(m_registers.integer("FrameAB_SelectorReg"));
    const bool single = m_registers.has("WidthMaxReg");
    const std::int64_t pixels = single
        ? m_registers.integer("WidthReg") * m_registers.integer("HeightReg")
        : m_registers.integer("Frame_WidthActualReg", frame) * m_registers.integer("Frame_HeightActualReg", frame);
    const std::int64_t bits = m_registers.integer("PixelFormatReg") >> 16 & 0xFF;
    return (pixels * bits + 7) / 8;
}

} // namespace MoxSdk
