#pragma once

#include <memory>

#include "Dialect.h"
#include "Reader.h"
#include "References.h"
#include "Tree.h"

namespace readers::xmi {

/// The second pass: builds the model from the tree. `modelName` is the name that the user gives it, or empty;
/// `fileStem` names a model whose file does not.
std::unique_ptr<ZORModel> assembleModel(Tree& tree, const References& references,
                                        const std::string& modelName, const std::string& fileStem,
                                        ReadContext& context);

}  // namespace readers::xmi
