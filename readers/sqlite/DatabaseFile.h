#pragma once

#include <memory>
#include <string>

#include "Connection.h"

namespace readers::sqlite {

/// Whether the content begins like a SQLite database's.
bool isDatabase(std::string_view head) noexcept;

/// Opens a source for reading, so that one state of it is seen from now on. The source, and the folder in
/// which it stands, are not changed: no file of SQLite's appears beside it. Waits for a lock of another
/// process at most so many milliseconds. Throws SourceError.
class DatabaseFile {
  public:
    DatabaseFile(const Source& source, Monitor& monitor, int patience);

    Connection& connection() noexcept { return *connection_; }
    /// Throws SourceError when somebody has changed the file in a way that reading it could not be protected
    /// from. To be called when everything has been read.
    void assertUnchanged() const;

  private:
    /// What tells one state of a file from another.
    struct Stamp {
        std::int64_t size = -1;  ///< -1: there is no such file
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };
    static Stamp stampOf(const std::string& path);

    void openContent(std::string content, Monitor& monitor);
    void openFile(const Source& source, Monitor& monitor, int patience);
    void openShared(Monitor& monitor, int patience);
    void openLogged(Monitor& monitor, int patience);
    void openUnshared(Monitor& monitor, int patience);
    void begin();
    static void assertNotCutOff(const SourceError& failure, std::string_view head, std::uint64_t size);

    std::string path_;  ///< without links
    std::unique_ptr<Connection> connection_;
    bool isShared_ = true;  ///< SQLite's locks keep others from changing what is being read
    Stamp file_;
    Stamp log_;
};

}  // namespace readers::sqlite
