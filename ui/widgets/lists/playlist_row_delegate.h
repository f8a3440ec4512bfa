#pragma once
// How a playlist list paints a row, entirely by itself: the background by
// row parity and selection, the entry's text cut with "..." to fit, single
// line and vertically centred, and the focus rectangle. Also the editor of
// an in-place rename.

#include <QColor>
#include <QStyledItemDelegate>

class QAbstractItemView;

namespace zelvor {

// Odd unselected rows: pale cyan (the list's own 0xFFFFB4 as 0x00BBGGRR).
inline const QColor kOddRowColour{0xB4, 0xFF, 0xFF};
// The label starts this far into the row; the background is filled from 2
// pixels left of it and the text starts 2 pixels right of that.
constexpr int kLabelInset = 2;
constexpr int kLabelShift = 2;

class PlaylistRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    // The view whose focus decides the selected colours; it owns the delegate.
    explicit PlaylistRowDelegate(QAbstractItemView& view);

    // Width of the one column (pixels) and height of every row.
    void SetColumnWidth(int width) { m_columnWidth = width; }
    int ColumnWidth() const { return m_columnWidth; }
    int RowHeight() const;
    // Where a row's text goes.
    static QRect TextRect(const QRect& rowRect);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    QAbstractItemView& m_view;
    int m_columnWidth = 0;
};

} // namespace zelvor
