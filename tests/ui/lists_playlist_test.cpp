// The playlist list control: what it tells its parent of the stylus and the
// keys (its rename and context request are driven by the browser's tests);
// the track list control: its model, texts by column, headings and sorting.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QTest>

#include "res/window_messages.h"
#include "tests/ui/lists_sink.h"
#include "ui/widgets/lists/list_notify.h"
#include "ui/widgets/lists/playlist_list_ctrl.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include <QFont>
#include <QFontMetrics>
#include "res/bitmap_ids.h"
#include "ui/widgets/drawing/text_fit.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

using testing::SendKey;
using testing::SendMouse;

class PlaylistListCtrlTest : public testing::WidgetApplicationFirst, public ::testing::Test {
protected:
    void Make(int rows) {
        for (int i = 0; i < rows; ++i) {
            auto entry = std::make_unique<PlaylistEntry>(u"Row " + QString::number(i).toStdU16String());
            entry->SetLibraryIndex(i);
            m_rows.Insert(std::move(entry));
        }
        m_parent.resize(240, 320);
        m_list = new CPlaylistListCtrl(m_rows, &m_parent);
        m_list->setGeometry(8, 50, 224, 244);
        m_list->SetUp();
        m_parent.show();
        m_parent.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_parent));
        m_list->setFocus();
    }
    QWidget* Viewport() const { return m_list->viewport(); }
    QPoint RowPoint(int row, int x = 20) const {
        return {x, m_list->visualRect(m_list->model()->index(row, 0)).center().y()};
    }

    PlaylistEntryList m_rows;
    testing::MessageSink m_parent;
    CPlaylistListCtrl* m_list = nullptr;
};

TEST_F(PlaylistListCtrlTest, TapsOnRowsPostClickAndDoubleClickButEmptySpaceNothing) {
    Make(3);
    EXPECT_EQ(m_list->model()->headerData(0, Qt::Horizontal).toString(), "Title");
    m_list->SetSortMode(0, false);
    m_list->SortRows();
    EXPECT_EQ(m_list->model()->index(0, 0).data().toString(), "Row 2"); // Z to A
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, RowPoint(1));
    EXPECT_EQ(m_parent.Take(), (std::vector<WindowMessage>{{kMsgListClick, 1, 0}}));
    const QPoint below = RowPoint(2) + QPoint(0, 60);
    // A double click comes as a click and then the second press.
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, below);
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(m_parent.Take().empty());
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, RowPoint(2));
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, RowPoint(2));
    EXPECT_EQ(m_parent.Take(), (std::vector<WindowMessage>{{kMsgListClick, 2, 0},
                                                      {kMsgListDoubleClick, 2, 0}}));
}

