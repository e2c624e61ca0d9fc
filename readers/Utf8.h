#pragma once

#include <string>
#include <string_view>

namespace readers {

bool isUtf8(std::string_view text);
/// The text with U+FFFD in place of everything that is not UTF-8, as exports have it.
std::string toWellFormed(std::string_view text);

}  // namespace readers
