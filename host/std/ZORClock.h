#pragma once

#include <ctime>
#include <optional>

/// The one clock of an export: documents take their time from here and from nowhere else.
class ZORClock {
  public:
    /// From now on the clock stands still at this moment (seconds since 1970 in UTC), and `now` tells it in
    /// UTC, so that documents are the same in every time zone; no moment lets it run again. Not to be called
    /// while an export runs.
    static void setFixed(std::optional<std::time_t> moment) noexcept;
    /// The local time, or the fixed moment in UTC.
    static std::tm now() noexcept;
};
