#pragma once
// BrowserPane: what the main frame asks of the browser screen. Like the
// player pane it is reached only through this interface; the frame switches
// between the two and tells the browser what changed around it.

#include <string_view>

class QWidget;

namespace zelvor {

class BrowserPane {
public:
    virtual ~BrowserPane() = default;
    virtual QWidget* Widget() = 0;

    // The storage card went away: the rows shown are dropped.
    virtual void DropContents() = 0;
    // The library list changed: what is shown is built again from it.
    virtual void Reload() = 0;
    // The language changed: the texts of the top rows and of the current
    // group row are built again.
    virtual void ReloadTexts() = 0;
    // The orientation or the skin changed: bitmaps reloaded, layout redone.
    virtual void RedoLayout() = 0;
    // A status text shown while the frame updates the library silently
    // ("Searching for files..."); an empty text takes it away.
    virtual void ShowStatusText(std::u16string_view text) = 0;
};

} // namespace zelvor
