#pragma once

#include <string>
#include <vector>

namespace cases {

/// What the check of documents finds in it, a line each: errors and, unless `mayDangle`, references that are
/// known to be loose now and then.
std::vector<std::string> findFaults(const std::string& document, bool mayDangle);

}  // namespace cases
