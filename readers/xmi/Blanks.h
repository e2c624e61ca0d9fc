#pragma once

#include <string_view>

namespace readers::xmi {

/// What XML takes for blank (XML 1.0, production S).
inline constexpr std::string_view BLANKS = " \t\r\n";

/// The text without the blanks at both its ends.
inline std::string_view trim(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

}  // namespace readers::xmi
