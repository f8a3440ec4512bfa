// The message box's buttons, answers and text; the About box's OK. Every
// dialog fits the screen in both orientations, and one picture of each look
// is left for people to see.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "app/local_text.h"
#include "res/string_table.h"
#include "tests/ui/lists_sink.h"
#include "tests/ui/main_frame_app.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/message_dialog.h"

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

// 240x320 and 320x240; the picture under the given name, if any.
void FitsAndSave(QWidget& dialog, const char* picture) {
    EXPECT_LE(std::max(dialog.width(), dialog.height()), 240);
    if (picture)
        testing::SavePicture(dialog, picture);
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
    testing::EnsureWidgetApplication();
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
        FitsAndSave(dialog, c.picture);
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
        AnswerCase{"question_yes", kMbYesNo, false, true, kIdMessageYes, kIdYes, kAccepted,
                   "message_question"},
        AnswerCase{"question_no_answers_1", kMbYesNo, false, true, kIdMessageNo, kIdOk, kRejected},
        AnswerCase{"question_escape", kMbYesNo, false, true, -Qt::Key_Escape, kIdCancel, kRejected},
        AnswerCase{"question_enter_is_ok", kMbYesNo, false, true, -Qt::Key_Enter, kIdOk, kAccepted},
        AnswerCase{"bit_4_among_others", 0x24, false, true, kIdMessageYes, kIdYes, kAccepted},
        AnswerCase{"panel_confirmation", kMbYesNo, true, false, kIdOk, kIdOk, kAccepted}),
    [](const auto& tp) { return std::string(tp.param.name); });

TEST(MessageText, ShownCutAsSetOrEmpty) {
    testing::EnsureWidgetApplication();
    CMessageDialog dialog(nullptr);
    const auto shown = [&] {
        dialog.show();
        dialog.hide();
        return static_cast<QLabel*>(dialog.Item(kIdMessageText))->text().toStdU16String();
    };
    dialog.SetText(std::u16string(300, u'a'));
    EXPECT_EQ(shown(), std::u16string(127, u'a'));
    dialog.SetText(kTextRenameFailed); // the built-in English text
    EXPECT_EQ(shown(), std::u16string(LoadBuiltInText(kTextRenameFailed)));
    dialog.SetText(std::uint16_t{1}); // no such text
    EXPECT_EQ(shown(), u"");
}

TEST(AboutBox, OkClosesWithOne) {
    testing::EnsureWidgetApplication();
    CAboutDialog about(nullptr);
    QTimer::singleShot(0, &about, [&] {
        FitsAndSave(about, "about");
        Answer(about, kIdOk);
    });
    EXPECT_EQ(about.DoModal(), kIdOk);
}

} // namespace
} // namespace zelvor
