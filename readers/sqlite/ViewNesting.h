#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace readers::sqlite {

/// Tells which views are safe to hand to SQLite for compiling.
///
/// SQLite replaces views by their statements, one inside the other, with a recursion that has no bound of its
/// own: a long chain of views, or a short one in which every view uses the one before it twice, would end the
/// program or keep it busy for hours.
class ViewNesting {
  public:
    static constexpr std::size_t DEEPEST = 100;
    static constexpr std::size_t MOST_REFERENCES = 1000;

    /// `select` is the view's statement. Views of one name, in several schemas, are taken together.
    void add(std::string_view view, std::string_view select);
    /// To be called when all views are known.
    void measure();

    /// False for a view that nests deeper, or uses more tables when everything is put in place, than the
    /// limits; and for one that is defined by itself.
    bool isModest(std::string_view view) const;
    /// Whether the view, or one that it is made of, combines several SELECTs.
    bool isCompound(std::string_view view) const;
    bool areAllModest() const noexcept;

  private:
    struct Node {
        std::vector<std::string>
            references;         ///< the tables and views read, in small letters, as often as they are
        std::size_t depth = 0;  ///< 0: not measured, because the view is defined by itself
        std::size_t size = 1;
        bool compound = false;
    };
    void measure(Node& node);
    static bool isModest(const Node& node) noexcept;

    std::unordered_map<std::string, Node> nodes_;  ///< by name in small letters
};

/// The names behind FROM, JOIN and IN, and behind the commas of FROM, in small letters, as often as they
/// stand there.
std::vector<std::string> findTableReferences(std::string_view select);

}  // namespace readers::sqlite
