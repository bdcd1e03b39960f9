// The lookup tables.
#ifndef MOXSDK_LOOKUPTABLES_H
#define MOXSDK_LOOKUPTABLES_H

#include "firmware.h"

namespace MoxSdk {

/** Fills the lookup tables with their curves. */
class LookupTables final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;

private:
    void fill(int table, double (*curve)(double));
};

} // namespace MoxSdk

#endif
