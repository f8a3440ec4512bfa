#pragma once
// The Qt test programs' application: one QApplication on the offscreen
// platform for the whole program (widgets, painting text and event loops all
// need one), helpers around its event loop, and where pictures go.

#include <QImage>
#include <QPainter>
#include <filesystem>
#include <functional>

namespace zelvor::testing {

void EnsureQtApplication();
// Handles pending events for at least this long.
void SpinEvents(int milliseconds = 50);
// Handles events until the condition holds or the time is up; its last value.
bool SpinUntil(const std::function<bool()>& condition, int timeoutMs = 5000);

// Where tests leave pictures for people to look at: $TEST_OUTPUT_DIR, else
// `fallback`; made when missing.
std::filesystem::path ArtifactDirOr(const std::filesystem::path& fallback);
#ifdef ZELVOR_ARTIFACT_DIR
// The test program's own folder under the build's artifacts.
inline std::filesystem::path ArtifactDir() {
    return ArtifactDirOr(ZELVOR_ARTIFACT_DIR);
}
#endif

// A copy of `target` after `draw` painted on it.
template <typename Draw>
QImage Painted(QImage target, Draw draw) {
    QPainter painter(&target);
    draw(painter);
    painter.end();
    return target;
}

} // namespace zelvor::testing
