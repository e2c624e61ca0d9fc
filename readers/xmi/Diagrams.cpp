#include "Diagrams.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace readers::xmi {

namespace {

bool isDiagram(Element element) {
    switch (element.kind()) {
        case "Diagram"_n:
        case "diagram"_n:
        case "ownedDiagram"_n:
            return true;
        case "mdElement"_n:
            return element.text("elementClass"_n) == "DiagramData";
        default:
            return false;
    }
}

/// The values by which a diagram or one of its parts says what it belongs to, not what it shows.
bool isOwnership(Name name) noexcept {
    return name == "owner"_n || name == "ownerOfDiagram"_n || name == "package"_n;
}

std::string_view nameOf(Element diagram) {
    const std::string_view name = diagram.text("name"_n);
    const Element properties = diagram.child("properties"_n);
    return name.empty() && properties ? properties.text("name"_n) : name;
}

std::string pathOf(Element diagram, const ZORDesignPackage& package) {
    return std::string(package.getDisplayName().view()) + "." + std::string(nameOf(diagram));
}

/// Where the elements below end.
NodeIndex endOf(Element element) {
    NodeIndex at = element.index() + 1;
    const Tree& tree = element.tree();
    while (at < tree.size() && tree.node(at).parent != NO_NODE && tree.node(at).parent >= element.index()) {
        ++at;
    }
    return at;
}

}  // namespace

void Diagrams::addAll() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        if (element.node().space != Space::FOREIGN && isDiagram(element)) {
            add(element);
        }
    }
}

void Diagrams::add(Element diagram) {
    ZORDesignPackage* package = ownerOf(diagram);
    if (package == nullptr) {
        assembly_.lose("diagrams of other things than packages", diagram);
        diagram.markAllRead();
        return;
    }
    ZORDiagram& added = *package->addDiagram(std::make_unique<ZORDiagram>());
    added.setName(nameOf(diagram));
    added.setDescription(diagram.text("documentation"_n));
    fill(added, *package, diagram);
    assembly_.context.losses.add("diagram layouts", pathOf(diagram, *package));
    diagram.markAllRead();
}

/// The package that the diagram says it belongs to, else the one that it stands in. One of a class belongs to
/// the class's package.
ZORDesignPackage* Diagrams::ownerOf(Element diagram) {
    std::vector<std::string_view> owners = {diagram.text("owner"_n), diagram.text("ownerOfDiagram"_n)};
    if (const Element model = diagram.child("model"_n)) {
        owners.push_back(model.text("package"_n));
    }
    if (const Element parent = diagram.child("parentID"_n)) {
        owners.push_back(parent.text("idref"_n));
    }
    NodeIndex owner = assembly_.references.first(diagram, "owner"_n).node;
    for (const std::string_view id : owners) {
        owner = owner == NO_NODE && !id.empty() ? assembly_.references.find(id) : owner;
    }
    owner = owner == NO_NODE ? diagram.node().parent : owner;
    while (owner != NO_NODE && assembly_.plan.of(owner) != Becomes::PACKAGE &&
           assembly_.plan.of(owner) != Becomes::CLASS && assembly_.plan.of(owner) != Becomes::MODEL) {
        owner = assembly_.tree.node(owner).parent;
    }
    if (owner == NO_NODE || assembly_.plan.of(owner) == Becomes::MODEL) {
        return assembly_.model.getChildPackages().isEmpty()
                   ? nullptr
                   : static_cast<ZORDesignPackage*>(assembly_.model.getChildPackages()[0]);
    }
    const bool isPackage = assembly_.plan.of(owner) == Becomes::PACKAGE;
    return isPackage ? &packages_.packageOfNode(owner) : &packages_.of(assembly_.tree.at(owner));
}

void Diagrams::fill(ZORDiagram& shown, ZORDesignPackage& package, Element diagram) {
    std::unordered_set<const ZORModelObject*> known;
    std::size_t left = 0;
    const NodeIndex end = endOf(diagram);
    for (NodeIndex index = diagram.index(); index < end; ++index) {
        const Element part = assembly_.tree.at(index);
        if (part.is("notewidget"_n)) {
            addNoteWidget(package, part);
        }
        for (std::uint32_t at = part.node().firstValue; at != NO_NODE; at = assembly_.tree.value(at).next) {
            const NodeIndex node = findShown(assembly_.tree.value(at));
            if (node == NO_NODE || isOwnership(assembly_.tree.value(at).name)) {
                continue;
            }
            ZORModelObject* object = assembly_.objects[node];
            const bool isElement = object != nullptr && object->isInstanceOf(ZOR_MODEL_ELEMENT);
            left += isElement ? 0 : 1;
            if (isElement && known.insert(object).second) {
                shown.addModelElement(object);
            }
        }
    }
    if (left > 0) {
        assembly_.context.losses.add("entries of diagrams that are not elements", pathOf(diagram, package),
                                     std::to_string(left));
    }
}

/// Umbrello keeps notes in diagrams only.
void Diagrams::addNoteWidget(ZORDesignPackage& package, Element widget) {
    if (const std::string_view text = widget.text("text"_n); !text.empty()) {
        package.addNote(std::make_unique<ZORNote>(ZORString(text)));
    }
}

NodeIndex Diagrams::findShown(const Value& value) const {
    const std::string_view text = value.text.starts_with('#') ? value.text.substr(1) : value.text;
    return text.empty() ? NO_NODE : assembly_.references.find(text);
}

}  // namespace readers::xmi
