#pragma once

#include <cstdint>

// The enumerations of the model, with the values that documents and bridges know. A variable may hold another
// value when its source was careless; the bridge manager refuses such a model before a bridge sees it.

/// Whether an object belongs to the logical model, to the database, or to both.
enum ZORDesignLevel : std::int8_t {
    ZOR_LOGICAL_AND_PHYSICAL = 0,
    ZOR_LOGICAL_ONLY = 1,
    ZOR_PHYSICAL_ONLY = 2
};

enum ZORVisibilityType : std::int8_t {
    ZOR_VISIBILITY_PUBLIC = 0,
    ZOR_VISIBILITY_PROTECTED = 1,
    ZOR_VISIBILITY_PRIVATE = 2,
    ZOR_VISIBILITY_IMPLEMENTATION = 3
};

enum ZORConcurrencyType : std::int8_t {
    ZOR_CONCURRENCY_SEQUENTIAL = 0,
    ZOR_CONCURRENCY_GUARDED = 1,
    ZOR_CONCURRENCY_ACTIVE = 2,
    ZOR_CONCURRENCY_SYNCHRONOUS = 3
};

enum ZORArgumentType : std::int8_t {
    ZOR_ARGUMENT_NONE = 0,
    ZOR_ARGUMENT_IN = 1,
    ZOR_ARGUMENT_OUT = 2,
    ZOR_ARGUMENT_INOUT = 3,
    ZOR_ARGUMENT_RETURN = 4
};

/// What happens to referencing rows (SQL's referential actions).
enum ZORReferentialActionType : std::int8_t {
    ZOR_ACTION_NONE = 0,
    ZOR_ACTION_SET_DEFAULT = 1,
    ZOR_ACTION_NO_ACTION = 2,
    ZOR_ACTION_RESTRICT = 3,
    ZOR_ACTION_CASCADE = 4,
    ZOR_ACTION_SET_NULL = 5
};

enum ZORSortOrder : std::int8_t { ZOR_SORT_NONE = 0, ZOR_SORT_ASCENDING = 1, ZOR_SORT_DESCENDING = 2 };
