// The message box's answers and what it shows; the About box's OK.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "config/local_text.h"
#include "res/string_table.h"
#include "tests/ui/main_frame_app.h"
#include "ui/widgets/dialogs/about_dialog.h"
#include "ui/widgets/dialogs/message_dialog.h"

namespace zelvor {
namespace {

void Click(QDialog& dialog, int id) {
    auto* button = dialog.findChild<QPushButton*>(QString::number(id));
    ASSERT_NE(button, nullptr);
    ASSERT_TRUE(button->isVisible()) << id;
    button->click();
}

struct AnswerCase {
    const char* name;
    int type;
    std::function<void(QDialog&)> answer;
    int result;
    int exitCode; // QDialog::Accepted or Rejected: how the dialog ended
};

class MessageAnswers : public ::testing::TestWithParam<AnswerCase> {
protected:
    void SetUp() override { testing::EnsureWidgetApplication(); }
};

TEST_P(MessageAnswers, ResultAndEnding) {
    const AnswerCase& c = GetParam();
    CMessageDialog dialog(nullptr);
    dialog.SetText(u"Delete the playlist?");
    dialog.SetType(c.type);
    int exitCode = -1;
    QObject::connect(&dialog, &QDialog::finished, [&](int code) { exitCode = code; });
    QTimer::singleShot(0, &dialog, [&] { c.answer(dialog); });
    EXPECT_EQ(dialog.DoModal(), c.result);
    EXPECT_EQ(dialog.Result(), c.result);
    EXPECT_EQ(exitCode, c.exitCode);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MessageAnswers,
    ::testing::Values(
        AnswerCase{"notice_ok", kMbOk, [](QDialog& d) { Click(d, kIdOk); }, kIdOk, QDialog::Accepted},
        AnswerCase{"notice_enter", kMbOk, [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Return); },
                   kIdOk, QDialog::Accepted},
        AnswerCase{"notice_escape", kMbOk, [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); },
                   kIdCancel, QDialog::Rejected},
        AnswerCase{"question_yes", kMbYesNo, [](QDialog& d) { Click(d, kIdMessageYes); }, kIdYes,
                   QDialog::Accepted},
        AnswerCase{"question_no_answers_1", kMbYesNo, [](QDialog& d) { Click(d, kIdMessageNo); },
                   kIdOk, QDialog::Rejected},
        AnswerCase{"question_escape", kMbYesNo,
                   [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); }, kIdCancel,
                   QDialog::Rejected},
        AnswerCase{"question_enter_is_ok", kMbYesNo,
                   [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Enter); }, kIdOk,
                   QDialog::Accepted}),
    [](const auto& tp) { return std::string(tp.param.name); });

struct ShownCase {
    const char* name;
    int type;
    bool onlyOk;
    bool question; // Yes and No shown, OK hidden
};

class MessageButtons : public ::testing::TestWithParam<ShownCase> {
protected:
    void SetUp() override { testing::EnsureWidgetApplication(); }
};

TEST_P(MessageButtons, OnOpening) {
    const ShownCase& c = GetParam();
    CMessageDialog dialog(nullptr);
    dialog.SetType(c.type);
    if (c.onlyOk)
        dialog.ShowOnlyOk();
    dialog.show();
    EXPECT_EQ(dialog.Item(kIdOk)->isVisible(), !c.question);
    EXPECT_EQ(dialog.Item(kIdMessageYes)->isVisible(), c.question);
    EXPECT_EQ(dialog.Item(kIdMessageNo)->isVisible(), c.question);
}

INSTANTIATE_TEST_SUITE_P(Cases, MessageButtons,
                         ::testing::Values(ShownCase{"notice", kMbOk, false, false},
                                           ShownCase{"question", kMbYesNo, false, true},
                                           ShownCase{"bit_4_among_others", 0x24, false, true},
                                           ShownCase{"panel_confirmation", kMbYesNo, true, false}),
                         [](const auto& tp) { return std::string(tp.param.name); });

TEST(MessageText, ShownAsSetOrEmpty) {
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
    EXPECT_FALSE(dialog.Text().empty());
    dialog.SetText(std::uint16_t{1}); // no such text
    EXPECT_EQ(shown(), u"");
}

TEST(AboutBox, OkClosesWithOne) {
    testing::EnsureWidgetApplication();
    CAboutDialog about(nullptr);
    EXPECT_EQ(about.windowTitle(), QStringLiteral("About MP3 Player"));
    QTimer::singleShot(0, &about, [&] { Click(about, kIdOk); });
    EXPECT_EQ(about.DoModal(), kIdOk);
}

} // namespace
} // namespace zelvor
