#pragma once
// What a desktop expects of a player beyond the device's own rules, set up by
// the program at start: the colour bundles in a new device's program
// directory, the window icon and the desktop file's name, and the card.

#include <QString>
#include <memory>

#include "desktop/card_watcher.h"

namespace zelvor {

class Device;

// Fills in the colour bundles the device's program directory lacks, from the
// folders beside the program in `programFolder` (QCoreApplication's
// applicationDirPath).
void ProvideDesktopSkins(const Device& device, const QString& programFolder);

// Watches the storage card's host folder (the --card binding, else the
// device's own card folder) and hands its comings and goings to `post`.
// nullptr when the card's path is refused by the device.
std::unique_ptr<CardWatcher> WatchStorageCard(const Device& device, CardWatcher::Poster post);

// The window icon from the icon theme ("zelvor"), else from the drawn icons
// of the install or the build tree; and the desktop file's name, which
// Wayland compositors match the window to.
void SetDesktopIdentity(const QString& programFolder);

} // namespace zelvor
