#include "host/display_power.h"

#include "host/display_xset.h"

namespace zelvor {

HostDisplayPower::HostDisplayPower() : m_xset(FindXsetForDisplay()) {}

bool HostDisplayPower::SetDisplayOff() {
    return RunXset(m_xset,
                   {QStringLiteral("dpms"), QStringLiteral("force"), QStringLiteral("off")});
}

} // namespace zelvor
