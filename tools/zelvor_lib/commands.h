#pragma once
// The zelvor-lib commands. Each takes the arguments after its name and
// returns the process exit status; each lives in its own command_*.cpp.

#include <string>
#include <vector>

namespace zelvor {

using Arguments = std::vector<std::string>;

int RunInfoCommand(const Arguments& args);
int RunTextCommand(const Arguments& args);

} // namespace zelvor
