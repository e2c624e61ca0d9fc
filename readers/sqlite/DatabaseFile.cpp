#include "DatabaseFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

namespace readers::sqlite {

namespace {

using Kind = SourceError::Kind;

constexpr std::string_view MAGIC("SQLite format 3\0", 16);
constexpr std::size_t HEADER_SIZE = 100;
/// Where the header says by which means the database is written and read: 1 rollback journal, 2 write-ahead
/// log.
constexpr std::size_t WRITE_VERSION_AT = 18;
constexpr std::size_t READ_VERSION_AT = 19;

std::uint32_t bigEndian(std::string_view head, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        value = value << 8 | static_cast<unsigned char>(head[at + i]);
    }
    return value;
}

bool usesLog(std::string_view head) {
    return head.size() > READ_VERSION_AT && head[READ_VERSION_AT] == 2;
}

/// How many bytes the header announces; 0 when it does not tell.
std::uint64_t announcedSize(std::string_view head) {
    if (head.size() < HEADER_SIZE) {
        return HEADER_SIZE;
    }
    const bool isPageCountValid = bigEndian(head, 24, 4) == bigEndian(head, 92, 4);
    const std::uint32_t pageSize = bigEndian(head, 16, 2);
    return isPageCountValid ? std::uint64_t{bigEndian(head, 28, 4)} * (pageSize == 1 ? 65536 : pageSize) : 0;
}

/// The path as a URI; without it, SQLite would take some names for something else than files.
std::string uriOf(const std::string& path, const char* parameters) {
    constexpr const char* DIGITS = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                             std::strchr("/._-~", c) != nullptr;
        if (isPlain) {
            uri += c;
        } else {
            uri.append({'%', DIGITS[byte >> 4], DIGITS[byte & 15]});
        }
    }
    return uri + parameters;
}

/// Whether another process holds the lock with which SQLite keeps all readers out.
bool isLockedByOthers(const std::string& path) {
    constexpr off_t FIRST_LOCK_BYTE = 0x40000002;
    constexpr off_t LOCK_BYTES = 510;
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = FIRST_LOCK_BYTE;
    lock.l_len = LOCK_BYTES;
    const bool isLocked = ::fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    ::close(descriptor);
    return isLocked;
}

void waitForOthers(const std::string& path, Monitor& monitor, int patience) {
    constexpr int STEP = 20;
    for (int waited = 0; isLockedByOthers(path); waited += STEP) {
        if (!monitor.goesOn()) {
            monitor.rethrow();
        }
        if (waited >= patience) {
            throw sourceErrorOf(SQLITE_BUSY, {});
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(STEP));
    }
}

}  // namespace

bool isDatabase(std::string_view head) noexcept {
    return head.starts_with(MAGIC);
}

DatabaseFile::DatabaseFile(const Source& source, Monitor& monitor, int patience) {
    if (source.head().empty()) {
        throw SourceError(Kind::CANNOT_READ, "it is empty", "name a database that holds something");
    }
    if (source.path().empty()) {
        openContent(source.content(), monitor);
    } else {
        openFile(source, monitor, patience);
    }
}

/// A database that is no file is put into memory, where there is no log to it.
void DatabaseFile::openContent(std::string content, Monitor& monitor) {
    const std::string head = content.substr(0, HEADER_SIZE);
    if (usesLog(content)) {
        content[WRITE_VERSION_AT] = content[READ_VERSION_AT] = 1;
    }
    connection_ = std::make_unique<Connection>(
        Connection::Way{":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr}, monitor);
    auto* bytes = static_cast<unsigned char*>(sqlite3_malloc64(content.size()));
    if (bytes == nullptr) {
        throw sourceErrorOf(SQLITE_NOMEM, {});
    }
    std::memcpy(bytes, content.data(), content.size());
    const auto size = static_cast<sqlite3_int64>(content.size());
    if (sqlite3_deserialize(connection_->handle(), "main", bytes, size, size,
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY) != SQLITE_OK) {
        connection_->fail();
    }
    try {
        begin();
    } catch (const SourceError& failure) {
        assertNotCutOff(failure, head, content.size());
        throw;
    }
}

void DatabaseFile::openFile(const Source& source, Monitor& monitor, int patience) {
    std::error_code error;
    path_ = std::filesystem::canonical(source.path(), error).string();
    if (error) {
        throw SourceError(Kind::CANNOT_OPEN, "it cannot be opened: " + error.message());
    }
    try {
        if (!usesLog(source.head())) {
            openShared(monitor, patience);
        } else if (stampOf(path_ + "-shm").size < 0) {
            openUnshared(monitor, patience);
        } else {
            openLogged(monitor, patience);
        }
    } catch (const SourceError& failure) {
        assertNotCutOff(failure, source.head(), static_cast<std::uint64_t>(stampOf(path_).size));
        throw;
    }
}

void DatabaseFile::openShared(Monitor& monitor, int patience) {
    connection_ = std::make_unique<Connection>(Connection::Way{uriOf(path_, "?mode=ro")}, monitor);
    connection_->waitAtMost(patience);
    begin();
}

/// With a log and the file by which its users agree. Where that file does not let us in, nobody may be there.
void DatabaseFile::openLogged(Monitor& monitor, int patience) {
    try {
        openShared(monitor, patience);
    } catch (const SourceError&) {
        const int code = connection_ == nullptr ? SQLITE_OK : sqlite3_errcode(connection_->handle()) & 0xff;
        if (code != SQLITE_CANTOPEN && code != SQLITE_READONLY) {
            throw;
        }
        openUnshared(monitor, patience);
    }
}

/// A database with a log that nobody uses at the moment: sharing it would need files beside it that may not
/// be made. What stands in the log is read by keeping its index in this process; without a log, the file is
/// all. SQLite's locks are not used, so that changes are looked for afterwards.
void DatabaseFile::openUnshared(Monitor& monitor, int patience) {
    isShared_ = false;
    waitForOthers(path_, monitor, patience);
    file_ = stampOf(path_);
    log_ = stampOf(path_ + "-wal");
    if (log_.size > 0) {
        connection_ = std::make_unique<Connection>(
            Connection::Way{uriOf(path_, "?mode=ro"), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, "unix-none"},
            monitor);
        connection_->run("PRAGMA locking_mode=EXCLUSIVE");
    } else {
        connection_ =
            std::make_unique<Connection>(Connection::Way{uriOf(path_, "?mode=ro&immutable=1")}, monitor);
    }
    begin();
}

/// Loads the schema and stays in the transaction, so that all queries see the same state.
void DatabaseFile::begin() {
    connection_->run("PRAGMA cell_size_check=ON; BEGIN; SELECT count(*) FROM sqlite_schema");
}

void DatabaseFile::assertUnchanged() const {
    if (!isShared_ && (file_ != stampOf(path_) || log_ != stampOf(path_ + "-wal"))) {
        throw SourceError(Kind::CANNOT_READ, "it was changed by another process while it was being read",
                          "read it again");
    }
}

/// SQLite has no words for a file that is too short.
void DatabaseFile::assertNotCutOff(const SourceError& failure, std::string_view head, std::uint64_t size) {
    if (failure.kind() == Kind::CANNOT_READ && isDatabase(head) && size < announcedSize(head)) {
        throw SourceError(Kind::CANNOT_READ,
                          "it is cut off: it should hold " + std::to_string(announcedSize(head)) +
                              " bytes and holds " + std::to_string(size),
                          "copy or download it again");
    }
}

DatabaseFile::Stamp DatabaseFile::stampOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return {};
    }
    return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

}  // namespace readers::sqlite
