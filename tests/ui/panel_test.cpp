// The play list panel as a widget: delete selected, clear after its own
// confirmation, what it hands its owner, its About target and its places.
#include <gtest/gtest.h>

#include <QApplication>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "platform/text.h"
#include "res/command_ids.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "tests/ui/main_frame_app.h"
#include "ui/rules/panel/panel_owner.h"
#include "ui/widgets/panel/play_list_panel.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

struct RecordingOwner final : PanelOwner {
    void HandOn(const TrackList& list) override { handedOn = &list; }
    void Leave() override { ++left; }
    const TrackList* handedOn = nullptr;
    int left = 0;
};

// Answers the next modal dialog once it is up; what it was is kept.
void AnswerModal(bool accept, QString* title = nullptr, QString* text = nullptr) {
    QTimer::singleShot(0, [=] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return AnswerModal(accept, title, text);
        if (title)
            *title = modal->windowTitle();
        if (text)
            if (auto* message = qobject_cast<CMessageDialog*>(modal))
                *text = QString::fromStdU16String(message->Text());
        auto* dialog = qobject_cast<QDialog*>(modal);
        accept ? dialog->accept() : dialog->reject();
    });
}

class PanelTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureWidgetApplication();
        panel = std::make_unique<CPlayListPanel>(owner, nullptr);
        panel->resize(240, 320);
        TrackList tracks;
        for (int i = 0; i < 7; ++i) {
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, FromUtf8("\\Storage Card\\" + std::to_string(i) + ".mp3"));
            tracks.AddTrack(std::move(record));
        }
        panel->ShowTracks(std::move(tracks));
        panel->show();
    }
    void Select(const std::vector<int>& rows) {
        CTrackListCtrl& list = panel->List();
        for (int row : rows)
            list.selectionModel()->select(list.model()->index(row, 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    void Tap(int command) { QTest::mouseClick(panel->Button(command), Qt::LeftButton); }
    std::string Rows() const {
        std::string names;
        for (const auto& record : panel->Tracks())
            names += ToUtf8(record->Text(kFieldPath)).substr(14, 1);
        return names;
    }

    RecordingOwner owner;
    std::unique_ptr<CPlayListPanel> panel;
};

struct DeleteCase {
    const char* name;
    std::vector<int> selected;
    std::string left;
    int changed;
};

class PanelDelete : public PanelTest, public ::testing::WithParamInterface<DeleteCase> {};

TEST_P(PanelDelete, RemovesTheRowsTheRuleFindsAndMarksTheListChanged) {
    Select(GetParam().selected);
    Tap(kCmdDeleteSongs);
    EXPECT_EQ(Rows(), GetParam().left);
    EXPECT_EQ(panel->Changed(), GetParam().changed);
    EXPECT_EQ(panel->List().model()->rowCount(), static_cast<int>(GetParam().left.size()));
}

INSTANTIATE_TEST_SUITE_P(Cases, PanelDelete,
                         ::testing::Values(DeleteCase{"RowsThreeAndFour", {3, 4}, "012456", 1},
                                           DeleteCase{"RowsTwoAndFive", {2, 5}, "01346", 1},
                                           DeleteCase{"NoSelection", {}, "0123456", 0}),
                         [](const auto& info) { return std::string(info.param.name); });

class PanelClear : public PanelTest, public ::testing::WithParamInterface<bool> {};

TEST_P(PanelClear, OnlyOkOnItsOwnQuestionEmptiesTheList) {
    const bool ok = GetParam();
    QString text;
    AnswerModal(ok, nullptr, &text);
    Tap(kCmdClearList);
    EXPECT_EQ(text, "Do you want to delete all the files from the play list ?");
    EXPECT_EQ(Rows(), ok ? "" : "0123456");
    EXPECT_EQ(panel->Changed(), ok ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Answers, PanelClear, ::testing::Values(true, false),
                         [](const auto& info) { return info.param ? "Ok" : "ClosedOtherwise"; });

TEST_F(PanelTest, HandOnGivesTheEditedListAndLeaveGivesControlBack) {
    Select({0});
    Tap(kCmdDeleteSongs);
    Tap(kCmdHandOn);
    ASSERT_EQ(owner.handedOn, &panel->Tracks());
    EXPECT_EQ(owner.handedOn->Count(), 6);
    EXPECT_EQ(owner.left, 0);
    Tap(kCmdFavourites);
    EXPECT_EQ(owner.left, 1);
    // A new list starts unchanged.
    panel->ShowTracks(TrackList());
    EXPECT_EQ(panel->Changed(), 0);
}

TEST_F(PanelTest, TheIconInTheTitleBarOpensTheAboutBox) {
    QString title;
    AnswerModal(true, &title);
    QTest::mouseClick(panel.get(), Qt::LeftButton, {}, QPoint(240 - 13 - 16, 30));
    EXPECT_EQ(title, "About MP3 Player");
    title.clear();
    QTest::mouseClick(panel.get(), Qt::LeftButton, {}, QPoint(200, 300)); // not the icon
    SpinEvents(20);
    EXPECT_TRUE(title.isEmpty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PanelTest, TheListFitsThePaneInBothOrientations) {
    EXPECT_EQ(panel->List().geometry(), QRect(13, 68, 227, 162));
    panel->resize(320, 240);
    EXPECT_EQ(panel->List().geometry(), QRect(13, 68, 247, 162));
    EXPECT_EQ(panel->Button(kCmdHandOn)->geometry(), QRect(13, 14, 33, 37));
    // More rows than a page: the column leaves room for the scroll bar.
    TrackList many;
    for (int i = 0; i < 30; ++i)
        many.AddTrack(std::make_unique<TrackRecord>());
    panel->ShowTracks(std::move(many));
    SpinEvents(20);
    EXPECT_LE(panel->List().columnWidth(0), panel->List().viewport()->width());
    panel->grab().save(QString::fromStdString((ArtifactDir() / "panel-landscape.png").string()));
}

} // namespace
} // namespace zelvor
