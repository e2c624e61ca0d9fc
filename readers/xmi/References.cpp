#include "References.h"

#include "Blanks.h"
#include "Reader.h"

namespace readers::xmi {

References::References(Tree& tree, std::string fileName, LossReport& losses)
    : tree_(tree), fileName_(std::move(fileName)), nodes_(tree) {
    for (NodeIndex index = 0; index < tree.size(); ++index) {
        const Element element = tree.at(index);
        if (element.isUml() && !element.node().id.empty()) {
            add(element, losses);
        }
    }
}

void References::add(Element element, LossReport& losses) {
    const NodeIndex known = nodes_.add(element.index());
    if (known == element.index()) {
        return;
    }
    if (!sayTheSame(tree_.at(known), element)) {
        throw SourceError(SourceError::Kind::CANNOT_READ,
                          "the id \"" + std::string(element.node().id) + "\" belongs to two elements: " +
                              tree_.placeOf(known) + " and " + tree_.placeOf(element.index()),
                          "an id must stand for one element; the file was probably put together from two");
    }
    losses.add("repetitions of elements", element.path(),
               "the first one is in line " + std::to_string(tree_.node(known).line));
    element.markAllRead();
    element.node().kind = NO_NAME;
}

/// Whether two elements hold nothing and have the same values, but for what they stand in.
bool References::sayTheSame(Element a, Element b) const {
    const auto next = [this](std::uint32_t at) {
        while (at != NO_NODE && tree_.value(at).name == "namespace"_n) {
            at = tree_.value(at).next;
        }
        return at;
    };
    if (a.kind() != b.kind() || a.firstChild() || b.firstChild()) {
        return false;
    }
    std::uint32_t left = next(a.node().firstValue);
    std::uint32_t right = next(b.node().firstValue);
    while (left != NO_NODE && right != NO_NODE) {
        const Value& x = tree_.value(left);
        const Value& y = tree_.value(right);
        if (x.name != y.name || x.text != y.text) {
            return false;
        }
        left = next(x.next);
        right = next(y.next);
    }
    return left == right;
}

NodeIndex References::find(std::string_view id) const noexcept {
    return nodes_.find(id);
}

std::vector<Target> References::all(Element element, Name name) const {
    std::vector<Target> targets;
    for (std::uint32_t at = element.node().firstValue; at != NO_NODE; at = tree_.value(at).next) {
        Value& value = tree_.value(at);
        if (value.name == name) {
            value.read = true;
            resolve(value, tree_.labelOf(at), targets);
        }
    }
    return targets;
}

Target References::first(Element element, Name name) const {
    for (std::uint32_t at = element.node().firstValue; at != NO_NODE; at = tree_.value(at).next) {
        Value& value = tree_.value(at);
        if (value.name != name) {
            continue;
        }
        value.read = true;
        const NodeIndex node = find(value.text);
        if (node != NO_NODE) {
            return {node, value.text, {}, value.form};
        }
        std::vector<Target> targets;
        resolve(value, tree_.labelOf(at), targets);
        if (!targets.empty()) {
            return targets.front();
        }
    }
    return {};
}

Target References::first(Element element, std::initializer_list<Name> names) const {
    for (const Name name : names) {
        if (const Target target = first(element, name); target.exists()) {
            return target;
        }
    }
    return {};
}

std::vector<Target> References::of(std::uint32_t value) const {
    std::vector<Target> targets;
    resolve(tree_.value(value), tree_.labelOf(value), targets);
    return targets;
}

void References::resolve(const Value& value, std::string_view label, std::vector<Target>& targets) const {
    const std::string_view text = trim(value.text);
    if (text.empty()) {
        return;
    }
    NodeIndex node = find(value.text);
    if (node == NO_NODE) {
        node = value.form == Form::HREF || text.front() == '#' ? findLink(text) : find(text);
    }
    const bool isList =
        node == NO_NODE && value.form == Form::TEXT && text.find_first_of(BLANKS) != std::string_view::npos;
    if (!isList) {
        targets.push_back({node, text, label, value.form});
        return;
    }
    std::vector<Target> parts;
    bool anyFound = false;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view part = rest.substr(0, rest.find_first_of(BLANKS));
        parts.push_back({part.front() == '#' ? findLink(part) : find(part), part, {}, value.form});
        anyFound = anyFound || parts.back().isFound();
        rest = trim(rest.substr(part.size()));
    }
    if (anyFound) {
        targets.insert(targets.end(), parts.begin(), parts.end());
    } else {
        targets.push_back({NO_NODE, text, label, value.form});  // a name with blanks, such as "unsigned int"
    }
}

NodeIndex References::findLink(std::string_view link) const noexcept {
    const std::size_t mark = link.find('#');
    const bool isInside = mark == 0 || (mark != std::string_view::npos && link.substr(0, mark) == fileName_);
    return isInside ? find(link.substr(mark + 1)) : NO_NODE;
}

}  // namespace readers::xmi
