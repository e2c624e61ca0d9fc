#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "Console.h"

namespace cli {

/// Shows on a terminal how far a long run has come: nothing at first, then a line that a thread of
/// its own brings up to date. Where progress may not be shown, it does nothing.
class Progress {
  public:
    explicit Progress(Console& console, std::chrono::milliseconds firstDelay = std::chrono::seconds(1));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Ends the line for good.
    void stop();

    /// A part of the run with something to say, as long as it lives.
    class Stage {
      public:
        /// `describe` gives the line's text; the other thread calls it.
        Stage(Progress& progress, std::function<std::string()> describe) : progress_(progress) {
            progress_.show(std::move(describe));
        }
        ~Stage() { progress_.show(nullptr); }
        Stage(const Stage&) = delete;
        Stage& operator=(const Stage&) = delete;

      private:
        Progress& progress_;
    };

  private:
    void show(std::function<std::string()> describe);
    void run(const std::stop_token& stop);
    void showOnce() noexcept;

    Console& console_;
    std::chrono::milliseconds firstDelay_;
    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::function<std::string()> describe_;
    std::jthread thread_;
};

}  // namespace cli
