#include "desktop/card_presence.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(ParseMountPoints, FifthFieldWithEscapesDecodedAndBrokenLinesSkipped) {
    const std::string table =
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "98 22 8:17 / /media/ann/MY\\040CARD rw,nosuid shared:50 - vfat /dev/sdb1 rw\n"
        "99 22 0:5 /x /mnt/back\\134slash\\011tab rw - tmpfs none rw\n"
        "short line\n"
        "100 22 0:6 / relative rw - tmpfs none rw\n"
        "101 22 0:7 / /bad\\091 rw - tmpfs none rw\n"
        "103 22 0:9 / /media/usb0123 rw - vfat none rw\n"
        "104 22 0:9 / /ends\\040 rw - vfat none rw\n"
        "\n"
        "102 22 0:8 / /trailing";
    const std::vector<std::string> expected = {"/", "/media/ann/MY CARD",
                                               "/mnt/back\\slash\ttab", "/bad\\091",
                                               "/media/usb0123", "/ends "};
    EXPECT_EQ(ParseMountPoints(table), expected);
}

struct Step {
    bool exists;
    bool mounted;
    std::optional<int> message;
};

struct PresenceCase {
    const char* name;
    CardObservation start;
    bool presentAtStart;
    std::vector<Step> steps;
};

class CardPresenceTest : public ::testing::TestWithParam<PresenceCase> {};

TEST_P(CardPresenceTest, MessagesFollowTheCard) {
    const PresenceCase& c = GetParam();
    CardPresence presence(c.start);
    EXPECT_EQ(presence.Present(), c.presentAtStart);
    for (size_t i = 0; i < c.steps.size(); ++i) {
        const Step& s = c.steps[i];
        EXPECT_EQ(presence.Update({s.exists, s.mounted}), s.message) << "step " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CardPresenceTest,
    ::testing::Values(
        // A plain folder (~/Music, a bind folder): its existence is the card.
        PresenceCase{"PlainFolderRemovedAndRecreated", {true, false}, true,
                     {{true, false, std::nullopt}, {false, false, 0}, {false, false, std::nullopt},
                      {true, false, 1}}},
        PresenceCase{"MissingAtStartThenCreated", {false, false}, false,
                     {{true, false, 1}}},
        // A medium under /media: the folder comes and goes with the mount.
        PresenceCase{"MediaFolderUnmountedAndMounted", {true, true}, true,
                     {{false, false, 0}, {true, true, 1}}},
        // A fixed mount point stays behind, empty, when the medium goes.
        PresenceCase{"FixedMountPointLeftBehind", {true, true}, true,
                     {{true, false, 0}, {true, false, std::nullopt}, {true, true, 1}}},
        PresenceCase{"FolderMountedOverLater", {true, false}, true,
                     {{true, true, std::nullopt}, {true, false, 0}}}),
    [](const auto& tp) { return std::string(tp.param.name); });

} // namespace
} // namespace zelvor
