// The track list control: its model, texts by column, headings and sorting.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTest>

#include "tests/ui/lists_sink.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/lists/track_list_model.h"

namespace zelvor {
namespace {

std::unique_ptr<TrackRecord> Track(std::u16string_view path, std::u16string_view title,
                                   std::u16string_view album, int trackNumber = 0) {
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, path);
    record->SetField(kFieldTitle, title);
    record->SetField(kFieldAlbum, album);
    record->SetField(kFieldArtist, u"Artist");
    record->SetField(kFieldGenre, u"Genre");
    record->SetField(kFieldTrackNumber, std::int64_t{trackNumber});
    return record;
}

class TrackListCtrlTest : public testing::WidgetApplicationFirst, public ::testing::Test {
protected:
    void SetUp() override {
        testing::EnsureWidgetApplication();
        m_parent.resize(240, 320);
        m_list = new CTrackListCtrl(m_tracks, &m_parent);
        m_list->setGeometry(0, 0, 242, 300);
    }
    std::u16string Albums() const {
        std::u16string all;
        for (const auto& record : m_tracks)
            all += std::u16string(record->Text(kFieldAlbum)) + u"|";
        return all;
    }
    void ClickHeading(int column) {
        QHeaderView* header = m_list->header();
        const int x = header->sectionViewportPosition(column) + 5;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, 5));
    }

    TrackList m_tracks;
    testing::MessageSink m_parent;
    CTrackListCtrl* m_list = nullptr;
};

TEST_F(TrackListCtrlTest, ModelStaysConsistentThroughAddsRemovesAndSorts) {
    m_list->SetUpFiveColumns();
    QAbstractItemModelTester tester(m_list->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(m_list->AddTrack(Track(u"\\a.mp3", u"T1", u"B")), 0);
    EXPECT_EQ(m_list->AddTrack(Track(u"\\b.mp3", u"T2", u"A"), 0), 0);
    EXPECT_EQ(m_list->AddTrack(Track(u"\\c.mp3", u"T3", u"C"), 99), 2);
    m_list->SelectOnly(2); // the "C" record
    m_list->SortTracks(kFieldAlbum, 1);
    EXPECT_EQ(Albums(), u"A|B|C|");
    EXPECT_EQ(m_list->SelectedIndexes(), std::vector<int>{2}); // followed its record
    m_list->SortTracks(-1, 0);
    EXPECT_EQ(Albums(), u"C|B|A|");
    EXPECT_EQ(m_list->FirstSelected(), 0);
    EXPECT_TRUE(m_list->RemoveTrack(1));
    EXPECT_FALSE(m_list->RemoveTrack(2));
    EXPECT_EQ(m_list->model()->rowCount(), 2);
    auto kept = m_list->RemoveAllTracks(false);
    EXPECT_EQ(kept.size(), 2u);
    EXPECT_EQ(m_list->model()->rowCount(), 0);
    EXPECT_EQ(m_list->TrackAt(0), nullptr);
}

TEST_F(TrackListCtrlTest, CellsPairTitlesWithFileNameHeadingAndPathsWithTitleHeading) {
    m_list->SetUpFiveColumns();
    m_list->AddTrack(Track(u"\\Music\\song.one.mp3", u"", u"Alb"));
    m_list->AddTrack(Track(u"\\Music\\two.mp3", u"Second", u"Alb"));
    const QAbstractItemModel* model = m_list->model();
    const QStringList expected[] = {
        {"song.one", "\\Music\\song.one.mp3", "Alb", "Artist", "Genre"},
        {"Second", "\\Music\\two.mp3", "Alb", "Artist", "Genre"}};
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(model->index(row, column).data().toString(), expected[row][column])
                << row << "," << column;
    const QStringList headings = {"File Name", "Title (Song)", "Album", "Artist", "Genre"};
    for (int column = 0; column < 5; ++column)
        EXPECT_EQ(model->headerData(column, Qt::Horizontal).toString(), headings[column]);
    EXPECT_EQ(model->columnCount(), 5);
}

TEST_F(TrackListCtrlTest, OneColumnHasTheLocalHeadingHiddenAndFitsTheWindow) {
    for (int i = 0; i < 3; ++i)
        m_list->AddTrack(Track(u"\\x.mp3", u"T", u"A"));
    m_list->SetUpOneColumn();
    EXPECT_EQ(m_list->model()->columnCount(), 1);
    EXPECT_EQ(m_list->model()->headerData(0, Qt::Horizontal).toString(), "File Name");
    EXPECT_TRUE(m_list->isHeaderHidden());
    EXPECT_EQ(m_list->columnWidth(0), 240);
    for (int i = 0; i < 100; ++i)
        m_list->AddTrack(Track(u"\\x.mp3", u"T", u"A"));
    m_list->FitColumn();
    EXPECT_EQ(m_list->columnWidth(0), 240 - m_list->ScrollBarWidth());
}

TEST_F(TrackListCtrlTest, AlbumOrderPutsEmptyAlbumsLastAToZAndFirstZToA) {
    for (const auto* album : {u"B", u"", u"A", u""})
        m_list->AddTrack(Track(u"\\x.mp3", u"T", album));
    m_list->SortTracks(kSortAlbumOrder, 1);
    EXPECT_EQ(Albums(), u"A|B|||");
    m_list->SortTracks(kSortAlbumOrder, 0);
    EXPECT_EQ(Albums(), u"||B|A|");
}

TEST_F(TrackListCtrlTest, HeadingClicksSortAToZThenFlipAndAnotherHeadingStartsAgain) {
    m_list->SetUpFiveColumns();
    m_parent.show();
    m_list->AddTrack(Track(u"\\2.mp3", u"Tb", u"b"));
    m_list->AddTrack(Track(u"\\1.mp3", u"Ta", u"C"));
    m_list->AddTrack(Track(u"\\3.mp3", u"Tc", u"a"));
    ClickHeading(2);
    EXPECT_EQ(Albums(), u"a|b|C|"); // ignoring case, A to Z
    ClickHeading(2);
    EXPECT_EQ(Albums(), u"C|b|a|");
    ClickHeading(3); // equal artists keep their order: the sort is stable
    EXPECT_EQ(m_tracks.SortKey(), 3);
    EXPECT_EQ(m_tracks.SortOrder(), 1);
    ClickHeading(0); // field 0: the file name
    EXPECT_EQ(Albums(), u"C|b|a|");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace zelvor
