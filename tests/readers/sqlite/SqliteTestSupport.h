// What the tests of the SQLite readers share: making databases, reading them, and models as a few lines of
// text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Reader.h"

namespace support {

/// A folder of its own, removed at the end.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

/// Makes a database file by running statements.
void makeDatabase(const std::string& path, std::string_view sql);

std::string contentOf(const std::string& path);
void write(const std::string& path, std::string_view content);

/// Keeps what a reader reports; may be told to interrupt it.
class RecordingContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override;
    void progress(std::uint64_t objects) override;

    std::vector<std::string> warnings;  ///< "where: text"
    std::uint64_t objects = 0;
    std::uint64_t interruptAfterCalls = 0;  ///< 0: never

    /// "kind: where: detail", in the order in which they were reported.
    std::vector<std::string> lossLines() const;

  private:
    std::uint64_t calls_ = 0;
};

struct Reading {
    std::unique_ptr<ZORModel> model;
    RecordingContext context;
};

/// Reads the database that the statements make.
Reading readDatabase(std::string_view sql, const readers::ReadRequest& request = {});
/// Reads the statements as a script called "script.sql".
Reading readScript(std::string_view sql, const readers::ReadRequest& request = {});

/// "KIND: text [hint]" of the error with which reading ends; "no error" when it does not.
std::string errorOfScript(std::string_view sql);
std::string errorOf(const readers::Reader& reader, const readers::Source& source,
                    const readers::ReadRequest& request = {});

/// What a model holds of the database, one object a line, parts indented:
///
///     table child
///       id INTEGER
///       parent INTEGER null = 0
///       state child_state (TEXT: open|closed)
///       primary child_pk (id)
///       foreign child_parent_fk (parent) -> parent.parent_pk (id)
///       index by_parent (parent desc) backs child_parent_fk
///       trigger t after insert: BEGIN SELECT 1; END
///     view v: SELECT id FROM child
///       id INTEGER <- child.id
///     relationship child_parent_fk: parent 0..1, child 0..*, delete cascade, update no action
std::string describe(const ZORModel& model);

}  // namespace support
