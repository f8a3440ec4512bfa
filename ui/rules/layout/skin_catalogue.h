#pragma once
// Every bitmap a skin must hold: its number, its size in pixels, whether it
// is drawn transparently (magenta pixels left out) and a short name for
// people. Built from the screens' layouts, so a bitmap a layout asks for
// cannot be forgotten here. Each colour bundle holds exactly these.

#include <span>
#include <string_view>

#include "res/bitmap_ids.h"
#include "ui/rules/layout/pixel_geometry.h"

namespace zelvor {

struct SkinBitmapInfo {
    BitmapId id = 0;
    PixelSize size;
    bool transparent = false;
    std::string_view name; // static storage
};

// Sorted by id, each id once. The span refers to static storage.
std::span<const SkinBitmapInfo> SkinBitmapCatalogue();

// nullptr when the id is not a skin bitmap.
const SkinBitmapInfo* FindSkinBitmap(BitmapId id);

} // namespace zelvor
