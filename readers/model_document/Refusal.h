#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Reader.h"

namespace readers::document {

/// Why a document is refused, in terms of its text: thrown while it is read, and turned into a SourceError by
/// `explain`, which then takes the time to find the place.
struct Refusal {
    static constexpr std::size_t NO_OFFSET = static_cast<std::size_t>(-1);

    std::size_t offset;    ///< where the value, key or object begins
    std::string expected;  ///< "an integer from 0 to 9"
    std::string
        found;  ///< empty, or a remark that begins with "," or " ": the value or key that stands there
    std::string hint;
    /// Where something stands that has to do with it: its line is added to what was found.
    std::size_t related = NO_OFFSET;
};

/// The error of a refused document: `line 7, column 32, /model/types/0/length: found "forty"; expected an
/// integer from 0 to 2147483647`. Lines and columns count from 1, columns in characters. A fault in the text
/// itself that comes first is reported instead.
SourceError explain(std::string_view text, const Refusal& refusal);
/// The error of a text that is not JSON. `reason` is told when the text has no fault that can be named.
SourceError explainSyntax(std::string_view text, std::string_view reason);

}  // namespace readers::document
