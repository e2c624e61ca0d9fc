#include "ZORLiterals.h"

#include <algorithm>

namespace {

/// Zeros in front of a code fill it up to four digits.
constexpr std::string_view BLANK_GLOBAL_CODE = "0000";

}  // namespace

ZORString ZORTextParameters::createText() const {
    ZORString result;
    std::string_view rest = text_.view();
    while (!rest.empty()) {
        const std::size_t brace = rest.find('{');
        if (brace == std::string_view::npos || brace + 2 >= rest.size()) {
            break;
        }
        const std::size_t index = static_cast<unsigned char>(rest[brace + 1]) - std::size_t{'0'};
        const bool filled = index < values_.size() && rest[brace + 2] == '}' && values_[index] != nullptr;
        result.append(rest.substr(0, filled ? brace : brace + 1));
        if (filled) {
            result.append(values_[index]->view());
        }
        rest.remove_prefix(filled ? brace + 3 : brace + 1);
    }
    return result.append(rest);
}

ZORString ZORMessageLiteral::getMessageId() const {
    const std::size_t digits = std::min(code_.length(), BLANK_GLOBAL_CODE.size());
    ZORString id = prefix_ + "_";
    id.append(severity_.view().substr(0, 1)).append(BLANK_GLOBAL_CODE.substr(digits)).append(code_.view());
    return id;
}
