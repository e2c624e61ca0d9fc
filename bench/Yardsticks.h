#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <vector>

// What an export is held against: the file system alone, and a widely used XML writer. Failures throw
// std::runtime_error.

namespace bench {

/// The content of a file.
std::string readFile(const std::string& path);

/// Writes the bytes in blocks of 1 MiB with nothing but the system's own operations.
void writeRaw(const std::string& path, const std::string& bytes);

/// Waits until the file's content is on the disk.
void flushToDisk(const std::string& path);

/// A document taken apart into the calls of a writer that produce it again, so that replaying them costs the
/// writer's own time and next to nothing else: no model is walked, no identifier looked up.
class RecordedDocument {
  public:
    explicit RecordedDocument(const std::string& path);

    /// Produces the document with libxml2's text writer, elements on lines of their own, without indentation.
    void writeWithLibxml2(const std::string& path) const;

    std::size_t callCount() const noexcept { return calls_.size(); }
    /// Same elements, attributes and values in the same order.
    bool operator==(const RecordedDocument& other) const;

  private:
    enum class Kind : unsigned char { START_ELEMENT, ATTRIBUTE, END_ELEMENT };
    struct Call {
        Kind kind;
        const char* name;
        const char* value;
    };

    const char* keepName(const char* name);
    const char* keepValue(const char* value);

    std::vector<Call> calls_;
    std::set<std::string, std::less<>> names_;
    /// Values stand one behind the other, as they would in a program that has them at hand.
    std::deque<std::string> values_;
};

}  // namespace bench
