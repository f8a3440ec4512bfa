#pragma once
// The arithmetic of the list controls, without a toolkit: column widths, the
// heading-click sort rule, the rows a drag rectangle is tested against, and
// the scroll steps of a drag that leaves the list. All sizes are pixels;
// rows are 0-based indexes.

#include <vector>

namespace zelvor {

// Rows that fit on a page of `viewHeight` pixels, counting a last row that
// shows at least kPartRowCounts pixels.
constexpr int kPartRowCounts = 6;
int RowsPerPage(int viewHeight, int rowHeight, bool countPartRow);

// The one column of a list: the window's width less the 1-pixel border on
// each side, and less a vertical scroll bar's width when there are more rows
// than fit on a page. Never negative.
int OneColumnWidth(int windowWidth, int rowCount, int rowsPerPage, int scrollBarWidth);

// Each of five columns: (client width - scroll bar) / 5, truncated toward
// zero as a signed division is.
int FiveColumnWidth(int clientWidth, int scrollBarWidth);

// The kept sort key and order after a click on a column heading: another
// column becomes the key with order 1 (A to Z); the same column flips the
// order between 1 and 0. The column number is the TrackRecord field number.
struct TrackSortChoice {
    int key = -1;
    int order = 1;
    friend bool operator==(const TrackSortChoice&, const TrackSortChoice&) = default;
};
TrackSortChoice HeadingClickSort(int column, TrackSortChoice kept);

// The rows a drag rectangle is tested against: from the top visible row to
// top + rows per page (so a partly shown row below the page counts too),
// cut to the rows there are. Empty (first > last) when there are none.
struct RowRange {
    int first = 0;
    int last = -1;
    friend bool operator==(const RowRange&, const RowRange&) = default;
};
RowRange DragPageRows(int topRow, int rowsPerPage, int rowCount);

// Scroll steps sent while a drag is outside the client area (width x height,
// point in client coordinates). With a vertical scroll bar: below the bottom
// one line down, above the top one line up. Then, with a horizontal scroll
// bar: right of the area one line DOWN, left of it one line UP, and within
// the width the vertical step just sent once more. Horizontal overflow thus
// scrolls the rows, deliberately: the list is a column of rows, and a stylus
// that wanders sideways still means "more rows".
enum class ScrollStep { LineUp, LineDown };
std::vector<ScrollStep> AutoScrollSteps(int x, int y, int clientWidth, int clientHeight,
                                        bool hasVerticalBar, bool hasHorizontalBar);

} // namespace zelvor
