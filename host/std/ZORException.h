#pragma once

#include <exception>

#include "ZORString.h"

/// What ends an operation: a text for the user, message identifier included where the message has one.
class ZORException : public std::exception {
  public:
    explicit ZORException(ZORString text) : text_(std::move(text)) {}
    ZORException(const ZORException&) = default;
    ~ZORException() override;

    const ZORString& getText() const noexcept { return text_; }
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    ZORString text_;
};

/// Prints the expression with the source name and line given and aborts. For programming errors only: no
/// input that was checked reaches one.
[[noreturn]] void zorAssertionFailed(const char* expression, const char* source, int line) noexcept;
