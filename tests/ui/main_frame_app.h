#pragma once
// The widget tests' application: one QApplication on the offscreen
// platform for the whole test program, and helpers around its event loop.

#include <filesystem>
#include <functional>

class QWidget;

namespace zelvor::testing {

void EnsureWidgetApplication();
// Handles pending events for at least this long.
void SpinEvents(int milliseconds = 50);
// Handles events until the condition holds or the time is up; its last value.
bool SpinUntil(const std::function<bool()>& condition, int timeoutMs = 5000);
// Where tests leave pictures for people to look at: $TEST_OUTPUT_DIR, else
// the build's artifacts folder; made when missing.
std::filesystem::path ArtifactDir();

} // namespace zelvor::testing
