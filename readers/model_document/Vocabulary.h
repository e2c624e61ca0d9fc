#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ZOR.h"

/// What a model document may hold, as tables: they drive the reader, its messages, the writer, the JSON
/// Schema and the test of the page that documents the format.
namespace readers::document {

/// What stands behind a key.
enum class Shape : std::uint8_t {
    KIND,  ///< the word that tells which kind of object this is
    ID,    ///< the text by which others refer to the object
    TEXT,
    TEXTS,  ///< a list of texts
    INTEGER,
    BOOLEAN,
    WORD,        ///< a word that stands for a number
    WORDS,       ///< a list of such words
    REFERENCE,   ///< the id of another object
    REFERENCES,  ///< a list of ids
    OBJECT,      ///< one object
    OBJECTS      ///< a list of objects
};

/// A word of a document and the number that the model has for it. Of an enumeration's words the first is the
/// default.
struct Word {
    std::string_view text;
    std::int32_t number;
};

/// What an object must be for a reference to lead to it.
struct Target {
    enum class Condition : std::uint8_t {
        NONE,
        SAME_CLASS,  ///< a part of the class that the referring object is a part of
        ONLY_ONCE    ///< no other reference with this condition leads to it
    };
    ZORElementType type;
    Condition condition;
    std::string_view one;   ///< "an attribute of the same class"
    std::string_view many;  ///< "attributes of the same class"
};

/// The groups of kinds that one list holds.
enum class Family : std::uint8_t {
    DOCUMENT,
    MODEL,
    CHILDREN,
    TYPES,
    TYPE_VALUES,
    PACKAGES,
    ELEMENTS,
    DIAGRAMS,
    ATTRIBUTES,
    ROLE_NAME_MAPS,
    KEYS,
    INDEXES,
    INDEX_MEMBERS,
    SYNONYMS,
    OPERATIONS,
    ARGUMENTS,
    COLUMNS,
    ROLES,
    COUNT
};

inline constexpr std::int32_t LOWEST_INTEGER = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t HIGHEST_INTEGER = std::numeric_limits<std::int32_t>::max();

/// One key of one kind of object. Which of the members behind `description` mean anything depends on the
/// shape.
struct Field {
    std::string_view key;
    Shape shape = Shape::TEXT;
    std::string_view description;

    bool required = false;
    bool nullable = false;         ///< REFERENCE: null is accepted and means no reference
    bool nonEmpty = false;         ///< REFERENCES: at least one
    bool onceInList = false;       ///< BOOLEAN: true for at most one object of a list
    bool defaultsToIndex = false;  ///< INTEGER: the default is the object's index in its list
    std::int32_t lowest = LOWEST_INTEGER;
    std::int32_t highest = HIGHEST_INTEGER;
    std::span<const Word> words;     ///< KIND, WORD, WORDS
    const Target* target = nullptr;  ///< REFERENCE, REFERENCES
    Family family = Family::COUNT;   ///< OBJECT, OBJECTS

    /// ID excepted, each shape has one of these: for texts (each one of a list), for what is a number in the
    /// model (each word of a list), for references, for new parts.
    void (*setText)(ZORModelObject& object, std::string_view text) = nullptr;
    void (*setNumber)(ZORModelObject& object, std::int32_t number) = nullptr;
    void (*refer)(ZORModelObject& object, ZORModelObject& target) = nullptr;
    void (*add)(ZORModelObject& object, std::unique_ptr<ZORModelObject> part) = nullptr;

    /// The way back: texts (each one of a list), numbers (of WORDS, one bit for each word's number), and what
    /// is referred to or a part. `count` tells how many there are in a list; for REFERENCE, 0 or 1.
    const ZORString& (*getText)(const ZORModelObject& object, std::size_t index) = nullptr;
    std::int32_t (*getNumber)(const ZORModelObject& object) = nullptr;
    std::size_t (*count)(const ZORModelObject& object) = nullptr;
    const ZORObject* (*getObject)(const ZORModelObject& object, std::size_t index) = nullptr;
};

/// One kind of object.
struct Kind {
    std::string_view word;  ///< its value of the key "kind"; empty where the list knows only one kind
    std::string_view noun;  ///< "derived type"
    /// Makes an empty object; null for the document and its model, for which there is one from the start.
    std::unique_ptr<ZORModelObject> (*make)() = nullptr;
    ZORElementType elementType = ZOR_ANY;
    std::vector<Field> fields;
    /// Bit n tells of the n-th field whether it is required.
    std::uint64_t requiredFields = 0;
    /// Which INTEGER field defaults to the object's index; NO_FIELD where none does.
    std::size_t indexField = NO_FIELD;

    static constexpr std::size_t NO_FIELD = static_cast<std::size_t>(-1);
};

struct FamilyKinds {
    FamilyKinds() = default;
    FamilyKinds(FamilyKinds&&) = default;  // fields point at the words: a copy's would point at another's
    FamilyKinds& operator=(FamilyKinds&&) = default;

    std::string_view plural;  ///< "attributes"
    std::vector<Kind> kinds;
    std::vector<Word>
        words;  ///< the kinds' words, each with the kind's index; empty where there is only one kind
    bool kindRequired = false;  ///< otherwise the first kind is the default
};

const FamilyKinds& kindsOf(Family family);
/// The family that a kind, one of those that `kindsOf` gives, belongs to.
const FamilyKinds& familyOf(const Kind& kind);
/// What an object of the model is called: "a class", "an alias type".
std::string describeObject(const ZORModelObject& object);

}  // namespace readers::document
