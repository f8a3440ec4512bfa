#pragma once
// The watchers and the D-Bus service need an event loop: one application for
// the whole test program.

namespace zelvor::testing {

void EnsureCoreApplication();

} // namespace zelvor::testing
