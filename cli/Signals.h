#pragma once

#include <csignal>
#include <string>

namespace cli::signals {

/// Makes SIGINT, SIGTERM and SIGHUP end the program with exit code 130, after removing the temporary file
/// that is registered at that moment and writing `farewell` to standard error; those that the program was
/// started with as ignored stay so.
void install(const std::string& farewell);

/// Keeps the signals of `install` away from this thread for its lifetime: for steps that a signal must find
/// done or not begun. Threads that are started meanwhile never get them, so that the main thread always does.
class Blocker {
  public:
    Blocker();
    ~Blocker();
    Blocker(const Blocker&) = delete;
    Blocker& operator=(const Blocker&) = delete;

  private:
    sigset_t before_;
};

/// Registers the file that a signal is to remove: a name in an open folder. There is one at a time.
void registerTemporary(int folder, const std::string& name);
void forgetTemporary();

/// To be called first of all. A closed pipe and a file that grows beyond its limit become errors of the write
/// instead of signals. Standard descriptors that are closed are opened, so that no other file takes their
/// numbers; reading from or writing to them fails, as it would have.
void prepareProcess();

}  // namespace cli::signals
