// The playlist list control: what it tells its parent of the stylus and the
// keys. Its rename and context request are driven by the browser's tests.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QTest>

#include "app/window_messages.h"
#include "tests/ui/lists_sink.h"
#include "ui/lists/list_notify.h"
#include "ui/lists/playlist_list_ctrl.h"

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
    std::vector<WindowMessage> Messages() { return m_parent.Take(); }

    PlaylistEntryList m_rows;
    testing::MessageSink m_parent;
    CPlaylistListCtrl* m_list = nullptr;
};

TEST_F(PlaylistListCtrlTest, TapsOnRowsPostClickAndDoubleClickButEmptySpaceNothing) {
    Make(3);
    QAbstractItemModelTester tester(m_list->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(m_list->model()->headerData(0, Qt::Horizontal).toString(), "Title");
    m_list->SetSortMode(0, false);
    m_list->SortRows();
    EXPECT_EQ(m_list->model()->index(0, 0).data().toString(), "Row 2"); // Z to A
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, RowPoint(1));
    EXPECT_EQ(Messages(), (std::vector<WindowMessage>{{kMsgListClick, 1, 0}}));
    const QPoint below = RowPoint(2) + QPoint(0, 60);
    // A double click comes as a click and then the second press.
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, below);
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(Messages().empty());
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, RowPoint(2));
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, RowPoint(2));
    EXPECT_EQ(Messages(), (std::vector<WindowMessage>{{kMsgListClick, 2, 0},
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
    EXPECT_EQ(Messages(), (std::vector<WindowMessage>{
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
    EXPECT_TRUE(Messages().empty());
    testing::SavePicture(m_parent, "playlist_list");
    // A press on an unselected row selects it alone; dragging out scrolls.
    m_list->verticalScrollBar()->setValue(0);
    SendMouse(Viewport(), QEvent::MouseButtonPress, RowPoint(2));
    EXPECT_EQ(m_list->SelectedIndexes(), std::vector<int>{2});
    SendMouse(Viewport(), QEvent::MouseMove, {20, Viewport()->height() + 10});
    EXPECT_EQ(m_list->TopRow(), 1);
    SendMouse(Viewport(), QEvent::MouseButtonRelease, {20, Viewport()->height() + 10}, Qt::NoButton);
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
    EXPECT_EQ(Messages(), (std::vector<WindowMessage>{
                              {kMsgListContextMenu, 0, PackPoint(global.x(), global.y())}}));

    SendMouse(Viewport(), QEvent::MouseButtonPress, RowPoint(0));
    SendMouse(Viewport(), QEvent::MouseMove, RowPoint(2));
    QTest::qWait(CPlaylistListCtrl::kContextHoldMs + 150);
    SendMouse(Viewport(), QEvent::MouseButtonRelease, RowPoint(2), Qt::NoButton);
    EXPECT_TRUE(Messages().empty());
}

} // namespace
} // namespace zelvor
