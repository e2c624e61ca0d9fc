#include "SqliteReaders.h"

#include <charconv>

#include "Build.h"
#include "DatabaseFile.h"
#include "Script.h"
#include "SqlTokens.h"
#include "WellFormedTexts.h"

namespace readers {

namespace {

using sqlite::Build;
using sqlite::Catalog;
using sqlite::Connection;
using sqlite::DatabaseFile;
using sqlite::MAIN_SCHEMA;
using sqlite::Monitor;
using sqlite::Script;

/// In milliseconds.
constexpr const char* PATIENCE = "busy-timeout";
constexpr const char* USUAL_PATIENCE = "5000";

int patienceOf(const ReadRequest& request) {
    const auto option = request.options.find(PATIENCE);
    const std::string text = option == request.options.end() ? USUAL_PATIENCE : option->second;
    int milliseconds = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), milliseconds);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || milliseconds < 0) {
        throw WrongOption(PATIENCE, "\"" + text + "\" is no number of milliseconds",
                          "give a whole one that is not negative, such as " + std::string(USUAL_PATIENCE));
    }
    return milliseconds;
}

std::unique_ptr<ZORModel> buildModel(const Connection& connection, const std::string& name,
                                     const ReadRequest& request, Monitor& monitor) {
    auto model = std::make_unique<ZORModel>();
    model->setName(ZORString(name));
    auto database = std::make_unique<ZORDatabaseCatalog>();
    database->setName(ZORString(name));
    database->setDatabaseType("SQLite");
    model->addChildPackage(std::move(database));

    const Catalog catalog = sqlite::readCatalog(connection, monitor);
    Build build(connection, catalog, request, monitor, *model);
    if (build.matcher.wantsSchema(MAIN_SCHEMA)) {
        auto package = std::make_unique<ZORDesignPackage>();
        package->setName(ZORString(MAIN_SCHEMA));
        build.package = model->addChildPackage(std::move(package));
    }
    sqlite::addTables(build);
    sqlite::addCandidateKeys(build);
    sqlite::addViews(build);
    sqlite::addRelationships(build);
    sqlite::addIndexes(build);
    sqlite::addTriggers(build);
    build.matcher.warnOfUnmatchedPatterns(monitor.context());
    return model;
}

std::string modelNameOf(const Source& source, const ReadRequest& request) {
    return request.modelName.empty() ? source.stem() : request.modelName;
}

class DatabaseReader : public Reader {
  public:
    DatabaseReader() {
        description_.name = "sqlite";
        description_.title = "SQLite database";
        description_.recognition = "a file that begins like a SQLite database, whatever it is called";
        description_.usualEndings = {".db", ".db3", ".sqlite", ".sqlite3"};
        description_.unrecognised = "it is encrypted, or its beginning is damaged";
        description_.naturalView = "dbm";
        description_.databaseType = "SQLite";
        description_.takesSelection = true;
        description_.options = {
            {PATIENCE,
             "how long to wait for another process that has locked the database, in milliseconds",
             USUAL_PATIENCE,
             {}}};
    }
    const ReaderDescription& describe() const override { return description_; }
    bool identify(const Source& source) const override { return sqlite::isDatabase(source.head()); }
    std::unique_ptr<ZORModel> read(const Source& source, const ReadRequest& request,
                                   ReadContext& context) const override {
        Monitor monitor(context);
        DatabaseFile file(source, monitor, patienceOf(request));
        std::unique_ptr<ZORModel> model =
            buildModel(file.connection(), modelNameOf(source, request), request, monitor);
        file.assertUnchanged();
        const sqlite::MendedTexts mended = sqlite::makeTextsWellFormed(*model);
        if (mended.count > 0) {
            context.warn(mended.first, mended.describe());
        }
        return model;
    }

  private:
    ReaderDescription description_;
};

/// JSON and XML begin like no statement; a script that begins so would be refused anyway.
bool beginsLikeAnotherKind(std::string_view head) {
    const std::size_t start = head.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos && (head[start] == '{' || head[start] == '<');
}

class ScriptReader : public Reader {
  public:
    ScriptReader() {
        description_.name = "sql";
        description_.title = "SQL script in SQLite's dialect";
        description_.recognition =
            "text that begins with a statement about tables, or a name that ends in .sql";
        description_.naturalView = "dbm";
        description_.databaseType = "SQLite";
        description_.takesSelection = true;
    }
    const ReaderDescription& describe() const override { return description_; }
    bool identify(const Source& source) const override {
        const std::string_view head = source.head();
        const bool isNamedScript = sqlite::foldCase(source.name()).ends_with(".sql");
        return !sqlite::isDatabase(head) &&
               (sqlite::looksLikeScript(head) || (isNamedScript && !beginsLikeAnotherKind(head)));
    }
    std::unique_ptr<ZORModel> read(const Source& source, const ReadRequest& request,
                                   ReadContext& context) const override {
        Monitor monitor(context);
        Script script(source.content(), monitor);
        std::unique_ptr<ZORModel> model =
            buildModel(script.connection(), modelNameOf(source, request), request, monitor);
        sqlite::makeTextsWellFormed(*model);  // of which the script has warned
        return model;
    }

  private:
    ReaderDescription description_;
};

}  // namespace

const Reader& sqliteDatabaseReader() {
    static const DatabaseReader reader;
    return reader;
}

const Reader& sqlScriptReader() {
    static const ScriptReader reader;
    return reader;
}

}  // namespace readers
