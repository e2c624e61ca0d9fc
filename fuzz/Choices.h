#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// The bytes of an input as a row of choices. When they are used up, every choice is the first one, so that
/// what is built of them comes to an end.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

    bool isEmpty() const { return at_ == end_; }
    /// A number below `count`, which is at least 1 and at most 256.
    std::size_t below(std::size_t count) { return isEmpty() ? 0 : *at_++ % count; }
    /// True once in `times`, and not at all at the end.
    bool oneIn(std::size_t times) { return below(times) == times - 1; }
    bool either() { return oneIn(2); }
    /// An element of an array.
    template <typename Element, std::size_t COUNT>
    const Element& pick(const Element (&elements)[COUNT]) {
        return elements[below(COUNT)];
    }

  private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

}  // namespace fuzz
