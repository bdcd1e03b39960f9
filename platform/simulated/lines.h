// The lines of the connector.
#ifndef MOXSDK_LINES_H
#define MOXSDK_LINES_H

#include "firmware.h"

namespace MoxSdk {

/** Works out the signals of the lines from sources, polarities and user outputs. */
class Lines final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void derive() override;
};

} // namespace MoxSdk

#endif
