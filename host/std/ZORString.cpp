#include "ZORString.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

namespace {

constexpr std::size_t MAX_LENGTH = std::numeric_limits<std::uint32_t>::max() - 16;

}  // namespace

ZORString::Block* ZORString::allocate(std::size_t capacity) {
    if (capacity > MAX_LENGTH) {
        throw std::length_error("ZORString: text too long");
    }
    auto* block = static_cast<Block*>(std::malloc(sizeof(Block) + capacity + 1));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    block->length = 0;
    block->capacity = static_cast<std::uint32_t>(capacity);
    return block;
}

void ZORString::release() noexcept {
    std::free(block_);
}

ZORString::ZORString(const char* text)
    : ZORString(text == nullptr ? std::string_view() : std::string_view(text)) {}

ZORString::ZORString(std::string_view text) {
    if (text.empty()) {
        return;
    }
    block_ = allocate(text.size());
    std::memcpy(bytes(block_), text.data(), text.size());
    bytes(block_)[text.size()] = '\0';
    block_->length = static_cast<std::uint32_t>(text.size());
}

ZORString::ZORString(int number) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    *this = ZORString(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

ZORString& ZORString::operator=(const ZORString& other) {
    if (this != &other) {
        ZORString copy(other);
        std::swap(block_, copy.block_);
    }
    return *this;
}

void ZORString::reserve(std::size_t count) {
    if (count == 0 || (block_ != nullptr && block_->capacity >= count)) {
        return;
    }
    Block* grown = allocate(std::max(count, length()));
    std::memcpy(bytes(grown), c_str(), length() + 1);
    grown->length = static_cast<std::uint32_t>(length());
    clear();
    block_ = grown;
}

ZORString& ZORString::append(std::string_view text) {
    if (text.empty()) {
        return *this;
    }
    const std::size_t before = length();
    const std::size_t after = before + text.size();
    if (block_ == nullptr || block_->capacity < after) {
        // The text may be part of this string: the old bytes are freed only after it was copied.
        const std::size_t roomy = std::min(MAX_LENGTH, before + before / 2);
        Block* grown = allocate(std::max(after, roomy));
        std::memcpy(bytes(grown), c_str(), before);
        std::memcpy(bytes(grown) + before, text.data(), text.size());
        clear();
        block_ = grown;
    } else {
        std::memmove(bytes(block_) + before, text.data(), text.size());
    }
    block_->length = static_cast<std::uint32_t>(after);
    bytes(block_)[after] = '\0';
    return *this;
}

void ZORString::truncate(std::size_t count) {
    if (count >= length()) {
        return;
    }
    if (!isAllocated()) {
        *this = ZORString(view().substr(0, count));
    } else {
        block_->length = static_cast<std::uint32_t>(count);
        bytes(block_)[count] = '\0';
    }
}

void ZORString::clear() noexcept {
    if (isAllocated()) {
        release();
    }
    block_ = nullptr;
}

ZORString operator+(const ZORString& left, std::string_view right) {
    ZORString sum;
    sum.reserve(left.length() + right.size());
    sum.append(left.view()).append(right);
    return sum;
}

ZORString operator+(const ZORString& left, const ZORString& right) {
    return left + right.view();
}

ZORString operator+(const ZORString& left, const char* right) {
    return left + std::string_view(right);
}

ZORString operator+(const char* left, const ZORString& right) {
    return ZORString(left) + right.view();
}

std::uint32_t stringHashCode(std::string_view text) noexcept {
    // FNV-1a over 64 bits, folded: short, and even over the low bits that the tables use.
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211ULL;
    }
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}
