#include "ZORLog.h"

#include <array>

namespace {

constexpr std::array SEVERITY_WORDS = {"INFORMATION", "WARNING", "ERROR", "FATAL"};

}  // namespace

const char* getSeverityText(ZORSeverity severity) noexcept {
    return SEVERITY_WORDS[static_cast<std::size_t>(severity)];
}

ZORSeverity getSeverity(const ZORString& word) noexcept {
    for (std::size_t i = 0; i < SEVERITY_WORDS.size(); ++i) {
        if (word == SEVERITY_WORDS[i]) {
            return static_cast<ZORSeverity>(i);
        }
    }
    return ZORSeverity::ERROR;
}
