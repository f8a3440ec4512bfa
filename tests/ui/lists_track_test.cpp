// The track list control: its model, texts by column, headings and sorting.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTest>

#include "tests/ui/lists_sink.h"
#include "ui/lists/track_list_ctrl.h"
#include "ui/lists/track_list_model.h"

namespace zelvor {
namespace {

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
    void ClickHeading(int column) {
        QHeaderView* header = m_list->header();
        const int x = header->sectionViewportPosition(column) + 5;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, 5));
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
    EXPECT_EQ(m_list->model()->rowCount(), 0);
    EXPECT_EQ(m_list->TrackAt(0), nullptr);
}

TEST_F(TrackListCtrlTest, OneColumnHasTheLocalHeadingHiddenAndFitsTheWindow) {
    for (int i = 0; i < 3; ++i)
        Add(u"\\x.mp3", u"T", u"A");
    m_list->SetUpOneColumn();
    EXPECT_EQ(m_list->model()->headerData(0, Qt::Horizontal).toString(), "File Name");
    EXPECT_TRUE(m_list->isHeaderHidden());
    EXPECT_EQ(m_list->columnWidth(0), 240);
    for (int i = 0; i < 100; ++i)
        Add(u"\\x.mp3", u"T", u"A");
    m_list->FitColumn();
    EXPECT_EQ(m_list->columnWidth(0), 240 - m_list->ScrollBarWidth());
    testing::SavePicture(m_parent, "track_list_one");
}

TEST_F(TrackListCtrlTest, HeadingClicksSortAToZThenFlipAndAnotherHeadingStartsAgain) {
    m_list->SetUpFiveColumns();
    m_parent.show();
    Add(u"\\2.mp3", u"Tb", u"b");
    Add(u"\\1.mp3", u"Ta", u"C");
    Add(u"\\3.mp3", u"Tc", u"a");
    ClickHeading(2);
    EXPECT_EQ(Albums(), u"a|b|C|"); // ignoring case, A to Z
    ClickHeading(2);
    EXPECT_EQ(Albums(), u"C|b|a|");
    ClickHeading(0); // field 0: the file name
    EXPECT_EQ(Albums(), u"C|b|a|");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace zelvor
