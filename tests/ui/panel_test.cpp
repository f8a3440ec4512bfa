// The play list panel as a widget: clear after its own confirmation, its
// About target and its places. Deleting and handing on are driven through
// the frame, with the delete rule's cases in the panel's rule tests.
#include <gtest/gtest.h>

#include <QApplication>
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
    // What the panel hands its owner is checked in the frame.
    void HandOn(const TrackList&) override {}
    void Leave() override {}
    std::string Rows() const {
        std::string names;
        for (const auto& record : panel->Tracks())
            names += ToUtf8(record->Text(kFieldPath)).substr(1);
        return names;
    }

    std::unique_ptr<CPlayListPanel> panel;
};

TEST_F(PanelTest, OnlyOkOnItsOwnQuestionClearsTheList) {
    for (const bool ok : {false, true}) {
        QString text;
        AnswerModal(ok, &text);
        QTest::mouseClick(panel->Button(kCmdClearList), Qt::LeftButton);
        EXPECT_EQ(text, "Do you want to delete all the files from the play list ?");
        EXPECT_EQ(Rows(), ok ? "" : "0123456");
        EXPECT_EQ(panel->Changed(), ok ? 1 : 0);
    }
    panel->ShowTracks(TrackList()); // a new list starts unchanged
    EXPECT_EQ(panel->Changed(), 0);
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
