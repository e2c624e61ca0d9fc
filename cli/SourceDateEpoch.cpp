#include "SourceDateEpoch.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdlib>
#include <string_view>

#include "Failure.h"
#include "ZORClock.h"

namespace cli {

namespace {

constexpr const char* VARIABLE = "SOURCE_DATE_EPOCH";
/// The last second of the year 9999.
constexpr std::time_t LATEST = 253402300799;

}  // namespace

void applySourceDateEpoch() {
    const char* value = std::getenv(VARIABLE);
    const std::string_view text = value == nullptr ? "" : value;
    if (text.empty()) {
        return;
    }
    std::time_t moment = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), moment);
    if (error != std::errc() || end != text.data() + text.size() || moment < 0 || moment > LATEST) {
        throw Failure(
            ExitCode::WRONG_USE, VARIABLE,
            fmt::format("\"{}\" is no number of seconds from 0 to {}", text, LATEST),
            "\"date +%s\" prints such a number; without the variable, documents carry the time of day");
    }
    ZORClock::setFixed(moment);
}

}  // namespace cli
