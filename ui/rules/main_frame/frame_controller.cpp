#include "ui/rules/main_frame/frame_controller.h"

#include "config/application_values.h"
#include "config/settings.h"
#include "ui/rules/main_frame/browser_pane.h"
#include "ui/rules/main_frame/wait_cursor.h"
#include "ui/rules/main_frame/player_pane.h"

namespace zelvor {
namespace {

const EndpointAddress kShell{EndpointKind::Title, kTitleShell};
const EndpointAddress kDeviceLock{EndpointKind::Title, kTitleDeviceLock};

} // namespace

FrameController::FrameController(FrameWindow& window, OutsideWindows& outside,
                                 RecordBuilder builder)
    : m_window(window), m_outside(outside), m_library(window, std::move(builder)) {}

std::int32_t FrameController::Handle(const WindowMessage& message) {
    switch (message.message) {
    case kMsgRequestClose:
    case kMsgShellClose:
        m_window.PostToSelf({kMsgClose, 0, 0});
        return 0;
    case kMsgBackKey:
        OnBackKey();
        return 0;
    case kMsgStorageCard:
        OnStorageCard(message.wParam != 0);
        return 0;
    case kMsgLanguageChanged:
        OnLanguageChanged();
        return 0;
    case kMsgColourChanged:
        OnColourChanged();
        return 0;
    case kMsgStartupCheck:
        m_library.CheckAtStartup();
        ShellQuery();
        return 0;
    case kMsgUpdateLibrary:
        m_library.UpdateSilently(message.wParam, message.lParam);
        return 0;
    case kMsgUpdateFinished:
        OnUpdateFinished(message.wParam != 0, message.lParam >= 1);
        return 0;
    case kMsgShellStatus:
        return OnShellStatus(message.lParam);
    case kMsgShellToPlayer:
        if (PlayerPane* player = m_window.Player())
            player->OnShellPlayerMessage();
        return 0;
    case kMsgSize:
        OnSize(message.lParam);
        return 0;
    case kMsgActivate:
        OnActivate(message.wParam);
        return 0;
    case kMsgSetFocus:
        OnSetFocus();
        return 0;
    case kMsgHostRaise:
        m_window.PlaceFullScreen(m_window.ScreenWidth(), m_window.ScreenHeight());
        m_window.BringToFront();
        return 0;
    default:
        return 0;
    }
}

void FrameController::OnCreate() {
    m_window.PlaceFullScreen(m_window.ScreenWidth(), m_window.ScreenHeight());
    m_window.ShowPlayerPane();
}

void FrameController::ShellQuery() {
    if (!m_outside.Exists(kShell))
        return;
    const std::int32_t answer = m_outside.Send(kShell, {kMsgQueryShellStatus, 0, 0}).value_or(0);
    if (answer == 0)
        return;
    TellDeviceLock(kDeviceLockShellAnswer);
    if (m_window.PlayerVisible())
        if (PlayerPane* player = m_window.Player())
            player->SetShellStatus(answer);
}

void FrameController::OnBackKey() {
    if (m_window.PanelVisible())
        m_window.ClosePanel();
    else if (!m_window.BrowserVisible())
        m_window.PostToSelf({kMsgClose, 0, 0});
    else
        m_window.ShowPlayerPane(); // the browser's way back to the player
}

void FrameController::OnStorageCard(bool inserted) {
    PlayerPane* player = m_window.Player();
    if (!inserted) {
        {
            WaitCursor wait(m_window);
            if (player)
                player->ReleaseCurrentTrack();
            if (BrowserPane* browser = m_window.Browser())
                browser->DropContents();
        }
        TellDeviceLockIfBrowserShows();
        return;
    }
    // The shell reports the card before its folder is there; a card that
    // never shows up is taken as inserted all the same (the update then
    // finds nothing on it).
    for (int poll = 0; poll < kCardPolls; ++poll) {
        m_window.Sleep(kCardPollMs);
        std::u16string root = GetStorageCardRoot();
        if (PathExists(root))
            break;
    }
    if (player)
        player->Resume();
    m_window.PostToSelf({kMsgUpdateLibrary, kUpdateAfterCardInsertion, 0});
}

void FrameController::OnLanguageChanged() {
    const std::int16_t before = AppValues().language;
    const std::int16_t now = ReadLanguage();
    AppValues().language = now;
    if (before == kLanguageWithOwnTextLayout || now == kLanguageWithOwnTextLayout)
        if (PlayerPane* player = m_window.Player())
            player->RedoTextLayout();
    if (BrowserPane* browser = m_window.Browser())
        browser->ReloadTexts();
}

void FrameController::OnColourChanged() {
    AppValues().guiColor = ReadGuiColor();
    m_window.ReloadSkin(AppValues().guiColor);
    if (PlayerPane* player = m_window.Player())
        player->RedoLayout();
    if (BrowserPane* browser = m_window.Browser())
        browser->RedoLayout();
    m_window.RedoPanelLayout();
}

void FrameController::OnSize(std::int32_t packedSize) {
    (void)packedSize; // the flag follows the screen, as the device's does
    const std::uint8_t portrait = PortraitFlag(m_window.ScreenWidth(), m_window.ScreenHeight());
    if (portrait == AppValues().portrait)
        return;
    AppValues().portrait = portrait;
    if (PlayerPane* player = m_window.Player())
        player->RedoLayout();
    if (BrowserPane* browser = m_window.Browser())
        browser->RedoLayout();
    m_window.RedoPanelLayout();
}

void FrameController::OnActivate(std::uint32_t state) {
    const bool minimised = (state & kActivateMinimisedFlag) != 0;
    if ((state & 0xFFFF) != kActivateActive || minimised)
        return;
    OnSetFocus();
    ShellQuery();
}

void FrameController::OnSetFocus() {
    if (m_window.Browser() && m_window.BrowserVisible())
        m_window.FocusBrowser();
    else if (m_window.Player())
        m_window.FocusPlayer();
}

std::int32_t FrameController::OnShellStatus(std::int32_t value) {
    PlayerPane* player = m_window.Player();
    if (!player || !m_window.PlayerVisible())
        return 0;
    player->SetShellStatus(value);
    return 1;
}

void FrameController::OnUpdateFinished(bool changed, bool refill) {
    m_library.FinishUpdate(changed, refill);
    TellDeviceLockIfBrowserShows();
}

void FrameController::TellDeviceLock(std::int32_t value) {
    if (m_outside.Exists(kDeviceLock))
        m_outside.Send(kDeviceLock, {kMsgShellStatus, 0, value});
}

void FrameController::TellDeviceLockIfBrowserShows() {
    if (m_window.BrowserVisible())
        TellDeviceLock(kDeviceLockBrowserDone);
}

} // namespace zelvor
