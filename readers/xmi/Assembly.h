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
    /// The bytes of texts that stand in the file once and go to several objects.
    std::size_t repeatedBytes = 0;

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
    /// Accounts for a text that goes to one of several objects. Throws SourceError when a small file would
    /// grow without bounds that way.
    void spend(std::size_t bytes) {
        constexpr std::size_t BYTES_PER_OBJECT = 100;
        constexpr std::size_t MOST_BYTES = std::size_t{256} << 20;
        repeatedBytes += bytes + BYTES_PER_OBJECT;
        if (repeatedBytes > MOST_BYTES) {
            throw SourceError(
                SourceError::Kind::CANNOT_READ,
                "the texts of comments, constraints and dependencies that are about many elements "
                "come to more than 256 MB when each element gets its own");
        }
    }
    void lose(std::string kind, Element element, std::string detail = {}) const {
        context.losses.add(std::move(kind), element.path(), std::move(detail));
    }
};

}  // namespace readers::xmi
