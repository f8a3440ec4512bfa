#include "ui/rules/panel/panel_rules.h"

#include <algorithm>

#include "ui/rules/layout/browser_layout.h"

namespace zelvor {

int DeleteSelectedRows(PanelRows& rows) {
    const int count = rows.SelectedCount();
    int removed = 0;
    int found = -1;
    for (int i = 0; i < count; ++i) {
        found = rows.NextSelected(found);
        if (found < 0)
            continue;
        rows.Remove(found);
        ++removed;
    }
    return removed;
}

PixelRect PanelListRect(PixelSize pane) {
    PixelRect list = PlayListPanelLayout().list;
    list.right = std::min(list.right, pane.width);
    list.bottom = std::min(list.bottom, pane.height);
    return list;
}

PixelRect PanelAboutRect(PixelSize pane) {
    // As large as an image button and as far from the edge as the first one.
    const PanelLayout& layout = PlayListPanelLayout();
    const PixelRect first = layout.buttons[0].rect;
    const int margin = first.left;
    return PixelRect::At({pane.width - margin - kImageButtonSize.width, first.top},
                         kImageButtonSize);
}

} // namespace zelvor
