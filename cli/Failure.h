#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "ExitCode.h"

namespace cli {

/// What ends the program before its work is done: an exit code and the message that explains it.
class Failure : public std::runtime_error {
  public:
    /// `subject` is what the message is about: a file, an option; empty for the program as a whole.
    Failure(ExitCode code, std::string subject, const std::string& text, std::string hint = {})
        : std::runtime_error(text), subject_(std::move(subject)), hint_(std::move(hint)), code_(code) {}

    /// With the identifier that the message has in a bridge's catalogue.
    Failure(ExitCode code, std::string subject, std::string id, const std::string& text, std::string hint)
        : Failure(code, std::move(subject), text, std::move(hint)) {
        id_ = std::move(id);
    }

    ExitCode code() const noexcept { return code_; }
    const std::string& subject() const noexcept { return subject_; }
    /// Without brackets; may be empty.
    const std::string& id() const noexcept { return id_; }
    /// What to do next; may be empty.
    const std::string& hint() const noexcept { return hint_; }

  private:
    std::string subject_;
    std::string id_;
    std::string hint_;
    ExitCode code_;
};

}  // namespace cli
