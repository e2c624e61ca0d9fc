#include "Documentation.h"

#include <algorithm>

#include "Expressions.h"

namespace readers::xmi {

namespace {

/// By which an element refers to its comments and constraints.
constexpr Name BACK_REFERENCES[] = {"comment"_n, "constraint"_n, "precondition"_n, "postcondition"_n,
                                    "bodyCondition"_n};

bool isDocumentationTag(std::string_view tag) noexcept {
    return isSameWord(tag, "documentation") || isSameWord(tag, "description");
}

/// What a tagged value is called, in UML 1.3 by itself and in UML 1.4 by its definition.
std::string_view tagOf(const Assembly& assembly, Element tagged) {
    for (const Name property : {"tag"_n, "name"_n}) {
        if (const std::string_view tag = tagged.text(property); !tag.empty()) {
            return tag;
        }
    }
    const Target definition = assembly.references.first(tagged, "type"_n);
    if (definition.isFound()) {
        assembly.tree.at(definition.node).markRead();
        return assembly.tree.at(definition.node).text("name"_n);
    }
    return lastSegment(definition.label.empty() ? definition.text : definition.label);
}

std::string valueOf(Element tagged) {
    std::string text = tagged.texts("dataValue"_n);
    return text.empty() ? tagged.texts("value"_n) : text;
}

bool is(const ZORModelObject& object, ZORElementType type) noexcept {
    return object.isInstanceOf(type);
}

/// Objects whose notes no view writes keep a comment in their comments.
bool keepsCommentsAsText(const ZORModelObject& object) noexcept {
    return is(object, ZOR_TYPE) || is(object, ZOR_MODEL);
}

}  // namespace

void Documentation::addAll() {
    collectBackReferences();
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        if (element.is("eAnnotations"_n)) {
            readAnnotation(element);
        } else if (!element.isUml()) {
            continue;
        } else if (element.is("TaggedValue"_n)) {
            readTaggedValue(element);
        } else if (element.is("Comment"_n)) {
            readComment(element);
        } else if (element.is("Constraint"_n)) {
            readConstraint(element);
        } else if (assembly_.objects[index] != nullptr) {
            readDescription(element);
        }
    }
}

void Documentation::describe(NodeIndex element, std::string_view text) {
    ZORModelObject* object = element == NO_NODE ? nullptr : assembly_.objects[element];
    if (object == nullptr || text.empty() || texts_.of(*object, TextOf::DESCRIPTION) == text) {
        return;
    }
    if (is(*object, ZOR_TYPE_VALUE)) {
        // No view writes what describes a value; the enumeration's comments are written.
        auto& type = *static_cast<ZORModelObject*>(object->getOwner());
        const std::string line = std::string(object->getName().view()) + ": " + std::string(text);
        texts_.append(type, TextOf::COMMENTS, "\n", line);
    }
    texts_.append(*object, TextOf::DESCRIPTION, "\n\n", text);
}

void Documentation::readDescription(Element element) {
    if (const Value* documentation = element.find("documentation"_n)) {
        describe(element.index(), documentation->text);
    }
    // Umbrello's attribute is a text; elsewhere it refers to comments.
    const Value* comment = element.find("comment"_n);
    if (comment != nullptr && comment->form == Form::TEXT && targetsOf(element, "comment"_n).empty()) {
        describe(element.index(), comment->text);
    }
}

void Documentation::readTaggedValue(Element tagged) {
    const Target target = assembly_.references.first(tagged, "modelElement"_n);
    const NodeIndex subject = target.isFound() ? target.node : tagged.node().parent;
    ZORModelObject* object = subject == NO_NODE ? nullptr : assembly_.objects[subject];
    if (object == nullptr) {
        return;  // it goes with what it belongs to
    }
    const std::string_view tag = tagOf(assembly_, tagged);
    const std::string value = valueOf(tagged);
    tagged.markAllRead();
    if (isDocumentationTag(tag)) {
        describe(subject, value);
    } else if (tag == "persistence" && is(*object, ZOR_CLASS)) {
        static_cast<ZORClass*>(object)->setPersistent(value == "persistent");
    } else {
        assembly_.lose("tagged values", assembly_.tree.at(subject), std::string(tag) + " = " + value);
    }
}

/// Eclipse keeps an element's documentation in an annotation for code generators.
void Documentation::readAnnotation(Element annotation) {
    if (!annotation.text("source"_n).ends_with("/GenModel")) {
        return;
    }
    Element owner = annotation.parent();
    while (owner && !owner.isUml()) {
        owner = owner.parent();
    }
    for (const Element entry : annotation) {
        if (owner && entry.text("key"_n) == "documentation") {
            annotation.markAllRead();
            describe(owner.index(), entry.text("value"_n));
        }
    }
}

void Documentation::collectBackReferences() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        if (!element.isUml() || element.node().firstValue == NO_NODE) {
            continue;
        }
        for (const Name property : BACK_REFERENCES) {
            for (const NodeIndex target : targetsOf(element, property)) {
                backReferences_[target].push_back(index);
                if (property != "comment"_n && property != "constraint"_n) {
                    conditions_.emplace(target, property);
                }
            }
        }
    }
}

