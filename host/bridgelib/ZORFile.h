#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>

#include "ZORString.h"

/// Where the bytes of a file go, below `ZORFile`.
class ZORSink {
  public:
    virtual ~ZORSink() = default;
    /// Takes all the bytes or throws; a ZORException is passed on as it is.
    virtual void write(const char* bytes, std::size_t count) = 0;
    /// Called when the file is closed, before the sink goes: also after a write that failed. Throws when
    /// something that was taken has been lost.
    virtual void close() {}
};

/// When what was written reaches the sink.
enum class ZORFlushPolicy {
    EACH_LINE,   ///< at every end of line, as a log wants it
    BUFFER_FULL  ///< when the buffer is full and at the end, as a large file wants it
};

namespace zor {

/// Copies the bytes and gives back where they end. Texts in a document are mostly of one to a few dozen
/// bytes: for those, two copies of a fixed size that may overlap take less time than a call.
inline char* copyBytes(char* to, const char* from, std::size_t count) noexcept {
    const auto copyBothEnds = [&](auto size) {
        std::memcpy(to, from, size);
        std::memcpy(to + count - size, from + count - size, size);
    };
    if (count > 32) {
        std::memcpy(to, from, count);
    } else if (count >= 16) {
        copyBothEnds(std::integral_constant<std::size_t, 16>());
    } else if (count >= 8) {
        copyBothEnds(std::integral_constant<std::size_t, 8>());
    } else if (count >= 4) {
        copyBothEnds(std::integral_constant<std::size_t, 4>());
    } else if (count > 0) {
        to[0] = from[0];
        to[count / 2] = from[count / 2];
        to[count - 1] = from[count - 1];
    }
    return to + count;
}

}  // namespace zor

/// An output file with a buffer. Every write that fails throws a ZORException that names the path and the
/// system's reason.
class ZORFile {
  public:
    ZORFile() = default;
    ~ZORFile();
    ZORFile(const ZORFile&) = delete;
    ZORFile& operator=(const ZORFile&) = delete;

    void setPath(ZORString path) { path_ = std::move(path); }
    const ZORString& getPath() const noexcept { return path_; }
    /// Opens the path for output, created or truncated. False, with errno set, when that cannot be done.
    bool openForOutput();
    /// Writes to the sink from now on.
    void open(std::unique_ptr<ZORSink> sink);
    bool isOpen() const noexcept { return sink_ != nullptr; }
    /// Writes what is in the buffer and closes; the file is closed even when this throws. A file that is not
    /// open stays so.
    void close();
    /// Closes and drops what is in the buffer; for files that are given up.
    void abandon() noexcept;

    ZORFile& operator<<(std::string_view text) {
        write(text.data(), text.size());
        return *this;
    }
    ZORFile& operator<<(const ZORString& text) { return *this << text.view(); }
    ZORFile& operator<<(const char* text) { return *this << std::string_view(text); }
    ZORFile& operator<<(char character) {
        char* to = claim(1);
        *to = character;
        commit(to + 1);
        return *this;
    }
    /// In decimal.
    ZORFile& operator<<(int number);

    void write(const char* bytes, std::size_t count) {
        if (count > static_cast<std::size_t>(limit_ - next_)) {
            writeLarge(bytes, count);
        } else if (count > 0) {
            std::memcpy(next_, bytes, count);
            next_ += count;
        }
    }
    /// Writes pieces one behind the other: string literals, other texts, characters, and numbers in decimal.
    /// The same as `<<` for each, in less time.
    template <typename... Pieces>
    void print(const Pieces&... pieces) {
        if ((longest(pieces) + ... + std::size_t{0}) <= static_cast<std::size_t>(limit_ - next_)) {
            char* to = next_;
            ((to = put(to, pieces)), ...);
            next_ = to;
        } else {
            ((*this << pieces), ...);
        }
    }
    /// The pieces as a line, with what `endLine` does at its end.
    template <typename... Pieces>
    void printLine(const Pieces&... pieces) {
        print(pieces..., '\n');
        if (flushesLines_) {
            flush();
        }
    }
    /// Ends the line with a line feed, and flushes when the policy says so.
    void endLine() {
        *this << '\n';
        if (flushesLines_) {
            flush();
        }
    }
    /// Hands what is in the buffer to the sink.
    void flush();

    /// Room for `count` bytes, at most LARGEST_CLAIM, to be written in place; `commit` tells where they end.
    char* claim(std::size_t count) {
        if (count > static_cast<std::size_t>(limit_ - next_)) {
            makeRoom();
        }
        return next_;
    }
    void commit(char* end) noexcept { next_ = end; }
    static constexpr std::size_t LARGEST_CLAIM = 4096;

    /// The policy of files that are opened from now on; EACH_LINE at the start of the program.
    static void setFlushPolicy(ZORFlushPolicy policy) noexcept;

    /// What opens the paths of files. The host program may put its own in place, to write elsewhere than to
    /// the path; an empty function restores the library's. It gives back null, with errno set, when it
    /// cannot.
    using SinkOpener = std::function<std::unique_ptr<ZORSink>(const ZORString& path)>;
    static void setSinkOpener(SinkOpener opener);

  private:
    static constexpr std::size_t BUFFER_SIZE = 256 * 1024;

    static constexpr std::size_t LONGEST_NUMBER = 11;  // "-2147483648"

    template <std::size_t N>
    static constexpr std::size_t longest(const char (&/*literal*/)[N]) {
        return N - 1;
    }
    static std::size_t longest(std::string_view text) { return text.size(); }
    static constexpr std::size_t longest(char /*character*/) { return 1; }
    static constexpr std::size_t longest(int /*number*/) { return LONGEST_NUMBER; }

    template <std::size_t N>
    static char* put(char* to, const char (&literal)[N]) {
        std::memcpy(to, literal, N - 1);
        return to + (N - 1);
    }
    static char* put(char* to, std::string_view text) { return zor::copyBytes(to, text.data(), text.size()); }
    static char* put(char* to, char character) {
        *to = character;
        return to + 1;
    }
    static char* put(char* to, int number);

    void writeLarge(const char* bytes, std::size_t count);
    void makeRoom();

    ZORString path_;
    std::unique_ptr<ZORSink> sink_;
    std::unique_ptr<char[]> buffer_;
    char* next_ = nullptr;
    char* limit_ = nullptr;
    bool flushesLines_ = true;
};

/// A sink over a file descriptor.
class ZORDescriptorSink : public ZORSink {
  public:
    /// `path` is what messages name. With `owned`, the sink closes the descriptor.
    ZORDescriptorSink(int descriptor, ZORString path, bool owned)
        : path_(std::move(path)), descriptor_(descriptor), owned_(owned) {}
    ~ZORDescriptorSink() override;
    void write(const char* bytes, std::size_t count) override;
    void close() override;

  private:
    [[noreturn]] void fail(int reason) const;

    ZORString path_;
    int descriptor_;
    bool owned_;
};
