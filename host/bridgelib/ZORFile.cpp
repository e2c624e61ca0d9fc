#include "ZORFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <system_error>

#include "ZORHostCatalogues.h"

namespace {

std::atomic<ZORFlushPolicy> flushPolicy = ZORFlushPolicy::EACH_LINE;

std::unique_ptr<ZORSink> openPath(const ZORString& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return nullptr;
    }
    return std::make_unique<ZORDescriptorSink>(descriptor, path, true);
}

ZORFile::SinkOpener& sinkOpener() {
    static ZORFile::SinkOpener opener = openPath;
    return opener;
}

}  // namespace

void ZORFile::setFlushPolicy(ZORFlushPolicy policy) noexcept {
    flushPolicy = policy;
}

void ZORFile::setSinkOpener(SinkOpener opener) {
    sinkOpener() = opener ? std::move(opener) : openPath;
}

ZORFile::~ZORFile() {
    abandon();
}

bool ZORFile::openForOutput() {
    std::unique_ptr<ZORSink> sink = sinkOpener()(path_);
    if (sink == nullptr) {
        return false;
    }
    open(std::move(sink));
    return true;
}

void ZORFile::open(std::unique_ptr<ZORSink> sink) {
    buffer_ = std::make_unique_for_overwrite<char[]>(BUFFER_SIZE);
    next_ = buffer_.get();
    limit_ = next_ + BUFFER_SIZE;
    flushesLines_ = flushPolicy == ZORFlushPolicy::EACH_LINE;
    sink_ = std::move(sink);
}

void ZORFile::close() {
    if (sink_ == nullptr) {
        return;
    }
    try {
        flush();
        sink_->close();
    } catch (...) {
        abandon();
        throw;
    }
    abandon();
}

void ZORFile::abandon() noexcept {
    sink_.reset();
    buffer_.reset();
    next_ = limit_ = nullptr;
}

ZORFile& ZORFile::operator<<(int number) {
    commit(put(claim(LONGEST_NUMBER), number));
    return *this;
}

char* ZORFile::put(char* to, int number) {
    return std::to_chars(to, to + LONGEST_NUMBER, number).ptr;
}

void ZORFile::flush() {
    // The buffer is empty before the sink is called: what a failing sink was given is not given to it again.
    const auto count = static_cast<std::size_t>(next_ - buffer_.get());
    next_ = buffer_.get();
    if (count > 0) {
        sink_->write(buffer_.get(), count);
    }
}

void ZORFile::makeRoom() {
    if (sink_ == nullptr) {
        throw ZORException(QLCM::FILE_WRITE_ERROR.getMessage(path_, "the file is not open"));
    }
    flush();
}

void ZORFile::writeLarge(const char* bytes, std::size_t count) {
    makeRoom();
    if (count >= BUFFER_SIZE) {
        sink_->write(bytes, count);
    } else {
        std::memcpy(next_, bytes, count);
        next_ += count;
    }
}

ZORDescriptorSink::~ZORDescriptorSink() {
    if (owned_ && descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

void ZORDescriptorSink::write(const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::write(descriptor_, bytes, count);
        if (written > 0) {
            bytes += written;
            count -= static_cast<std::size_t>(written);
        } else if (written == 0 || errno != EINTR) {
            // A device that takes nothing and gives no reason would be asked for ever.
            fail(written == 0 ? EIO : errno);
        }
    }
}

void ZORDescriptorSink::close() {
    if (owned_ && ::close(std::exchange(descriptor_, -1)) != 0) {
        fail(errno);
    }
}

void ZORDescriptorSink::fail(int reason) const {
    throw ZORException(
        QLCM::FILE_WRITE_ERROR.getMessage(path_, std::generic_category().message(reason).c_str()));
}
