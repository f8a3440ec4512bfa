#pragma once
// The skin resource module: where every skin bitmap comes from. The program
// carries its own images; GUI colours 1 to 4 take them from a colour bundle
// in the program directory instead (ZelvorBlue.rcc, ZelvorRed.rcc,
// ZelvorOrange.rcc, ZelvorGreen.rcc). A bitmap is found by its number.
//
// One bundle is held for the whole process, from one SelectSkinModule to the
// next; the program's own images are never released. Loading reads the
// bundle through the current device's file system and checks it before Qt's
// resource system sees it; a bundle that is missing, unreadable or malformed
// leaves the handle empty, and SkinResourceHandle then hands out the
// program's own images. Nothing is reported: the fallback is silent.
//
// UI thread only. Images loaded from a handle are copies and stay valid
// after the bundle is released; screens reload them after a change of colour.

#include <QImage>
#include <QString>
#include <cstdint>

#include "res/bitmap_ids.h"
#include "ui/rules/skin/skin_choice.h"

namespace zelvor {

class SkinHandle {
public:
    SkinHandle() = default; // empty
    bool IsEmpty() const { return m_source == SkinSource::None; }
    SkinSource Source() const { return m_source; }
    // The resource folder that holds the images, ":/..." (empty when empty).
    const QString& Root() const { return m_root; }
    friend bool operator==(const SkinHandle&, const SkinHandle&) = default;

private:
    friend SkinHandle MakeSkinHandle(SkinSource source, QString root);
    SkinSource m_source = SkinSource::None;
    QString m_root;
};

// The program's own images.
SkinHandle ProgramResourceHandle();

// Releases the bundle held (if any) and loads the one for `colour` from the
// current device's program directory; colour 0 selects the program's own
// images. Returns the new handle, empty when the bundle did not load.
SkinHandle SelectSkinModule(std::uint16_t colour);

// The handle every screen loads its bitmaps through: the selected one, or
// the program's own images when none is held (which are then held).
SkinHandle SkinResourceHandle();

// Releases the bundle at the end of the run; the handle becomes empty.
void ReleaseSkinModule();

// The bitmap with this number, or a null image when the handle is empty or
// holds no such bitmap.
QImage LoadSkinBitmap(const SkinHandle& handle, BitmapId id);

} // namespace zelvor
