#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace readers::xmi {

/// An attribute or parameter as it is written in a diagram.
struct DeclaredFeature {
    std::string name;
    std::string type;          ///< empty when it is not said
    std::string defaultValue;  ///< empty when it is not said
};

struct DeclaredOperation {
    std::string name;
    std::string result;  ///< empty when it is not said
    std::vector<DeclaredFeature> parameters;
    std::string rest;  ///< what stands behind all that: "const", "throws X", "{query}"; usually empty
};

/// "name : type = default", or "type name" as programming languages have it.
DeclaredFeature parseFeature(std::string_view text);

/// "name(parameter, parameter) : result", or with the result in front; a name alone has no parameters.
DeclaredOperation parseOperation(std::string_view text);

}  // namespace readers::xmi
