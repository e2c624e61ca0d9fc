#include "BridgeLog.h"

namespace cli {

namespace {

Level levelOf(ZORSeverity severity) {
    switch (severity) {
        case ZORSeverity::INFORMATION:
            return Level::NOTE;
        case ZORSeverity::WARNING:
            return Level::WARNING;
        case ZORSeverity::ERROR:
        case ZORSeverity::FATAL:
            break;
    }
    return Level::ERROR;
}

}  // namespace

void BridgeLog::log(const ZORLogEvent& event) {
    std::string text(event.getText().view());
    if (!event.getExtraText().isEmpty()) {
        text.append(" (").append(event.getExtraText().view()).append(")");
    }
    console_.print({.level = levelOf(event.getSeverity()),
                    .subject = sourceName_,
                    .id = std::string(event.getMessageId().view()),
                    .text = std::move(text)});
}

std::pair<std::string, std::string> splitMessageId(std::string_view text) {
    const std::size_t end = text.find("] ");
    if (!text.starts_with('[') || end == std::string_view::npos) {
        return {{}, std::string(text)};
    }
    return {std::string(text.substr(1, end - 1)), std::string(text.substr(end + 2))};
}

}  // namespace cli
