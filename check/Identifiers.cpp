#include "Identifiers.h"

#include <algorithm>
#include <charconv>

namespace oimcheck {

int Identifiers::parse(std::string_view text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return 0;
    }
    text.remove_prefix(prefix.size());
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && number > 0 && text.front() != '0' ? number : 0;
}

std::uint16_t Identifiers::tagOf(int id) const {
    const auto index = static_cast<std::size_t>(id);
    if (index < tags_.size() && tags_[index] != NOT_GIVEN) {
        return tags_[index];
    }
    const auto found = farTags_.find(id);
    return found == farTags_.end() ? NOT_GIVEN : found->second;
}

bool Identifiers::give(int id, std::uint16_t tag) {
    if (tagOf(id) != NOT_GIVEN) {
        return false;
    }
    constexpr std::size_t NEAR = 1U << 16U;
    constexpr std::size_t SPARSEST = 8;
    const auto index = static_cast<std::size_t>(id);
    if (index >= NEAR + SPARSEST * given_++ && index >= tags_.size()) {
        farTags_.emplace(id, tag);
        return true;
    }
    if (index >= tags_.size()) {
        tags_.resize(index + 1, NOT_GIVEN);
    }
    tags_[index] = tag;
    return true;
}

void Identifiers::refer(const Reference& reference) {
    if (tagOf(reference.id) == reference.tag) {
        return;
    }
    const std::uint64_t key = (static_cast<std::uint64_t>(reference.id) << 32U) |
                              (static_cast<std::uint64_t>(reference.tag) << 16U) | reference.holder;
    const auto [known, isNew] = references_.emplace(key, reference);
    known->second.count += isNew ? 0 : 1;
}

void Identifiers::forEachLoose(
    std::uint16_t none, const std::function<void(const Reference&, std::uint16_t targetTag)>& tell) const {
    std::vector<const Reference*> loose;
    for (const auto& [key, reference] : references_) {
        if (tagOf(reference.id) != reference.tag) {
            loose.push_back(&reference);
        }
    }
    std::sort(loose.begin(), loose.end(), [](const Reference* a, const Reference* b) {
        return a->place.line != b->place.line ? a->place.line < b->place.line
                                              : a->place.column < b->place.column;
    });
    for (const Reference* reference : loose) {
        const std::uint16_t tag = tagOf(reference->id);
        tell(*reference, tag == NOT_GIVEN ? none : tag);
    }
}

}  // namespace oimcheck
