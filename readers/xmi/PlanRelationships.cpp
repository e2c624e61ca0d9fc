// Which relationships the model can hold, and between what.

#include <unordered_set>

#include "Cycles.h"
#include "Plan.h"
#include "Wording.h"

namespace readers::xmi {

namespace {

bool isProperty(Element element) noexcept {
    return element.is("Property"_n) || element.is("Port"_n);
}

/// More relationships than this from those that join many classes with many are no model, and would not fit
/// into memory.
constexpr std::size_t MOST_PAIRS = 1'000'000;

}  // namespace

Target Plan::typeOf(Element end) const {
    return references_.first(end, {"type"_n, "participant"_n});
}

void Plan::collectEnds() {
    std::vector<NodeIndex> associations;
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> ends;
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        const Element element = tree_.at(index);
        if (becomes_[index] == Becomes::ASSOCIATION || element.is("AssociationClass"_n)) {
            associations.push_back(index);
            addEnds(element, ends[index]);
        }
    }
    // An end may be told of by its own side alone.
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        const Element element = tree_.at(index);
        if (element.isUml() && isProperty(element) && element.has("association"_n)) {
            const Target association = references_.first(element, "association"_n);
            if (const auto found = ends.find(association.node); found != ends.end()) {
                found->second.push_back(index);
            }
        }
    }
    for (const NodeIndex association : associations) {
        keepEachOnce(ends[association]);
        decideAssociation(association, std::move(ends[association]));
    }
}

void Plan::addEnds(Element association, std::vector<NodeIndex>& ends) const {
    for (const Target& target : references_.all(association, "memberEnd"_n)) {
        ends.push_back(target.node);
    }
    for (const Element child : association) {
        if (child.is("AssociationEnd"_n) || (child.role() == "ownedEnd"_n && isProperty(child))) {
            ends.push_back(child.index());
        }
    }
}

void Plan::decideAssociation(NodeIndex association, std::vector<NodeIndex> ends) {
    const std::string reason = whyNotClasses(ends);
    if (reason.empty()) {
        for (const NodeIndex end : ends) {
            associations_.emplace(end, association);
        }
        ends_.emplace(association, std::move(ends));
        return;
    }
    if (becomes_[association] == Becomes::ASSOCIATION) {
        lose(tree_.at(association), "associations", reason);
    } else {
        losses_.add("associations not between classes", tree_.pathOf(association), reason);
        for (const NodeIndex end : ends) {
            if (tree_.node(end).parent == association) {
                tree_.at(end).markAllRead();
            }
        }
    }
    endsOfLost_.emplace(association, std::move(ends));
}

/// Empty when every end stands at a class.
std::string Plan::whyNotClasses(const std::vector<NodeIndex>& ends) const {
    if (ends.size() < 2) {
        return "it has fewer than two ends";
    }
    for (const NodeIndex end : ends) {
        if (associations_.contains(end)) {
            return tree_.pathOf(end) + " is an end of another association";
        }
        const Target type = typeOf(tree_.at(end));
        if (!isClass(type.node)) {
            return describe(type) + describeOthers(end, ends);
        }
    }
    return {};
}

/// What a reference leads to, for a sentence: "Clerk is an actor".
std::string Plan::describe(const Target& target) const {
    if (!target.exists()) {
        return "an end is missing";
    }
    if (target.isFound()) {
        return nameOf(target) + " is " + withArticle(tree_.kindOf(target.node));
    }
    return nameOf(target) + " is not in the file";
}

/// What to call a target. An unnamed generalization is found again by its classes.
std::string Plan::nameOf(const Target& target) const {
    if (!target.isFound()) {
        const std::string name(externalNames_.of(target));
        return name + (name == target.text ? "" : " (" + std::string(target.text) + ")");
    }
    const Element element = tree_.at(target.node);
    const bool isUnnamedArrow = element.is("Generalization"_n) && element.text("name"_n).empty();
    const NodeIndex child = isUnnamedArrow ? childOf(element).node : NO_NODE;
    const NodeIndex parent = isUnnamedArrow ? parentOf(element).node : NO_NODE;
    const bool hasEnds = child != NO_NODE && parent != NO_NODE;
    return element.path() + (hasEnds ? " from " + tree_.pathOf(child) + " to " + tree_.pathOf(parent) : "");
}

/// By which other end the relationship with an end at fault is found again, for the end of a sentence.
std::string Plan::describeOther(const Target& end) const {
    return end.exists() ? "; the other end is " + nameOf(end) : std::string();
}

std::string Plan::describeOthers(NodeIndex faulty, const std::vector<NodeIndex>& ends) const {
    std::string names;
    for (const NodeIndex end : ends) {
        const Target type = typeOf(tree_.at(end));
        if (end != faulty && type.exists()) {
            names += (names.empty() ? "" : ", ") + nameOf(type);
        }
    }
    const std::string verb = ends.size() > 2 ? "; the other ends are " : "; the other end is ";
    return names.empty() ? names : verb + names;
}

void Plan::lose(Element relationship, std::string_view what, const std::string& reason) {
    losses_.add(std::string(what) + " not between classes", relationship.path(), reason);
    becomes_[relationship.index()] = Becomes::NOTHING;
    relationship.markAllRead();
}

std::vector<Target> Plan::targetsOf(Element relationship, std::initializer_list<Name> names) const {
    std::vector<Target> targets;
    std::unordered_set<std::string_view> known;
    for (const Name name : names) {
        for (const Target& target : references_.all(relationship, name)) {
            if (known.insert(target.text).second) {
                targets.push_back(target);
            }
        }
    }
    return targets;
}