// A held arrow posts once, with the first selected row; Enter chooses on
// its release, and only after its own press.
TEST_F(PlaylistListCtrlTest, KeysPostOncePerPress) {
    Make(5);
    m_list->SelectOnly(3);
    SendKey(m_list, QEvent::KeyRelease, Qt::Key_Return);
    SendKey(m_list, QEvent::KeyPress, Qt::Key_Left);
    for (int i = 0; i < 3; ++i)
        SendKey(m_list, QEvent::KeyPress, Qt::Key_Left, true);
    SendKey(m_list, QEvent::KeyRelease, Qt::Key_Left);
    SendKey(m_list, QEvent::KeyPress, Qt::Key_Right);
    SendKey(m_list, QEvent::KeyPress, Qt::Key_Right, true);
    SendKey(m_list, QEvent::KeyPress, Qt::Key_Return);
    SendKey(m_list, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(m_parent.Take(), (std::vector<WindowMessage>{
                              {kMsgListLeft, 3, 0}, {kMsgListRight, 3, 0}, {kMsgListClick, 3, 1}}));
}

TEST_F(PlaylistListCtrlTest, ADragSelectsExactlyTheTouchedRowsOfTheVisiblePage) {
    Make(40);
    m_list->SelectOnly(0);
    m_list->selectionModel()->select(m_list->model()->index(7, 0), QItemSelectionModel::Select);
    m_list->verticalScrollBar()->setValue(5);
    ASSERT_EQ(m_list->TopRow(), 5);
    SendMouse(Viewport(), QEvent::MouseButtonPress, RowPoint(7));
    SendMouse(Viewport(), QEvent::MouseMove, RowPoint(10, 60));
    EXPECT_EQ(m_list->SelectedIndexes(), (std::vector<int>{0, 7, 8, 9, 10}));
    SendMouse(Viewport(), QEvent::MouseMove, RowPoint(6, 60));
    EXPECT_EQ(m_list->SelectedIndexes(), (std::vector<int>{0, 6, 7}));
    SendMouse(Viewport(), QEvent::MouseButtonRelease, RowPoint(6, 60), Qt::NoButton);
    EXPECT_EQ(m_list->SelectedIndexes(), (std::vector<int>{0, 6, 7}));
    EXPECT_TRUE(m_parent.Take().empty());
    // A press on an unselected row selects it alone; dragging out scrolls.
    m_list->verticalScrollBar()->setValue(0);
    SendMouse(Viewport(), QEvent::MouseButtonPress, RowPoint(2));
    EXPECT_EQ(m_list->SelectedIndexes(), std::vector<int>{2});
    const QPoint below(20, Viewport()->height() + 10);
    SendMouse(Viewport(), QEvent::MouseMove, below);
    EXPECT_EQ(m_list->TopRow(), 1);
    SendMouse(Viewport(), QEvent::MouseButtonRelease, below, Qt::NoButton);
}

// A touch screen's right click: a still press held long enough asks for the
// menu where it was pressed and its release taps nothing; a press that
// starts a drag never does.
TEST_F(PlaylistListCtrlTest, AHeldStillPressAsksForTheMenuAndItsReleaseChoosesNothing) {
    Make(3);
    const QPoint point = RowPoint(1);
    const QPoint global = Viewport()->mapToGlobal(point);
    SendMouse(Viewport(), QEvent::MouseButtonPress, point);
    QTest::qWait(CPlaylistListCtrl::kContextHoldMs + 150);
    SendMouse(Viewport(), QEvent::MouseButtonRelease, point, Qt::NoButton);
    EXPECT_EQ(m_parent.Take(), (std::vector<WindowMessage>{
                              {kMsgListContextMenu, 0, PackPoint(global.x(), global.y())}}));

    SendMouse(Viewport(), QEvent::MouseButtonPress, RowPoint(0));
    SendMouse(Viewport(), QEvent::MouseMove, RowPoint(2));
    QTest::qWait(CPlaylistListCtrl::kContextHoldMs + 150);
    SendMouse(Viewport(), QEvent::MouseButtonRelease, RowPoint(2), Qt::NoButton);
    EXPECT_TRUE(m_parent.Take().empty());
}

class TrackListCtrlTest : public testing::WidgetApplicationFirst, public ::testing::Test {
protected:
    TrackListCtrlTest() {
        m_parent.resize(240, 320);
        m_list->setGeometry(0, 0, 242, 300);
    }
    // Adds a record with these path, title and album at the index.
    int Add(std::u16string_view path, std::u16string_view title, std::u16string_view album,
            int index = -1) {
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, path);
        record->SetField(kFieldTitle, title);
        record->SetField(kFieldAlbum, album);
        record->SetField(kFieldArtist, u"Artist");
        return m_list->AddTrack(std::move(record), index);
    }
    std::u16string Albums() const {
        std::u16string all;
        for (const auto& record : m_tracks)
            all += std::u16string(record->Text(kFieldAlbum)) + u"|";
        return all;
    }

    TrackList m_tracks;
    testing::MessageSink m_parent;
    CTrackListCtrl* m_list = new CTrackListCtrl(m_tracks, &m_parent);
};

TEST_F(TrackListCtrlTest, FiveColumnsStayConsistentThroughAddsRemovesAndSorts) {
    m_list->SetUpFiveColumns();
    QAbstractItemModelTester tester(m_list->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(Add(u"\\Music\\song.one.mp3", u"", u"B"), 0);
    EXPECT_EQ(Add(u"\\b.mp3", u"Second", u"A", 0), 0);
    EXPECT_EQ(Add(u"\\c.mp3", u"T3", u"C", 99), 2);
    // Titles pair with the "File Name" heading, paths with the title's.
    const QStringList headings = {"File Name", "Title (Song)", "Album", "Artist"};
    const QStringList second = {"song.one", "\\Music\\song.one.mp3", "B", "Artist"};
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(m_list->model()->headerData(column, Qt::Horizontal).toString(), headings[column]);
        EXPECT_EQ(m_list->model()->index(1, column).data().toString(), second[column]);
    }
    EXPECT_EQ(m_list->columnWidth(4), (240 - m_list->ScrollBarWidth()) / 5);
    m_list->SelectOnly(2); // the "C" record
    testing::SavePicture(m_parent, "track_list_five");
    m_list->SortTracks(kFieldAlbum, 1);
    EXPECT_EQ(Albums(), u"A|B|C|");
    EXPECT_EQ(m_list->SelectedIndexes(), std::vector<int>{2}); // followed its record
    EXPECT_TRUE(m_list->RemoveTrack(1));
    EXPECT_FALSE(m_list->RemoveTrack(2));
    EXPECT_EQ(m_list->RemoveAllTracks(false).size(), 2u);
    EXPECT_EQ(m_list->TrackAt(0), nullptr);
}

