#pragma once

#include <memory>
#include <string_view>

#include "Reader.h"
#include "ZOR.h"

namespace readers::document {

/// How many zero bytes must be readable behind a document's text.
extern const std::size_t TEXT_PADDING;

/// Packages nested deeper than this are refused: what works on a model recurses once per level.
inline constexpr int DEEPEST_NESTING = 1000;

/// Builds the model that a document describes. The text holds no byte-order mark. Throws a SourceError when
/// it is not a sound document.
std::unique_ptr<ZORModel> buildModel(std::string_view text, ReadContext& context);

}  // namespace readers::document
