// Pictures of the dialogs, centred on the player screen of each orientation,
// for people to look at; and the one rule they show: every dialog fits both.
#include <gtest/gtest.h>

#include <QPainter>

#include "config/local_text.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tests/ui/dialogs_update_fixture.h"
#include "ui/widgets/dialogs/about_dialog.h"
#include "ui/widgets/dialogs/message_dialog.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

struct Screen {
    const char* name;
    int width, height;
    BitmapId background;
};
constexpr Screen kScreens[] = {{"240x320", 240, 320, kBmpPortraitBackground},
                               {"320x240", 320, 240, kBmpLandscapeBackground}};

void SaveOnScreens(QWidget& dialog, const QImage& picture, const char* name) {
    for (const Screen& screen : kScreens) {
        EXPECT_LE(dialog.width(), screen.width) << name;
        EXPECT_LE(dialog.height(), screen.height) << name;
        QImage image = LoadSkinBitmap(ProgramResourceHandle(), screen.background)
                           .convertToFormat(QImage::Format_RGB32);
        ASSERT_FALSE(image.isNull());
        QPainter painter(&image);
        painter.drawImage((screen.width - picture.width()) / 2,
                          (screen.height - picture.height()) / 2, picture);
        painter.end();
        const auto path = testing::ArtifactDir() / (std::string(name) + "_" + screen.name + ".png");
        EXPECT_TRUE(image.save(QString::fromStdString(path.string())));
    }
}

TEST(DialogPictures, MessageAndAbout) {
    testing::EnsureWidgetApplication();
    CMessageDialog notice(nullptr);
    notice.SetText(FormatText(LoadBuiltInText(kTextPlaylistExists), u"Road trip"));
    notice.show();
    SaveOnScreens(notice, notice.grab().toImage(), "message_notice");
    CMessageDialog question(nullptr);
    question.SetText(FormatText(LoadBuiltInText(kTextDeletePlaylistQuestion), u"Road trip"));
    question.SetType(kMbYesNo);
    question.show();
    SaveOnScreens(question, question.grab().toImage(), "message_question");
    CMessageDialog longest(nullptr);
    longest.SetText(std::u16string(u"A notice as long as the dialog takes it: every one of its "
                                   u"characters must still be on show inside the frame, up to here."));
    longest.show();
    SaveOnScreens(longest, longest.grab().toImage(), "message_longest");
    CAboutDialog about(nullptr);
    about.show();
    SaveOnScreens(about, about.grab().toImage(), "about");
}

TEST(DialogPictures, UpdateWhileAdding) {
    testing::UpdateDialogRig rig;
    auto dialog = rig.MakeDialog();
    QImage picture;
    rig.onBuild = [&](int count) {
        if (count == 3) { // the second record is counted and the bar moved
            picture = dialog->grab().toImage();
            testing::UpdateDialogRig::PostKey(*dialog, Qt::Key_Escape);
        }
    };
    dialog->DoModal();
    ASSERT_FALSE(picture.isNull());
    SaveOnScreens(*dialog, picture, "update_adding");
}

} // namespace
} // namespace zelvor
