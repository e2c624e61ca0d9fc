#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "ZOR.h"

namespace readers::xmi {

/// The texts of an object that a file may state in several pieces.
enum class TextOf : std::uint8_t {
    DESCRIPTION,
    COMMENTS,
    CONSTRAINT,
    PRECONDITION,
    POSTCONDITION,
    SEMANTICS
};

/// Puts such texts together. A text that is in pieces grows here and reaches its object at the end: growing
/// it there would copy it with every piece.
class Texts {
  public:
    /// Appends to a text of the object, with the separator unless it is the first piece.
    void append(ZORModelObject& object, TextOf which, std::string_view separator, std::string_view piece);
    /// What has been put together so far; valid until the text changes.
    std::string_view of(const ZORModelObject& object, TextOf which) const;
    /// Hands the texts over to their objects.
    void complete();

  private:
    using Key = std::pair<const ZORModelObject*, TextOf>;
    struct Pieces {
        ZORModelObject* object;
        std::string text;
    };
    std::map<Key, Pieces> inPieces_;
};

}  // namespace readers::xmi
