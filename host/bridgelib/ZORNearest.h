#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The candidates that a mistyped word may have meant, best first, at most three: those that contain it or
/// differ in few letters, letter case aside. Empty when none is near.
std::vector<std::string_view> findNearest(std::string_view word,
                                          const std::vector<std::string_view>& candidates);

/// The same as the end of a sentence: ` Did you mean "A" or "B"?`, empty when none is near.
std::string describeNearest(std::string_view word, const std::vector<std::string_view>& candidates);
