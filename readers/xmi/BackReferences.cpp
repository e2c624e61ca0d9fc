#include "BackReferences.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "Wording.h"

namespace readers::xmi {

namespace {

/// What a property that refers to other elements says.
enum class Says : std::uint8_t {
    UNKNOWN,    ///< is none, or may be a text as well
    SOMETHING,  ///< what nobody else says
    SAME,       ///< what the element that it leads to says as well
    NESTING,    ///< what the element stands in, or what stands in it
    OTHER_END,  ///< the end at the other side of the association
    TOLD        ///< something that is told of elsewhere when it leads nowhere
};

struct Property {
    Name name;
    Says says;
};
constexpr Property KNOWN_PROPERTIES[] = {
    {"abstraction"_n, Says::TOLD},
    {"annotatedElement"_n, Says::SAME},
    {"association"_n, Says::SAME},
    {"associationEnd"_n, Says::NESTING},
    {"behavioralFeature"_n, Says::SAME},
    {"bodyCondition"_n, Says::SOMETHING},
    {"child"_n, Says::TOLD},
    {"class"_n, Says::NESTING},
    {"classifier"_n, Says::SAME},
    {"client"_n, Says::TOLD},
    {"clientDependency"_n, Says::SAME},
    {"constrainedElement"_n, Says::SOMETHING},
    {"context"_n, Says::NESTING},
    {"contract"_n, Says::TOLD},
    {"datatype"_n, Says::NESTING},
    {"elementReference"_n, Says::SAME},
    {"endType"_n, Says::SAME},
    {"enumeration"_n, Says::NESTING},
    {"extendedElement"_n, Says::SAME},
    {"featuringClassifier"_n, Says::NESTING},
    {"general"_n, Says::TOLD},
    {"generalization"_n, Says::SAME},
    {"implementingClassifier"_n, Says::TOLD},
    {"instance"_n, Says::SOMETHING},
    {"interface"_n, Says::NESTING},
    {"interfaceRealization"_n, Says::SAME},
    {"memberEnd"_n, Says::SAME},
    {"modelElement"_n, Says::SOMETHING},
    {"namespace"_n, Says::SAME},
    {"navigableOwnedEnd"_n, Says::SOMETHING},
    {"nestingPackage"_n, Says::NESTING},
    {"operation"_n, Says::NESTING},
    {"opposite"_n, Says::OTHER_END},
    {"ownedElement"_n, Says::TOLD},
    {"ownedMember"_n, Says::TOLD},
    {"owner"_n, Says::NESTING},
    {"owningAssociation"_n, Says::NESTING},
    {"owningPackage"_n, Says::NESTING},
    {"owningTemplateParameter"_n, Says::NESTING},
    {"package"_n, Says::NESTING},
    {"packagedElement"_n, Says::TOLD},
    {"parameter"_n, Says::NESTING},
    {"parent"_n, Says::TOLD},
    {"participant"_n, Says::TOLD},
    {"postcondition"_n, Says::SOMETHING},
    {"precondition"_n, Says::SOMETHING},
    {"realizingClassifier"_n, Says::TOLD},
    {"relatedElement"_n, Says::SAME},
    {"signature"_n, Says::NESTING},
    {"specialization"_n, Says::SAME},
    {"specific"_n, Says::TOLD},
    {"stereotype"_n, Says::TOLD},
    {"substitutingClassifier"_n, Says::TOLD},
    {"subtype"_n, Says::TOLD},
    {"supertype"_n, Says::TOLD},
    {"supplier"_n, Says::TOLD},
    {"supplierDependency"_n, Says::SAME},
    {"template"_n, Says::NESTING},
    {"templateParameter"_n, Says::NESTING},
    {"type"_n, Says::TOLD},
    {"typedElement"_n, Says::SAME},
};

using SaysOfNames = std::array<Says, std::size(KNOWN_NAMES)>;

constexpr SaysOfNames makeIndex() {
    SaysOfNames index{};
    for (const Property& row : KNOWN_PROPERTIES) {
        index[row.name] = row.says;
    }
    return index;
}

constexpr SaysOfNames SAYS_OF_NAME = makeIndex();

Says saysOf(Name name) noexcept {
    return name < SAYS_OF_NAME.size() ? SAYS_OF_NAME[name] : Says::UNKNOWN;
}

bool standsIn(const Tree& tree, NodeIndex inner, NodeIndex outer) noexcept {
    NodeIndex at = tree.node(inner).parent;
    while (at != NO_NODE && at != outer) {
        at = tree.node(at).parent;
    }
    return at == outer;
}

/// Whether the reference leads where the property can be expected to.
bool leadsBack(const Assembly& assembly, NodeIndex element, NodeIndex target, Says says) {
    if (says == Says::NESTING) {
        return standsIn(assembly.tree, element, target) || standsIn(assembly.tree, target, element);
    }
    if (says == Says::OTHER_END) {
        const NodeIndex association = assembly.plan.associationOf(element);
        return association != NO_NODE && association == assembly.plan.associationOf(target);
    }
    return says == Says::SAME;
}

}  // namespace

bool isRepetition(const Assembly& assembly, Element element, std::uint32_t value) {
    const Says says = saysOf(assembly.tree.value(value).name);
    if (says != Says::SAME && says != Says::NESTING && says != Says::OTHER_END) {
        return false;
    }
    const std::vector<Target> targets = assembly.references.of(value);
    return std::all_of(targets.begin(), targets.end(), [&](const Target& target) {
        return target.isFound() && leadsBack(assembly, element.index(), target.node, says);
    });
}

bool reportMissing(const Assembly& assembly, Element element, std::uint32_t value) {
    const Value& reference = assembly.tree.value(value);
    const Says says = saysOf(reference.name);
    const bool mayBeText = reference.form == Form::TEXT && says == Says::UNKNOWN;
    // There, a package need not be declared to be named.
    const bool isPackageName = reference.name == "namespace"_n && assembly.dialect.namesAreDeclarations;
    // An annotation of Eclipse is no part of the model.
    if (mayBeText || says == Says::TOLD || isPackageName || element.is("eAnnotations"_n)) {
        return false;
    }
    bool isAnyMissing = false;
    for (const Target& target : assembly.references.of(value)) {
        if (!target.isFound()) {
            isAnyMissing = true;
            const bool isOutside = target.form == Form::HREF && !target.text.starts_with('#');
            assembly.lose(isOutside ? "references into other files" : "references that lead nowhere", element,
                          toWords(assembly.tree.names.text(reference.name)) + " " + std::string(target.text));
        }
    }
    return isAnyMissing;
}

}  // namespace readers::xmi
