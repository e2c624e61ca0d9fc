#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ZOR.h"

/// Where an object of a model stands, as the check came to it.
struct Place {
    /// The place of the object that this one is a part of; null for what is named by its path: model,
    /// packages, types and the elements of packages.
    const Place* outer;
    const ZORObject* object;
    /// Counted from 1 in the list that the object stands in; it names what has no name.
    std::size_t number;
};

/// The faults of a model, a sentence each, up to a limit.
class Faults {
  public:
    explicit Faults(std::size_t most) : most_(most) {}

    /// Adds "Class 'Sales.Orders': attribute 'x' " and the text and a point, unless the limit is reached. The
    /// text is the second half of a sentence: "has no type".
    void add(const Place& place, std::string_view text);
    bool isEmpty() const noexcept { return sentences_.empty(); }
    bool isFull() const noexcept { return sentences_.size() >= most_; }
    std::vector<ZORString> take() { return std::move(sentences_); }

    /// " 'x'" for the text of a fault.
    static std::string quote(const ZORModelObject& object);

  private:
    std::size_t most_;
    std::vector<ZORString> sentences_;
};
