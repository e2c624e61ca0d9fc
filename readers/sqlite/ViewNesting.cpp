#include "ViewNesting.h"

#include <algorithm>
#include <limits>

#include "Definitions.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

/// Follows where a table's name may stand. Every pair of parentheses has a state of its own.
class ReferenceFinder {
  public:
    explicit ReferenceFinder(std::string_view select) : cursor_(select) {}

    std::vector<std::string> find() {
        acceptWith();
        while (!cursor_.atEnd()) {
            take();
        }
        return std::move(names_);
    }

  private:
    enum class Expected { NOTHING, TABLE, TABLE_BEHIND_IN };
    struct Level {
        bool inFrom = false;
        bool inWith = false;
        Expected expected = Expected::NOTHING;
        std::vector<std::string> commonTables;  ///< the names that WITH defines
    };

    void take() {
        Level& level = levels_.back();
        if (level.expected != Expected::NOTHING && cursor_.peek().canBeName()) {
            level.expected = Expected::NOTHING;
            addReference();
            return;
        }
        const Token token = cursor_.next();
        if (token.is('(')) {
            Level inner;
            inner.inFrom = level.expected == Expected::TABLE;
            inner.expected = inner.inFrom ? Expected::TABLE : Expected::NOTHING;
            level.expected = Expected::NOTHING;
            levels_.push_back(std::move(inner));
            acceptWith();
            acceptSelect();
        } else if (token.is(')')) {
            leaveLevel();
        } else if (token.is(',') && level.inWith) {
            acceptCommonTable();
        } else {
            follow(token, level);
        }
    }

    void follow(const Token& token, Level& level) {
        level.inFrom = token.is("FROM") || (level.inFrom && !endsFrom(token));
        level.inWith = level.inWith && !token.is("SELECT");
        level.expected = Expected::NOTHING;
        if (token.is("FROM") || token.is("JOIN") || (token.is(',') && level.inFrom)) {
            level.expected = Expected::TABLE;
        } else if (token.is("IN")) {
            level.expected = Expected::TABLE_BEHIND_IN;
        }
    }

    void leaveLevel() {
        if (levels_.size() > 1) {
            levels_.pop_back();
        }
    }

    void addReference() {
        const bool isQualified = cursor_.peek(1).is('.');
        std::string name = foldCase(cursor_.acceptQualifiedName());
        const bool isCommonTable = std::any_of(levels_.begin(), levels_.end(), [&](const Level& level) {
            return std::find(level.commonTables.begin(), level.commonTables.end(), name) !=
                   level.commonTables.end();
        });
        if (isQualified || !isCommonTable) {
            names_.push_back(std::move(name));
        }
    }

    /// Where a SELECT begins, WITH is a keyword and not a name.
    void acceptWith() {
        const std::size_t name = cursor_.peek(1).is("RECURSIVE") ? 2 : 1;
        if (cursor_.peek().is("WITH") &&
            (cursor_.peek(name + 1).is("AS") || cursor_.peek(name + 1).is('('))) {
            cursor_.accept("WITH");
            cursor_.accept("RECURSIVE");
            acceptCommonTable();
        }
    }

    void acceptSelect() {
        if (cursor_.peek().is("SELECT") || cursor_.peek().is("VALUES")) {
            follow(cursor_.next(), levels_.back());
        }
    }

    void acceptCommonTable() {
        levels_.back().inWith = true;
        levels_.back().inFrom = false;
        levels_.back().expected = Expected::NOTHING;
        levels_.back().commonTables.push_back(foldCase(cursor_.next().name()));
        if (cursor_.peek().is('(')) {
            cursor_.skipParenthesised();
        }
    }

    /// Only words that cannot be names.
    static bool endsFrom(const Token& token) noexcept {
        return token.is("SELECT") || token.is("WHERE") || token.is("GROUP") || token.is("HAVING") ||
               token.is("ORDER") || token.is("LIMIT");
    }

    TokenCursor cursor_;
    std::vector<Level> levels_ = {Level()};
    std::vector<std::string> names_;
};

}  // namespace

std::vector<std::string> findTableReferences(std::string_view select) {
    return ReferenceFinder(select).find();
}

void ViewNesting::add(std::string_view view, std::string_view select) {
    Node& node = nodes_[foldCase(view)];
    const std::vector<std::string> references = findTableReferences(select);
    node.references.insert(node.references.end(), references.begin(), references.end());
    node.compound = node.compound || isCompoundSelect(select);
}

/// Takes the views in such an order that each comes behind those that it uses; a view in a circle, or behind
/// one, never comes.
void ViewNesting::measure() {
    std::unordered_map<const Node*, std::size_t> open;
    std::unordered_map<const Node*, std::vector<Node*>> users;
    std::vector<Node*> ready;
    for (auto& [name, node] : nodes_) {
        for (const std::string& reference : node.references) {
            const auto used = nodes_.find(reference);
            if (used != nodes_.end()) {
                ++open[&node];
                users[&used->second].push_back(&node);
            }
        }
        if (!open.contains(&node)) {
            ready.push_back(&node);
        }
    }
    while (!ready.empty()) {
        Node& node = *ready.back();
        ready.pop_back();
        measure(node);
        for (Node* user : users[&node]) {
            if (--open[user] == 0) {
                ready.push_back(user);
            }
        }
    }
}

void ViewNesting::measure(Node& node) {
    constexpr std::size_t LARGEST = std::numeric_limits<std::size_t>::max() / 2;
    node.depth = 1;
    for (const std::string& reference : node.references) {
        const auto used = nodes_.find(reference);
        if (used == nodes_.end()) {
            node.size = std::min(node.size + 1, LARGEST);
        } else {
            node.size = std::min(node.size + used->second.size, LARGEST);
            node.depth = std::max(node.depth, used->second.depth + 1);
            node.compound = node.compound || used->second.compound;
        }
    }
}

bool ViewNesting::isModest(const Node& node) noexcept {
    return node.depth > 0 && node.depth <= DEEPEST && node.size <= MOST_REFERENCES;
}

bool ViewNesting::isModest(std::string_view view) const {
    const auto found = nodes_.find(foldCase(view));
    return found == nodes_.end() || isModest(found->second);
}

bool ViewNesting::isCompound(std::string_view view) const {
    const auto found = nodes_.find(foldCase(view));
    return found != nodes_.end() && found->second.compound;
}

bool ViewNesting::areAllModest() const noexcept {
    return std::all_of(nodes_.begin(), nodes_.end(),
                       [](const auto& entry) { return isModest(entry.second); });
}

}  // namespace readers::sqlite
