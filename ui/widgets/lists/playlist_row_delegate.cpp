#include "ui/widgets/lists/playlist_row_delegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include "ui/widgets/drawing/text_fit.h"

namespace zelvor {

PlaylistRowDelegate::PlaylistRowDelegate(QAbstractItemView& view)
    : QStyledItemDelegate(&view), m_view(view) {}

int PlaylistRowDelegate::RowHeight() const { return m_view.fontMetrics().height() + 4; }

QRect PlaylistRowDelegate::TextRect(const QRect& rowRect) {
    // The label moved left and its text moved right again: the label itself.
    return rowRect.adjusted(kLabelInset, 0, 0, 0);
}

void PlaylistRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const QPalette& palette = option.palette;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const bool listFocused = m_view.hasFocus();
    QColor background = index.row() % 2 == 0 ? QColor(Qt::white) : kOddRowColour;
    QColor text = palette.color(QPalette::ButtonText);
    if (selected && listFocused) {
        background = palette.color(QPalette::Highlight);
        text = palette.color(QPalette::HighlightedText);
    } else if (selected) {
        background = palette.color(QPalette::Button);
    }
    const QRect label = option.rect.adjusted(kLabelInset, 0, 0, 0);
    const QRect filled = label.adjusted(-kLabelShift, 0, 0, 0);
    painter->save();
    painter->fillRect(filled, background);
    const QString entryText = index.data(Qt::DisplayRole).toString();
    if (!entryText.isEmpty()) {
        const QRect textRect = filled.adjusted(kLabelShift, 0, 0, 0);
        painter->setPen(text);
        painter->setFont(option.font);
        painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          FitTextToWidth(entryText, option.fontMetrics, textRect.width()));
    }
    if (listFocused && (option.state & QStyle::State_HasFocus) != 0) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = filled;
        focus.backgroundColor = background;
        m_view.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, &m_view);
    }
    painter->restore();
}

QSize PlaylistRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {m_columnWidth, RowHeight()};
}

void PlaylistRowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex&) const {
    editor->setGeometry(TextRect(option.rect));
}

} // namespace zelvor
