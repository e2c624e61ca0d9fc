#pragma once

#include <cstdint>

/// The codes by which objects of the model are told apart. A class answers `isInstanceOf` for its own code,
/// for those of its bases, for ANY and for OBJECT.
enum ZORElementType : std::int16_t {
    ZOR_ANY = 0,
    ZOR_NOTE = 1,
    ZOR_MODEL = 2,
    ZOR_TYPE = 3,
    ZOR_CONCRETE_TYPE = 4,
    ZOR_DERIVED_TYPE = 5,
    ZOR_ALIAS_TYPE = 6,
    ZOR_TYPE_VALUE = 7,
    ZOR_DESIGN_PACKAGE = 9,
    ZOR_MODEL_ELEMENT = 12,
    ZOR_CLASS = 13,
    ZOR_ATTRIBUTE = 14,
    ZOR_RELATIONSHIP = 15,
    ZOR_GENERALIZATION = 16,
    ZOR_ASSOCIATION = 17,
    ZOR_ASSOCIATION_ROLE = 18,
    ZOR_ASSOCIATION_ROLE_NAME_MAP = 19,
    ZOR_KEY = 20,
    ZOR_CANDIDATE_KEY = 21,
    ZOR_FOREIGN_KEY = 22,
    ZOR_OPERATION = 23,
    ZOR_ARGUMENT = 24,
    ZOR_SQL_VIEW_ENTITY = 25,
    ZOR_SQL_VIEW_ATTRIBUTE = 26,
    /// The root class. Objects that a bridge makes for itself may carry it as their own code.
    ZOR_OBJECT = 33,
    ZOR_DEPENDENCY = 40,
    ZOR_REALIZATION = 41,
    ZOR_SYNONYM = 49,
    /// Base of derived types.
    ZOR_REFINED_TYPE = 50,
    ZOR_INDEX = 51,
    ZOR_INDEX_MEMBER = 52,
    ZOR_MODEL_OBJECT = 59,
    ZOR_CLASS_TYPE = 66,
    ZOR_STORED_PROCEDURE = 67,
    ZOR_TRIGGER = 68,
    ZOR_DATABASE_CATALOG = 74,
    /// Base of what has features: classes and views.
    ZOR_CLASSIFIER = 75,
    /// Base of attributes and view columns.
    ZOR_FEATURE = 77,
    ZOR_DIAGRAM = 90,
    /// Base of features that hold data.
    ZOR_STRUCTURAL_FEATURE = 99,
    ZOR_CATALOG = 141,
    ZOR_PACKAGE = 144
};
