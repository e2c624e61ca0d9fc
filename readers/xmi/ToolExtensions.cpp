#include "ToolExtensions.h"

namespace readers::xmi {

namespace {

/// How the ids of a connector's two ends begin.
std::string_view beginningOfEndId(Element end) noexcept {
    return end.is("source"_n) ? "EAID_src" : "EAID_dst";
}

}  // namespace

void ToolExtensions::read() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        if (element.node().space != Space::EXTENSION) {
            continue;
        }
        switch (element.kind()) {
            case "attribute"_n:
            case "connector"_n:
            case "element"_n:
            case "operation"_n:
            case "parameter"_n:
                readDescribed(element);
                break;
            default:
                break;
        }
    }
}

void ToolExtensions::readDescribed(Element described) {
    const NodeIndex element = assembly_.references.find(described.text("idref"_n));
    if (element == NO_NODE) {
        return;
    }
    readDetails(element, described);
    for (const Element part : described) {
        if (part.is("source"_n) || part.is("target"_n)) {
            readConnectorEnd(described, part);
        }
    }
}

void ToolExtensions::readDetails(NodeIndex element, Element described) {
    for (const Element part : described) {
        switch (part.kind()) {
            case "documentation"_n:
                documentation_.describe(element, part.text("value"_n));
                break;
            case "properties"_n:
                documentation_.describe(element, part.text("documentation"_n));
                assembly_.stereotypes.add(element, part.text("stereotype"_n));
                break;
            case "stereotype"_n:
            case "role"_n:
                assembly_.stereotypes.add(element, part.text("stereotype"_n));
                break;
            case "initial"_n:
                if (ZORModelObject* object = assembly_.objects[element];
                    object != nullptr && object->isInstanceOf(ZOR_ATTRIBUTE)) {
                    auto& attribute = *static_cast<ZORAttribute*>(object);
                    attribute.setInitialValue(attribute.getInitialValue().isEmpty()
                                                  ? ZORString(part.text("body"_n))
                                                  : attribute.getInitialValue());
                }
                break;
            case "tags"_n:
                readTags(element, part);
                break;
            default:
                break;
        }
    }
}

/// Tags that belong to an applied stereotype stand in the model too.
void ToolExtensions::readTags(NodeIndex element, Element tags) {
    for (const Element tag : tags) {
        const std::string_view name = tag.text("name"_n);
        const std::string_view value = withoutTagNotes(tag.text("value"_n));
        if (!value.empty() && assembly_.objects[element] != nullptr &&
            !assembly_.stereotypes.hasTaggedValue(element, name)) {
            assembly_.lose("tagged values", assembly_.tree.at(element),
                           std::string(name) + " = " + std::string(value));
        }
    }
}

void ToolExtensions::readConnectorEnd(Element connector, Element end) {
    const NodeIndex association = assembly_.references.find(connector.text("idref"_n));
    if (const NodeIndex property = findEnd(association, end); property != NO_NODE) {
        readDetails(property, end);
    }
}

/// The end of the association that the connector's end stands for: told by its id, else by its class.
NodeIndex ToolExtensions::findEnd(NodeIndex association, Element end) const {
    const std::vector<NodeIndex>& ends = assembly_.plan.anyEndsOf(association);
    if (ends.size() > 2) {
        return NO_NODE;  // a connector has two
    }
    for (const NodeIndex candidate : ends) {
        if (assembly_.tree.node(candidate).id.starts_with(beginningOfEndId(end))) {
            return candidate;
        }
    }
    const NodeIndex cls = assembly_.references.find(end.text("idref"_n));
    for (const NodeIndex candidate : ends) {
        if (cls != NO_NODE && assembly_.plan.typeOf(assembly_.tree.at(candidate)).node == cls) {
            return candidate;
        }
    }
    return NO_NODE;
}

}  // namespace readers::xmi
