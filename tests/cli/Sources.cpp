#include "Sources.h"

#include <sqlite3.h>

#include <stdexcept>

namespace cli_test {

void makeDatabase(const std::string& path, const std::string& sql) {
    sqlite3* database = nullptr;
    const bool made = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                      sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    if (!made) {
        throw std::runtime_error("no database can be made at " + path);
    }
}

}  // namespace cli_test