/// What a relationship stands in that does not say whose it is.
Target Plan::enclosingElement(Element relationship) const {
    NodeIndex at = relationship.node().parent;
    while (at != NO_NODE && !tree_.at(at).isUml()) {
        at = tree_.node(at).parent;
    }
    return at == NO_NODE ? Target() : Target{at, "its owner", {}, Form::IDREF};
}

Target Plan::childOf(Element generalization) const {
    const Target child = references_.first(generalization, {"child"_n, "specific"_n, "subtype"_n});
    return child.exists() ? child : enclosingElement(generalization);
}

Target Plan::parentOf(Element generalization) const {
    return references_.first(generalization, {"parent"_n, "general"_n, "supertype"_n});
}

void Plan::decideRelationship(Element relationship) {
    switch (of(relationship.index())) {
        case Becomes::GENERALIZATION: {
            decideGeneralization(relationship, childOf(relationship), parentOf(relationship));
            break;
        }
        case Becomes::DEPENDENCY:
        case Becomes::REALIZATION: {
            std::vector<Target> clients =
                targetsOf(relationship, {"client"_n, "implementingClassifier"_n, "substitutingClassifier"_n,
                                         "realizingClassifier"_n});
            if (clients.empty()) {
                clients.push_back(enclosingElement(relationship));
            }
            decideDependency(relationship, clients,
                             targetsOf(relationship, {"supplier"_n, "contract"_n, "abstraction"_n}));
            break;
        }
        default:
            break;
    }
}

void Plan::decideGeneralization(Element generalization, const Target& child, const Target& parent) {
    if (isClass(child.node) && isClass(parent.node)) {
        pairs_[generalization.index()].emplace_back(child.node, parent.node);
    } else if (isType(child.node) && isType(parent.node)) {
        becomes_[generalization.index()] = Becomes::BASE_TYPE;
        if (!baseTypes_.emplace(child.node, parent.node).second) {
            losses_.add("further base types of data types", tree_.pathOf(child.node),
                        tree_.pathOf(parent.node));
        }
        generalization.markAllRead();
    } else {
        const bool childIsSound = isClass(child.node) || isType(child.node);
        const bool parentIsSound = isClass(parent.node) || isType(parent.node);
        const bool isParentAtFault = childIsSound && (!parentIsSound || isClass(child.node));
        lose(generalization, "generalizations",
             isParentAtFault ? describe(parent) + describeOther(child)
                             : describe(child) + describeOther(parent));
    }
}

void Plan::decideDependency(Element dependency, const std::vector<Target>& clients,
                            const std::vector<Target>& suppliers) {
    pairCount_ += clients.size() * suppliers.size();
    if (pairCount_ > MOST_PAIRS) {
        throw SourceError(SourceError::Kind::CANNOT_READ,
                          dependency.path() +
                              ": the dependencies of several clients and suppliers come to more than " +
                              std::to_string(MOST_PAIRS) + " relationships between classes");
    }
    Pairs pairs;
    std::string reason = suppliers.empty() ? describe({}) + describeOther(clients.front()) : "";
    for (const Target& client : clients) {
        for (const Target& supplier : suppliers) {
            if (isClass(client.node) && isClass(supplier.node)) {
                pairs.emplace_back(client.node, supplier.node);
            } else {
                reason = isClass(client.node) ? describe(supplier) + describeOther(client)
                                              : describe(client) + describeOther(supplier);
            }
        }
    }
    const bool isRealization = of(dependency.index()) == Becomes::REALIZATION;
    const std::string_view what = isRealization ? "realizations" : "dependencies";
    if (pairs.empty()) {
        lose(dependency, what, reason);
        return;
    }
    if (!reason.empty()) {
        losses_.add(std::string(what) + " not between classes", dependency.path(), reason);
    }
    pairs_.emplace(dependency.index(), std::move(pairs));
}

void Plan::checkCycles() const {
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> parents;
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (of(index) == Becomes::GENERALIZATION) {
            for (const auto& [child, parent] : pairsOf(index)) {
                parents[child].push_back(parent);
            }
        }
    }
    for (const auto& [type, base] : baseTypes_) {
        parents[type].push_back(base);
    }
    const std::vector<NodeIndex> cycle = findCycle(parents);
    if (cycle.empty()) {
        return;
    }
    throw SourceError(SourceError::Kind::CANNOT_READ,
                      "generalizations lead back to where they begin: " + describeCycle(tree_, cycle),
                      "remove one of these generalizations");
}

const std::vector<NodeIndex>& Plan::endsOf(NodeIndex association) const {
    static const std::vector<NodeIndex> NO_ENDS;
    const auto found = ends_.find(association);
    return found == ends_.end() ? NO_ENDS : found->second;
}

const std::vector<NodeIndex>& Plan::anyEndsOf(NodeIndex association) const {
    const auto found = endsOfLost_.find(association);
    return found == endsOfLost_.end() ? endsOf(association) : found->second;
}

NodeIndex Plan::associationOf(NodeIndex property) const {
    const auto found = associations_.find(property);
    return found == associations_.end() ? NO_NODE : found->second;
}

const std::vector<std::pair<NodeIndex, NodeIndex>>& Plan::pairsOf(NodeIndex relationship) const {
    static const Pairs NO_PAIRS;
    const auto found = pairs_.find(relationship);
    return found == pairs_.end() ? NO_PAIRS : found->second;
}

NodeIndex Plan::baseTypeOf(NodeIndex type) const {
    const auto found = baseTypes_.find(type);
    return found == baseTypes_.end() ? NO_NODE : found->second;
}

}  // namespace readers::xmi
