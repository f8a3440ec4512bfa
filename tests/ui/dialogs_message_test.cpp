// The message box's buttons and answers; it fits the screen in both
// orientations, and a picture of it is left for people to see. Then the
// rules without a window: the update dialog's progress and closing, the
// dialogs' placement and the message text's cut.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "ui/rules/dialogs/update_progress.h"
#include "res/string_table.h"
#include "tests/ui/lists_sink.h"
#include "tests/support/qt_app.h"
#include "ui/rules/dialogs/dialog_units.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <functional>
#include "config/local_text.h"
#include "config/settings.h"
#include "tests/support/test_device.h"
#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/dialogs/update_lib_dlg.h"

namespace zelvor {
namespace {

// Answers with a button id, or with a key when negative (-Qt::Key).
void Answer(QDialog& dialog, int how) {
    if (how < 0)
        return QTest::keyClick(&dialog, static_cast<Qt::Key>(-how));
    auto* button = dialog.findChild<QPushButton*>(QString::number(how));
    ASSERT_TRUE(button && button->isVisible()) << how;
    button->click();
}

struct AnswerCase {
    const char* name;
    int type;
    bool onlyOk;
    bool question; // Yes and No shown, OK hidden
    int how, result;
    int exitCode; // QDialog::Accepted or Rejected: how the dialog ended
    const char* picture = nullptr;
};

class MessageAnswers : public ::testing::TestWithParam<AnswerCase> {};

TEST_P(MessageAnswers, ButtonsResultAndEnding) {
    testing::EnsureQtApplication();
    const AnswerCase& c = GetParam();
    CMessageDialog dialog(nullptr);
    dialog.SetText(u"A notice as long as the dialog takes it: every one of its characters must "
                   u"still be on show inside the frame, up to here.");
    dialog.SetType(c.type);
    if (c.onlyOk)
        dialog.ShowOnlyOk();
    int exitCode = -1;
    QObject::connect(&dialog, &QDialog::finished, [&](int code) { exitCode = code; });
    QTimer::singleShot(0, &dialog, [&] {
        EXPECT_EQ(dialog.Item(kIdOk)->isVisible(), !c.question);
        EXPECT_EQ(dialog.Item(kIdMessageYes)->isVisible(), c.question);
        EXPECT_EQ(dialog.Item(kIdMessageNo)->isVisible(), c.question);
        EXPECT_LE(std::max(dialog.width(), dialog.height()), 240); // fits either screen
        if (c.picture)
            testing::SavePicture(dialog, c.picture);
        Answer(dialog, c.how);
    });
    EXPECT_EQ(dialog.DoModal(), c.result);
    EXPECT_EQ(dialog.Result(), c.result);
    EXPECT_EQ(exitCode, c.exitCode);
}

constexpr int kAccepted = QDialog::Accepted, kRejected = QDialog::Rejected;
INSTANTIATE_TEST_SUITE_P(
    Cases, MessageAnswers,
    ::testing::Values(
        AnswerCase{"notice_ok", kMbOk, false, false, kIdOk, kIdOk, kAccepted, "message_notice"},
        AnswerCase{"notice_enter", kMbOk, false, false, -Qt::Key_Return, kIdOk, kAccepted},
        AnswerCase{"notice_escape", kMbOk, false, false, -Qt::Key_Escape, kIdCancel, kRejected},
        AnswerCase{"question_yes", kMbYesNo, false, true, kIdMessageYes, kIdYes, kAccepted},
        AnswerCase{"question_no_answers_1", kMbYesNo, false, true, kIdMessageNo, kIdOk, kRejected},
        AnswerCase{"question_escape", kMbYesNo, false, true, -Qt::Key_Escape, kIdCancel, kRejected},
        AnswerCase{"question_enter_is_ok", kMbYesNo, false, true, -Qt::Key_Enter, kIdOk, kAccepted},
        AnswerCase{"bit_4_among_others", 0x24, false, true, kIdMessageYes, kIdYes, kAccepted},
        AnswerCase{"panel_confirmation", kMbYesNo, true, false, kIdOk, kIdOk, kAccepted}),
    [](const auto& tp) { return std::string(tp.param.name); });

struct StepCase {
    const char* name;
    ProgressRange range;
    int position;
    bool show;
    int value;
    bool finished;
};

class ProgressStepRule : public ::testing::TestWithParam<StepCase> {};

TEST_P(ProgressStepRule, BarValueAndFinished) {
    const StepCase& c = GetParam();
    const ProgressStep step = ComputeProgressStep(c.range, c.position);
    EXPECT_EQ(std::pair(step.show, step.finished), std::pair(c.show, c.finished));
    if (c.show) {
        EXPECT_EQ(step.value, c.value);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ProgressStepRule,
    ::testing::Values(
        StepCase{"direct_as_given", {10, 40, false}, 25, true, 25, false},
        StepCase{"direct_upper_finishes", {10, 40, false}, 40, true, 40, true},
        StepCase{"percent_of_span", {100, 300, true}, 150, true, 25, false},
        StepCase{"percent_truncates", {0, 3, true}, 1, true, 33, false},
        StepCase{"percent_exact_100", {0, 50, true}, 50, true, 100, true},
        StepCase{"percent_150_wraps_to_50", {0, 50, true}, 75, true, 50, false},
        StepCase{"percent_200_wraps_to_0", {0, 50, true}, 100, true, 0, false},
        StepCase{"percent_below_lower_is_0", {20, 70, true}, 5, true, 0, false},
        StepCase{"percent_zero_span_untouched", {7, 7, true}, 3, false, 0, false},
        StepCase{"zero_span_at_upper_finishes", {7, 7, true}, 7, false, 0, true},
        StepCase{"huge_position_no_overflow", {-1, 0, true}, 2147483647, true, 0, false}),
    [](const auto& tp) { return std::string(tp.param.name); });

TEST(UpdateProgress, BarRangeAndClosingByPhase) {
    const BarRange percent = BarRangeOf({3, 9, true}), direct = BarRangeOf({3, 9, false});
    EXPECT_EQ(std::tuple(percent.minimum, percent.maximum, direct.minimum, direct.maximum),
              std::tuple(0, 100, 3, 9));
    using enum DialogEnd;
    const DialogEnd okEnds[] = {StayOpen, StayOpen, StayOpen, Ok};
    const DialogEnd cancelEnds[] = {Cancel, StayOpen, StayOpen, Cancel};
    for (int phase = 0; phase <= 3; ++phase)
        EXPECT_EQ(std::pair(EndOnOk(phase), EndOnCancel(phase)),
                  std::pair(okEnds[phase], cancelEnds[phase])) << phase;
}

TEST(DialogUnits, TahomaEightToPixelsAndButtonsBecomeTouchTargets) {
    EXPECT_EQ(DialogUnitsToPixelsX(2), 3); // 2.5 rounds up
    EXPECT_EQ(DialogUnitsToPixelsY(3), 5); // 4.875
    EXPECT_EQ(DialogRectToPixels({9, 11, 130, 31}), (PixelRect{11, 18, 174, 68}));
    EXPECT_EQ(TouchRect({54, 51, 42, 14}), (PixelRect{68, 83, 120, 115}));
    EXPECT_EQ(TouchRect({0, 0, 10, 40}).Height(), 65); // a tall one stays as it is
    const PixelSize message = DialogPixelSize(150, 71, 14); // 115 + the 9 pixels the buttons grew
    EXPECT_EQ(std::pair(message.width, message.height), std::pair(188, 124));
    EXPECT_EQ(DialogPixelSize(150, 71, 40).height, 115);
}

TEST(MessageText, CutAt127Units) {
    const std::u16string longText(200, u'x');
    EXPECT_EQ(CutMessageText(longText.substr(0, 127)).size(), 127u);
    EXPECT_EQ(CutMessageText(u"short"), u"short");
    // A pair split by the cut loses its high half as well.
    for (char16_t high : {u'\xD800', u'\xDBFF'}) {
        std::u16string pairAtCut(126, u'x');
        pairAtCut += {high, u'\xDC00', u'y'};
        EXPECT_EQ(CutMessageText(pairAtCut), std::u16string(126, u'x'));
    }
    std::u16string pairBefore(125, u'x');
    pairBefore += u"\U0001F3B5y";
    EXPECT_EQ(CutMessageText(pairBefore), pairBefore.substr(0, 127));
}

// The update dialog: when the update starts and how it ends.
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
