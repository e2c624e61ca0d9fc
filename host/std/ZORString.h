#pragma once

#if __cplusplus < 202002L
#error "the ZOR libraries need C++20: compile with -std=c++20"
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace zor {

/// The characters of a string literal as a template argument.
template <std::size_t N>
struct LiteralText {
    static constexpr std::size_t LENGTH = N - 1;
    char text[N];
    consteval LiteralText(const char (&literal)[N]) { std::copy_n(literal, N, text); }
};

}  // namespace zor

/// A counted byte string, in practice UTF-8 text.
///
/// An empty string holds no memory beyond its one pointer, so that model objects with many unset texts stay
/// small. Copies are deep. The bytes are always followed by a NUL, which is not counted; they may hold NULs.
/// The longest string has 4 GiB - 16 bytes; a longer one throws std::length_error.
class ZORString {
  public:
    constexpr ZORString() noexcept = default;
    /// The bytes up to the terminating NUL; a null pointer gives the empty string.
    ZORString(const char* text);
    ZORString(std::string_view text);
    ZORString(const char* bytes, std::size_t count) : ZORString(std::string_view(bytes, count)) {}
    /// The number in decimal, with a leading "-" when it is negative.
    explicit ZORString(int number);
    /// A text that stands in the library itself, made without a step at run time: what `"..."_text` gives.
    template <zor::LiteralText Text>
    static constexpr ZORString ofLiteral() noexcept {
        return Text.LENGTH == 0 ? ZORString() : ZORString(const_cast<Block*>(&literalBlock<Text>.header));
    }

    ZORString(const ZORString& other) : ZORString(other.view()) {}
    constexpr ZORString(ZORString&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    ZORString& operator=(const ZORString& other);
    ZORString& operator=(ZORString&& other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    constexpr ~ZORString() {
        if (isAllocated()) {
            release();
        }
    }

    /// Length in bytes.
    std::size_t length() const noexcept { return block_ == nullptr ? 0 : block_->length; }
    bool isEmpty() const noexcept { return length() == 0; }
    /// The bytes; never null; valid until the string changes.
    const char* c_str() const noexcept { return block_ == nullptr ? "" : bytes(block_); }
    std::string_view view() const noexcept { return {c_str(), length()}; }
    operator std::string_view() const noexcept { return view(); }
    char operator[](std::size_t index) const noexcept { return c_str()[index]; }

    ZORString& append(std::string_view text);
    ZORString& append(char character) { return append(std::string_view(&character, 1)); }
    ZORString& operator+=(std::string_view text) { return append(text); }
    /// Shortens the string to its first `count` bytes; does nothing when it is not longer than that.
    void truncate(std::size_t count);
    /// Makes room for `count` bytes, so that appending up to that length does not allocate.
    void reserve(std::size_t count);
    void clear() noexcept;

    /// Byte for byte, letter case included.
    friend bool operator==(const ZORString& a, const ZORString& b) noexcept { return a.view() == b.view(); }
    friend bool operator==(const ZORString& a, std::string_view b) noexcept { return a.view() == b; }
    friend bool operator==(const ZORString& a, const char* b) noexcept { return a.view() == b; }
    friend bool operator<(const ZORString& a, const ZORString& b) noexcept { return a.view() < b.view(); }

  private:
    struct Block {
        std::uint32_t length;
        std::uint32_t capacity;  ///< 0 for a literal's, which is neither written to nor freed
    };
    template <zor::LiteralText Text>
    struct LiteralBlock {
        Block header{Text.LENGTH, 0};
        decltype(Text) text = Text;
    };
    template <zor::LiteralText Text>
    static constexpr LiteralBlock<Text> literalBlock{};

    constexpr explicit ZORString(Block* block) noexcept : block_(block) {}
    constexpr bool isAllocated() const noexcept { return block_ != nullptr && block_->capacity != 0; }
    static char* bytes(Block* block) noexcept { return reinterpret_cast<char*>(block + 1); }
    static Block* allocate(std::size_t capacity);
    void release() noexcept;

    Block* block_ = nullptr;
};

ZORString operator+(const ZORString& left, std::string_view right);
ZORString operator+(const ZORString& left, const ZORString& right);
ZORString operator+(const ZORString& left, const char* right);
ZORString operator+(const char* left, const ZORString& right);

/// The hash of a text's bytes that the containers use. Equal texts have equal hashes; the value is the same
/// in every process, so documents that depend on it are repeatable.
std::uint32_t stringHashCode(std::string_view text) noexcept;

template <>
struct std::hash<ZORString> {
    std::size_t operator()(const ZORString& text) const noexcept { return stringHashCode(text.view()); }
};

/// A ZORString of the literal's characters that takes no memory and cannot fail: `"File"_text`. For
/// constants; a copy has memory of its own, so that it may outlive the library, but what is moved from one
/// may not.
template <zor::LiteralText Text>
constexpr ZORString operator""_text() noexcept {
    return ZORString::ofLiteral<Text>();
}

namespace zor {

template <LiteralText Text>
inline constexpr ZORString literalString = ZORString::ofLiteral<Text>();

}  // namespace zor

/// Such a string that stands in the library already: `"dbm:LogicalTable"_z`. For names that are passed by
/// `const ZORString&` in hot code.
template <zor::LiteralText Text>
constexpr const ZORString& operator""_z() noexcept {
    return zor::literalString<Text>;
}
