#pragma once
// The play list panel's rules that need no window: how "delete selected"
// walks the selection, and where the list and the About target go on a pane
// of either orientation. Pixels throughout.

#include "ui/rules/layout/pixel_geometry.h"

namespace zelvor {

// The rows of the panel's list as DeleteSelectedRows sees them. Indexes are
// 0-based rows of the list as it stands at the moment of the call.
class PanelRows {
public:
    virtual ~PanelRows() = default;
    virtual int SelectedCount() const = 0;
    // The first selected row with an index greater than after, or -1.
    virtual int NextSelected(int after) const = 0;
    // Removes the row and destroys its record; the rows below move up one.
    virtual void Remove(int index) = 0;
};

// Delete selected: as many searches as rows were selected, each starting
// after the index the previous search returned (-1 at first), each removing
// the row it finds. A row that moves up into the place just emptied is
// skipped, so of two adjacent selected rows only the first goes; a search
// that finds nothing returns -1, so the next one starts from the top again.
// The panel has always deleted this way and users' habits rely on it.
// Returns the number of rows removed (0 when none was selected).
int DeleteSelectedRows(PanelRows& rows);

// The list's rectangle on a pane: the panel's own rectangle, cut at the
// pane's right and bottom edges. A portrait pane (240 wide) cuts 20 pixels
// off the right, so the scroll bar stays on screen at the pane's edge.
PixelRect PanelListRect(PixelSize pane);

// The tap target that opens the About box: the program's icon at the right
// end of the panel's title bar, clear of the four buttons in both
// orientations.
PixelRect PanelAboutRect(PixelSize pane);

} // namespace zelvor
