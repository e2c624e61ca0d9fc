// messages/: every text that the bridge shows to a user: its messages and what describes its options, as
// literals that stand ready in the library. Who says what when is decided where the literals are
// used; the classes of literals and the messages that all bridges share are the host's.
#pragma once

#include <cstddef>
#include <initializer_list>

#include "TypeSetChoices.h"
#include "ZORI18n.h"

/// The catalogue of the bridge. The key of a literal is its name, but for the description of the bridge,
/// whose key is the one that the host's specification of the bridge names.
class QLT_SQMDC {
  public:
    /// A text without placeholders.
    class TextInstance : public ZORTextLiteral {
      public:
        using ZORTextLiteral::ZORTextLiteral;
        constexpr ~TextInstance() override {}
    };
    /// A message of this catalogue with as many arguments as there are `ZORString`s; they fill "{0}" to
    /// "{2}".
    template <typename... Arguments>
    class MessageOf : public ZORMessageLiteralOf<Arguments...> {
      public:
        constexpr MessageOf(ZORString key, ZORString code, ZORString text, ZORString severity) noexcept
            : ZORMessageLiteralOf<Arguments...>(std::move(key), "QLT_SQMDC"_text, std::move(code),
                                                std::move(text), std::move(severity)) {}
        constexpr ~MessageOf() override = default;
    };
    using MessageInstance = MessageOf<>;
    using MessageInstance_String = MessageOf<ZORString>;
    using MessageInstance_String_String = MessageOf<ZORString, ZORString>;
    using MessageInstance_String_String_String = MessageOf<ZORString, ZORString, ZORString>;

    /// The name of the bridge in messages.
    static const ZORString DOCUMENT_ID;
    /// What the identifiers of the catalogue's messages begin with.
    static const ZORString PREFIX;

    static const ZORString& getDocumentId() noexcept { return DOCUMENT_ID; }
    /// All literals in the order of their declarations below; a null pointer ends the list.
    static const ZORTextLiteral* const* getAllLiterals() noexcept;
    static const ZORTextLiteral* const* listAllLiterals() noexcept { return getAllLiterals(); }
    /// The literal of this key, or null.
    static const ZORTextLiteral* findTextLiteral(const ZORString& key) noexcept;

    static const TextInstance BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT_DESCRIPTION;

    static const TextInstance BP_FILE_DEFAULT;
    static const ZORBridgeOptionLiteral BP_FILE;

    static const ZORBridgeEnumValueLiteral BP_MODEL_ENUM_UML;
    static const ZORBridgeEnumValueLiteral BP_MODEL_ENUM_ERD;
    static const ZORBridgeEnumValueLiteral BP_MODEL_ENUM_DBM;
    static const ZORBridgeEnumValueLiteral BP_MODEL_ENUM_ERD_AND_DBM;
    static const ZORBridgeOptionEnumerationLiteral BP_MODEL_ENUM;
    static const ZORBridgeOptionLiteral BP_MODEL;

    static const ZORBridgeOptionLiteral BP_MS_REPOSITORY;

    static const ZORBridgeEnumValueLiteral BP_UML_1_3_SUPPORT_ENUM_DEFAULT;
    static const ZORBridgeEnumValueLiteral BP_UML_1_3_SUPPORT_ENUM_ENABLED;
    static const ZORBridgeEnumValueLiteral BP_UML_1_3_SUPPORT_ENUM_PARTIAL;
    static const ZORBridgeEnumValueLiteral BP_UML_1_3_SUPPORT_ENUM_DISABLED;
    static const ZORBridgeOptionEnumerationLiteral BP_UML_1_3_SUPPORT_ENUM;
    static const ZORBridgeOptionLiteral BP_UML_1_3_SUPPORT;

#define DECLARE_ERD_CHOICE(name, text) static const ZORBridgeEnumValueLiteral BP_ERD_TYPESET_ENUM_##name;
    QLT_SQMDC_TYPESET_CHOICES(DECLARE_ERD_CHOICE)
#undef DECLARE_ERD_CHOICE
    static const ZORBridgeOptionEnumerationLiteral BP_ERD_TYPESET_ENUM;
    static const ZORBridgeOptionLiteral BP_ERD_TYPESET;
    static const TextInstance BP_ERD_TYPESET_NAME_DEFAULT;
    static const ZORBridgeOptionLiteral BP_ERD_TYPESET_NAME;
    static const TextInstance BP_ERD_TYPESET_VERSION_DEFAULT;
    static const ZORBridgeOptionLiteral BP_ERD_TYPESET_VERSION;

#define DECLARE_DBM_CHOICE(name, text) static const ZORBridgeEnumValueLiteral BP_DBM_TYPESET_ENUM_##name;
    QLT_SQMDC_TYPESET_CHOICES(DECLARE_DBM_CHOICE)
#undef DECLARE_DBM_CHOICE
    static const ZORBridgeOptionEnumerationLiteral BP_DBM_TYPESET_ENUM;
    static const ZORBridgeOptionLiteral BP_DBM_TYPESET;
    static const TextInstance BP_DBM_TYPESET_NAME_DEFAULT;
    static const ZORBridgeOptionLiteral BP_DBM_TYPESET_NAME;
    static const TextInstance BP_DBM_TYPESET_VERSION_DEFAULT;
    static const ZORBridgeOptionLiteral BP_DBM_TYPESET_VERSION;

    // Every blank and parenthesis of the display name is an underscore here, so that two stand in a row.
    // NOLINTBEGIN(bugprone-reserved-identifier)
    static const TextInstance BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT;
    static const ZORBridgeOptionLiteral BP_XML_INDENTATION__PRETTY_PRINTING_;
    // NOLINTEND(bugprone-reserved-identifier)

    /// {0}: the path.
    static const MessageInstance_String MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE;
    /// Nothing says this one: models come by reference.
    static const MessageInstance MDC_E_INPUT_MODEL_PARAMETER_IS_NULL;
    /// {0}: the type set asked for; {1}: the name of the default one.
    static const MessageInstance_String_String MDC_E_UNKNOWN_TYPESET;
    /// {0}: the kind of object; {1}: its name; {2}: the name written in its place.
    static const MessageInstance_String_String_String MDC_E_NAME_CLASH;
    static const MessageInstance MDC_E_MULTIPLE_CATALOGS_DETECTED;

#define LIST_CHOICE(name, text) text,
    /// How many choices each of the two type-set options has.
    static constexpr std::size_t TYPESET_CHOICES =
        std::initializer_list<const char*>{QLT_SQMDC_TYPESET_CHOICES(LIST_CHOICE)}.size();
#undef LIST_CHOICE
};
