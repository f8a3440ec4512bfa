#include "tools/zelvor_demo/process_runner.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace zelvor::demo {
namespace fs = std::filesystem;
namespace {

// Starts one job; the process id, or -1 when it could not be started.
pid_t Start(const ProcessJob& job) {
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0)
        return -1;
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, job.log.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    std::vector<char*> argv;
    for (const std::string& arg : job.argv)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    pid_t pid = -1;
    int rc = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return rc == 0 ? pid : -1;
}

std::string LastLineOf(const fs::path& log) {
    std::ifstream in(log);
    std::string line, last;
    while (std::getline(in, line)) {
        if (line.find_first_not_of(" \t\r") != std::string::npos)
            last = line;
    }
    return last;
}

std::string DescribeEnd(int status, const fs::path& log) {
    std::string last = LastLineOf(log);
    if (!last.empty())
        return last;
    if (WIFSIGNALED(status))
        return "killed by signal " + std::to_string(WTERMSIG(status));
    return "exit status " + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
}

} // namespace

std::optional<fs::path> FindProgram(std::string_view name) {
    const char* path = std::getenv("PATH");
    if (path == nullptr || name.empty())
        return std::nullopt;
    std::string_view folders(path);
    while (true) {
        std::size_t colon = folders.find(':');
        std::string_view folder = folders.substr(0, colon);
        fs::path candidate = fs::path(folder.empty() ? "." : folder) / name;
        std::error_code ec;
        if (fs::is_regular_file(candidate, ec) && ::access(candidate.c_str(), X_OK) == 0)
            return candidate;
        if (colon == std::string_view::npos)
            return std::nullopt;
        folders.remove_prefix(colon + 1);
    }
}

std::optional<ProcessFailure> RunProcesses(std::span<const ProcessJob> jobs, int maxParallel) {
    std::map<pid_t, std::size_t> running;
    std::optional<ProcessFailure> failure;
    std::size_t next = 0;
    auto record = [&](std::size_t job, std::string reason, int exitStatus) {
        if (!failure || job < failure->job)
            failure = ProcessFailure{job, std::move(reason), exitStatus};
    };
    while (next < jobs.size() || !running.empty()) {
        while (!failure && next < jobs.size() &&
               static_cast<int>(running.size()) < std::max(1, maxParallel)) {
            pid_t pid = Start(jobs[next]);
            if (pid < 0)
                record(next, "cannot start " + jobs[next].argv.front(), -1);
            else
                running.emplace(pid, next);
            ++next;
        }
        if (failure)
            next = jobs.size();
        if (running.empty())
            break;
        int status = 0;
        pid_t pid = ::waitpid(-1, &status, 0);
        if (pid < 0 && errno == EINTR)
            continue;
        if (pid < 0)
            break; // no child left to wait for
        auto it = running.find(pid);
        if (it == running.end())
            continue;
        std::size_t job = it->second;
        running.erase(it);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            record(job, DescribeEnd(status, jobs[job].log),
                   WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    }
    return failure;
}

} // namespace zelvor::demo
