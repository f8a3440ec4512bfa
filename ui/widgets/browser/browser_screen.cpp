#include "ui/widgets/browser/browser_screen.h"

#include <QGuiApplication>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "config/application_values.h"
#include "config/settings.h"
#include "res/window_messages.h"
#include "library/library_replacement.h"
#include "host/host_sounds.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include "ui/widgets/dialogs/update_lib_dlg.h"
#include "ui/widgets/drawing/text_fit.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/playlist_list_ctrl.h"
#include "ui/widgets/main_frame/window_message_event.h"
#include "ui/widgets/player_screen/player_screen_painter.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

const QColor kStatusColour(0x20, 0x20, 0x20);
// Where the hidden auxiliary child was always made.
const QRect kAuxiliaryRect(10, 10, 200, 200);

QRect ToQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.Width(), r.Height());
}

ScreenOrientation CurrentOrientation() {
    return AppValues().portrait ? ScreenOrientation::Portrait : ScreenOrientation::Landscape;
}

} // namespace

CBrowserScreen::CBrowserScreen(FrameMessages& frame, TrackList& library, RecordBuilder builder,
                               SoundPlayer* sounds, QWidget* parent)
    : QWidget(parent),
      m_frame(frame),
      m_library(library),
      m_builder(std::move(builder)),
      m_ownSounds(sounds ? nullptr : std::make_unique<HostSounds>()),
      m_sounds(sounds ? sounds : m_ownSounds.get()),
      m_controller(*this, *this, library) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_list = new CPlaylistListCtrl(m_controller.Rows(), this);
    m_list->setProperty("controlId", kBrowserListId);
    // Keys reach the list: arrows move, Enter chooses (Escape is the frame's).
    setFocusProxy(m_list);
    m_auxiliary = new QWidget(this);
    m_auxiliary->setProperty("controlId", kBrowserAuxiliaryId);
    m_auxiliary->setGeometry(kAuxiliaryRect);
    m_auxiliary->hide();
    MakeButtons();
    RedoLayout();
    // The frame keeps the pane the size of the device screen; alone it
    // starts at the layout's size.
    resize(m_layout.screen.width, m_layout.screen.height);
    m_controller.ShowTopList();
}

CBrowserScreen::~CBrowserScreen() = default;

void CBrowserScreen::MakeButtons() {
    const BrowserLayout layout = BrowserLayoutFor(CurrentOrientation());
    for (int i = 0; i < kBrowserButtonCount; ++i) {
        const ImageButtonPlace& place = layout.buttons[static_cast<size_t>(i)];
        auto* button = new CBitmapButton(place.command, this);
        button->setProperty("controlId", place.command);
        button->setFocusPolicy(Qt::NoFocus); // the list keeps the keys
        button->LoadBitmaps(place.normal, place.pressed);
        const int command = place.command;
        connect(button, &QAbstractButton::clicked, this,
                [this, command] { m_controller.OnCommand(command); });
        m_buttons[static_cast<size_t>(i)] = button;
    }
}

CBitmapButton* CBrowserScreen::Button(int command) {
    for (CBitmapButton* button : m_buttons)
        if (button->Command() == command)
            return button;
    return nullptr;
}

void CBrowserScreen::RedoLayout() {
    m_layout = BrowserLayoutFor(CurrentOrientation());
    m_background = LoadSkinBitmap(SkinResourceHandle(), m_layout.background);
    for (int i = 0; i < kBrowserButtonCount; ++i) {
        CBitmapButton* button = m_buttons[static_cast<size_t>(i)];
        button->ReloadBitmaps();
        button->setGeometry(ToQRect(m_layout.buttons[static_cast<size_t>(i)].rect));
    }
    m_list->setGeometry(ToQRect(m_layout.list));
    m_list->SetUp();
    update();
}

QRect CBrowserScreen::StatusRect() const {
    return ToQRect(m_layout.status);
}

