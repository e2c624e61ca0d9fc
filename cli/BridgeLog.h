#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "Console.h"
#include "ZORLog.h"

namespace cli {

/// Hands a bridge's events to the console, as messages about the source.
class BridgeLog : public ZORLog {
  public:
    BridgeLog(const std::string& sourceName, Console& console) : sourceName_(sourceName), console_(console) {}
    void log(const ZORLogEvent& event) override;

  private:
    const std::string& sourceName_;
    Console& console_;
};

/// Takes a text such as "[QLT_SQMDC_F0002] Unable to ..." apart: the identifier, empty where there is none,
/// and the rest.
std::pair<std::string, std::string> splitMessageId(std::string_view text);

}  // namespace cli
