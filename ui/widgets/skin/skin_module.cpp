#include "ui/widgets/skin/skin_module.h"

#include <QResource>
#include <memory>
#include <optional>
#include <vector>

#include "platform/device.h"
#include "ui/rules/skin/resource_bundle_check.h"

// The program's own images are compiled into a static library; naming its
// initialiser keeps the linker from dropping it.
static void InitProgramSkinResources() {
    Q_INIT_RESOURCE(zelvor_skin_builtin);
}

namespace zelvor {
namespace {

const QString kProgramRoot = QStringLiteral(":/zelvor/skin/program");
// A colour bundle is registered under a fresh folder each time, so a handle
// kept from before a change of colour finds nothing rather than other images.
const QString kModuleRootBase = QStringLiteral("/zelvor/skin/module/");
// Bundles are a few hundred kilobytes; anything far larger is not one.
constexpr std::uint64_t kMaxBundleBytes = std::uint64_t{64} << 20;

struct LoadedBundle {
    std::vector<std::byte> bytes; // registered with Qt for as long as it is held
    QString mapRoot;
};

struct SkinState {
    SkinSource held = SkinSource::None;
    std::unique_ptr<LoadedBundle> bundle;
    int generation = 0;
};

SkinState& State() {
    static SkinState state;
    return state;
}

void FreeBundle(SkinState& state) {
    if (state.bundle) {
        QResource::unregisterResource(
            reinterpret_cast<const uchar*>(state.bundle->bytes.data()), state.bundle->mapRoot);
        state.bundle.reset();
    }
    state.held = SkinSource::None;
}

std::unique_ptr<LoadedBundle> LoadBundle(const std::u16string& devicePath, int generation) {
    Device* device = CurrentDevicePointer();
    if (device == nullptr) {
        return nullptr;
    }
    auto bytes = device->FileSystem().ReadWholeFile(devicePath, kMaxBundleBytes);
    if (!bytes || !IsValidResourceBundle(*bytes)) {
        return nullptr;
    }
    auto bundle = std::make_unique<LoadedBundle>();
    bundle->bytes = std::move(*bytes);
    bundle->mapRoot = kModuleRootBase + QString::number(generation);
    if (!QResource::registerResource(reinterpret_cast<const uchar*>(bundle->bytes.data()),
                                     bundle->mapRoot)) {
        return nullptr;
    }
    return bundle;
}

} // namespace

SkinHandle MakeSkinHandle(SkinSource source, QString root) {
    SkinHandle handle;
    handle.m_source = source;
    handle.m_root = std::move(root);
    return handle;
}

namespace {

SkinHandle HandleOf(const SkinState& state) {
    switch (state.held) {
    case SkinSource::Program:
        return ProgramResourceHandle();
    case SkinSource::Module:
        return MakeSkinHandle(SkinSource::Module, QLatin1Char(':') + state.bundle->mapRoot);
    case SkinSource::None:
        break;
    }
    return {};
}

} // namespace

SkinHandle ProgramResourceHandle() {
    static const bool initialised = (InitProgramSkinResources(), true);
    (void)initialised;
    return MakeSkinHandle(SkinSource::Program, kProgramRoot);
}

SkinHandle SelectSkinModule(std::uint16_t colour) {
    SkinState& state = State();
    const std::u16string programDirectory =
        CurrentDevicePointer() != nullptr ? CurrentDevice().ProgramDirectory() : std::u16string();
    const SkinSelectionPlan plan = PlanSkinSelection(state.held, programDirectory, colour);
    if (plan.releaseHeld) {
        FreeBundle(state);
    }
    if (!plan.loadPath) {
        state.held = SkinSource::Program;
        return HandleOf(state);
    }
    state.bundle = LoadBundle(*plan.loadPath, ++state.generation);
    state.held = state.bundle ? SkinSource::Module : SkinSource::None;
    return HandleOf(state);
}

SkinHandle SkinResourceHandle() {
    SkinState& state = State();
    state.held = EffectiveSkinSource(state.held);
    return HandleOf(state);
}

void ReleaseSkinModule() {
    FreeBundle(State());
}

QImage LoadSkinBitmap(const SkinHandle& handle, BitmapId id) {
    if (handle.IsEmpty()) {
        return {};
    }
    if (handle.Source() == SkinSource::Program) {
        ProgramResourceHandle(); // registers the program's images on first use
    }
    return QImage(handle.Root() + QLatin1Char('/') + QString::number(id) + QStringLiteral(".png"));
}

} // namespace zelvor
