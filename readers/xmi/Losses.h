#pragma once

#include "Assembly.h"

namespace readers::xmi {

/// Reports everything in the file that nobody has read: elements, attributes that say something unusual, and
/// what tools keep for themselves. This is what makes sure that nothing is dropped in silence.
void reportUnread(const Assembly& assembly);

}  // namespace readers::xmi
