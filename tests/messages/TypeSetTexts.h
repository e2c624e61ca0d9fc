#pragma once

#include <cctype>
#include <string>

/// The choices of both type-set options, in order.
inline constexpr const char* TYPE_SET_TEXTS[] = {
    "None",           "Default",        "Access 1.1",   "Access 2.0",   "Access 7",       "Access 97",
    "AS/400 2",       "AS/400 3",       "AS/400 4.x",   "Clipper",      "DB2/390 5",      "DB2/CS 2",
    "DB2/MVS 2",      "DB2/MVS 3",      "DB2/MVS 4",    "DB2/UDB 5",    "DBase 3",        "DBase 4",
    "FoxPro",         "Informix 4.x",   "Informix 5.x", "Informix 7.x", "Informix 9.x",   "Ingres 6.4",
    "Ingres 1.x",     "Ingres 2.x",     "InterBase",    "Oracle 7.0",   "Oracle 7.1",     "Oracle 7.2",
    "Oracle 7.3",     "Oracle 8.x",     "Paradox 4.x",  "Paradox 5.x",  "Paradox 7.x",    "Progress 7.0",
    "Progress 8.x",   "Rdb 4",          "Rdb 6",        "Rdb 7",        "Red Brick 3.0",  "Red Brick 4.0",
    "Red Brick 5.x",  "SQL Anywhere 5", "SQLBase 5.0",  "SQLBase 6.x",  "SQL Server 4.x", "SQL Server 6.x",
    "SQL Server 7.x", "Sybase 4.2",     "Sybase 10",    "Sybase 11.x",  "Teradata 1",     "Teradata 2.x",
    "Watcom 3",       "Watcom 4",       "XML Datatypes"};

/// The name of an enumeration's value: the enumeration's name, an underscore, and the text in upper case with
/// an underscore for every run of other characters than letters and digits.
inline std::string valueName(const std::string& enumeration, const std::string& text) {
    std::string name = enumeration + "_";
    for (const char character : text) {
        if (std::isalnum(static_cast<unsigned char>(character)) != 0) {
            name += static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
        } else if (name.back() != '_') {
            name += '_';
        }
    }
    return name;
}
