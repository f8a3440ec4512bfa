#pragma once
// When is the storage card "in" on a host? The card is a folder (--card DIR,
// or the device's own card folder) that a desktop mounts and unmounts, for
// example under /media/$USER/. The folder's existence alone is not enough:
// a fixed mount point (an fstab entry, /mnt/card) stays behind, empty, when
// its medium is unmounted. So once the folder has been seen as a mount point,
// it counts as present only while it is one.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

// The mount points of a mount table in /proc/self/mountinfo form (the fifth
// field of each line, with the kernel's octal escapes of space, tab, newline
// and backslash decoded). Malformed lines are skipped.
std::vector<std::string> ParseMountPoints(std::string_view mountinfo);

struct CardObservation {
    bool folderExists = false; // a folder (or a link to one) is at the card's host path
    bool isMountPoint = false; // that path is in the mount table
};

// Turns successive observations into the shell's card messages.
class CardPresence {
public:
    explicit CardPresence(CardObservation initial);

    bool Present() const { return m_present; }

    // The card message's wParam when the card came or went with this
    // observation: 0 removed, 1 inserted; nullopt when nothing changed.
    std::optional<int> Update(CardObservation now);

private:
    bool Judge(CardObservation observation);

    bool m_mountSeen = false;
    bool m_present = false;
};

} // namespace zelvor
