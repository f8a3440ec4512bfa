// The play list panel as a widget: delete selected, clear after its own
// confirmation, what it hands its owner, its About target and its places.
#include <gtest/gtest.h>

#include <QApplication>
#include <QItemSelectionModel>
#include <QTest>
#include <QTimer>

#include "platform/text.h"
#include "res/command_ids.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "tests/support/qt_app.h"
#include "ui/rules/panel/panel_owner.h"
#include "ui/widgets/panel/play_list_panel.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

// Answers the next modal dialog once it is up: its title, or a message
// box's text, is kept.
void AnswerModal(bool accept, QString* seen) {
    QTimer::singleShot(0, [=] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return AnswerModal(accept, seen);
        auto* message = qobject_cast<CMessageDialog*>(modal);
        *seen = message ? QString::fromStdU16String(message->Text()) : modal->windowTitle();
        accept ? static_cast<QDialog*>(modal)->accept() : static_cast<QDialog*>(modal)->reject();
    });
}

class PanelTest : public ::testing::Test, public PanelOwner {
protected:
    void SetUp() override {
        EnsureQtApplication();
        panel = std::make_unique<CPlayListPanel>(*this, nullptr);
        panel->resize(240, 320);
        TrackList tracks;
        for (int i = 0; i < 7; ++i) {
            tracks.AddTrack(std::make_unique<TrackRecord>());
            tracks.TrackAt(i)->SetField(kFieldPath, FromUtf8("\\" + std::to_string(i)));
        }
        panel->ShowTracks(std::move(tracks));
        panel->show();
    }
    void HandOn(const TrackList& list) override { handedOn = &list; }
    void Leave() override { ++left; }
    void Tap(int command) { QTest::mouseClick(panel->Button(command), Qt::LeftButton); }
    std::string Rows() const {
        std::string names;
        for (const auto& record : panel->Tracks())
            names += ToUtf8(record->Text(kFieldPath)).substr(1);
        return names;
    }

    const TrackList* handedOn = nullptr;
    int left = 0;
    std::unique_ptr<CPlayListPanel> panel;
};

TEST_F(PanelTest, DeleteRemovesTheRowsTheRuleFindsAndHandOnGivesTheEditedList) {
    Tap(kCmdDeleteSongs); // nothing selected: nothing changes
    EXPECT_EQ(panel->Changed(), 0);
    CTrackListCtrl& list = panel->List();
    for (int row : {3, 4})
        list.selectionModel()->select(list.model()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    Tap(kCmdDeleteSongs);
    EXPECT_EQ(Rows(), "012456");
    EXPECT_EQ(std::pair(panel->Changed(), list.model()->rowCount()), std::pair(1, 6));
    Tap(kCmdHandOn);
    EXPECT_EQ(std::pair(handedOn, left), std::pair(&panel->Tracks(), 0));
    Tap(kCmdFavourites);
    EXPECT_EQ(left, 1);
    panel->ShowTracks(TrackList()); // a new list starts unchanged
    EXPECT_EQ(panel->Changed(), 0);
}

TEST_F(PanelTest, OnlyOkOnItsOwnQuestionClearsTheList) {
    for (const bool ok : {false, true}) {
        QString text;
        AnswerModal(ok, &text);
        Tap(kCmdClearList);
        EXPECT_EQ(text, "Do you want to delete all the files from the play list ?");
        EXPECT_EQ(Rows(), ok ? "" : "0123456");
        EXPECT_EQ(panel->Changed(), ok ? 1 : 0);
    }
}

// The places come from the panel's rules; the list follows a turn.
TEST_F(PanelTest, TheIconInTheTitleBarOpensTheAboutBoxAndTheListFitsThePane) {
    QString title;
    QTest::mouseClick(panel.get(), Qt::LeftButton, {}, QPoint(200, 300)); // not the icon
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    AnswerModal(true, &title);
    QTest::mouseClick(panel.get(), Qt::LeftButton, {}, QPoint(240 - 13 - 16, 30));
    EXPECT_EQ(title, "About MP3 Player");
    EXPECT_TRUE(panel->List().isHeaderHidden()); // one column, no heading
    panel->resize(320, 240);
    EXPECT_EQ(panel->List().geometry(), QRect(13, 68, 247, 162));
}

} // namespace
} // namespace zelvor
