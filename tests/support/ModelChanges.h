#pragma once

#include <functional>
#include <ostream>
#include <vector>

#include "CompleteModel.h"

namespace support {

/// A change of one property, list or reference of a complete model.
struct ModelChange {
    const char* what;
    std::function<void(CompleteModel&)> make;
};

inline std::ostream& operator<<(std::ostream& out, const ModelChange& change) {
    return out << change.what;
}

/// One change for everything there is to change in a model. Some leave it unsound.
const std::vector<ModelChange>& modelChanges();

}  // namespace support
