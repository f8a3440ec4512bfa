#pragma once
// Runs other programs (ffmpeg) without a shell: each argument reaches the
// program as it is, so titles and paths with spaces, quotes or non-ASCII
// characters need no quoting. Standard output and standard error of a job go
// to its log file, whose last line explains a failure.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor::demo {

struct ProcessJob {
    std::vector<std::string> argv; // argv[0] is the program's path
    std::filesystem::path log;     // created or truncated
};

struct ProcessFailure {
    std::size_t job = 0; // index of the job that failed
    std::string reason;  // one line: the log's last line, or how it ended
    int exitStatus = -1; // -1 when it was not started or ended by a signal
};

// The first executable file called `name` in the folders of $PATH.
std::optional<std::filesystem::path> FindProgram(std::string_view name);

// Runs the jobs, at most maxParallel at once, in order of their index. After
// the first failure no further job is started; the running ones are waited
// for. nullopt when every job exited with status 0.
std::optional<ProcessFailure> RunProcesses(std::span<const ProcessJob> jobs, int maxParallel);

} // namespace zelvor::demo
