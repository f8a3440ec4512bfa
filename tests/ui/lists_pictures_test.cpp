// Pictures of the list controls and the bitmap button at both screen sizes,
// left in the artifacts folder for people to look at; and the button's
// choice of bitmap by state, read back from its pixels.
#include <gtest/gtest.h>

#include <QTest>

#include "res/bitmap_ids.h"
#include "tests/ui/lists_sink.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/playlist_list_ctrl.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

struct ScreenSize {
    const char* name;
    int width, height;
};
constexpr ScreenSize kSizes[] = {{"240x320", 240, 320}, {"320x240", 320, 240}};

std::unique_ptr<TrackRecord> Song(int i) {
    static const char16_t* const albums[] = {u"Blue Harbour", u"", u"Night Trains", u"Paper Moons"};
    auto record = std::make_unique<TrackRecord>();
    const std::u16string n = QString::number(i).toStdU16String();
    record->SetField(kFieldPath, u"\\Storage Card\\My Music\\track " + n + u".mp3");
    if (i % 3 != 0)
        record->SetField(kFieldTitle, u"Song number " + n + u" with a long title");
    record->SetField(kFieldAlbum, albums[i % 4]);
    record->SetField(kFieldArtist, u"The Artist " + n);
    record->SetField(kFieldGenre, u"Rock");
    return record;
}

void Save(QWidget& screen, const std::string& name) {
    screen.show();
    screen.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    QCoreApplication::processEvents();
    const auto path = testing::ArtifactDir() / (name + ".png");
    EXPECT_TRUE(screen.grab().save(QString::fromStdString(path.string())));
}

class ListPictures : public ::testing::TestWithParam<ScreenSize> {
protected:
    void SetUp() override {
        testing::EnsureWidgetApplication();
    }
    QRect ListRect() const { return {8, 48, GetParam().width - 16, GetParam().height - 64}; }
    std::string Name(const char* what) const { return std::string(what) + "_" + GetParam().name; }
    QSize Size() const { return {GetParam().width, GetParam().height}; }
};

TEST_P(ListPictures, TrackListsInFiveAndOneColumns) {
    for (const bool five : {true, false}) {
        TrackList tracks;
        testing::MessageSink screen;
        screen.resize(Size());
        CTrackListCtrl list(tracks, &screen);
        list.setGeometry(ListRect());
        for (int i = 0; i < 30; ++i)
            list.AddTrack(Song(i));
        five ? list.SetUpFiveColumns() : list.SetUpOneColumn();
        list.SelectOnly(2);
        Save(screen, Name(five ? "track_list_five" : "track_list_one"));
    }
}

TEST_P(ListPictures, PlaylistListWithSelectedRowsAndACutText) {
    PlaylistEntryList rows;
    for (int i = 0; i < 25; ++i) {
        auto entry = std::make_unique<PlaylistEntry>(
            i == 1 ? u"A title far too long to fit into the list's one column at all"
                   : u"Playlist row " + QString::number(i).toStdU16String());
        entry->SetLibraryIndex(i);
        rows.Insert(std::move(entry));
    }
    testing::MessageSink screen;
    screen.resize(Size());
    CPlaylistListCtrl list(rows, &screen);
    list.setGeometry(ListRect());
    list.SetUp();
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    list.setFocus();
    list.SelectOnly(3);
    list.selectionModel()->select(list.model()->index(4, 0), QItemSelectionModel::Select);
    Save(screen, Name("playlist_list_focused"));
    list.clearFocus();
    Save(screen, Name("playlist_list_unfocused"));
}

TEST_P(ListPictures, BitmapButtonInEachState) {
    testing::MessageSink screen;
    screen.resize(Size());
    CBitmapButton* buttons[4];
    for (int i = 0; i < 4; ++i) {
        buttons[i] = new CBitmapButton(2005, &screen);
        // Other buttons' images stand in for a focused and a disabled face.
        buttons[i]->LoadBitmaps(kBmpBrowserPlay, kBmpBrowserPlayPressed, kBmpBrowserUp,
                                kBmpBrowserUpdate);
        buttons[i]->setGeometry(10 + i * 50, 10, buttons[i]->sizeHint().width(),
                                buttons[i]->sizeHint().height());
    }
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    buttons[1]->setDown(true);
    buttons[2]->setFocus();
    buttons[3]->Disable();
    Save(screen, Name("bitmap_button_states"));
}

INSTANTIATE_TEST_SUITE_P(Sizes, ListPictures, ::testing::ValuesIn(kSizes),
                         [](const auto& info) { return std::string(info.param.name) == "240x320"
                                                           ? std::string("Portrait")
                                                           : std::string("Landscape"); });

struct FaceCase {
    const char* name;
    bool down, focused, disabled;
    bool withFocusedBitmap, withDisabledBitmap;
    BitmapId shown;
};

class BitmapButtonFace : public ::testing::TestWithParam<FaceCase> {};

TEST_P(BitmapButtonFace, ShowsTheBitmapOfTheFirstStateThatHasOne) {
    testing::EnsureWidgetApplication();
    const FaceCase& c = GetParam();
    QWidget screen;
    auto* other = new QWidget(&screen);
    other->setFocusPolicy(Qt::StrongFocus);
    auto* button = new CBitmapButton(2005, &screen);
    button->LoadBitmaps(kBmpPortraitPlay, kBmpPortraitPlayPressed,
                        c.withFocusedBitmap ? kBmpPortraitPause : 0,
                        c.withDisabledBitmap ? kBmpPortraitPlayDisabled : 0);
    button->resize(button->sizeHint());
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    (c.focused ? static_cast<QWidget*>(button) : other)->setFocus();
    button->setDown(c.down);
    button->setEnabled(!c.disabled);
    const QImage expected = LoadSkinBitmap(SkinResourceHandle(), c.shown);
    ASSERT_FALSE(expected.isNull());
    EXPECT_EQ(button->grab().toImage().convertToFormat(QImage::Format_RGB32),
              expected.convertToFormat(QImage::Format_RGB32));
}

INSTANTIATE_TEST_SUITE_P(
    States, BitmapButtonFace,
    ::testing::Values(
        FaceCase{"Normal", false, false, false, true, true, kBmpPortraitPlay},
        FaceCase{"PressedBeforeFocused", true, true, false, true, true, kBmpPortraitPlayPressed},
        FaceCase{"Focused", false, true, false, true, true, kBmpPortraitPause},
        FaceCase{"FocusedWithoutBitmap", false, true, false, false, true, kBmpPortraitPlay},
        FaceCase{"Disabled", false, false, true, true, true, kBmpPortraitPlayDisabled},
        FaceCase{"DisabledWithoutBitmap", false, false, true, true, false, kBmpPortraitPlay}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(BitmapButton, LoadingAgainDropsBitmapsNotGivenAgain) {
    testing::EnsureWidgetApplication();
    QWidget screen;
    auto* button = new CBitmapButton(2005, &screen);
    button->LoadBitmaps(kBmpPortraitPlay, kBmpPortraitPlayPressed, kBmpPortraitPause);
    button->LoadBitmaps(kBmpPortraitStop, kBmpPortraitStopPressed);
    button->resize(button->sizeHint());
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    button->setFocus();
    EXPECT_EQ(button->Command(), 2005);
    EXPECT_EQ(button->grab().toImage().convertToFormat(QImage::Format_RGB32),
              LoadSkinBitmap(SkinResourceHandle(), kBmpPortraitStop)
                  .convertToFormat(QImage::Format_RGB32));
}

} // namespace
} // namespace zelvor
