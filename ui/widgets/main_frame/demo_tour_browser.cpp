// The browser's part of the demonstration tour: everything by taps on the
// browser's list rows, its buttons and its menu, and on the player's
// Library button.
#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include "config/application_values.h"
#include "playback/player_button_ids.h"
#include "res/command_ids.h"
#include "res/string_table.h"
#include "ui/widgets/browser/browser_screen.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/playlist_list_ctrl.h"
#include "ui/widgets/main_frame/demo_tour.h"
#include "ui/widgets/main_frame/main_frame.h"

namespace zelvor {
namespace {

constexpr int kArtistsRow = 1;
constexpr int kSecondFavourites = kFirstFavouritesRow + 1;

void Send(QWidget* widget, QEvent::Type type, QPoint point, Qt::MouseButtons held) {
    QMouseEvent event(type, point, widget->mapToGlobal(point), Qt::LeftButton, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// A tap, or a double tap, of the stylus at a point of the widget.
void Tap(QWidget* widget, QPoint point, bool twice = false) {
    Send(widget, QEvent::MouseButtonPress, point, Qt::LeftButton);
    Send(widget, QEvent::MouseButtonRelease, point, Qt::NoButton);
    if (!twice)
        return;
    Send(widget, QEvent::MouseButtonDblClick, point, Qt::LeftButton);
    Send(widget, QEvent::MouseButtonRelease, point, Qt::NoButton);
}

CBrowserScreen* BrowserOf(CMainFrame& frame) {
    return dynamic_cast<CBrowserScreen*>(frame.BrowserScreen());
}

// The first artist with a name: after "All" and "Unknown".
int FirstNamedGroupRow(CMainFrame& frame) {
    CBrowserScreen* browser = BrowserOf(frame);
    if (!browser)
        return -1;
    const PlaylistEntryList& rows = browser->Controller().Rows();
    const std::u16string unknown(LoadAppText(kTextUnknown));
    for (int row = 1; row < rows.Count(); ++row)
        if (rows.At(row)->Text(1) != unknown)
            return row;
    return 1;
}

bool DialogOpen() {
    return QApplication::activeModalWidget() != nullptr;
}

} // namespace

void DemoTour::AddBrowserSteps() {
    if (!BrowserOf(m_frame))
        return;
    const std::vector<Step> steps{
        {"browser", [this] { TapButton(kButtonLibrary); }, 700},
        {"artists", [this] { TapRow(kArtistsRow); }, 700},
        {"artist", [this] { TapRow(FirstNamedGroupRow(m_frame)); }, 700},
        {"play-artist", [this] { TapRow(0, true); }, 2000},
        {"browser-again", [this] { TapButton(kButtonLibrary); }, 700},
        {"favourites-menu", [this] { TapRow(0); ClickBrowserButton(kCmdFavourites); }, 700},
        {"added-to-favourites", [this] { ChooseMenuEntry(kCmdAddToFavouritesFirst + 1); }, 700},
        {"top-list", [this] { ClickBrowserButton(kCmdUp); ClickBrowserButton(kCmdUp); }, 700},
        {"my-favourites-2", [this] { TapRow(kSecondFavourites); }, 700},
        {"play-favourites", [this] { TapRow(0, true); }, 2000},
        // The dialog runs in its own loop: the tap comes from the event loop
        // and the picture is taken while the dialog is up.
        {"update-dialog",
         [this] {
             TapButton(kButtonLibrary);
             QTimer::singleShot(0, this, [this] { ClickBrowserButton(kCmdUpdateLibrary); });
         },
         600, DialogOpen},
        {"updated", [] {}, 700, [] { return !DialogOpen(); }},
        {"back-to-player", [this] { UpToPlayer(); }, 700},
    };
    m_steps.insert(m_steps.end(), steps.begin(), steps.end());
}

void DemoTour::TapRow(int row, bool twice) {
    CBrowserScreen* browser = BrowserOf(m_frame);
    if (!browser)
        return;
    CPlaylistListCtrl* list = browser->List();
    const QModelIndex index = list->model()->index(row, 0);
    if (!index.isValid())
        return;
    list->scrollTo(index);
    Tap(list->viewport(), list->visualRect(index).center(), twice);
}

void DemoTour::ClickBrowserButton(int command) {
    CBrowserScreen* browser = BrowserOf(m_frame);
    CBitmapButton* button = browser ? browser->Button(command) : nullptr;
    if (button && button->isVisible())
        Tap(button, button->rect().center());
}

void DemoTour::ChooseMenuEntry(int command) {
    CBrowserScreen* browser = BrowserOf(m_frame);
    QMenu* menu = browser ? browser->OpenMenu() : nullptr;
    if (!menu)
        return;
    for (QAction* action : menu->actions())
        if (action->data().toInt() == command && !action->isSeparator())
            Tap(menu, menu->actionGeometry(action).center());
}

void DemoTour::UpToPlayer() {
    CBrowserScreen* browser = BrowserOf(m_frame);
    if (!browser)
        return;
    for (int up = browser->Controller().Level(); up >= 0; --up)
        ClickBrowserButton(kCmdUp);
}

} // namespace zelvor
