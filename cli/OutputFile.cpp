#include "OutputFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

#include "Failure.h"
#include "Signals.h"
#include "Text.h"
#include "ZORHostCatalogues.h"

namespace cli {

namespace {

constexpr int MOST_LINKS = 40;

/// Names of standard output; it may be a file of its own, which is not to be replaced.
bool namesStandardOutput(std::string_view path) {
    constexpr std::array<std::string_view, 4> NAMES = {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};
    return std::find(NAMES.begin(), NAMES.end(), path) != NAMES.end();
}

struct SplitPath {
    std::string folder;
    std::string name;
};

SplitPath splitPath(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return {".", path};
    }
    return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

/// Follows the symbolic links that the path ends in, so that their target is replaced and not the link. The
/// target need not exist. Empty, with errno set, when the links do not end.
std::string followLinks(std::string path) {
    for (int i = 0; i < MOST_LINKS; ++i) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            return path;
        }
        const std::string_view text(target.data(), static_cast<std::size_t>(length));
        path = text.starts_with('/') ? std::string(text) : splitPath(path).folder + "/" + std::string(text);
    }
    errno = ELOOP;
    return {};
}

std::string randomName() {
    std::random_device random;
    return fmt::format(".oimbridge-{:08x}{:08x}.part", random(), random());
}

}  // namespace

void Descriptor::reset(int number) noexcept {
    if (number_ >= 0) {
        ::close(number_);
    }
    number_ = number;
}

/// Writes through to the file; closing is the file's own business, for the bridge also closes what has
/// failed.
class OutputFile::Sink : public ZORSink {
  public:
    explicit Sink(OutputFile& file) : file_(file) {}
    void write(const char* bytes, std::size_t count) override { file_.write(bytes, count); }

  private:
    OutputFile& file_;
};

OutputFile::OutputFile(std::string path, bool overwrite, const std::string& sourcePath)
    : path_(std::move(path)), name_(path_), mayReplace_(overwrite) {
    if (namesStandardOutput(path_)) {
        kind_ = Kind::STANDARD_OUTPUT;
        name_ = "standard output";
    } else {
        prepareFile(overwrite, sourcePath);
    }
}

OutputFile::~OutputFile() {
    discardTemporary();
}

void OutputFile::prepareFile(bool overwrite, const std::string& sourcePath) {
    const std::string target = followLinks(path_);
    if (target.empty()) {
        fail(errno);
    }
    struct stat found {};
    const bool exists = ::stat(path_.c_str(), &found) == 0;
    if (!exists && errno != ENOENT) {
        fail(errno);
    }
    struct stat source {};
    if (exists && !sourcePath.empty() && ::stat(sourcePath.c_str(), &source) == 0 &&
        source.st_dev == found.st_dev && source.st_ino == found.st_ino) {
        throw Failure(ExitCode::WRONG_USE, name_, "the output is the source itself", "give OUT another name");
    }
    if (exists && S_ISDIR(found.st_mode)) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "is a folder", "name a file in it");
    }
    // A file that only /proc names (an open descriptor) has no name that could be replaced.
    if (exists && (!S_ISREG(found.st_mode) || target.starts_with("/proc/"))) {
        kind_ = Kind::DIRECT;
        return;
    }
    prepareReplacement(target, overwrite, exists ? &found : nullptr);
}

void OutputFile::prepareReplacement(const std::string& target, bool overwrite, const struct stat* existing) {
    const SplitPath split = splitPath(target);
    if (split.name.empty()) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "names a folder", "name a file in it");
    }
    folderPath_ = split.folder;
    fileName_ = split.name;
    if (existing != nullptr) {
        exists_ = true;
        existing_ = *existing;
        if (!overwrite) {
            throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "exists already", "--overwrite replaces it");
        }
        if (::access(path_.c_str(), W_OK) != 0) {
            fail(errno);
        }
    }
    openFolder();
}

