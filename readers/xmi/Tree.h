#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Names.h"

namespace readers::xmi {

/// A node's place in the tree; nodes are numbered in the order of the file, a parent before its children.
using NodeIndex = std::uint32_t;
inline constexpr NodeIndex NO_NODE = UINT32_MAX;

/// Leaves of each node the first one, in their order, and of NO_NODE none.
void keepEachOnce(std::vector<NodeIndex>& nodes);

/// What an element of the file belongs to.
enum class Space : std::uint8_t {
    UML,        ///< the model
    EXTENSION,  ///< what a tool keeps beside it
    FOREIGN     ///< other vocabularies, above all stereotypes that a profile's model applies
};

/// How a value was written.
enum class Form : std::uint8_t {
    TEXT,   ///< an attribute or a text; may be an id or several
    IDREF,  ///< explicitly an id
    HREF    ///< a link, into this file or another one
};

/// One attribute, text or reference of an element.
struct Value {
    std::string_view text;
    Name name;
    std::uint32_t next;  ///< the element's next value, or NO_NODE
    Form form;
    bool read;  ///< somebody has made use of it
};

/// One element that stands for an object of the model.
///
/// The ways in which the versions of XMI write the same thing are evened out: a property that holds objects
/// gives its children their role, and one that holds a text or a reference becomes a value of its object.
/// `kind` is the metaclass ("Class"), outside the model the element's own name.
struct Node {
    std::string_view id;
    Name kind = NO_NAME;
    Name role = NO_NAME;
    NodeIndex parent = NO_NODE;
    NodeIndex firstChild = NO_NODE;
    NodeIndex lastChild = NO_NODE;
    NodeIndex nextSibling = NO_NODE;
    std::uint32_t firstValue = NO_NODE;
    std::uint32_t lastValue = NO_NODE;
    std::uint32_t line = 0;
    Space space = Space::UML;
    bool read = false;  ///< it has become a part of the model, or is accounted for
};

/// What the file says of itself.
struct FileHeader {
    std::string exporter;      ///< the program that wrote it, as it calls itself
    std::string umlNamespace;  ///< the first one that was met
    bool isXmi2 = false;       ///< XMI 2.x, where properties and the objects in them are one element
    bool hasUml = false;       ///< anything of a UML model was found
    std::string rootName;      ///< the name of the outermost element
};

class Element;

/// The elements of a file that matter, with their texts; filled by the parser, then read.
class Tree {
  public:
    Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    NodeIndex size() const noexcept { return static_cast<NodeIndex>(nodes_.size()); }
    Node& node(NodeIndex index) noexcept { return nodes_[index]; }
    const Node& node(NodeIndex index) const noexcept { return nodes_[index]; }
    Value& value(std::uint32_t index) noexcept { return values_[index]; }
    const Value& value(std::uint32_t index) const noexcept { return values_[index]; }
    Element at(NodeIndex index) noexcept;

    /// Appends a node behind the parent's other children; without a parent, a root.
    NodeIndex addNode(NodeIndex parent, Name kind, Name role, Space space, std::uint32_t line);
    std::uint32_t addValue(NodeIndex node, Name name, Form form, std::string_view text);
    /// What a tool calls the target of a reference.
    void setLabel(std::uint32_t value, std::string_view label) { labels_[value] = store(label); }
    std::string_view labelOf(std::uint32_t value) const;
    /// Keeps a text as long as the tree lives.
    std::string_view store(std::string_view text);

    /// The element's path for messages: the names of what it stands in, with dots between them. One without a
    /// name is told by its line.
    std::string pathOf(NodeIndex node) const;
    /// The path with the line, whether or not the element has a name.
    std::string placeOf(NodeIndex node) const;
    /// What it is, as words: "use case", "class".
    std::string kindOf(NodeIndex node) const;

    NameTable names;
    FileHeader header;

  private:
    std::string_view nameOf(NodeIndex node) const;

    std::vector<Node> nodes_;
    std::vector<Value> values_;
    std::unordered_map<std::uint32_t, std::string_view> labels_;
    std::deque<std::string> blocks_;
};

/// A node with its tree, for reading. Reading a value marks it as read.
class Element {
  public:
    Element() = default;
    Element(Tree& tree, NodeIndex index) noexcept : tree_(&tree), index_(index) {}

    explicit operator bool() const noexcept { return index_ != NO_NODE; }
    NodeIndex index() const noexcept { return index_; }
    Tree& tree() const noexcept { return *tree_; }
    Node& node() const noexcept { return tree_->node(index_); }
    Name kind() const noexcept { return node().kind; }
    Name role() const noexcept { return node().role; }
    bool is(Name kind) const noexcept { return node().kind == kind; }
    bool isUml() const noexcept { return node().space == Space::UML; }
    Element parent() const noexcept { return {*tree_, node().parent}; }
    Element firstChild() const noexcept { return {*tree_, node().firstChild}; }
    Element nextSibling() const noexcept { return {*tree_, node().nextSibling}; }
    std::string path() const { return tree_->pathOf(index_); }
    void markRead() const noexcept { node().read = true; }
    /// Everything below is accounted for too.
    void markAllRead() const;

    /// The first value of the name; null without one.
    const Value* find(Name name) const noexcept;
    /// The text of the first value of the name; empty without one.
    std::string_view text(Name name) const noexcept;
    /// Whether the value says "true" or "1".
    bool flag(Name name) const noexcept;
    bool has(Name name) const noexcept { return find(name) != nullptr; }
    /// The texts of all values of the name, with line feeds between them.
    std::string texts(Name name) const;
    /// The first child in the role; it is marked as read.
    Element child(Name role) const noexcept;
    /// The first child of the kind; it is marked as read.
    Element childOfKind(Name kind) const noexcept;

    class Iterator;
    /// The children, for `for (Element child : element)`.
    Iterator begin() const noexcept;
    Iterator end() const noexcept;

  private:
    Tree* tree_ = nullptr;
    NodeIndex index_ = NO_NODE;
};

class Element::Iterator {
  public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Element;
    using difference_type = std::ptrdiff_t;
    using pointer = const Element*;
    using reference = const Element&;

    explicit Iterator(Element at) noexcept : at_(at) {}
    reference operator*() const noexcept { return at_; }
    Iterator& operator++() noexcept {
        at_ = at_.nextSibling();
        return *this;
    }
    bool operator==(const Iterator& other) const noexcept { return at_.index() == other.at_.index(); }

  private:
    Element at_;
};

inline Element::Iterator Element::begin() const noexcept {
    return Iterator(firstChild());
}
inline Element::Iterator Element::end() const noexcept {
    return Iterator({*tree_, NO_NODE});
}

inline Element Tree::at(NodeIndex index) noexcept {
    return {*this, index};
}

}  // namespace readers::xmi
