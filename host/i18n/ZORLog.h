#pragma once

#include "ZORString.h"

/// How grave an event is. The catalogues write it as a word; its first letter stands in message identifiers.
enum class ZORSeverity { INFORMATION, WARNING, ERROR, FATAL };

/// The word of a severity: "INFORMATION", "WARNING", "ERROR" or "FATAL".
const char* getSeverityText(ZORSeverity severity) noexcept;
/// The severity of a catalogue's word; an unknown word counts as ERROR.
ZORSeverity getSeverity(const ZORString& word) noexcept;

/// One thing worth telling the user.
class ZORLogEvent {
  public:
    ZORLogEvent(ZORString text, ZORString messageId, ZORSeverity severity, ZORString extraText)
        : text_(std::move(text)),
          messageId_(std::move(messageId)),
          extraText_(std::move(extraText)),
          severity_(severity) {}

    const ZORString& getText() const noexcept { return text_; }
    /// The catalogue's identifier, such as "QLT_SQMDC_W0006".
    const ZORString& getMessageId() const noexcept { return messageId_; }
    ZORSeverity getSeverity() const noexcept { return severity_; }
    const ZORString& getExtraText() const noexcept { return extraText_; }

  private:
    ZORString text_;
    ZORString messageId_;
    ZORString extraText_;
    ZORSeverity severity_;
};

/// Where a bridge's events go; the host supplies one for each run.
class ZORLog {
  public:
    virtual ~ZORLog() = default;
    virtual void log(const ZORLogEvent& event) = 0;
};
