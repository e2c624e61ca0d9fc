// Exports that run out of memory, at every single allocation in turn. A program of its own, because it puts
// itself between the process and its allocator.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "EverythingModel.h"
#include "ModelDump.h"
#include "TestBridge.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ALLOCATOR_IS_TAKEN 1
#else
#define ALLOCATOR_IS_TAKEN 0
#endif

namespace {

/// The number of the allocation that fails, counted down; none fails below 1.
long countdown = 0;
/// Blocks that are in use.
long blocks = 0;

bool fails() {
    return countdown > 0 && --countdown == 0;
}

}  // namespace

#if ALLOCATOR_IS_TAKEN

// A sanitizer has the allocator: what is left are the operators. The sanitizer counts the leaks.

void* operator new(std::size_t size) {
    void* memory = fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

#else

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) noexcept {
    void* memory = fails() ? nullptr : __libc_malloc(size);
    blocks += memory != nullptr ? 1 : 0;
    return memory;
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    void* memory = fails() ? nullptr : __libc_calloc(count, size);
    blocks += memory != nullptr ? 1 : 0;
    return memory;
}
void* realloc(void* memory, std::size_t size) noexcept {
    void* moved = fails() ? nullptr : __libc_realloc(memory, size);
    blocks += memory == nullptr && moved != nullptr ? 1 : 0;
    return moved;
}
void free(void* memory) noexcept {
    blocks -= memory != nullptr ? 1 : 0;
    __libc_free(memory);
}

}  // extern "C"

#endif

namespace {

using namespace support;

class NullSink : public ZORSink {
  public:
    void write(const char*, std::size_t) override {}
};

class NullLog : public ZORLog {
  public:
    void log(const ZORLogEvent&) override {}
};

class OutOfMemory : public ::testing::TestWithParam<const char*> {
  protected:
    OutOfMemory() {
        ZORFile::setSinkOpener([](const ZORString&) { return std::make_unique<NullSink>(); });
    }
    ~OutOfMemory() override { ZORFile::setSinkOpener({}); }

    enum class Outcome { COMPLETED, REPORTED, REPORTED_OTHERWISE };
    /// Exports with the n-th allocation failing; 0 for none.
    Outcome run(ZORModel& model, long n) {
        countdown = n;
        try {
            getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, model, options, log);
        } catch (const ZORException& exception) {
            return exception.getText() ==
                           "[QLCM_F0001] An unexpected error occurred in the bridge "
                           "'ZORMicrosoftSqlServerMdsMdcExport'"
                       ? Outcome::REPORTED
                       : Outcome::REPORTED_OTHERWISE;
        }
        return Outcome::COMPLETED;
    }

    TestOptions options{
        {"Model", GetParam()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "Oracle 8.x"}};
    NullLog log;
};

TEST_P(OutOfMemory, AtAnyAllocationLeavesNoLeakAndTheModelAsBefore) {
    const ModelBuilder model = makeEverything();
    const std::string before = dumpModel(*model.model());
    ASSERT_EQ(run(*model.model(), 0), Outcome::COMPLETED);
    long n = 0;
    for (bool completed = false; !completed;) {
        ++n;
        const long blocksBefore = blocks;
        const Outcome outcome = run(*model.model(), n);
        const long leaked = blocks - blocksBefore;
        completed = countdown > 0;
        countdown = 0;
        ASSERT_EQ(leaked, 0) << "allocation " << n;
        ASSERT_EQ(outcome, completed ? Outcome::COMPLETED : Outcome::REPORTED) << "allocation " << n;
        ASSERT_EQ(dumpModel(*model.model()), before) << "allocation " << n;
    }
    EXPECT_GT(n, ALLOCATOR_IS_TAKEN ? 5 : 50) << "the test reaches the export's allocations";
}

INSTANTIATE_TEST_SUITE_P(View, OutOfMemory, ::testing::Values("UML", "ERD", "DBM", "ERD and DBM"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, ' ');
                             return name;
                         });

}  // namespace
