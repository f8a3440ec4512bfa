// The update dialog: when the update starts and how it ends.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <functional>

#include "config/local_text.h"
#include "config/settings.h"
#include "res/string_table.h"
#include "tests/support/test_device.h"
#include "tests/ui/lists_sink.h"
#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/dialogs/update_lib_dlg.h"

namespace zelvor {
namespace {

// A device with three tiny music files (two on the card, one on the flash
// disk) and a record builder that only counts: an update over it is fast.
class UpdateDialog : public testing::WidgetApplicationFirst, public ::testing::Test {
protected:
    UpdateDialog() {
        device.WriteFile(GetStorageCardRoot() + u"\\a.mp3", "a");
        device.WriteFile(GetStorageCardRoot() + u"\\Albums\\b.mp3", "b");
        device.WriteFile(GetFlashDiskRoot() + u"\\c.mp3", "c");
    }
    // A dialog set up as the browser sets it up.
    std::unique_ptr<CUpdateLibDlg> MakeDialog() {
        auto build = [this](std::u16string_view path, int) {
            if (++built; onBuild)
                onBuild(built);
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, path);
            return record;
        };
        auto dialog = std::make_unique<CUpdateLibDlg>(nullptr, build);
        dialog->SetRoot(u"\\");
        dialog->SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
        return dialog;
    }
    static void PostKey(QWidget& target, int key) {
        QCoreApplication::postEvent(&target, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    }

    testing::TestDevice device;
    int built = 0;                    // records the builder was asked for
    std::function<void(int)> onBuild; // called with the running count
};

// Never painted, it never scans; cancelled before the start, it closes at
// once, and a start already on its way finds it closed.
TEST_F(UpdateDialog, NeverPaintedOrCancelledBeforeTheStartScansNothing) {
    auto dialog = MakeDialog();
    testing::SpinEvents(800); // well past the half second after a first paint
    EXPECT_EQ(dialog->Phase(), 0);
    PostKey(*dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog->DoModal(), kIdCancel);
    testing::SpinEvents(800);
    EXPECT_EQ(dialog->Phase(), 0);
    EXPECT_EQ(built, 0);
    EXPECT_EQ(dialog->Results().Count(), 0);
}

TEST_F(UpdateDialog, RunsAfterItsFirstPaintAndShowsSuccessBeforeClosing) {
    auto dialog = MakeDialog();
    bool visibleWhenBuilding = true;
    onBuild = [&](int) { visibleWhenBuilding = visibleWhenBuilding && dialog->isVisible(); };
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
        built = 0;
        auto dialog = MakeDialog();
        onBuild = [&](int count) {
            if (count == 1) // seen at the next pump
                PostKey(*dialog, key);
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
