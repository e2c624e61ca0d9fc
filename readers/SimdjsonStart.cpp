#include "SimdjsonStart.h"

#include <simdjson.h>

#include <memory>
#include <new>

namespace readers {

namespace {

/// Memory that is given back when an allocation fails, so that the next attempt at it succeeds.
class Reserve {
  public:
    Reserve() {
        block_ = std::make_unique<char[]>(SIZE);
        before_ = std::set_new_handler(&Reserve::giveBack);
    }
    ~Reserve() {
        std::set_new_handler(before_);
        block_.reset();
    }
    Reserve(const Reserve&) = delete;
    Reserve& operator=(const Reserve&) = delete;

  private:
    static constexpr std::size_t SIZE = 65536;  // many times what simdjson takes

    static void giveBack() {
        if (block_ == nullptr) {
            throw std::bad_alloc();
        }
        block_.reset();
    }

    static std::unique_ptr<char[]> block_;
    std::new_handler before_;
};

constinit std::unique_ptr<char[]> Reserve::block_;

bool start() {
    const Reserve reserve;
    return simdjson::validate_utf8("", 0) && simdjson::builtin_implementation() != nullptr;
}

}  // namespace

void startSimdjson() {
    [[maybe_unused]] static const bool started = start();
}

}  // namespace readers
