// The type tables of the database products, and which of them stands behind which choice of a type set.

#include <array>
#include <iterator>

#include "DTMTypes.h"
#include "QLT_SQMDC.h"

namespace {

/// What DTMTypeMap::sizeSelector may be.
enum SizeSelector { ANY_SIZE = -1, UNSIZED = 0, SIZED = 1 };

/// A convention's names of the types that the source keys stand for, by families.
struct TypeNames {
    const char* binary;
    const char* sizedBinary = nullptr;  ///< of binaries with a size, where the convention tells them apart
    const char* varBinary;
    const char* longVarBinary;
    const char* character;
    const char* varChar;
    const char* longVarChar;
    const char* boolean;
    const char* tinyInt;
    const char* smallInt;
    const char* integer;
    const char* autoIncrement;
    const char* numeric;
    const char* real;
    const char* doubleFloat;
    const char* timestamp;
    const char* time;
    const char* date;
    const char* fallback;  ///< of every other type; null when there is none
};

using Table = std::array<DTMTypeMap, 19>;

/// A table of the names. One that does not tell binaries apart has an end row more, which no search reaches.
constexpr Table makeTable(const TypeNames& names) {
    Table table{};
    auto* row = table.begin();
    if (names.sizedBinary == nullptr) {
        *row++ = {"SQL_BINARY", ANY_SIZE, names.binary};
    } else {
        *row++ = {"SQL_BINARY", UNSIZED, names.binary};
        *row++ = {"SQL_BINARY", SIZED, names.sizedBinary};
    }
    *row++ = {"SQL_BOOLEAN", ANY_SIZE, names.boolean};
    *row++ = {"SQL_CHAR", ANY_SIZE, names.character};
    *row++ = {"SQL_INTEGER", ANY_SIZE, names.integer};
    *row++ = {"SQL_NUMERIC", ANY_SIZE, names.numeric};
    *row++ = {"SQL_DOUBLE", ANY_SIZE, names.doubleFloat};
    *row++ = {"SQL_REAL", ANY_SIZE, names.real};
    *row++ = {"SQL_SMALLINT", ANY_SIZE, names.smallInt};
    *row++ = {"SQL_TINYINT", ANY_SIZE, names.tinyInt};
    *row++ = {"SQL_VARBINARY", ANY_SIZE, names.varBinary};
    *row++ = {"SQL_VARCHAR", ANY_SIZE, names.varChar};
    *row++ = {"SQL_LONGVARBINARY", ANY_SIZE, names.longVarBinary};
    *row++ = {"SQL_LONGVARCHAR", ANY_SIZE, names.longVarChar};
    *row++ = {"SQL_TIMESTAMP", ANY_SIZE, names.timestamp};
    *row++ = {"SQL_TIME", ANY_SIZE, names.time};
    *row++ = {"SQL_DATE", ANY_SIZE, names.date};
    *row++ = {"AUTOINCREMENT", ANY_SIZE, names.autoIncrement};
    while (row != table.end()) {
        *row++ = {nullptr, ANY_SIZE, names.fallback};
    }
    return table;
}

// A line for each family of types, which the formatter would not keep.
// clang-format off

constexpr Table ACCESS = makeTable({
    .binary = "OLE Object", .varBinary = "OLE Object", .longVarBinary = "OLE Object",
    .character = "Text", .varChar = "Text", .longVarChar = "Memo",
    .boolean = "Yes/No", .tinyInt = "Byte", .smallInt = "Integer",
    .integer = "Long Integer", .autoIncrement = "Long Integer", .numeric = "Double",
    .real = "Single", .doubleFloat = "Double",
    .timestamp = "Date/Time", .time = "Date/Time", .date = "Date/Time",
    .fallback = nullptr});

constexpr Table AS_400 = makeTable({
    .binary = "VARGRAPHIC", .varBinary = "VARGRAPHIC", .longVarBinary = "VARGRAPHIC",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "VARCHAR",
    .boolean = "SMALLINT", .tinyInt = "SMALLINT", .smallInt = "SMALLINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "REAL", .doubleFloat = "DOUBLE PRECISION",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "VARGRAPHIC"});

constexpr Table CLIPPER = makeTable({
    .binary = "Memo", .varBinary = "Memo", .longVarBinary = "Memo",
    .character = "Character", .varChar = "Character", .longVarChar = "Memo",
    .boolean = "Logical", .tinyInt = "Numeric", .smallInt = "Numeric",
    .integer = "Numeric", .autoIncrement = "Numeric", .numeric = "Numeric",
    .real = "Numeric", .doubleFloat = "Numeric",
    .timestamp = "date", .time = "date", .date = "date",
    .fallback = "Memo"});

constexpr Table DB2 = makeTable({
    .binary = "LONG VARGRAPHIC", .sizedBinary = "GRAPHIC", .varBinary = "VARGRAPHIC",
    .longVarBinary = "LONG VARGRAPHIC",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "SMALLINT", .tinyInt = "SMALLINT", .smallInt = "INTEGER",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "DOUBLE", .doubleFloat = "DOUBLE",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "LONG VARGRAPHIC"});

constexpr Table DB2_MVS = makeTable({
    .binary = "LONG VARGRAPHIC", .sizedBinary = "GRAPHIC", .varBinary = "VARGRAPHIC",
    .longVarBinary = "LONG VARGRAPHIC",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "SMALLINT", .tinyInt = "SMALLINT", .smallInt = "SMALLINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "REAL", .doubleFloat = "FLOAT",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "LONG VARGRAPHIC"});

constexpr Table DBASE_3 = makeTable({
    .binary = "Memo", .varBinary = "Memo", .longVarBinary = "Memo",
    .character = "Character", .varChar = "Character", .longVarChar = "Memo",
    .boolean = "Logical", .tinyInt = "Numeric", .smallInt = "Numeric",
    .integer = "Numeric", .autoIncrement = "Numeric", .numeric = "Numeric",
    .real = "Numeric", .doubleFloat = "Numeric",
    .timestamp = "date", .time = "date", .date = "date",
    .fallback = "Memo"});

constexpr Table DBASE_4 = makeTable({
    .binary = "Memo", .varBinary = "Memo", .longVarBinary = "Memo",
    .character = "Character", .varChar = "Character", .longVarChar = "Memo",
    .boolean = "Logical", .tinyInt = "Numeric", .smallInt = "Numeric",
    .integer = "Numeric", .autoIncrement = "Numeric", .numeric = "Numeric",
    .real = "Float", .doubleFloat = "Numeric",
    .timestamp = "date", .time = "date", .date = "date",
    .fallback = "Memo"});

constexpr Table FOXPRO = makeTable({
    .binary = "Memo", .varBinary = "Memo", .longVarBinary = "Memo",
    .character = "Character", .varChar = "Character", .longVarChar = "Memo",
    .boolean = "Logical", .tinyInt = "Numeric", .smallInt = "Numeric",
    .integer = "Numeric", .autoIncrement = "Numeric", .numeric = "Numeric",
    .real = "Float", .doubleFloat = "Numeric",
    .timestamp = "date", .time = "date", .date = "date",
    .fallback = "Memo"});

constexpr Table INFORMIX = makeTable({
    .binary = "byte in table", .varBinary = "byte in table", .longVarBinary = "byte in table",
    .character = "char", .varChar = "varchar", .longVarChar = "text",
    .boolean = "smallint", .tinyInt = "byte", .smallInt = "smallint",
    .integer = "integer", .autoIncrement = "integer", .numeric = "dec",
    .real = "real", .doubleFloat = "double precision",
    .timestamp = "datetime year to second", .time = "datetime year to second", .date = "date",
    .fallback = "byte in table"});

constexpr Table INGRES = makeTable({
    .binary = "text", .varBinary = "text", .longVarBinary = "text",
    .character = "char", .varChar = "varchar", .longVarChar = "varchar",
    .boolean = "integer1", .tinyInt = "integer1", .smallInt = "integer1",
    .integer = "integer", .autoIncrement = "integer", .numeric = "float",
    .real = "float4", .doubleFloat = "float8",
    .timestamp = "date", .time = "date", .date = "date",
    .fallback = "text"});

constexpr Table ORACLE = makeTable({
    .binary = "LONG RAW", .sizedBinary = "RAW", .varBinary = "LONG RAW", .longVarBinary = "LONG RAW",
    .character = "CHAR", .varChar = "VARCHAR2", .longVarChar = "LONG VARCHAR",
    .boolean = "SMALLINT", .tinyInt = "SMALLINT", .smallInt = "SMALLINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "NUMBER",
    .real = "FLOAT", .doubleFloat = "FLOAT",
    .timestamp = "DATE", .time = "DATE", .date = "DATE",
    .fallback = "LONG RAW"});

constexpr Table RDB = makeTable({
    .binary = "LIST OF BYTE VARYING", .varBinary = "LIST OF BYTE VARYING",
    .longVarBinary = "LIST OF BYTE VARYING",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "TINYINT", .tinyInt = "TINYINT", .smallInt = "INTEGER",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "REAL", .doubleFloat = "DOUBLE PRECISION",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "LIST OF BYTE VARYING"});

constexpr Table RED_BRICK = makeTable({
    .binary = "CHAR", .varBinary = "CHARACTER", .longVarBinary = "CHAR",
    .character = "CHAR", .varChar = "CHAR", .longVarChar = "CHAR",
    .boolean = "TINYINT", .tinyInt = "SMALLINT", .smallInt = "INTEGER",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "REAL", .doubleFloat = "DOUBLE PRECISION",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "CHAR"});

constexpr Table SQL_ANYWHERE = makeTable({
    .binary = "LONG BINARY", .sizedBinary = "BINARY", .varBinary = "BINARY", .longVarBinary = "LONG BINARY",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "BIT", .tinyInt = "SMALLINT", .smallInt = "SMALLINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "REAL", .doubleFloat = "DOUBLE",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "BINARY"});

constexpr Table SQLBASE = makeTable({
    .binary = "LONG VARCHAR", .sizedBinary = "VARCHAR", .varBinary = "LONG VARCHAR",
    .longVarBinary = "LONG VARCHAR",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "SMALLINT", .tinyInt = "SMALLINT", .smallInt = "SMALLINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "FLOAT", .doubleFloat = "DOUBLE PRECISION",
    .timestamp = "TIMESTAMP", .time = "TIME", .date = "DATE",
    .fallback = "LONG VARCHAR"});

constexpr Table SQL_SERVER = makeTable({
    .binary = "binary", .varBinary = "varbinary", .longVarBinary = "image",
    .character = "char", .varChar = "varchar", .longVarChar = "text",
    .boolean = "bit", .tinyInt = "tinyint", .smallInt = "smallint",
    .integer = "int", .autoIncrement = "int", .numeric = "decimal",
    .real = "real", .doubleFloat = "float",
    .timestamp = "datetime", .time = "datetime", .date = "datetime",
    .fallback = "binary"});

constexpr Table SYBASE = makeTable({
    .binary = "binary", .varBinary = "varbinary", .longVarBinary = "image",
    .character = "char", .varChar = "varchar", .longVarChar = "text",
    .boolean = "bit", .tinyInt = "tinyint", .smallInt = "smallint",
    .integer = "int", .autoIncrement = "int", .numeric = "decimal",
    .real = "real", .doubleFloat = "float",
    .timestamp = "timestamp", .time = "datetime", .date = "datetime",
    .fallback = "binary"});

constexpr Table TERADATA = makeTable({
    .binary = "BYTE", .varBinary = "VARBYTE", .longVarBinary = "VARBYTE",
    .character = "CHAR", .varChar = "VARCHAR", .longVarChar = "LONG VARCHAR",
    .boolean = "BYTEINT", .tinyInt = "BYTEINT", .smallInt = "BYTEINT",
    .integer = "INTEGER", .autoIncrement = "INTEGER", .numeric = "DECIMAL",
    .real = "FLOAT", .doubleFloat = "FLOAT",
    .timestamp = "DATE", .time = "DATE", .date = "DATE",
    .fallback = "BYTE"});

constexpr Table XML_DATA = makeTable({
    .binary = "bin.hex", .varBinary = "bin.hex", .longVarBinary = "bin.hex",
    .character = "char", .varChar = "string", .longVarChar = "string",
    .boolean = "boolean", .tinyInt = "i1", .smallInt = "i2",
    .integer = "int", .autoIncrement = "int", .numeric = "number",
    .real = "r4", .doubleFloat = "r8",
    .timestamp = "dateTime.iso8601tz", .time = "time.iso8601.tz", .date = "date.iso8601",
    .fallback = "bin.hex"});

// clang-format on

}  // namespace

const DTMTypeSetDescriptor DTM_TYPE_SET_DESCRIPTORS[] = {
    {nullptr, nullptr, nullptr, nullptr},  // None
    {nullptr, nullptr, nullptr, nullptr},  // Default
    {"Access", "1.1", "Access 1.1", ACCESS.data()},
    {"Access", "2.0", "Access 2.0", ACCESS.data()},
    {"Access", "7", "Access 7", ACCESS.data()},
    {"Access", "97", "Access 97", ACCESS.data()},
    {"AS/400", "2", "AS/400 2", AS_400.data()},
    {"AS/400", "3", "AS/400 3", AS_400.data()},
    {"AS/400", "4.x", "AS/400 4", AS_400.data()},
    {"Clipper", "", "Clipper", CLIPPER.data()},
    {"DB2/390", "5", "DB2/390 5", DB2.data()},
    {"DB2/CS", "2", "DB2/CS 2", DB2.data()},
    {"DB2/MVS", "2", "DB2/MVS 2", DB2_MVS.data()},
    {"DB2/MVS", "3", "DB2/MVS 3", DB2_MVS.data()},
    {"DB2/MVS", "4", "DB2/MVS 4", DB2_MVS.data()},
    {"DB2/UDB", "5", "DB2/UDB 5", DB2.data()},
    {"DBase", "3", "dBASE III", DBASE_3.data()},
    {"DBase", "4", "dBASE IV", DBASE_4.data()},
    {"FoxPro", "", "FoxPro 2.5", FOXPRO.data()},
    {"Informix", "4.x", "INFORMIX 4.x", INFORMIX.data()},
    {"Informix", "5.x", "INFORMIX 5.x", INFORMIX.data()},
    {"Informix", "7.x", "INFORMIX 7.x", INFORMIX.data()},
    {"Informix", "9.x", "INFORMIX 9.x", INFORMIX.data()},
    {"Ingres", "6.4", "Ingres 6.4", INGRES.data()},
    {"Ingres", "1.x", "Ingres 1.x", INGRES.data()},
    {"Ingres", "2.x", "Ingres 2.x", INGRES.data()},
    {"InterBase", "", "InterBase", ACCESS.data()},
    {"Oracle", "7.0", "ORACLE 7.0", ORACLE.data()},
    {"Oracle", "7.1", "ORACLE 7.1", ORACLE.data()},
    {"Oracle", "7.2", "ORACLE 7.2", ORACLE.data()},
    {"Oracle", "7.3", "ORACLE 7.3", ORACLE.data()},
    {"Oracle", "8.x", "ORACLE 8.x", ORACLE.data()},
    {"Paradox", "4.x", "Paradox 4.x", ACCESS.data()},
    {"Paradox", "5.x", "Paradox 5.x", ACCESS.data()},
    {"Paradox", "7.x", "Paradox 7.x", ACCESS.data()},
    {"Progress", "7.0", "PROGRESS 7.0", ACCESS.data()},
    {"Progress", "8.x", "PROGRESS 8.x", ACCESS.data()},
    {"Rdb", "4", "Rdb 4.0", RDB.data()},
    {"Rdb", "6", "Rdb 6.0", RDB.data()},
    {"Rdb", "7", "Rdb 7.0", RDB.data()},
    {"Red Brick", "3.0", "Red Brick 3.0", RED_BRICK.data()},
    {"Red Brick", "4.0", "Red Brick 4.0", RED_BRICK.data()},
    {"Red Brick", "5.x", "Red Brick 5.x", RED_BRICK.data()},
    {"SQL Anywhere", "5", "SYBASE SQL Anywhere", SQL_ANYWHERE.data()},
    {"SQLBase", "5.0", "SQLBase 5.0", SQLBASE.data()},
    {"SQLBase", "6.x", "SQLBase 5.0", SQLBASE.data()},
    {"Microsoft SQL Server", "4.x", "SQL Server 4.x", SQL_SERVER.data()},
    {"Microsoft SQL Server", "6.x", "SQL Server 6.x", SQL_SERVER.data()},
    {"Microsoft SQL Server", "7.x", "SQL Server 7.x", SQL_SERVER.data()},
    {"Sybase", "4.2", "SYBASE SQL 4.2", SYBASE.data()},
    {"Sybase", "10", "SYBASE SQL 10.x", SYBASE.data()},
    {"Sybase", "11.x", "SYBASE SQL 11.x", SYBASE.data()},
    {"Teradata", "1", "Teradata 1", TERADATA.data()},
    {"Teradata", "2.x", "Teradata 2.x", TERADATA.data()},
    {"Watcom", "3", "WATCOM 3", SQL_ANYWHERE.data()},
    {"Watcom", "4", "WATCOM 4", SQL_ANYWHERE.data()},
    {"http://www.w3.org/TR/1998/NOTE-XML-data-0105/", "1998/01/05", nullptr, XML_DATA.data()},
    {nullptr, nullptr, nullptr, nullptr}};

static_assert(std::size(DTM_TYPE_SET_DESCRIPTORS) == QLT_SQMDC::TYPESET_CHOICES + 1,
              "one descriptor per choice of the type-set options, and the end");

const DTMTypeMap DTM_CATEGORY_TABLE[] = {
    {"SQL_BOOLEAN", ANY_SIZE, "0"}, {"SQL_INTEGER", ANY_SIZE, "0"},   {"SQL_NUMERIC", ANY_SIZE, "0"},
    {"SQL_DOUBLE", ANY_SIZE, "0"},  {"SQL_REAL", ANY_SIZE, "0"},      {"SQL_SMALLINT", ANY_SIZE, "0"},
    {"SQL_TINYINT", ANY_SIZE, "0"}, {"AUTOINCREMENT", ANY_SIZE, "0"}, {"SQL_TIMESTAMP", ANY_SIZE, "2"},
    {"SQL_TIME", ANY_SIZE, "2"},    {"SQL_DATE", ANY_SIZE, "2"},      {nullptr, ANY_SIZE, "1"}};
