#include "SqliteShell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

pid_t start(std::string database, std::string command, const std::string& output) {
    std::string program = "sqlite3";
    char* const arguments[] = {program.data(), database.data(), command.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0666);
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::runtime_error("cannot run sqlite3, which Debian's package of that name holds: " +
                                 std::string(std::strerror(error)));
    }
    return process;
}

}  // namespace

double runSqliteShell(const std::string& database, const std::string& command, const std::string& output) {
    const pid_t process = start(database, command, output);
    int status = 0;
    rusage usage = {};
    if (wait4(process, &status, 0, &usage) != process || status != 0) {
        throw std::runtime_error("sqlite3 failed on \"" + database + "\"");
    }
    return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

}  // namespace bench
