#include "Tree.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <unordered_set>

#include "Wording.h"

namespace readers::xmi {

namespace {

constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20;

/// Paths stay short enough for a message, whatever names a file makes up.
constexpr std::size_t MOST_PATH_PARTS = 32;
constexpr std::size_t LONGEST_PATH_PART = 120;

std::string shorten(std::string_view name) {
    if (name.size() <= LONGEST_PATH_PART) {
        return std::string(name);
    }
    std::size_t end = LONGEST_PATH_PART;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
        --end;  // not inside a character
    }
    return std::string(name.substr(0, end)) + "...";
}

}  // namespace

void keepEachOnce(std::vector<NodeIndex>& nodes) {
    std::unordered_set<NodeIndex> known{NO_NODE};
    std::erase_if(nodes, [&](NodeIndex node) { return !known.insert(node).second; });
}

NodeIndex Tree::addNode(NodeIndex parent, Name kind, Name role, Space space, std::uint32_t line) {
    if (nodes_.size() >= NO_NODE) {
        throw std::length_error("more elements than can be numbered");
    }
    const NodeIndex index = size();
    Node& added = nodes_.emplace_back();
    added.kind = kind;
    added.role = role;
    added.parent = parent;
    added.space = space;
    added.line = line;
    if (parent != NO_NODE) {
        Node& owner = nodes_[parent];
        (owner.firstChild == NO_NODE ? owner.firstChild : nodes_[owner.lastChild].nextSibling) = index;
        owner.lastChild = index;
    }
    return index;
}

std::uint32_t Tree::addValue(NodeIndex node, Name name, Form form, std::string_view text) {
    if (values_.size() >= NO_NODE) {
        throw std::length_error("more attributes than can be numbered");
    }
    const auto index = static_cast<std::uint32_t>(values_.size());
    values_.push_back({store(text), name, NO_NODE, form, false});
    Node& owner = nodes_[node];
    (owner.firstValue == NO_NODE ? owner.firstValue : values_[owner.lastValue].next) = index;
    owner.lastValue = index;
    return index;
}

std::string_view Tree::labelOf(std::uint32_t value) const {
    const auto found = labels_.find(value);
    return found == labels_.end() ? std::string_view() : found->second;
}

std::string_view Tree::store(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < text.size()) {
        blocks_.emplace_back().reserve(std::max(BLOCK_SIZE, text.size()));
    }
    std::string& block = blocks_.back();
    const std::size_t start = block.size();
    block.append(text);
    return std::string_view(block).substr(start);
}

std::string_view Tree::nameOf(NodeIndex node) const {
    for (std::uint32_t at = nodes_[node].firstValue; at != NO_NODE; at = values_[at].next) {
        if (values_[at].name == "name"_n && values_[at].form == Form::TEXT) {
            return values_[at].text;
        }
    }
    return {};
}

std::string Tree::pathOf(NodeIndex node) const {
    std::vector<std::string_view> parts;
    for (NodeIndex at = node; at != NO_NODE && parts.size() < MOST_PATH_PARTS; at = nodes_[at].parent) {
        const std::string_view name = nameOf(at);
        const bool isRoot = nodes_[at].parent == NO_NODE;
        if (!name.empty() && (!isRoot || at == node)) {
            parts.push_back(name);
        }
    }
    std::string path;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        path.append(path.empty() ? "" : ".").append(shorten(*part));
    }
    if (nameOf(node).empty()) {
        path.append(path.empty() ? "" : ".").append("(unnamed ").append(kindOf(node));
        path.append(" in line ").append(std::to_string(nodes_[node].line)).append(")");
    }
    return path;
}

std::string Tree::placeOf(NodeIndex node) const {
    const std::string line = " (line " + std::to_string(nodes_[node].line) + ")";
    return pathOf(node) + (nameOf(node).empty() ? "" : line);
}

std::string Tree::kindOf(NodeIndex node) const {
    return toWords(names.text(nodes_[node].kind));
}

void Element::markAllRead() const {
    // What is below stands behind the element, and the first node whose parent stands before it is not below.
    for (NodeIndex at = index_; at < tree_->size(); ++at) {
        Node& inside = tree_->node(at);
        if (at != index_ && (inside.parent == NO_NODE || inside.parent < index_)) {
            return;
        }
        inside.read = true;
        for (std::uint32_t value = inside.firstValue; value != NO_NODE; value = tree_->value(value).next) {
            tree_->value(value).read = true;
        }
    }
}

const Value* Element::find(Name name) const noexcept {
    for (std::uint32_t at = node().firstValue; at != NO_NODE; at = tree_->value(at).next) {
        Value& value = tree_->value(at);
        if (value.name == name) {
            value.read = true;
            return &value;
        }
    }
    return nullptr;
}

std::string_view Element::text(Name name) const noexcept {
    const Value* value = find(name);
    return value == nullptr ? std::string_view() : value->text;
}

bool Element::flag(Name name) const noexcept {
    const std::string_view value = text(name);
    return value == "true" || value == "1";
}

std::string Element::texts(Name name) const {
    std::string all;
    for (std::uint32_t at = node().firstValue; at != NO_NODE; at = tree_->value(at).next) {
        Value& value = tree_->value(at);
        if (value.name == name && value.form == Form::TEXT) {
            value.read = true;
            all.append(all.empty() ? "" : "\n").append(value.text);
        }
    }
    return all;
}

Element Element::child(Name role) const noexcept {
    for (const Element candidate : *this) {
        if (candidate.role() == role) {
            candidate.markRead();
            return candidate;
        }
    }
    return {*tree_, NO_NODE};
}

Element Element::childOfKind(Name kind) const noexcept {
    for (const Element candidate : *this) {
        if (candidate.kind() == kind) {
            candidate.markRead();
            return candidate;
        }
    }
    return {*tree_, NO_NODE};
}

}  // namespace readers::xmi
