#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Dialect.h"
#include "ExternalNames.h"
#include "Plan.h"
#include "Reader.h"
#include "References.h"
#include "Stereotypes.h"
#include "Tree.h"
#include "ZOR.h"

namespace readers::xmi {

/// What the builders of a model's parts share while a file becomes a model.
struct Assembly {
    Tree& tree;
    const References& references;
    Stereotypes& stereotypes;
    const ExternalNames& externalNames;
    const Dialect& dialect;
    const Plan& plan;
    ReadContext& context;
    ZORModel& model;
    /// The object that each node has become; null for most nodes.
    std::vector<ZORModelObject*> objects;

    /// Notes that the element has become the object.
    void record(Element element, ZORModelObject* object) {
        element.markRead();
        objects[element.index()] = object;
    }
    /// The object of the node or of the nearest node that it stands in; null when there is none.
    ZORModelObject* nearestObject(NodeIndex node) const {
        while (node != NO_NODE && objects[node] == nullptr) {
            node = tree.node(node).parent;
        }
        return node == NO_NODE ? nullptr : objects[node];
    }
    void lose(std::string kind, Element element, std::string detail = {}) const {
        context.losses.add(std::move(kind), element.path(), std::move(detail));
    }
};

/// Appends a text to another one, with a separator between them unless one is empty.
inline ZORString joinTexts(const ZORString& first, std::string_view separator, std::string_view second) {
    return first.isEmpty() ? ZORString(second) : second.empty() ? first : first + separator + second;
}

}  // namespace readers::xmi