QImage CBrowserScreen::RenderScreen() {
    QImage image(m_layout.screen.width, m_layout.screen.height, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    if (!m_background.isNull())
        painter.drawImage(0, 0, m_background);
    // The total line: transparent over the background, one line, centred
    // vertically, cut with "..." rather than overflowing the list's width.
    const QFont font = DefaultScreenFonts().text;
    painter.setFont(font);
    painter.setPen(kStatusColour);
    const QRect status = StatusRect();
    const QString text = FitTextToWidth(QString::fromStdU16String(m_controller.StatusLine()),
                                        QFontMetrics(font), status.width());
    painter.drawText(status, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    return image;
}

void CBrowserScreen::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawImage(0, 0, RenderScreen());
}

bool CBrowserScreen::event(QEvent* event) {
    if (event->type() != WindowMessageEvent::EventType())
        return QWidget::event(event);
    auto* message = static_cast<WindowMessageEvent*>(event);
    const WindowMessage& m = message->Message();
    std::int32_t result = 0;
    OnListMessage(m.message, m.wParam, m.lParam, result);
    message->SetResult(result);
    return true;
}

bool CBrowserScreen::OnListMessage(std::uint32_t message, std::uint32_t wParam,
                                   std::int32_t lParam, std::int32_t& result) {
    const int row = static_cast<int>(wParam);
    switch (message) {
    case kMsgListClick:
        m_controller.OnListClick(row, lParam);
        return true;
    case kMsgListDoubleClick:
        m_controller.OnDoubleClick(row);
        return true;
    case kMsgListColumnClick:
        m_controller.OnColumnClick(row);
        return true;
    case kMsgListContextMenu:
        m_controller.OnContextMenu(lParam);
        return true;
    case kMsgListEndRename: {
        const QString text = m_list->EditedText();
        // A cancelled edit (a null text) renames nothing.
        result = !text.isNull() && m_controller.OnEndRename(row, text.toStdU16String()) ? 1 : 0;
        return true;
    }
    default:
        return false; // the arrows' own messages: the list has moved already
    }
}

void CBrowserScreen::RowsChanged() {
    m_list->Reset();
    m_list->ClearSelection();
    m_list->scrollToTop();
    update(StatusRect());
}

std::vector<int> CBrowserScreen::SelectedRows() {
    return m_list->SelectedIndexes();
}

void CBrowserScreen::SelectRow(int row) {
    m_list->SelectOnly(row);
    if (row >= 0)
        m_list->EnsureVisible(row);
}

void CBrowserScreen::SortRows(int mode, bool orderFlag) {
    m_list->SetSortMode(mode, orderFlag);
    m_list->SortRows();
}

void CBrowserScreen::StatusChanged() {
    // At once: the silent update that sets a status keeps the thread busy.
    if (isVisible())
        repaint(StatusRect());
    else
        update(StatusRect());
}

void CBrowserScreen::ShowButtons(const BrowserButtonsShown& shown) {
    m_buttons[kBrowserDeleteFavourite]->setVisible(shown.deleteSongs);
    m_buttons[kBrowserFavourites]->setVisible(shown.addToFavourites);
    m_buttons[kBrowserPlay]->setVisible(shown.play);
}

void CBrowserScreen::ShowMenu(const std::vector<BrowserMenuItem>& items, int x, int y) {
    if (m_menu)
        m_menu->close();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const BrowserMenuItem& item : items) {
        if (item.separator) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QString::fromStdU16String(item.text));
        action->setEnabled(item.enabled);
        action->setData(item.command);
    }
    // Not modal: the chosen entry arrives as a command like a button's.
    connect(menu, &QMenu::triggered, this,
            [this](QAction* action) { m_controller.OnCommand(action->data().toInt()); });
    const CBitmapButton* under = m_buttons[kBrowserFavourites];
    QPoint at = x == -1 && y == -1 ? under->mapToGlobal(QPoint(0, under->height())) : QPoint(x, y);
    // Kept inside the device screen (the frame), which may be a window on a
    // larger desktop that would let the menu hang over its edge.
    const QRect screen(window()->mapToGlobal(QPoint()), window()->size());
    const QSize size = menu->sizeHint();
    at.setX(std::max(screen.left(), std::min(at.x(), screen.right() + 1 - size.width())));
    at.setY(std::max(screen.top(), std::min(at.y(), screen.bottom() + 1 - size.height())));
    m_menu = menu;
    menu->popup(at);
}

void CBrowserScreen::PlaySongs(const TrackList& songs, int startIndex) {
    m_frame.PlayFromBrowser(songs, startIndex);
}

void CBrowserScreen::RunLibraryUpdate() {
    CUpdateLibDlg dialog(this, m_builder);
    dialog.SetRoot(u"\\");
    dialog.SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
    dialog.DoModal();
    // However the dialog ended, its results are the library now; the
    // frame's end of an update then fills an empty queue and reloads this
    // screen from the new library.
    ReplaceLibraryAfterUpdate(m_library, dialog.Results());
    m_frame.PostToFrame({kMsgUpdateFinished, 1, 0});
}

void CBrowserScreen::SetWaitCursor(bool on) {
    m_waitCursors.Set(on);
}

void CBrowserScreen::StartRename(int row) {
    m_list->EnsureVisible(row);
    m_list->EditLabel(row);
}

void CBrowserScreen::Beep() {
    m_sounds->MessageBeep();
}

void CBrowserScreen::PlaySound(std::u16string_view devicePath) {
    m_sounds->PlaySound(devicePath);
}

int CBrowserScreen::MessageBox(std::u16string_view text, int type) {
    CMessageDialog dialog(this);
    dialog.SetText(text);
    dialog.SetType(type);
    return dialog.DoModal();
}

} // namespace zelvor
