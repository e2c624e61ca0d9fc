// readers/xmi/: the reader of UML models in XMI, of every version and the usual producers (docs/xmi.md).
// TreeParser turns a file into a Tree in which the versions of XMI look alike; Plan decides what each element
// becomes; Types, Packages, Features, Relationships, Documentation, Diagrams and their like build the model;
// Losses reports what is left. In what producers differ beyond that stands in the table of Dialect.cpp.
// Nothing here writes XMI.
#pragma once

#include "Reader.h"

namespace readers {

const Reader& xmiReader();

}  // namespace readers
