#include "Reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "LargePages.h"

namespace readers {

namespace {

constexpr std::size_t HEAD_SIZE = 4096;

std::string systemReason(int code) {
    return std::generic_category().message(code);
}

/// An open file, closed when it goes.
class InputFile {
  public:
    explicit InputFile(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (descriptor_ < 0) {
            throw SourceError(SourceError::Kind::CANNOT_OPEN, "cannot be opened: " + systemReason(errno));
        }
    }
    ~InputFile() { ::close(descriptor_); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    struct stat status() const {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0) {
            throw SourceError(SourceError::Kind::CANNOT_OPEN, "cannot be examined: " + systemReason(errno));
        }
        return status;
    }

    /// Reads up to `count` bytes; fewer only at the end of the file.
    std::size_t read(char* bytes, std::size_t count) const {
        std::size_t done = 0;
        while (done < count) {
            const ssize_t got = ::read(descriptor_, bytes + done, count - done);
            if (got == 0) {
                break;
            }
            if (got < 0 && errno != EINTR) {
                throw SourceError(SourceError::Kind::CANNOT_READ, "cannot be read: " + systemReason(errno));
            }
            done += got > 0 ? static_cast<std::size_t>(got) : 0;
        }
        return done;
    }

    /// Reads all there is. `expected` is how much that probably is; NULs stand for `padding` bytes behind it,
    /// within the string's capacity.
    std::string readAll(std::size_t expected, std::size_t padding) const {
        std::string content;
        content.reserve(std::max<std::size_t>(expected, HEAD_SIZE) + padding);
        adviseLargePages(content.data(), content.capacity());
        content.resize(std::max<std::size_t>(expected, HEAD_SIZE) + padding, '\0');
        std::size_t size = 0;
        while (true) {
            size += read(content.data() + size, content.size() - padding - size);
            if (size < content.size() - padding) {
                break;
            }
            char more = 0;
            if (read(&more, 1) == 0) {
                break;
            }
            content.resize(2 * content.size(), '\0');
            content[size++] = more;
        }
        content.resize(size);
        return content;
    }

  private:
    int descriptor_;
};

}  // namespace

std::map<std::string, std::size_t> LossReport::countByKind() const {
    std::map<std::string, std::size_t> counts;
    for (const Item& item : items_) {
        ++counts[item.kind];
    }
    return counts;
}

Source Source::fromFile(const std::string& path) {
    const InputFile file(path);
    const mode_t mode = file.status().st_mode;
    if (S_ISDIR(mode)) {
        throw SourceError(SourceError::Kind::CANNOT_OPEN, "is a folder", "name a file in it");
    }
    if (S_ISFIFO(mode)) {
        return fromText(path, file.readAll(0, 0));  // it can be read only once
    }
    if (!S_ISREG(mode)) {
        throw SourceError(SourceError::Kind::CANNOT_OPEN, "is a device, not a file");
    }
    Source source;
    source.name_ = path;
    source.path_ = path;
    source.head_.resize(HEAD_SIZE);
    source.head_.resize(file.read(source.head_.data(), HEAD_SIZE));
    return source;
}

Source Source::fromText(std::string name, std::string text) {
    Source source;
    source.name_ = std::move(name);
    source.head_ = text.substr(0, HEAD_SIZE);
    source.text_ = std::move(text);
    return source;
}

std::string Source::content(std::size_t padding) const {
    if (!text_) {
        const InputFile file(path_);
        return file.readAll(static_cast<std::size_t>(file.status().st_size), padding);
    }
    std::string content;
    content.reserve(text_->size() + padding);
    content.assign(*text_).append(padding, '\0');
    content.resize(text_->size());
    return content;
}

std::string Source::stem() const {
    const auto withoutExtension = [](const std::string& name) {
        const std::size_t dot = name.rfind('.');
        return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
    };
    const std::string name = name_.substr(name_.find_last_of('/') + 1);
    const std::string stem = withoutExtension(name);
    return stem.ends_with(".model") ? withoutExtension(stem) : stem;
}

}  // namespace readers
