#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Assembly.h"
#include "Texts.h"

namespace readers::xmi {

/// Descriptions, comments, constraints and tagged values of the model's objects.
class Documentation {
  public:
    explicit Documentation(Assembly& assembly) : assembly_(assembly) {}

    /// Reads what stands in the model itself.
    void addAll();
    /// Adds a text to what describes the element's object, if it has one.
    void describe(NodeIndex element, std::string_view text);
    /// Hands all texts over to the objects; nothing is added behind this.
    void complete() { texts_.complete(); }

  private:
    void readDescription(Element element);
    void readTaggedValue(Element tagged);
    void readAnnotation(Element annotation);
    void collectBackReferences();
    std::vector<NodeIndex> targetsOf(Element element, Name property) const;
    void readComment(Element comment);
    void annotate(NodeIndex element, const std::string& text);
    void readConstraint(Element constraint);
    void constrain(NodeIndex element, Element constraint, const std::string& text);
    void constrainOperation(ZOROperation& operation, Element constraint, const std::string& text);
    /// What a comment or constraint is about: what it refers to, what refers to it, else what it stands in.
    std::vector<NodeIndex> subjectsOf(Element about, Name property) const;
    /// What a constraint is about, other constraints excepted.
    const std::vector<NodeIndex>& constrainedBy(Element constraint);

    Assembly& assembly_;
    Texts texts_;
    /// Of comments and constraints: the elements that refer to them.
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> backReferences_;
    /// Of constraints that comments are about: see constrainedBy.
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> constrained_;
    /// Of constraints: the property by which an operation refers to them.
    std::unordered_map<NodeIndex, Name> conditions_;
};

}  // namespace readers::xmi
