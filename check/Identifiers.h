#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace oimcheck {

/// The identifiers that a document gave and those that it referred to. Each is kept once for each tag and
/// holder that it was met with, however often that was.
class Identifiers {
  public:
    struct Place {
        int line;
        int column;
    };
    struct Reference {
        int id;
        std::uint16_t tag;        ///< of the reference
        std::uint16_t holder;     ///< the rule of the element that it stands in
        Place place;              ///< where it was met first
        std::uint64_t count = 1;  ///< in how many places it was met
    };

    /// The number of an identifier "_N" (in a reference, "#_N"), or 0 when it is written in another way.
    static int parse(std::string_view text, std::string_view prefix);

    /// Notes the element of an identifier. False when the identifier was given before.
    bool give(int id, std::uint16_t tag);
    void refer(const Reference& reference);
    /// Calls `tell` for each reference that leads nowhere (target tag `none`) or to an element of another
    /// tag.
    void forEachLoose(std::uint16_t none,
                      const std::function<void(const Reference&, std::uint16_t targetTag)>& tell) const;

  private:
    static constexpr std::uint16_t NOT_GIVEN = 0xffff;
    // Identifiers count up from 1 in documents of this system; those far beyond the rest stand in the map, so
    // that gaps between them cost no memory.
    std::uint16_t tagOf(int id) const;

    std::vector<std::uint16_t> tags_;
    std::size_t given_ = 0;
    std::unordered_map<int, std::uint16_t> farTags_;
    std::unordered_map<std::uint64_t, Reference> references_;
};

}  // namespace oimcheck
