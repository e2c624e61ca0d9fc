#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ZORException.h"
#include "ZORFile.h"

namespace support {

/// What reached the sinks that share this record.
struct SinkRecord {
    std::vector<std::string> writes;  ///< one per write that succeeded
    std::size_t attempts = 0;         ///< writes, failed ones included
    int closes = 0;                   ///< closed in order, a failing close included
    int destroyed = 0;

    std::string text() const {
        std::string all;
        for (const std::string& write : writes) {
            all += write;
        }
        return all;
    }
};

/// A sink that writes to a record in memory.
class MemorySink : public ZORSink {
  public:
    explicit MemorySink(std::shared_ptr<SinkRecord> record) : record_(std::move(record)) {}
    ~MemorySink() override { ++record_->destroyed; }
    void write(const char* bytes, std::size_t count) override {
        ++record_->attempts;
        record_->writes.emplace_back(bytes, count);
    }
    void close() override { ++record_->closes; }

  protected:
    SinkRecord& record() noexcept { return *record_; }

  private:
    std::shared_ptr<SinkRecord> record_;
};

/// A sink in memory that fails once, with the text "write N failed" or "close failed", and takes everything
/// else.
class FailingSink : public MemorySink {
  public:
    /// Fails the n-th write, counted from 1.
    static std::unique_ptr<ZORSink> atWrite(std::size_t n, std::shared_ptr<SinkRecord> record) {
        return std::unique_ptr<ZORSink>(new FailingSink(n, false, std::move(record)));
    }
    /// Fails when it is closed.
    static std::unique_ptr<ZORSink> atClose(std::shared_ptr<SinkRecord> record) {
        return std::unique_ptr<ZORSink>(new FailingSink(0, true, std::move(record)));
    }

    void write(const char* bytes, std::size_t count) override {
        if (record().attempts + 1 == failingWrite_) {
            ++record().attempts;
            throw ZORException(("write " + std::to_string(failingWrite_) + " failed").c_str());
        }
        MemorySink::write(bytes, count);
    }
    void close() override {
        MemorySink::close();
        if (failsAtClose_) {
            throw ZORException("close failed");
        }
    }

  private:
    FailingSink(std::size_t failingWrite, bool failsAtClose, std::shared_ptr<SinkRecord> record)
        : MemorySink(std::move(record)), failingWrite_(failingWrite), failsAtClose_(failsAtClose) {}

    std::size_t failingWrite_;
    bool failsAtClose_;
};

}  // namespace support
