#pragma once

#include "Assembly.h"
#include "Packages.h"

namespace readers::xmi {

/// Diagrams: of each its name, its package, and which elements it shows. Tools keep them in extensions of
/// their own making, or as UML's diagram interchange has it; what a diagram shows is what it refers to.
class Diagrams {
  public:
    Diagrams(Assembly& assembly, Packages& packages) : assembly_(assembly), packages_(packages) {}
    void addAll();

  private:
    void add(Element diagram);
    ZORDesignPackage* ownerOf(Element diagram);
    void fill(ZORDiagram& shown, ZORDesignPackage& package, Element diagram);
    void addNoteWidget(ZORDesignPackage& package, Element widget);
    NodeIndex findShown(const Value& value) const;

    Assembly& assembly_;
    Packages& packages_;
};

}  // namespace readers::xmi
