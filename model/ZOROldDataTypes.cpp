// The names that databases give their data types, and the old-style key that stands for each.

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "ZORFunctions.h"

namespace {

/// The keys, which stand for themselves when written exactly so, and the spellings of SQLite, PostgreSQL,
/// MySQL, SQL Server, Oracle, DB2 and the SQL standard that lead to them.
///
/// Where the families differ, the more common meaning counts: SERIAL is PostgreSQL's, LONG is Oracle's,
/// TIMESTAMP is the standard's, BIT is SQL Server's, FLOAT and REAL have the standard's precisions. Integers
/// of 64 bits are decimals. What no key stands for has the key of the form in which it is exchanged: text for
/// UUIDs, intervals, enumerations and network addresses, bytes for row versions. Arrays, geometries and
/// variants have none, and no spelling leads to AUTOINCREMENT.
constexpr ZOROldDataTypeNames KEYS[] = {
    {"SQL_BINARY", "BINARY,CHAR BYTE,CHAR FOR BIT DATA,CHARACTER FOR BIT DATA,RAW,ROWVERSION"},
    {"SQL_BOOLEAN", "BIT,BOOL,BOOLEAN"},
    {"SQL_CHAR",
     "BPCHAR,CHAR,CHAR BINARY,CHARACTER,GRAPHIC,NATIONAL CHAR,NATIONAL CHARACTER,NATIVE CHARACTER,NCHAR,"
     "UNIQUEIDENTIFIER,UUID"},
    {"SQL_INTEGER",
     "BINARY_INTEGER,INT,INT3,INT4,INTEGER,MEDIUMINT,MIDDLEINT,OID,PLS_INTEGER,SERIAL,SERIAL4"},
    {"SQL_NUMERIC",
     "BIG INT,BIGINT,BIGSERIAL,DEC,DECFLOAT,DECIMAL,FIXED,INT8,MONEY,NUMBER,NUMERIC,SERIAL8,SMALLMONEY"},
    {"SQL_DOUBLE", "BINARY_DOUBLE,DOUBLE,DOUBLE PRECISION,FLOAT,FLOAT8"},
    {"SQL_REAL", "BINARY_FLOAT,FLOAT4,REAL"},
    {"SQL_SMALLINT", "INT2,SERIAL2,SMALLINT,SMALLSERIAL,YEAR"},
    {"SQL_TINYINT", "INT1,TINYINT"},
    {"SQL_VARBINARY",
     "BINARY VARYING,BIT VARYING,CHAR VARYING FOR BIT DATA,CHARACTER VARYING FOR BIT DATA,VARBINARY,"
     "VARBIT,VARCHAR FOR BIT DATA"},
    {"SQL_VARCHAR",
     "CHAR VARYING,CHARACTER VARYING,CIDR,ENUM,INET,INTERVAL,INTERVAL DAY,INTERVAL DAY TO HOUR,"
     "INTERVAL DAY TO MINUTE,INTERVAL DAY TO SECOND,INTERVAL HOUR,INTERVAL HOUR TO MINUTE,"
     "INTERVAL HOUR TO SECOND,INTERVAL MINUTE,INTERVAL MINUTE TO SECOND,INTERVAL MONTH,INTERVAL SECOND,"
     "INTERVAL YEAR,INTERVAL YEAR TO MONTH,MACADDR,MACADDR8,NAME,NATIONAL CHAR VARYING,"
     "NATIONAL CHARACTER VARYING,NATIONAL VARCHAR,NCHAR VARCHAR,NCHAR VARYING,NVARCHAR,NVARCHAR2,ROWID,"
     "SET,SYSNAME,UROWID,VARCHAR,VARCHAR BINARY,VARCHAR2,VARGRAPHIC,VARYING CHARACTER"},
    {"SQL_LONGVARBINARY",
     "BFILE,BINARY LARGE OBJECT,BINARY VARYING(MAX),BLOB,BYTEA,IMAGE,LONG RAW,LONG VARBINARY,"
     "LONG VARCHAR FOR BIT DATA,LONGBLOB,LONGVARBINARY,MEDIUMBLOB,TINYBLOB,VARBINARY(MAX)"},
    {"SQL_LONGVARCHAR",
     "BLOB SUB_TYPE TEXT,CHAR LARGE OBJECT,CHAR VARYING(MAX),CHARACTER LARGE OBJECT,"
     "CHARACTER VARYING(MAX),CITEXT,CLOB,DBCLOB,JSON,JSONB,LONG,LONG VARCHAR,LONG VARGRAPHIC,LONGTEXT,"
     "LONGVARCHAR,MEDIUMTEXT,NATIONAL CHAR VARYING(MAX),NATIONAL CHARACTER LARGE OBJECT,"
     "NATIONAL CHARACTER VARYING(MAX),NCHAR LARGE OBJECT,NCHAR VARYING(MAX),NCLOB,NTEXT,NVARCHAR(MAX),"
     "TEXT,TINYTEXT,VARCHAR(MAX),XML,XMLTYPE"},
    {"SQL_TIMESTAMP",
     "DATETIME,DATETIME2,DATETIMEOFFSET,SMALLDATETIME,TIMESTAMP,TIMESTAMP WITH LOCAL TIME ZONE,"
     "TIMESTAMP WITH TIME ZONE,TIMESTAMP WITHOUT TIME ZONE,TIMESTAMPTZ"},
    {"SQL_TIME", "TIME,TIME WITH TIME ZONE,TIME WITHOUT TIME ZONE,TIMETZ"},
    {"SQL_DATE", "DATE"},
    {"AUTOINCREMENT", ""},
};
constexpr std::size_t NO_KEY = std::size(KEYS);

/// A name that leads to a key, reduced, and the key's index.
struct Spelling {
    std::string_view text;
    std::size_t key;
};

consteval std::size_t countSpellings() {
    std::size_t count = 0;
    for (const ZOROldDataTypeNames& row : KEYS) {
        count += row.spellings.empty() ? 1U : 2U;
        count += static_cast<std::size_t>(std::count(row.spellings.begin(), row.spellings.end(), ','));
    }
    return count;
}

/// The keys in their order, then all spellings.
consteval std::array<Spelling, countSpellings()> makeSpellings() {
    std::array<Spelling, countSpellings()> spellings{};
    std::size_t count = 0;
    for (; count < NO_KEY; ++count) {
        spellings[count] = {KEYS[count].key, count};
    }
    for (std::size_t key = 0; key < NO_KEY; ++key) {
        std::string_view rest = KEYS[key].spellings;
        while (!rest.empty()) {
            const std::string_view spelling = rest.substr(0, rest.find(','));
            spellings[count++] = {spelling, key};
            rest.remove_prefix(std::min(spelling.size() + 1, rest.size()));
        }
    }
    return spellings;
}

constexpr auto SPELLINGS = makeSpellings();

/// Words that say more of a column than of its type.
constexpr std::string_view MODIFIERS[] = {"AUTO_INCREMENT", "IDENTITY", "SIGNED", "UNSIGNED", "ZEROFILL"};

/// A step of FNV-1a.
constexpr std::uint32_t addToHash(std::uint32_t hash, char character) noexcept {
    return (hash ^ static_cast<unsigned char>(character)) * 16777619U;
}
constexpr std::uint32_t EMPTY_HASH = 2166136261U;

constexpr std::uint32_t hashText(std::string_view text) noexcept {
    std::uint32_t hash = EMPTY_HASH;
    for (const char character : text) {
        hash = addToHash(hash, character);
    }
    return hash;
}

/// The characters as upper-case letters, all kinds of blanks as blanks.
consteval std::array<char, 256> makeFoldedCharacters() {
    std::array<char, 256> folded{};
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const bool isBlank = i == ' ' || (i >= '\t' && i <= '\r');
        const bool isLower = i >= 'a' && i <= 'z';
        folded[i] = static_cast<char>(isBlank ? ' ' : isLower ? i - 'a' + 'A' : i);
    }
    return folded;
}

