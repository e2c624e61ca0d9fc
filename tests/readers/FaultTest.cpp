// Reading while something fails: every single allocation in turn, every single step of SQLite in turn. A
// reader gives the whole model or says that it cannot; it never gives a part as if it were the whole, and
// leaves no memory behind.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include "FailingAllocator.h"
#include "ModelDump.h"
#include "Reader.h"
#include "model_document/ModelDocumentWriter.h"

namespace {

/// The number of the step that fails, counted down; none fails below 1.
long stepsToGo = 0;
/// Whether the last step was the one that failed.
bool stepFailed = false;

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

/// In the place of the library's, for everything in this program. What SQLite does for itself goes on: it
/// would not know what to make of its own steps failing without a cause.
extern "C" int sqlite3_step(sqlite3_stmt* statement) {
    static const auto libraryStep = next<decltype(sqlite3_step)>("sqlite3_step");
    Dl_info library;
    Dl_info caller;
    const bool isOurs = ::dladdr(reinterpret_cast<void*>(libraryStep), &library) != 0 &&
                        ::dladdr(__builtin_return_address(0), &caller) != 0 &&
                        caller.dli_fbase != library.dli_fbase;
    stepFailed = isOurs && stepsToGo > 0 && --stepsToGo == 0;
    return stepFailed ? SQLITE_IOERR : libraryStep(statement);
}

extern "C" int sqlite3_errcode(sqlite3* database) {
    return stepFailed ? SQLITE_IOERR : next<decltype(sqlite3_errcode)>("sqlite3_errcode")(database);
}

extern "C" int sqlite3_extended_errcode(sqlite3* database) {
    return stepFailed ? SQLITE_IOERR
                      : next<decltype(sqlite3_extended_errcode)>("sqlite3_extended_errcode")(database);
}

namespace {

/// Something of everything that is read.
constexpr std::string_view SCRIPT = R"(
CREATE TABLE customer (id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(40) NOT NULL UNIQUE COLLATE NOCASE,
  initial TEXT AS (substr(name, 1, 1)) STORED);
CREATE TABLE purchase (no INTEGER, customer INT REFERENCES customer ON DELETE CASCADE,
  state CHAR(1) DEFAULT 'o' CHECK (state IN ('o', 'p')), total NUMERIC CHECK (total >= 0),
  CONSTRAINT purchase_key PRIMARY KEY (customer, no)) WITHOUT ROWID;
CREATE TABLE line (customer INT, purchase INT, position INT, what TEXT,
  FOREIGN KEY (customer, purchase) REFERENCES purchase ON UPDATE SET NULL DEFERRABLE INITIALLY DEFERRED,
  CONSTRAINT one_each UNIQUE (purchase, customer, position));
CREATE TABLE lost (a INT REFERENCES nowhere);
CREATE VIRTUAL TABLE words USING fts5(word);
CREATE INDEX by_customer ON purchase (customer, state DESC);
CREATE UNIQUE INDEX by_what ON line (lower(what), position) WHERE position > 0;
CREATE INDEX by_expression ON line (lower(what));
CREATE VIEW paid AS SELECT p.no, c.name FROM purchase p JOIN customer c ON c.id = p.customer WHERE p.state = 'p';
CREATE VIEW late AS SELECT name FROM paid UNION SELECT what FROM line;
CREATE VIEW broken AS SELECT void FROM nowhere;
CREATE TRIGGER closed BEFORE DELETE ON purchase BEGIN SELECT 1; END;
CREATE TRIGGER instead INSTEAD OF UPDATE OF name ON paid BEGIN SELECT 2; END;
)";

class QuietContext : public readers::ReadContext {
  public:
    void warn(const std::string& /*where*/, const std::string& /*text*/) override { ++warnings; }
    void progress(std::uint64_t /*objects*/) override {}

    int warnings = 0;
};

const readers::Reader& readerNamed(std::string_view name) {
    for (const readers::Reader* reader : readers::allReaders()) {
        if (reader->describe().name == name) {
            return *reader;
        }
    }
    throw std::logic_error("no such reader");
}

/// What came of an attempt to read.
struct Attempt {
    std::string dump;  ///< of the model; empty when there is none
    std::string refusal;
    int warnings = 0;
};

/// Calling `fault` sets up what is to fail; its `end` notes whether that was never reached.
template <typename Fault>
Attempt attempt(const readers::Reader& reader, const readers::Source& source, const Fault& fault) {
    QuietContext context;
    Attempt result;
    std::unique_ptr<ZORModel> model;
    fault();
    try {
        model = reader.read(source, {}, context);
        fault.end();
    } catch (const readers::SourceError& error) {
        fault.end();
        result.refusal = error.what();
    } catch (const std::bad_alloc&) {
        fault.end();
        result.refusal = "no memory";
    }
    if (model != nullptr) {
        result.dump = support::dumpModel(*model);
    }
    result.warnings = context.warnings;
    return result;
}

struct AllocationFault {
    long n;
    bool& unreached;
    void operator()() const { support::failAllocation(n); }
    void end() const { unreached = support::endOfAllocationFailure(); }
};

struct StepFault {
    long n;
    bool& unreached;
    void operator()() const { stepsToGo = n; }
    void end() const {
        unreached = stepsToGo > 0;
        stepsToGo = 0;
        stepFailed = false;
    }
};

struct SourceRow {
    const char* reader;
    std::string_view content;  ///< SQL, or the name of an example
    enum { DATABASE, TEXT, EXAMPLE } kind;
};

std::ostream& operator<<(std::ostream& out, const SourceRow& row) {
    return out << row.reader;
}

class Faults : public ::testing::TestWithParam<SourceRow> {
  protected:
    Faults() : source_(makeSource()) {}
    ~Faults() override { std::filesystem::remove(path_); }

