#include "Progress.h"

#include <new>

#include "Signals.h"

namespace cli {

namespace {

constexpr std::chrono::milliseconds INTERVAL(200);

}  // namespace

Progress::Progress(Console& console, std::chrono::milliseconds firstDelay)
    : console_(console), firstDelay_(firstDelay) {
    if (console_.canShowProgress()) {
        const signals::Blocker blocker;
        thread_ = std::jthread([this](const std::stop_token& token) { run(token); });
    }
}

Progress::~Progress() {
    stop();
}

void Progress::show(std::function<std::string()> describe) {
    const std::lock_guard lock(mutex_);
    describe_ = std::move(describe);
}

void Progress::stop() {
    if (thread_.joinable()) {
        thread_.request_stop();
        thread_.join();
        console_.clearProgress();
    }
}

/// Without memory for the line there is none: the work itself will tell.
void Progress::showOnce() noexcept {
    try {
        if (describe_) {
            console_.showProgress(describe_());
        }
    } catch (const std::bad_alloc&) {
        return;
    }
}

void Progress::run(const std::stop_token& token) {
    std::unique_lock lock(mutex_);
    std::chrono::milliseconds delay = firstDelay_;
    while (!wake_.wait_for(lock, token, delay, [&] { return token.stop_requested(); })) {
        showOnce();
        delay = INTERVAL;
    }
}

}  // namespace cli