constexpr auto FOLDED_CHARACTERS = makeFoldedCharacters();

char fold(char character) noexcept {
    return FOLDED_CHARACTERS[static_cast<unsigned char>(character)];
}

/// Whether the content of a parenthesis is the word MAX.
bool isMax(std::string_view group) noexcept {
    while (!group.empty() && fold(group.front()) == ' ') {
        group.remove_prefix(1);
    }
    while (!group.empty() && fold(group.back()) == ' ') {
        group.remove_suffix(1);
    }
    return group.size() == 3 && fold(group[0]) == 'M' && fold(group[1]) == 'A' && fold(group[2]) == 'X';
}

/// A data-type name in the form of the table's: upper case, one blank between words, without modifiers and
/// without parenthesised sizes. A size that says "no bound" is the one that makes a difference: "(MAX)"
/// stays.
///
/// Names are reduced once per column of a table, so this walks over the name once and takes no memory.
class ReducedName {
  public:
    explicit ReducedName(std::string_view name) noexcept {
        if (!reduce(name)) {
            length_ = 0;
        }
    }
    /// Empty when the name cannot be one of the table's: it is too long, or a parenthesis is not closed.
    std::string_view text() const noexcept { return {text_.data(), length_}; }
    std::uint32_t hash() const noexcept { return hash_; }

  private:
    bool reduce(std::string_view name) noexcept;
    bool append(char character) noexcept;
    bool append(std::string_view characters) noexcept;
    void beginWord() noexcept;
    void endWord() noexcept;
    /// Takes in the group that opens at `open` and returns where it closes, npos when it does not.
    std::size_t takeGroup(std::string_view name, std::size_t open) noexcept;

