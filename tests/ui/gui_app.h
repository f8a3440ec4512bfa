#pragma once
// Painting text needs a GUI application (for the font database); the tests
// make one on the offscreen platform, once, for the whole test program.

namespace zelvor::testing {

void EnsureGuiApplication();

} // namespace zelvor::testing
