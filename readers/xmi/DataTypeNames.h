#pragma once

#include <string_view>

namespace readers::xmi {

/// The old-style key of a primitive type that modelling tools and programming languages know by the name
/// ("String", "EInt", "java.util.Date"); empty for other names.
std::string_view dataTypeOfPrimitive(std::string_view name) noexcept;

}  // namespace readers::xmi
