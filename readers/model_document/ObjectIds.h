#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "Vocabulary.h"
#include "ZOR.h"

namespace readers::document {

/// The ids that a document gives to the objects that others refer to: the names of the object and of what it
/// is a part of, joined by points. Of objects whose ids would be equal, the second gets "~2" behind it, and
/// so on, in document order.
class ObjectIds {
  public:
    explicit ObjectIds(const ZORModel& model);

    /// The object's id; empty when nothing refers to it.
    std::string_view find(const ZORObject& object) const noexcept;

  private:
    void collect(const Kind& kind, const ZORModelObject& object);
    void assign(const Kind& kind, const ZORModelObject& object, const std::string& path);
    std::string makeUnique(std::string id);

    std::unordered_map<const ZORObject*, std::string> ids_;
    /// How many objects have asked for an id.
    std::unordered_map<std::string, int> taken_;
};

/// The kind of an object that is in a list of the family.
const Kind& kindOf(Family family, const ZORObject& object);
/// Whether a reference of the field may lead to the object; a diagram's notes are the ones that it may not.
bool mayReferTo(const Field& field, const ZORObject& object);

}  // namespace readers::document
