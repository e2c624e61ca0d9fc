#include "Stereotypes.h"

#include <algorithm>

#include "ExternalNames.h"

namespace readers::xmi {

namespace {

constexpr std::string_view BASE = "base_";

char toSmall(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

std::string_view withoutMark(std::string_view link) noexcept {
    return link.starts_with('#') ? link.substr(1) : link;
}

}  // namespace

std::string_view withoutTagNotes(std::string_view value) noexcept {
    for (const std::string_view mark : {"#NOTES#", "$ea_notes="}) {
        value = value.substr(0, value.find(mark));
    }
    return value;
}

bool isSameWord(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return toSmall(x) == toSmall(y); });
}

Stereotypes::Stereotypes(Tree& tree, const References& references, LossReport& losses)
    : tree_(tree), references_(references), losses_(losses) {
    for (NodeIndex index = 0; index < tree.size(); ++index) {
        const Element element = tree.at(index);
        const bool isOuterForeign = element.node().space == Space::FOREIGN &&
                                    (!element.parent() || element.parent().node().space != Space::FOREIGN);
        if (isOuterForeign) {
            readApplied(element);
        } else if (element.is("eAnnotations"_n)) {
            readKeywords(element);
        } else if (element.isUml()) {
            readReferences(element);
        }
    }
}

bool Stereotypes::ComesBefore::operator()(std::string_view a, std::string_view b) const noexcept {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return toSmall(x) < toSmall(y); });
}

void Stereotypes::add(NodeIndex element, std::string_view name) {
    if (!name.empty() && !carries(element, name)) {
        names_[element].others.emplace(name);
    }
}

void Stereotypes::addKeyword(NodeIndex element, std::string_view word) {
    if (!carries(element, word)) {
        names_[element].keyword = word;
    }
}

std::vector<std::string> Stereotypes::of(NodeIndex element) const {
    std::vector<std::string> all;
    if (const auto found = names_.find(element); found != names_.end()) {
        const Names& names = found->second;
        all.assign(names.others.begin(), names.others.end());
        if (!names.keyword.empty()) {
            all.insert(all.begin(), names.keyword);
        }
    }
    return all;
}

bool Stereotypes::carries(NodeIndex element, std::string_view name) const {
    const auto found = names_.find(element);
    return found != names_.end() &&
           (isSameWord(found->second.keyword, name) || found->second.others.contains(name));
}

void Stereotypes::remove(NodeIndex element, std::string_view name) {
    if (const auto found = names_.find(element); found != names_.end()) {
        Names& names = found->second;
        if (isSameWord(names.keyword, name)) {
            names.keyword.clear();
        }
        if (const auto other = names.others.find(name); other != names.others.end()) {
            names.others.erase(other);
        }
    }
}

std::vector<NodeIndex> Stereotypes::carriers() const {
    std::vector<NodeIndex> nodes;
    nodes.reserve(names_.size());
    for (const auto& [node, names] : names_) {
        nodes.push_back(node);
    }
    std::sort(nodes.begin(), nodes.end());
    return nodes;
}

void Stereotypes::readReferences(Element element) {
    if (element.is("Stereotype"_n)) {
        readDefinition(element);
    }
    for (const Target& target : references_.all(element, "stereotype"_n)) {
        if (!target.isFound()) {
            addByName(element, target);
            continue;
        }
        const Element stereotype = tree_.at(target.node);
        if (!stereotype.node().read) {
            stereotype.markAllRead();
        }
        add(element.index(), stereotype.text("name"_n));
    }
}

/// What is not in the file may be told of by its name all the same; an id alone says nothing to a reader.
void Stereotypes::addByName(Element element, const Target& target) {
    const std::string_view name = !target.label.empty()       ? lastSegment(target.label)
                                  : target.form == Form::HREF ? nameInLink(target.text)
                                                              : lastSegment(target.text);
    if (target.label.empty() && (target.form == Form::IDREF || !canBeName(name))) {
        losses_.add("stereotypes that are not in the file", element.path(), std::string(target.text));
    } else {
        add(element.index(), name);
    }
}

