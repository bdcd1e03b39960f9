// The stored settings.
#ifndef MOXSDK_USERSETS_H
#define MOXSDK_USERSETS_H

#include "firmware.h"

#include <array>

namespace MoxSdk {

/** Saves and loads settings. What is saved outlives a reset. */
class UserSets final : public FirmwareUnit
{
public:
    using FirmwareUnit::FirmwareUnit;

    void powerUp(std::chrono::nanoseconds now) override;
    void written(const std::string &name, int bank, std::chrono::nanoseconds now) override;

private:
    static constexpr int Factory = 0;
    static constexpr int Count = 3;
    using Settings = std::vector<std::uint8_t>;

    Settings present() const;
    void load(int set);
    template<typename Visit> void visit(const Visit &visit) const;

    // Empty until something is saved; the factory's is there from the start.
    std::array<Settings, Count> m_sets;
};

} // namespace MoxSdk

#endif
