#pragma once

#include "Assembly.h"
#include "Documentation.h"

namespace readers::xmi {

/// What Enterprise Architect keeps in its extension about the elements of the model: documentation,
/// stereotypes, tagged values, default values.
class ToolExtensions {
  public:
    ToolExtensions(Assembly& assembly, Documentation& documentation)
        : assembly_(assembly), documentation_(documentation) {}
    void read();

  private:
    void readDescribed(Element described);
    void readConnectorEnd(Element connector, Element end);
    void readDetails(NodeIndex element, Element described);
    void readTags(NodeIndex element, Element described);
    NodeIndex findEnd(NodeIndex association, Element end) const;

    Assembly& assembly_;
    Documentation& documentation_;
};

}  // namespace readers::xmi