void Stereotypes::readDefinition(Element stereotype) {
    const bool isInPlace = stereotype.role() == "stereotype"_n && stereotype.parent();
    if (isInPlace) {
        stereotype.markAllRead();
        add(stereotype.parent().index(), stereotype.text("name"_n));
    }
    for (const Target& target : references_.all(stereotype, "extendedElement"_n)) {
        if (target.isFound()) {
            stereotype.markAllRead();
            add(target.node, stereotype.text("name"_n));
        }
    }
}

/// Eclipse keeps keywords as annotations of the element, each the key of an entry.
void Stereotypes::readKeywords(Element annotation) {
    const std::string_view source = annotation.text("source"_n);
    const bool holdsKeywords = source.find("/uml2/") != std::string_view::npos && source.ends_with("/UML");
    Element owner = annotation.parent();
    while (owner && !owner.isUml()) {
        owner = owner.parent();
    }
    if (!holdsKeywords || !owner) {
        return;
    }
    for (const Element entry : annotation) {
        if (entry.role() == "details"_n && entry.text("value"_n).empty()) {
            add(owner.index(), entry.text("key"_n));
        }
    }
    annotation.markAllRead();
}

void Stereotypes::readApplied(Element applied) {
    bool hasBase = false;
    for (std::uint32_t at = applied.node().firstValue; at != NO_NODE; at = tree_.value(at).next) {
        const Value& value = tree_.value(at);
        hasBase = readBase(applied, tree_.names.text(value.name), value.text) || hasBase;
    }
    for (const Element part : applied) {
        const std::string_view link = part.has("href"_n) ? part.text("href"_n) : part.text("idref"_n);
        hasBase = readBase(applied, tree_.names.text(part.role()), link) || hasBase;
    }
    if (hasBase) {
        reportTaggedValues(applied);
        applied.markAllRead();
    }
}

bool Stereotypes::readBase(Element applied, std::string_view property, std::string_view text) {
    if (!property.starts_with(BASE)) {
        return false;
    }
    const std::string_view name = tree_.names.text(applied.kind());
    const NodeIndex element = references_.find(withoutMark(text));
    if (element == NO_NODE) {
        losses_.add("stereotypes of things that are not in the file", std::string(text), std::string(name));
    } else {
        add(element, name);
    }
    return true;
}

/// The first element that the stereotype is applied to.
NodeIndex Stereotypes::findBase(Element applied) const {
    for (std::uint32_t at = applied.node().firstValue; at != NO_NODE; at = tree_.value(at).next) {
        const Value& value = tree_.value(at);
        if (tree_.names.text(value.name).starts_with(BASE)) {
            return references_.find(withoutMark(value.text));
        }
    }
    for (const Element part : applied) {
        if (tree_.names.text(part.role()).starts_with(BASE)) {
            return references_.find(
                withoutMark(part.has("href"_n) ? part.text("href"_n) : part.text("idref"_n)));
        }
    }
    return NO_NODE;
}

void Stereotypes::reportTaggedValues(Element applied) {
    const NodeIndex element = findBase(applied);
    const std::string where = element == NO_NODE ? applied.path() : tree_.pathOf(element);
    const std::string stereotype(tree_.names.text(applied.kind()));
    const auto report = [&](Name property, std::string_view text) {
        const std::string_view name = tree_.names.text(property);
        const std::string_view value = withoutTagNotes(text);
        if (!name.starts_with(BASE) && !value.empty()) {
            taggedValues_.emplace(element, name);
            losses_.add("tagged values", where,
                        stereotype + ": " + std::string(name) + " = " + std::string(value));
        }
    };
    for (std::uint32_t at = applied.node().firstValue; at != NO_NODE; at = tree_.value(at).next) {
        const Value& value = tree_.value(at);
        if (value.name != "id"_n && value.name != "uuid"_n) {
            report(value.name, value.text);
        }
    }
    for (const Element part : applied) {
        const std::string text = part.texts("text"_n);
        report(part.role(), text.empty() ? std::string_view("...") : std::string_view(text));
    }
}

}  // namespace readers::xmi
