#include "ui/rules/lists/list_rules.h"

#include <algorithm>
#include <optional>

namespace zelvor {

int RowsPerPage(int viewHeight, int rowHeight, bool countPartRow) {
    if (rowHeight <= 0 || viewHeight <= 0)
        return 0;
    const int whole = viewHeight / rowHeight;
    return countPartRow && viewHeight % rowHeight >= kPartRowCounts ? whole + 1 : whole;
}

int OneColumnWidth(int windowWidth, int rowCount, int rowsPerPage, int scrollBarWidth) {
    int width = windowWidth - 2;
    if (rowCount > rowsPerPage)
        width -= scrollBarWidth;
    return std::max(width, 0);
}

int FiveColumnWidth(int clientWidth, int scrollBarWidth) {
    return (clientWidth - scrollBarWidth) / 5;
}

TrackSortChoice HeadingClickSort(int column, TrackSortChoice kept) {
    if (column != kept.key)
        return {column, 1};
    return {column, kept.order == 1 ? 0 : 1};
}

RowRange DragPageRows(int topRow, int rowsPerPage, int rowCount) {
    const int first = std::max(topRow, 0);
    const int last = std::min(first + rowsPerPage, rowCount - 1);
    return {first, last};
}

std::vector<ScrollStep> AutoScrollSteps(int x, int y, int clientWidth, int clientHeight,
                                        bool hasVerticalBar, bool hasHorizontalBar) {
    const bool inside = x >= 0 && x < clientWidth && y >= 0 && y < clientHeight;
    if (inside)
        return {};
    std::vector<ScrollStep> steps;
    std::optional<ScrollStep> vertical;
    if (hasVerticalBar) {
        if (y >= clientHeight)
            vertical = ScrollStep::LineDown;
        else if (y < 0)
            vertical = ScrollStep::LineUp;
        if (vertical)
            steps.push_back(*vertical);
    }
    if (hasHorizontalBar) {
        if (x >= clientWidth)
            steps.push_back(ScrollStep::LineDown);
        else if (x < 0)
            steps.push_back(ScrollStep::LineUp);
        else if (vertical)
            steps.push_back(*vertical);
    }
    return steps;
}

} // namespace zelvor