/// The comments or constraints that an element refers to. A text that only happens to hold an id is no
/// reference.
std::vector<NodeIndex> Documentation::targetsOf(Element element, Name property) const {
    std::vector<NodeIndex> nodes;
    const Name kind = property == "comment"_n ? "Comment"_n : "Constraint"_n;
    for (const Target& target : assembly_.references.all(element, property)) {
        if (target.isFound() && assembly_.tree.node(target.node).kind == kind) {
            nodes.push_back(target.node);
        }
    }
    return nodes;
}

std::vector<NodeIndex> Documentation::subjectsOf(Element about, Name property) const {
    std::vector<NodeIndex> subjects;
    for (const Target& target : assembly_.references.all(about, property)) {
        subjects.push_back(target.node);
    }
    if (const auto found = backReferences_.find(about.index()); found != backReferences_.end()) {
        subjects.insert(subjects.end(), found->second.begin(), found->second.end());
    }
    keepEachOnce(subjects);
    if (subjects.empty() && about.parent()) {
        subjects.push_back(about.parent().index());
    }
    return subjects;
}

/// Looked up once: many comments may be about one constraint, which may have many references.
const std::vector<NodeIndex>& Documentation::constrainedBy(Element constraint) {
    const auto [entry, isNew] = constrained_.try_emplace(constraint.index());
    if (isNew) {
        entry->second = subjectsOf(constraint, "constrainedElement"_n);
        std::erase_if(entry->second,
                      [&](NodeIndex node) { return assembly_.tree.at(node).is("Constraint"_n); });
    }
    return entry->second;
}

void Documentation::readComment(Element comment) {
    std::string text = expressionText(assembly_, comment);
    const std::string_view name = comment.text("name"_n);
    text = text.empty() ? std::string(name) : text;
    for (const NodeIndex subject : subjectsOf(comment, "annotatedElement"_n)) {
        annotate(subject, text);
    }
}

/// What is not in the model passes its comments on to what it is about or stands in.
void Documentation::annotate(NodeIndex element, const std::string& text) {
    assembly_.spend(text.size());
    const Element subject = assembly_.tree.at(element);
    if (subject.is("Constraint"_n) && assembly_.objects[element] == nullptr) {
        for (const NodeIndex constrained : constrainedBy(subject)) {
            annotate(constrained, text);
        }
        return;
    }
    ZORModelObject* object = assembly_.nearestObject(element);
    if (object == nullptr) {
        object = &assembly_.model;
    }
    if (is(*object, ZOR_TYPE_VALUE)) {
        describe(element, text);
    } else if (keepsCommentsAsText(*object)) {
        texts_.append(*object, TextOf::COMMENTS, "\n\n", text);
    } else {
        object->addNote(std::make_unique<ZORNote>(ZORString(text)));
    }
}

void Documentation::readConstraint(Element constraint) {
    constraint.markRead();
    std::string text = expressionOf(assembly_, constraint, "specification"_n);
    text = text.empty() ? expressionOf(assembly_, constraint, "body"_n) : text;
    const std::string name(constraint.text("name"_n));
    if (text.empty() || name.empty()) {
        text += name;
    } else {
        text.insert(0, name + ": ");
    }
    for (const NodeIndex subject : subjectsOf(constraint, "constrainedElement"_n)) {
        constrain(subject, constraint, text);
    }
    for (const std::string_view word : {"precondition", "postcondition"}) {
        assembly_.stereotypes.remove(constraint.index(), word);
    }
}

void Documentation::constrain(NodeIndex element, Element constraint, const std::string& text) {
    assembly_.spend(text.size());
    ZORModelObject* object = assembly_.nearestObject(element);
    if (object == nullptr) {
        object = &assembly_.model;
    }
    if (is(*object, ZOR_OPERATION)) {
        constrainOperation(*static_cast<ZOROperation*>(object), constraint, text);
    } else if (is(*object, ZOR_ASSOCIATION) || is(*object, ZOR_ASSOCIATION_ROLE)) {
        texts_.append(*object, TextOf::CONSTRAINT, "\n", text);
    } else {
        // The model has no place for it; UML shows it as a note in braces.
        annotate(element, "{" + text + "}");
    }
}

void Documentation::constrainOperation(ZOROperation& operation, Element constraint, const std::string& text) {
    const auto condition = conditions_.find(constraint.index());
    const Name property = condition != conditions_.end() ? condition->second : constraint.role();
    const auto carries = [&](std::string_view word) {
        return assembly_.stereotypes.carries(constraint.index(), word);
    };
    if (property == "precondition"_n || carries("precondition")) {
        texts_.append(operation, TextOf::PRECONDITION, "\n", text);
    } else if (property == "postcondition"_n || carries("postcondition")) {
        texts_.append(operation, TextOf::POSTCONDITION, "\n", text);
    } else if (property == "bodyCondition"_n) {
        texts_.append(operation, TextOf::SEMANTICS, "\n", text);
    } else {
        operation.addNote(std::make_unique<ZORNote>(ZORString("{" + text + "}")));
    }
}

}  // namespace readers::xmi
