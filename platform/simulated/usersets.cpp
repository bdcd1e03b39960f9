#include "usersets.h"

namespace MoxSdk {

void UserSets::powerUp(std::chrono::nanoseconds)
{
    m_sets[Factory] = present();
    load(static_cast<int>(m_registers.integer("UserSetDefaultReg")));
}

void UserSets::written(const std::string &name, int, std::chrono::nanoseconds)
{
    const auto set = static_cast<int>(m_registers.integer("UserSetSelectorReg"));
    if (name == "UserSetLoadReg") {
        load(set);
    } else if (name == "UserSetSaveReg" && set != Factory) {
        m_sets[static_cast<std::size_t>(set)] = present();
        m_registers.setInteger("UserSetSavedReg", 1, set);
    }
}

void UserSets::load(int set)
{
    const Settings &chosen = m_sets[static_cast<std::size_t>(set)];
    const Settings &settings = chosen.empty() ? m_sets[Factory] : chosen;
    std::size_t at = 0;
    visit([&](std::uint64_t address, std::uint64_t length) {
        m_registers.space().write(settings.data() + at, address, length);
        at += length;
    });
}

UserSets::Settings UserSets::present() const
{
    Settings settings;
    visit([&](std::uint64_t address, std::uint64_t length) {
        settings.resize(settings.size() + length);
        m_registers.space().read(settings.data() + settings.size() - length, address, length);
    });
    return settings;
}

template<typename Visit> void UserSets::visit(const Visit &visit) const
{
    for (const Register &reg : m_registers.map().registers()) {
        if (!reg.inUserSets)
            continue;
        for (int bank = 0; bank < reg.banks; ++bank)
            visit(static_cast<std::uint64_t>(reg.bankAddress(bank)), static_cast<std::uint64_t>(reg.length));
    }
}

} // namespace MoxSdk
