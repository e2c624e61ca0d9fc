#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "ZOR.h"

namespace readers {

/// Writes a sound model (one that `checkModel` finds no fault with) as a model document: reading it back
/// gives the same model, and writing that the same document. What is at its default is left out; objects that
/// others refer to get ids made from names, so that a change of the model shows as a change of the lines that
/// it is about.
///
/// Two things do not come back. Of a type value only name, code and value are kept; no view writes more of
/// it. And a document in which several roles or generalizations have one foreign key is refused when it is
/// read.
///
/// `write` gets the document in portions and may throw. Gives back how many texts were not UTF-8: in the
/// document, U+FFFD stands for what is ill-formed in them. Throws std::invalid_argument when an object refers
/// to one that is no part of the model.
std::uint64_t writeModelDocument(const ZORModel& model, const std::function<void(std::string_view)>& write);

}  // namespace readers
