#pragma once
// CBrowserScreen: the browser pane of the main frame. It owns the
// BrowserController (the rules), the list over the controller's rows (id
// 2003), the five bitmap buttons and a hidden auxiliary child (2006), and
// only translates: the list's messages and the buttons' clicks go to the
// controller; what the controller asks (rows changed, buttons, menus, the
// message box, sounds, playing, the update dialog) is done here with Qt and
// the frame. The background and the total line are painted off-screen and
// copied to the window.
//
// The frame, the library and the sounds are borrowed and must outlive the
// screen; without sounds the screen makes HostSounds of its own. The
// orientation is the program's portrait flag, redone on RedoLayout.
// UI thread only.

#include <QImage>
#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <array>
#include <memory>

#include "library/library_updater.h"
#include "playlists/playlist_operations.h"
#include "ui/rules/browser/browser_controller.h"
#include "ui/rules/browser/browser_view.h"
#include "ui/rules/layout/browser_layout.h"
#include "ui/rules/main_frame/browser_pane.h"
#include "ui/rules/main_frame/player_pane.h"
#include "ui/widgets/drawing/wait_cursor_count.h"

namespace zelvor {

class CBitmapButton;
class CPlaylistListCtrl;
class HostSounds;
class SoundPlayer;

constexpr int kBrowserListId = 2003;
constexpr int kBrowserAuxiliaryId = 2006;

class CBrowserScreen final : public QWidget,
                             public BrowserPane,
                             public BrowserView,
                             public UserFeedback {
    Q_OBJECT
public:
    // builder reads the music files of the update dialog's scan.
    CBrowserScreen(FrameMessages& frame, TrackList& library, RecordBuilder builder,
                   SoundPlayer* sounds = nullptr, QWidget* parent = nullptr);
    ~CBrowserScreen() override;

    BrowserController& Controller() { return m_controller; }
    CPlaylistListCtrl* List() { return m_list; }
    // The button of a command (2004, 2007, 1004, 1005, 2005); null for others.
    CBitmapButton* Button(int command);
    // The popup menu while one is open, else null.
    QMenu* OpenMenu() { return m_menu.data(); }
    // The background and the total line as they would be painted now.
    QImage RenderScreen();

    // BrowserPane.
    QWidget* Widget() override { return this; }
    void DropContents() override { m_controller.DropContents(); }
    void Reload() override { m_controller.Reload(); }
    void ReloadTexts() override { m_controller.ReloadTexts(); }
    void RedoLayout() override;
    void ShowStatusText(std::u16string_view text) override { m_controller.ShowStatusText(text); }

    // BrowserView.
    void RowsChanged() override;
    std::vector<int> SelectedRows() override;
    void SelectRow(int row) override;
    void SortRows(int mode, bool orderFlag) override;
    void StatusChanged() override;
    void ShowButtons(const BrowserButtonsShown& shown) override;
    void ShowMenu(const std::vector<BrowserMenuItem>& items, int x, int y) override;
    bool IsShown() override { return isVisible(); }
    void ShowPlayer() override { m_frame.ShowPlayer(); }
    void PlaySongs(const TrackList& songs, int startIndex) override;
    void RunLibraryUpdate() override;
    void SetWaitCursor(bool on) override;
    void StartRename(int row) override;

    // UserFeedback.
    void Beep() override;
    void PlaySound(std::u16string_view devicePath) override;
    int MessageBox(std::u16string_view text, int type) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void MakeButtons();
    bool OnListMessage(std::uint32_t message, std::uint32_t wParam, std::int32_t lParam,
                       std::int32_t& result);
    QRect StatusRect() const;

    FrameMessages& m_frame;
    TrackList& m_library;
    RecordBuilder m_builder;
    std::unique_ptr<HostSounds> m_ownSounds;
    SoundPlayer* m_sounds;
    BrowserLayout m_layout;
    QImage m_background;
    BrowserController m_controller;
    CPlaylistListCtrl* m_list = nullptr; // children of the screen
    QWidget* m_auxiliary = nullptr;
    std::array<CBitmapButton*, kBrowserButtonCount> m_buttons{};
    QPointer<QMenu> m_menu;
    WaitCursorCount m_waitCursors;
};

} // namespace zelvor
