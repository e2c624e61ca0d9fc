#pragma once

#include "Assembly.h"

namespace readers::xmi {

/// Whether the value, a property of the element that nobody has made use of, only says once more what the
/// nesting of the elements or the other side of a relationship says.
bool isRepetition(const Assembly& assembly, Element element, std::uint32_t value);

/// Reports what the value refers to and the file does not hold, unless whoever reads such a reference tells
/// of it. Returns whether there was any.
bool reportMissing(const Assembly& assembly, Element element, std::uint32_t value);

}  // namespace readers::xmi
