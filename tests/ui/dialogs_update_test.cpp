// The update dialog: when the update starts and how it ends.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTimer>

#include "app/local_text.h"
#include "res/string_table.h"
#include "tests/ui/dialogs_update_fixture.h"
#include "tests/ui/lists_sink.h"
#include "ui/dialogs/dialog_results.h"

namespace zelvor {
namespace {

class UpdateDialog : public ::testing::Test {
protected:
    testing::UpdateDialogRig rig;
};

// Never painted, it never scans; cancelled before the start, it closes at
// once, and a start already on its way finds it closed.
TEST_F(UpdateDialog, NeverPaintedOrCancelledBeforeTheStartScansNothing) {
    auto dialog = rig.MakeDialog();
    testing::SpinEvents(800); // well past the half second after a first paint
    EXPECT_EQ(dialog->Phase(), 0);
    testing::UpdateDialogRig::PostKey(*dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog->DoModal(), kIdCancel);
    testing::SpinEvents(800);
    EXPECT_EQ(dialog->Phase(), 0);
    EXPECT_EQ(rig.built, 0);
    EXPECT_EQ(dialog->Results().Count(), 0);
}

TEST_F(UpdateDialog, RunsAfterItsFirstPaintAndShowsSuccessBeforeClosing) {
    auto dialog = rig.MakeDialog();
    bool visibleWhenBuilding = true;
    rig.onBuild = [&](int) { visibleWhenBuilding = visibleWhenBuilding && dialog->isVisible(); };
    const QString success = QString::fromStdU16String(
        std::u16string(LoadLocalText(kLocalTextFileName, 0, kTextLibraryUpdated)));
    bool successShown = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* message = static_cast<QLabel*>(dialog->Item(kIdUpdateMessage));
        successShown = successShown || (dialog->isVisible() && message->text() == success);
    });
    watch.start(20);
    // The finish's own OK is followed by the end as Cancel.
    EXPECT_EQ(dialog->DoModal(), kIdCancel);
    EXPECT_TRUE(successShown);
    EXPECT_TRUE(visibleWhenBuilding);
    EXPECT_EQ(dialog->Phase(), 3);
    EXPECT_EQ(dialog->Results().Count(), 3);
}

// Escape cancels while adding; Enter only stops the adding, and the dialog
// then ends as Cancel too. Either way the records so far are kept.
TEST_F(UpdateDialog, EscapeOrEnterWhileAddingKeepsTheRecordsSoFar) {
    for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
        rig.built = 0;
        auto dialog = rig.MakeDialog();
        rig.onBuild = [&](int count) {
            if (count == 1) // seen at the next pump
                testing::UpdateDialogRig::PostKey(*dialog, key);
            if (key == Qt::Key_Escape)
                testing::SavePicture(*dialog, "update_adding");
        };
        EXPECT_EQ(dialog->DoModal(), kIdCancel) << key;
        EXPECT_LE(std::max(dialog->width(), dialog->height()), 240); // fits either screen
        EXPECT_EQ(dialog->Phase(), 2) << key;
        EXPECT_EQ(dialog->Results().Count(), 1) << key;
    }
}

} // namespace
} // namespace zelvor
