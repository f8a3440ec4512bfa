#include "ui/rules/skin/skin_choice.h"

#include <array>

namespace zelvor {
namespace {

constexpr std::array<std::u16string_view, 4> kModuleFiles = {
    u"ZelvorBlue.rcc", u"ZelvorRed.rcc", u"ZelvorOrange.rcc", u"ZelvorGreen.rcc"};

} // namespace

std::u16string_view SkinModuleFileName(std::uint16_t colour) {
    if (colour == 0 || colour > kModuleFiles.size()) {
        return {};
    }
    return kModuleFiles[colour - 1u];
}

std::optional<std::u16string> SkinModulePath(std::u16string_view programDirectory,
                                             std::uint16_t colour) {
    if (colour == 0) {
        return std::nullopt;
    }
    // Plain concatenation, not JoinDevicePath: a colour without a file must
    // keep its trailing separator so that it names the folder and fails.
    std::u16string path(programDirectory);
    path += u'\\';
    path += SkinModuleFileName(colour);
    return path;
}

SkinSelectionPlan PlanSkinSelection(SkinSource held, std::u16string_view programDirectory,
                                    std::uint16_t colour) {
    SkinSelectionPlan plan;
    // The program's own images are never released.
    plan.releaseHeld = held == SkinSource::Module;
    plan.loadPath = SkinModulePath(programDirectory, colour);
    return plan;
}

SkinSource EffectiveSkinSource(SkinSource held) {
    return held == SkinSource::None ? SkinSource::Program : held;
}

} // namespace zelvor