    std::array<char, 48> text_;  // more than any spelling needs
    std::size_t length_ = 0;
    std::uint32_t hash_ = EMPTY_HASH;
    bool inWord_ = false;
    // Where and with which hash the word began, its blank included.
    std::size_t wordStart_ = 0;
    std::uint32_t wordStartHash_ = EMPTY_HASH;
};

bool ReducedName::reduce(std::string_view name) noexcept {
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char character = fold(name[i]);
        if (character == '(') {
            endWord();
            i = takeGroup(name, i);
            if (i == std::string_view::npos) {
                return false;
            }
        } else if (character == ' ') {
            endWord();
        } else {
            if (!inWord_) {
                beginWord();
            }
            if (!append(character)) {
                return false;
            }
        }
    }
    endWord();
    return true;
}

inline bool ReducedName::append(char character) noexcept {
    if (length_ == text_.size()) {
        return false;
    }
    text_[length_++] = character;
    hash_ = addToHash(hash_, character);
    return true;
}

bool ReducedName::append(std::string_view characters) noexcept {
    return std::all_of(characters.begin(), characters.end(),
                       [this](char character) { return append(character); });
}

void ReducedName::beginWord() noexcept {
    inWord_ = true;
    wordStart_ = length_;
    wordStartHash_ = hash_;
    if (length_ > 0) {
        append(' ');
    }
}

void ReducedName::endWord() noexcept {
    if (!inWord_) {
        return;
    }
    inWord_ = false;
    const std::string_view word = text().substr(wordStart_ + (wordStart_ > 0 ? 1 : 0));
    if (std::find(std::begin(MODIFIERS), std::end(MODIFIERS), word) != std::end(MODIFIERS)) {
        length_ = wordStart_;
        hash_ = wordStartHash_;
    }
}

std::size_t ReducedName::takeGroup(std::string_view name, std::size_t open) noexcept {
    std::size_t depth = 1;
    std::size_t end = open;
    bool quoted = false;  // values of enumerations may hold parentheses
    while (depth > 0) {
        if (++end == name.size()) {
            return std::string_view::npos;
        }
        quoted = quoted != (name[end] == '\'');
        if (!quoted && name[end] == '(') {
            ++depth;
        } else if (!quoted && name[end] == ')') {
            --depth;
        }
    }
    if (isMax(name.substr(open + 1, end - open - 1)) && !append("(MAX)")) {
        return std::string_view::npos;
    }
    return end;
}

/// The spellings by hash: a slot holds a spelling's index plus 1; when it is taken, the next free one does.
constexpr std::size_t SLOTS = 512;
static_assert(SPELLINGS.size() < SLOTS / 2, "searches stay short");
static_assert(SPELLINGS.size() <= UINT8_MAX, "a slot is a byte");

consteval std::array<std::uint8_t, SLOTS> makeSlots() {
    std::array<std::uint8_t, SLOTS> slots{};
    for (std::size_t i = 0; i < SPELLINGS.size(); ++i) {
        std::size_t slot = hashText(SPELLINGS[i].text) % SLOTS;
        while (slots[slot] != 0) {
            if (SPELLINGS[slots[slot] - 1U].text == SPELLINGS[i].text) {
                throw "a spelling stands in the table twice";
            }
            slot = (slot + 1) % SLOTS;
        }
        slots[slot] = static_cast<std::uint8_t>(i + 1);
    }
    return slots;
}

constexpr auto SPELLING_SLOTS = makeSlots();

/// The index of the key that the name stands for, or NO_KEY.
std::size_t findKey(std::string_view name) noexcept {
    const ReducedName reduced(name);
    for (std::size_t slot = reduced.hash() % SLOTS; SPELLING_SLOTS[slot] != 0; slot = (slot + 1) % SLOTS) {
        const std::size_t index = SPELLING_SLOTS[slot] - 1U;
        if (SPELLINGS[index].text == reduced.text()) {
            const bool isKeyItself = index < NO_KEY;
            return isKeyItself && name != SPELLINGS[index].text ? NO_KEY : SPELLINGS[index].key;
        }
    }
    return NO_KEY;
}

}  // namespace

const ZORString& getOldDataType(const ZORString& typeName) {
    static const auto TEXTS = [] {
        std::array<ZORString, NO_KEY + 1> texts;  // the last one stays empty
        std::transform(std::begin(KEYS), std::end(KEYS), texts.begin(),
                       [](const ZOROldDataTypeNames& row) { return row.key; });
        return texts;
    }();
    return TEXTS[findKey(typeName.view())];
}

std::span<const ZOROldDataTypeNames> getOldDataTypeNames() noexcept {
    return KEYS;
}
