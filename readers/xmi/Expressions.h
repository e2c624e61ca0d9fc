#pragma once

#include <string>
#include <string_view>

#include "Assembly.h"

namespace readers::xmi {

/// The text of a value specification or expression: a literal's value, the body of an opaque expression, the
/// name of an enumeration literal.
std::string expressionText(const Assembly& assembly, Element expression);
/// The text of an element's property that is an expression, a plain text, or missing.
std::string expressionOf(const Assembly& assembly, Element element, Name property);

/// How many there may be of something.
struct Multiplicity {
    std::string text;        ///< as in "0..*"; empty when the file does not say
    bool mayBeNone = false;  ///< the lower bound is 0
    bool mayBeMany = false;  ///< the upper bound is not 1
};
/// A text that cannot be read as a number of objects goes to the loss report.
Multiplicity multiplicityOf(const Assembly& assembly, Element element);

/// The multiplicity that an end's name is meant as, such as "0..n"; empty when it is a name.
std::string multiplicityInName(std::string_view name);

/// Of a feature, class or end; public when the file does not say.
ZORVisibilityType visibilityOf(Element element);

}  // namespace readers::xmi
