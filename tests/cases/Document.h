#pragma once

#include <string>
#include <vector>

namespace cases {

/// What is wrong with a document, a sentence each: it is not well-formed, an identifier stands twice, or
/// (unless `mayDangle`) a reference leads nowhere.
std::vector<std::string> findFaults(const std::string& document, bool mayDangle);

}  // namespace cases
