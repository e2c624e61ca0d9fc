#pragma once

#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "ZORFile.h"

namespace cli {

/// An open file descriptor that closes itself.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) noexcept : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const noexcept { return number_; }
    /// Closes the descriptor it had, and takes another one.
    void reset(int number = -1) noexcept;

  private:
    int number_;
};

/// Where the document goes. A regular file appears under its name only with `commit`: until then what is
/// written stands in a temporary file beside it, which goes when the object goes, and with the signals that
/// end the program. Standard output, pipes and devices are written to directly.
class OutputFile {
  public:
    /// `path` is as the user gave it, "-" for standard output. Looks whether it can be written, without
    /// writing anything. Throws Failure when it exists (and `overwrite` is false), is the file `sourcePath`
    /// (not empty) or cannot be written.
    OutputFile(std::string path, bool overwrite, const std::string& sourcePath);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// What messages call the output.
    const std::string& name() const noexcept { return name_; }
    bool isStandardOutput() const noexcept { return kind_ == Kind::STANDARD_OUTPUT; }

    /// Lets `observer` see all bytes that are written from now on.
    void setObserver(std::function<void(const char* bytes, std::size_t count)> observer) {
        observer_ = std::move(observer);
    }
    /// A sink for the document, which must not outlive this object. Null, with errno set, when the file
    /// cannot be made. Called once.
    std::unique_ptr<ZORSink> open();
    /// Makes sure that what was written is on the disk, and gives it its name. Throws Failure.
    void commit();

    /// Whether there was a sink for it.
    bool isOpen() const noexcept { return opened_; }
    /// How many bytes were written so far; another thread may ask.
    std::uint64_t bytes() const noexcept { return bytes_; }
    /// The system's reason for the write or the opening that failed; 0 when none did.
    int failureReason() const noexcept { return failureReason_; }
    /// Throws the Failure that tells why nothing could be written.
    [[noreturn]] void throwFailure() const { fail(failureReason_); }

  private:
    class Sink;
    enum class Kind { STANDARD_OUTPUT, DIRECT, REPLACED };

    void prepareFile(bool overwrite, const std::string& sourcePath);
    void prepareReplacement(const std::string& target, bool overwrite, const struct stat* existing);
    void openFolder();
    bool makeTemporary();
    void rename();
    void discardTemporary() noexcept;
    void write(const char* bytes, std::size_t count);
    [[noreturn]] void fail(int reason) const;

    std::string path_;
    std::string name_;
    Kind kind_ = Kind::REPLACED;
    bool mayReplace_;
    bool exists_ = false;
    bool opened_ = false;
    struct stat existing_ {};  ///< of the file that is to be replaced, if it exists
    std::string folderPath_;
    std::string fileName_;       ///< in the folder
    std::string temporaryName_;  ///< in the folder; empty while there is none
    Descriptor folder_;
    Descriptor file_;
    std::function<void(const char*, std::size_t)> observer_;
    std::atomic<std::uint64_t> bytes_ = 0;
    int failureReason_ = 0;
};

}  // namespace cli