void OutputFile::openFolder() {
    folder_.reset(::open(folderPath_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder_.get() < 0 && errno == EACCES) {
        // A folder that may be written but not listed.
        folder_.reset(::open(folderPath_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    if (folder_.get() < 0 && errno == ENOENT) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_,
                      fmt::format("there is no folder \"{}\"", folderPath_), "make it first");
    }
    if (folder_.get() < 0 || ::faccessat(folder_.get(), ".", W_OK | X_OK, 0) != 0) {
        const std::string reason = describeErrno(errno);
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_,
                      fmt::format("no file can be made in the folder \"{}\": {}", folderPath_, reason));
    }
}

std::unique_ptr<ZORSink> OutputFile::open() {
    if (kind_ == Kind::DIRECT) {
        file_.reset(::open(path_.c_str(), O_WRONLY | O_CLOEXEC));
        failureReason_ = file_.get() < 0 ? errno : 0;
    } else if (kind_ == Kind::REPLACED && !makeTemporary()) {
        failureReason_ = errno;
    }
    if (failureReason_ != 0) {
        errno = failureReason_;
        return nullptr;
    }
    opened_ = true;
    return std::make_unique<Sink>(*this);
}

bool OutputFile::makeTemporary() {
    const signals::Blocker blocker;
    // Until it has the rights of the file that it replaces, nobody else may read it.
    const mode_t mode = exists_ ? 0600 : 0666;
    std::string name;
    do {
        name = randomName();
        file_.reset(::openat(folder_.get(), name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    } while (file_.get() < 0 && errno == EEXIST);
    if (file_.get() < 0) {
        return false;
    }
    temporaryName_ = std::move(name);  // which cannot fail, or the file would stay behind
    signals::registerTemporary(folder_.get(), temporaryName_);
    if (exists_) {
        // The owner can be kept by few users; the rights count in any case.
        [[maybe_unused]] const int ignored = ::fchown(file_.get(), existing_.st_uid, existing_.st_gid);
        return ::fchmod(file_.get(), existing_.st_mode & 07777) == 0;
    }
    return true;
}

void OutputFile::write(const char* bytes, std::size_t count) {
    const int descriptor = kind_ == Kind::STANDARD_OUTPUT ? STDOUT_FILENO : file_.get();
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, count);
        if (written == 0 || (written < 0 && errno != EINTR)) {
            failureReason_ = written == 0 ? EIO : errno;  // what takes nothing would be asked for ever
            throw ZORException(QLCM::FILE_WRITE_ERROR.getMessage(
                std::string_view(name_), std::string_view(describeErrno(failureReason_))));
        }
        const auto step = static_cast<std::size_t>(std::max<ssize_t>(written, 0));
        if (observer_) {
            observer_(bytes, step);
        }
        bytes += step;
        count -= step;
        bytes_ += step;
    }
}

void OutputFile::commit() {
    if (kind_ != Kind::REPLACED) {
        return;
    }
    if (::fsync(file_.get()) != 0) {
        fail(errno);
    }
    rename();
    // File systems that cannot do this keep their folders safe in other ways, or not at all.
    if (::fsync(folder_.get()) != 0 && errno == EIO) {
        fail(errno);
    }
}

void OutputFile::rename() {
    const signals::Blocker blocker;
    const unsigned flags = mayReplace_ ? 0 : RENAME_NOREPLACE;
    int result = ::renameat2(folder_.get(), temporaryName_.c_str(), folder_.get(), fileName_.c_str(), flags);
    if (result != 0 && errno == EINVAL && flags != 0) {
        // This file system cannot refuse to replace; a file that was made meanwhile is a file that was there.
        result = ::linkat(folder_.get(), temporaryName_.c_str(), folder_.get(), fileName_.c_str(), 0);
        result = result == 0 ? ::unlinkat(folder_.get(), temporaryName_.c_str(), 0) : result;
    }
    if (result != 0) {
        fail(errno);
    }
    temporaryName_.clear();
    signals::forgetTemporary();
}

void OutputFile::discardTemporary() noexcept {
    if (temporaryName_.empty()) {
        return;
    }
    const signals::Blocker blocker;
    ::unlinkat(folder_.get(), temporaryName_.c_str(), 0);
    signals::forgetTemporary();
    temporaryName_.clear();
}

void OutputFile::fail(int reason) const {
    if (reason == EPIPE) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "the program that reads it has closed the pipe");
    }
    if (reason == EEXIST) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "has come into being meanwhile",
                      "--overwrite replaces it");
    }
    throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, name_, "cannot be written: " + describeErrno(reason));
}

}  // namespace cli
