#pragma once

#include <string>
#include <vector>

#include "ZORLog.h"

namespace support {

/// A log that keeps its events.
class CollectingLog : public ZORLog {
  public:
    void log(const ZORLogEvent& event) override { events_.push_back(event); }

    const std::vector<ZORLogEvent>& events() const { return events_; }
    /// A line "[identifier] text" for each event.
    std::string lines() const {
        std::string text;
        for (const ZORLogEvent& event : events_) {
            text.append("[").append(event.getMessageId()).append("] ").append(event.getText()).append("\n");
        }
        return text;
    }
    void clear() { events_.clear(); }

  private:
    std::vector<ZORLogEvent> events_;
};

}  // namespace support
