#pragma once
// The player's display-off button. The device's vendor library switches the
// backlight off where it exists; on the host the stand-in is "xset dpms
// force off" on an X11 display that has xset. Where there is neither, the
// button does nothing, as on a device without the library.

#include <QString>

namespace zelvor {

class DisplayPower {
public:
    virtual ~DisplayPower() = default;
    // Switches the display off; false when this host cannot.
    virtual bool SetDisplayOff() = 0;
};

class HostDisplayPower final : public DisplayPower {
public:
    // Looks for the display and the program once; UI thread.
    HostDisplayPower();
    bool SetDisplayOff() override;
    bool Available() const { return !m_xset.isEmpty(); }

private:
    QString m_xset;
};

} // namespace zelvor
