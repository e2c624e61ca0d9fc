#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

#include "ZORString.h"

/// Where the bytes of a file go: the one operation below `ZORFile`.
class ZORSink {
  public:
    virtual ~ZORSink() = default;
    /// Takes all the bytes or throws; a ZORException is passed on as it is.
    virtual void write(const char* bytes, std::size_t count) = 0;
    /// Called once when the file is closed in order; throws when something that was taken has been lost.
    virtual void close() {}
};

/// When what was written reaches the sink.
enum class ZORFlushPolicy {
    EACH_LINE,   ///< at every end of line, as a log wants it
    BUFFER_FULL  ///< when the buffer is full and at the end, as a large file wants it
};

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
        if (count <= static_cast<std::size_t>(limit_ - next_)) {
            std::memcpy(next_, bytes, count);
            next_ += count;
        } else {
            writeLarge(bytes, count);
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
