#include "ui/widgets/panel/play_list_panel.h"

#include <QMouseEvent>
#include <QPainter>

#include "config/application_values.h"
#include "res/command_ids.h"
#include "res/string_table.h"
#include "ui/widgets/dialogs/about_dialog.h"
#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include "ui/widgets/dialogs/skinned_dialog.h"
#include "ui/widgets/drawing/blit.h"
#include "ui/widgets/drawing/program_icon.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/rules/panel/panel_owner.h"
#include "ui/rules/panel/panel_rules.h"
#include "ui/widgets/player_screen/player_screen_painter.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

QRect ToQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.Width(), r.Height());
}

// The list control's rows as the delete rule walks them.
class ListRows final : public PanelRows {
public:
    explicit ListRows(CTrackListCtrl& list) : m_list(list) {}
    int SelectedCount() const override { return static_cast<int>(m_list.SelectedIndexes().size()); }
    int NextSelected(int after) const override { return m_list.NextSelected(after); }
    void Remove(int index) override { m_list.RemoveTrack(index); }

private:
    CTrackListCtrl& m_list;
};

} // namespace

CPlayListPanel::CPlayListPanel(PanelOwner& owner, QWidget* parent)
    : QWidget(parent), m_owner(owner) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    const PanelLayout& layout = PlayListPanelLayout();
    m_list = new CTrackListCtrl(m_tracks, this);
    m_list->setProperty("controlId", kIdPanelList);
    m_list->setFont(DefaultScreenFonts().text);
    m_list->setGeometry(ToQRect(layout.list));
    m_list->SetUpOneColumn();
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const ImageButtonPlace& place = layout.buttons[i];
        auto* button = new CBitmapButton(place.command, this);
        button->LoadBitmaps(place.normal, place.pressed);
        button->setGeometry(ToQRect(place.rect));
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { OnCommand(button->Command()); });
        m_buttons[i] = button;
    }
    RedoLayout();
}

CPlayListPanel::~CPlayListPanel() {
    // The list borrows m_tracks: it goes first, then the records.
    delete m_list;
    m_list = nullptr;
    m_tracks.RemoveAllTracks(true);
}

void CPlayListPanel::ShowTracks(TrackList tracks) {
    m_list->clearSelection();
    m_tracks = std::move(tracks);
    m_list->Reset();
    m_list->FitColumn(); // the scroll bar comes or goes with the rows
    m_changed = 0;
}

CBitmapButton* CPlayListPanel::Button(int command) {
    for (CBitmapButton* button : m_buttons)
        if (button->Command() == command)
            return button;
    return nullptr;
}

void CPlayListPanel::OnCommand(int command) {
    switch (command) {
    case kCmdHandOn:
        m_owner.HandOn(m_tracks);
        break;
    case kCmdClearList:
        ClearAfterQuestion();
        break;
    case kCmdDeleteSongs:
        DeleteSelected();
        break;
    case kCmdFavourites: // the panel's leave button shares the number
        m_owner.Leave();
        break;
    default:
        break;
    }
}

void CPlayListPanel::ClearAfterQuestion() {
    CMessageDialog question(this);
    question.SetText(LoadAppText(kTextDeleteAllQuestion));
    question.ShowOnlyOk();
    if (question.DoModal() != kIdOk)
        return; // closed any other way: nothing changes
    m_list->RemoveAllTracks(true);
    m_list->FitColumn();
    m_changed = 1;
}

void CPlayListPanel::DeleteSelected() {
    ListRows rows(*m_list);
    if (rows.SelectedCount() < 1)
        return;
    DeleteSelectedRows(rows);
    m_list->FitColumn();
    m_changed = 1;
}

void CPlayListPanel::RedoLayout() {
    m_background = LoadSkinBitmap(SkinResourceHandle(), kBmpPanelBackground);
    m_icon = PaintProgramIcon(kImageButtonSize.width - 5, DialogColoursFromSkin().tintDeep);
    for (CBitmapButton* button : m_buttons)
        button->ReloadBitmaps();
    PlaceChildren();
    update();
}

void CPlayListPanel::PlaceChildren() {
    m_list->setGeometry(ToQRect(PanelListRect({width(), height()})));
    m_list->FitColumn();
}

void CPlayListPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_background.isNull())
        painter.fillRect(rect(), Qt::white);
    else
        DrawBitmap(painter, m_background, 0, 0);
    const QRect about = ToQRect(PanelAboutRect({width(), height()}));
    painter.drawImage(about.center() - m_icon.rect().center(), m_icon);
}

void CPlayListPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PlaceChildren();
}

void CPlayListPanel::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (PanelAboutRect({width(), height()}).Contains(PixelPoint{at.x(), at.y()})) {
        CAboutDialog about(this);
        about.DoModal();
    }
}

} // namespace zelvor
