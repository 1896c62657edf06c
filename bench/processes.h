#pragma once
// Other programs that benchmarks run.

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace bench {

/// Starts a program and gives its process, 0 if it can't be started; `output` takes what it prints.
inline pid_t start(const std::vector<std::string>& words, int output = -1) {
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (const auto& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    if (output >= 0) posix_spawn_file_actions_adddup2(&actions, output, 1);
    pid_t pid = 0;
    const int failed = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return failed ? 0 : pid;
}

inline void end(pid_t pid) {
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

/// Starts an X server on a free display number and returns its process; sets DISPLAY. `screen`: width x
/// height x depth.
inline pid_t startServer(const char* screen = "1280x800x24") {
    int ends[2];
    if (pipe(ends) != 0) return 0;
    const pid_t server =
        start({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp"}, ends[1]);
    close(ends[1]);
    char number[16] = {};
    const ssize_t got = server ? read(ends[0], number, sizeof number - 1) : 0;
    close(ends[0]);
    if (got <= 0) return 0;
    setenv("DISPLAY", (":" + std::to_string(std::atoi(number))).c_str(), 1);
    return server;
}

} // namespace bench
