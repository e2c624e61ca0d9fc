#pragma once

#include <span>
#include <string_view>

#include "OimGrammar.h"

namespace oimcheck {

/// A row of the grammar, as text.
struct GrammarRow {
    /// The tag. Where an element's place decides what it is, there is a row for each, with "@" and its kind
    /// behind the tag.
    std::string_view name;
    ElementKind kind;
    /// Names, followed where the value is restricted by "=" and the words that are permitted, separated by
    /// "|", or "=int"; "visibility" and the like stand for themselves. A "!" in front means that the
    /// attribute is always there.
    std::string_view attributes;
    /// Names of rows, and tags with a "&" in front where it is a reference that stands there; "*classes" is a
    /// reference to any kind of class. A "1" in front means that the child stands there exactly once and in
    /// this order among those with a "1", "?" that it stands there at most once. Ahead of all, "1:" means
    /// that one thing stands in the element, whichever, and "+:" that there is at least one.
    std::string_view content;
};

/// All rows; the first is the root's.
std::span<const GrammarRow> grammarRows();

/// The kinds of class that "*classes" stands for.
constexpr std::string_view CLASSES = "uml:Class uml:Interface uml:AssociationClass";

}  // namespace oimcheck
