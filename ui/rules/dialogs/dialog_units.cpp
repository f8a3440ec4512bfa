#include "ui/rules/dialogs/dialog_units.h"

#include <algorithm>

namespace zelvor {

int DialogUnitsToPixelsX(int units) {
    return (units * 5 + 2) / 4;
}

int DialogUnitsToPixelsY(int units) {
    return (units * 13 + 4) / 8;
}

PixelRect DialogRectToPixels(const DialogRect& rect) {
    const int left = DialogUnitsToPixelsX(rect.x);
    const int top = DialogUnitsToPixelsY(rect.y);
    return {left, top, DialogUnitsToPixelsX(rect.x + rect.width),
            DialogUnitsToPixelsY(rect.y + rect.height)};
}

PixelRect TouchRect(const DialogRect& rect) {
    PixelRect pixels = DialogRectToPixels(rect);
    pixels.bottom = std::max(pixels.bottom, pixels.top + kMinTouchHeight);
    return pixels;
}

PixelSize DialogPixelSize(int width, int height, int buttonHeight) {
    const int growth = std::max(0, kMinTouchHeight - DialogUnitsToPixelsY(buttonHeight));
    return {DialogUnitsToPixelsX(width), DialogUnitsToPixelsY(height) + growth};
}

std::u16string CutMessageText(std::u16string_view text) {
    if (text.size() <= kMessageTextLimit)
        return std::u16string(text);
    std::size_t length = kMessageTextLimit;
    const char16_t last = text[length - 1];
    if (last >= 0xD800 && last <= 0xDBFF)
        --length; // its low half would be cut off
    return std::u16string(text.substr(0, length));
}

} // namespace zelvor
