#pragma once
// The decisions behind the skin module, kept apart from loading so they can
// be checked directly: which bundle a GUI colour names, what a new selection
// does with the module held, and what a screen gets when nothing is held.
//
// Colour 0 is the program's own images; 1 to 4 are the colour bundles beside
// the program ("ZelvorBlue.rcc" ... "ZelvorGreen.rcc", the host's stand-ins
// for the device's resource-only libraries). A colour above 4 names no file,
// so its path is the program directory with a trailing separator, which never
// loads: such a colour, like a missing or broken bundle, ends with the
// program's own images.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

// The bundle's file name for a colour, or an empty view for 0 and above 4.
std::u16string_view SkinModuleFileName(std::uint16_t colour);

// The device path to load for a colour: the program directory, "\" and the
// file name. nullopt for colour 0, which loads nothing.
std::optional<std::u16string> SkinModulePath(std::u16string_view programDirectory,
                                             std::uint16_t colour);

// What the skin handle refers to.
enum class SkinSource {
    None,    // empty: nothing selected yet, or the last bundle failed to load
    Program, // the program's own images
    Module,  // a colour bundle
};

struct SkinSelectionPlan {
    bool releaseHeld = false;               // free the bundle held now
    std::optional<std::u16string> loadPath; // bundle to load; none means use the program's images
};

// SelectSkinModule's plan for the held source and the colour.
SkinSelectionPlan PlanSkinSelection(SkinSource held, std::u16string_view programDirectory,
                                    std::uint16_t colour);

// What SkinResourceHandle hands out: the held source, or the program's own
// images when nothing is held (which then become the held source).
SkinSource EffectiveSkinSource(SkinSource held);

} // namespace zelvor
