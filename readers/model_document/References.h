#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "IdTable.h"
#include "Vocabulary.h"

namespace readers::document {

/// The references of a document, collected while its objects are made and tied when all of them are there.
///
/// Objects keep lists of what refers to them. So that these do not depend on how a document orders the keys
/// of its objects, references are tied in the order of the walk over the model. Until then an object's
/// general pointer leads to its references.
class References {
  public:
    /// The references of one object, in the order of the document; numbers of records, from 1.
    struct Chain {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };

    void reserve(std::size_t count);
    /// `id` stays as long as the collection; `offset` is where in the document it stands.
    void add(Chain& chain, const Field& field, std::string_view id, std::uint32_t offset);
    static void attach(ZORModelObject& object, const Chain& chain) noexcept;

    /// Ties all references of the model and leaves the general pointers null. `progress` is called every now
    /// and then. Throws Refusal.
    void tie(ZORModel& model, const IdTable& ids, const std::function<void()>& progress);

  private:
    class Tying;
    struct Record {
        const Field* field;
        std::string_view id;
        std::uint32_t offset;
        std::uint32_t next;  ///< the object's next record, 0 when there is none
    };

    void tieAll(ZORModelObject& object, const IdTable& ids);
    void tieOne(std::uint32_t number, ZORModelObject& object, const IdTable& ids);
    void claim(const Record& record, const ZORModelObject& target);
    void refuseBaseCycles() const;

    std::vector<Record> records_;
    /// For targets that are referred to only once: by which reference they are.
    std::unordered_map<const ZORModelObject*, std::uint32_t> claims_;
    /// The types that have a base, each with the number of that reference.
    std::vector<std::pair<ZORType*, std::uint32_t>> basedTypes_;
};

}  // namespace readers::document