// The bitmap button's choice of bitmap by state, read back from its pixels;
// and the shared text fitting: cut texts end in "..." and are as long as fits.
struct FaceCase {
    const char* name;
    bool down, focused, disabled;
    BitmapId focusedBitmap, disabledBitmap;
    BitmapId shown;
    bool loadAgain = false; // then loaded again with Stop's two bitmaps only
};

class BitmapButtonFace : public ::testing::TestWithParam<FaceCase> {};

TEST_P(BitmapButtonFace, ShowsTheBitmapOfTheFirstStateThatHasOne) {
    const FaceCase& c = GetParam();
    testing::EnsureQtApplication();
    QWidget screen;
    auto* other = new QWidget(&screen);
    other->setFocusPolicy(Qt::StrongFocus);
    auto* button = new CBitmapButton(2005, &screen);
    button->LoadBitmaps(kBmpPortraitPlay, kBmpPortraitPlayPressed, c.focusedBitmap,
                        c.disabledBitmap);
    if (c.loadAgain)
        button->LoadBitmaps(kBmpPortraitStop, kBmpPortraitStopPressed);
    button->resize(button->sizeHint());
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    (c.focused ? static_cast<QWidget*>(button) : other)->setFocus();
    button->setDown(c.down);
    button->setEnabled(!c.disabled);
    const QImage expected = LoadSkinBitmap(SkinResourceHandle(), c.shown);
    ASSERT_FALSE(expected.isNull());
    EXPECT_EQ(button->Command(), 2005);
    EXPECT_EQ(button->grab().toImage().convertToFormat(QImage::Format_RGB32),
              expected.convertToFormat(QImage::Format_RGB32));
}

constexpr BitmapId kPause = kBmpPortraitPause, kGrey = kBmpPortraitPlayDisabled;
INSTANTIATE_TEST_SUITE_P(
    States, BitmapButtonFace,
    ::testing::Values(
        FaceCase{"Normal", false, false, false, kPause, kGrey, kBmpPortraitPlay},
        FaceCase{"PressedBeforeFocused", true, true, false, kPause, kGrey, kBmpPortraitPlayPressed},
        FaceCase{"Focused", false, true, false, kPause, kGrey, kPause},
        FaceCase{"FocusedWithoutBitmap", false, true, false, 0, kGrey, kBmpPortraitPlay},
        FaceCase{"Disabled", false, false, true, kPause, kGrey, kGrey},
        FaceCase{"DisabledWithoutBitmap", false, false, true, kPause, 0, kBmpPortraitPlay},
        FaceCase{"LoadingAgainDropsTheFocusedBitmap", false, true, false, kPause, kGrey,
                 kBmpPortraitStop, true}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(FitTextToWidth, KeepsFittingTextsAndCutsOthersToTheLongestFittingBeginning) {
    testing::EnsureQtApplication();
    const QFontMetrics metrics{QFont()};
    const QString text = "A rather long title of a song that cannot fit";
    const int full = metrics.horizontalAdvance(text);
    EXPECT_EQ(FitTextToWidth(text, metrics, full), text);
    EXPECT_EQ(FitTextToWidth(text, metrics, 0), QString());
    EXPECT_EQ(FitTextToWidth(text, metrics, 1), "...");
    for (const int width : {full - 1, full / 2, metrics.horizontalAdvance("A...")}) {
        const QString cut = FitTextToWidth(text, metrics, width);
        ASSERT_TRUE(cut.endsWith("...")) << width;
        const QString kept = cut.chopped(3);
        EXPECT_TRUE(text.startsWith(kept));
        EXPECT_LE(metrics.horizontalAdvance(cut), width);
        EXPECT_GT(metrics.horizontalAdvance(text.left(kept.size() + 1) + "..."), width) << width;
    }
}

} // namespace
} // namespace zelvor
