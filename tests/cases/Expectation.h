#pragma once

#include <string>

#include "Case.h"

namespace cases {

/// Whether the environment asks for expected files to be rewritten.
bool isUpdating();

/// Compares with the file of that name in the case's folder. Empty when equal; else a unified difference and
/// what to do next, with the actual content kept in the build tree. When updating, writes the file and gives
/// back nothing.
std::string compareWithExpected(const Case& which, const std::string& fileName, const std::string& actual);

}  // namespace cases