    template <typename Fault>
    Attempt read(long n, bool& unreached) {
        return attempt(reader_, source_, Fault{n, unreached});
    }
    /// Lets each call fail in turn until a reading comes to its end without.
    template <typename Fault>
    long readWithEachFailing() {
        bool unreached = false;
        const Attempt sound = read<Fault>(0, unreached);
        EXPECT_NE(sound.dump, "");
        read<Fault>(1, unreached);  // what libraries make once and keep is made
        long n = 0;
        for (unreached = false; !unreached && !::testing::Test::HasFailure();) {
            const long blocks = support::blocksInUse();
            ++n;
            {
                const Attempt result = read<Fault>(n, unreached);
                const bool isWhole = result.dump == sound.dump && result.warnings == sound.warnings;
                EXPECT_TRUE(isWhole || result.dump.empty()) << "a part was given as the whole at " << n;
                EXPECT_TRUE(isWhole || !result.refusal.empty()) << "nothing was said at " << n;
            }
            EXPECT_LE(support::blocksInUse(), blocks) << "memory is left behind at " << n;
        }
        return n;
    }

  private:
    readers::Source makeSource() {
        if (GetParam().kind == SourceRow::TEXT) {
            return readers::Source::fromText("source", std::string(GetParam().content));
        }
        if (GetParam().kind == SourceRow::EXAMPLE) {
            return readers::Source::fromFile(EXAMPLES_FOLDER "/" + std::string(GetParam().content));
        }
        path_ = std::filesystem::temp_directory_path() / ("faults-" + std::to_string(::getpid()) + ".sqlite");
        std::filesystem::remove(path_);
        sqlite3* database = nullptr;
        if (sqlite3_open(path_.c_str(), &database) != SQLITE_OK ||
            sqlite3_exec(database, std::string(GetParam().content).c_str(), nullptr, nullptr, nullptr) !=
                SQLITE_OK) {
            throw std::runtime_error("the database cannot be made");
        }
        sqlite3_close(database);
        return readers::Source::fromFile(path_.string());
    }

    std::filesystem::path path_;
    const readers::Reader& reader_ = readerNamed(GetParam().reader);
    readers::Source source_;
};

TEST_P(Faults, OfAnyAllocationAreTold) {
    EXPECT_GT(readWithEachFailing<AllocationFault>(), 20);
}

TEST(SavingFaults, OfAnyAllocationAreToldAndLeaveTheModelAsItWas) {
    QuietContext context;
    const readers::Source source = readers::Source::fromFile(EXAMPLES_FOLDER "/everything.model.json");
    const std::unique_ptr<ZORModel> model = readerNamed("json").read(source, {}, context);
    const std::string before = support::dumpModel(*model);
    std::string whole;
    readers::writeModelDocument(*model, [&](std::string_view portion) { whole += portion; });
    long n = 0;
    for (bool unreached = false; !unreached && !HasFailure();) {
        std::string saved;
        saved.reserve(whole.size());
        const long blocks = support::blocksInUse();
        bool isTold = false;
        support::failAllocation(++n);
        try {
            readers::writeModelDocument(*model, [&](std::string_view portion) { saved += portion; });
        } catch (const std::bad_alloc&) {
            isTold = true;
        }
        unreached = support::endOfAllocationFailure();
        EXPECT_LE(support::blocksInUse(), blocks) << "memory is left behind at " << n;
        EXPECT_TRUE(isTold || saved == whole) << "nothing was said at " << n;
    }
    EXPECT_GT(n, 20);
    EXPECT_EQ(support::dumpModel(*model), before);
}

class SqliteFaults : public Faults {};

TEST_P(SqliteFaults, OfAnyStepAreTold) {
    EXPECT_GT(readWithEachFailing<StepFault>(), 20);
}

std::string nameOf(const ::testing::TestParamInfo<SourceRow>& row) {
    return row.param.reader;
}

constexpr SourceRow DATABASE{"sqlite", SCRIPT, SourceRow::DATABASE};
constexpr SourceRow SQL_SCRIPT{"sql", SCRIPT, SourceRow::TEXT};
constexpr SourceRow SQL_EXAMPLE{"sql", "library.sql", SourceRow::EXAMPLE};
constexpr SourceRow MODEL_DOCUMENT{"json", "everything.model.json", SourceRow::EXAMPLE};
constexpr SourceRow UML_MODEL{"xmi", "rental.uml", SourceRow::EXAMPLE};

INSTANTIATE_TEST_SUITE_P(Source, Faults, ::testing::Values(DATABASE, SQL_SCRIPT, MODEL_DOCUMENT, UML_MODEL),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Source, SqliteFaults, ::testing::Values(DATABASE, SQL_SCRIPT), nameOf);
INSTANTIATE_TEST_SUITE_P(Example, SqliteFaults, ::testing::Values(SQL_EXAMPLE), nameOf);

}  // namespace
