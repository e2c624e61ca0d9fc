#pragma once

#include "ZORLiterals.h"

/// The host's own catalogue: messages and values that every bridge may use.
class QLCM {
  public:
    /// {0}: the document id of the bridge.
    static const ZORMessageLiteralOf<ZORString> BRIDGE_UNEXPECTED_ERROR;
    /// {0}: how many characters could not be converted; {1}: in how many texts they stood.
    static const ZORMessageLiteralOf<ZORString, ZORString> ICU_CONVERSION_ERROR;
    /// {0}: a path; {1}: the system's reason.
    static const ZORMessageLiteralOf<ZORString, ZORString> FILE_WRITE_ERROR;

    static const ZORBridgeEnumValueLiteral BOOLEAN_ENUM_VALUE_TRUE;
    static const ZORBridgeEnumValueLiteral BOOLEAN_ENUM_VALUE_FALSE;
    static const ZORBridgeOptionEnumerationLiteral BOOLEAN_ENUM;
};

/// The bridge library's name for the boolean values, with the texts of QLCM's.
class BLIB {
  public:
    static const ZORBridgeEnumValueLiteral BOOLEAN_ENUM_VALUE_TRUE;
    static const ZORBridgeEnumValueLiteral BOOLEAN_ENUM_VALUE_FALSE;
};

/// The host's list of the bridges that it knows.
class QLLST {
  public:
    static const ZORBridgeSpecificationLiteral BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT;
    /// The literal whose key is the bridge's identifier, or null.
    static const ZORBridgeSpecificationLiteral* findBridgeSpecification(const ZORString& bridgeId) noexcept;
};
