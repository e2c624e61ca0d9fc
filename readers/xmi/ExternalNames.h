#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "Dialect.h"
#include "References.h"

namespace readers::xmi {

/// The part behind the last "::".
std::string_view lastSegment(std::string_view path) noexcept;

/// What the target of a link is called, as far as the link tells: "String" for
/// "pathmap://UML_LIBRARIES/UMLPrimitiveTypes.library.uml#String".
std::string_view nameInLink(std::string_view link) noexcept;

/// Whether a text that stands for an element can be its name, as "String" can. It cannot when it looks like
/// one of the ids that tools make up: "_9_0_8f40294",
/// "-84-17--56-5-43645a83:11466542d86:-8000:000000000000087E".
bool canBeName(std::string_view text) noexcept;

/// Whether the link leads into one of the libraries of primitive types that every UML tool brings along, so
/// that what is meant is known without following it.
bool isWellKnownLibrary(std::string_view link) noexcept;

/// What things are called that a file refers to and does not hold.
class ExternalNames {
  public:
    /// Gathers what tools keep about them in extensions.
    ExternalNames(Tree& tree, const References& references, const Dialect& dialect);
    std::string_view of(const Target& target) const;

  private:
    void gather(Element element);
    void gatherType(Element described);

    const References& references_;
    const Dialect& dialect_;
    std::unordered_map<std::string_view, std::string_view> names_;
};

}  // namespace readers::xmi
