#pragma once

#include <array>
#include <cstddef>

#include "ZORException.h"
#include "ZORLog.h"
#include "ZORVector.h"

/// A catalogue entry: a key and a text that may hold the placeholders "{0}", "{1}" and "{2}".
class ZORTextLiteral {
  public:
    ZORTextLiteral(const char* key, const char* text) : key_(key), text_(text) {}
    virtual ~ZORTextLiteral() = default;
    ZORTextLiteral(const ZORTextLiteral&) = delete;
    ZORTextLiteral& operator=(const ZORTextLiteral&) = delete;

    const ZORString& getKey() const noexcept { return key_; }
    const ZORString& getText() const noexcept { return text_; }
    ZORString toString() const { return text_; }

  private:
    ZORString key_;
    ZORString text_;
};

/// Fills placeholders: made from a literal, given its values, asked for the text. Values are taken as they
/// are: a placeholder inside one is not replaced again.
class ZORTextParameters {
  public:
    explicit ZORTextParameters(const ZORTextLiteral& literal) : text_(literal.getText()) {}
    /// Sets the value of placeholder 0, 1 or 2.
    void setValue(std::size_t index, const ZORString& value) { values_[index] = &value; }
    /// The text; a placeholder without a value stays as it is.
    ZORString createText() const;

  private:
    const ZORString& text_;
    std::array<const ZORString*, 3> values_{};
};

/// A message of a catalogue, with its identifier: prefix, "_", the first letter of the severity, four digits.
class ZORMessageLiteral : public ZORTextLiteral {
  public:
    ZORMessageLiteral(const char* key, const ZORString& prefix, const char* code, const char* text,
                      const char* severity);

    const ZORString& getCode() const noexcept { return code_; }
    /// The severity as the catalogue's word.
    const ZORString& getSeverity() const noexcept { return severity_; }
    /// For example "QLT_SQMDC_F0002".
    const ZORString& getMessageId() const noexcept { return messageId_; }

  private:
    ZORString code_;
    ZORString severity_;
    ZORString messageId_;
};

/// The four things one does with a message that takes the given arguments, each a `const ZORString&`.
template <typename... Arguments>
class ZORMessageLiteralOf : public ZORMessageLiteral {
  public:
    using ZORMessageLiteral::ZORMessageLiteral;

    /// The text with its placeholders filled.
    ZORString toString(const Arguments&... arguments) const {
        ZORTextParameters parameters(*this);
        [[maybe_unused]] std::size_t index = 0;
        (parameters.setValue(index++, arguments), ...);
        return parameters.createText();
    }
    /// "[", the message identifier, "] ", the text.
    ZORString getMessage(const Arguments&... arguments) const {
        return "[" + getMessageId() + "] " + toString(arguments...);
    }
    void log(ZORLog& log, const Arguments&... arguments) const {
        log.log(
            ZORLogEvent(toString(arguments...), getMessageId(), ::getSeverity(getSeverity()), ZORString()));
    }
    /// Throws a ZORException whose text is `getMessage`.
    [[noreturn]] void throwException(const Arguments&... arguments) const {
        throw ZORException(getMessage(arguments...));
    }
};

/// One permitted value of an option; its text is also what is shown.
class ZORBridgeEnumValueLiteral : public ZORTextLiteral {
  public:
    using ZORTextLiteral::ZORTextLiteral;
};

/// The ordered list of the values that an option permits.
class ZORBridgeOptionEnumerationLiteral : public ZORTextLiteral {
  public:
    /// `values` ends with a null pointer and lives as long as the catalogue.
    ZORBridgeOptionEnumerationLiteral(const char* key, const ZORBridgeEnumValueLiteral* const* values);

    std::size_t size() const noexcept { return values_.size(); }
    const ZORBridgeEnumValueLiteral& operator[](std::size_t index) const noexcept { return *values_[index]; }

  private:
    ZORVector<const ZORBridgeEnumValueLiteral*> values_;
};

/// An option of a bridge; its key is the internal name.
class ZORBridgeOptionLiteral : public ZORTextLiteral {
  public:
    /// `type` is "File", "Enumerated", "Boolean" or "String"; `enumeration` may be null. The default is the
    /// text of a text literal or of an enumeration value.
    ZORBridgeOptionLiteral(const char* key, const char* displayName, const char* type,
                           const char* description, const ZORBridgeOptionEnumerationLiteral* enumeration,
                           const ZORTextLiteral& defaultValue)
        : ZORTextLiteral(key, displayName),
          type_(type),
          description_(description),
          enumeration_(enumeration),
          default_(defaultValue) {}

    const ZORString& getDisplayName() const noexcept { return getText(); }
    const ZORString& getType() const noexcept { return type_; }
    const ZORString& getDescription() const noexcept { return description_; }
    const ZORBridgeOptionEnumerationLiteral* getEnumeration() const noexcept { return enumeration_; }
    const ZORTextLiteral& getDefault() const noexcept { return default_; }

  private:
    ZORString type_;
    ZORString description_;
    const ZORBridgeOptionEnumerationLiteral* enumeration_;
    const ZORTextLiteral& default_;
};

/// What the host knows of a bridge; its key is the bridge's identifier.
class ZORBridgeSpecificationLiteral : public ZORTextLiteral {
  public:
    ZORBridgeSpecificationLiteral(const char* bridgeId, const char* descriptionId,
                                  const char* toolWebReference, const char* vendorName, const char* toolName,
                                  const char* toolVersions, const char* methodologySummary);

    /// The key of the text, in the bridge's own catalogue, that describes the bridge.
    const ZORString& getDescriptionId() const noexcept { return getText(); }
    const ZORString& getToolWebReference() const noexcept { return toolWebReference_; }
    const ZORString& getVendorName() const noexcept { return vendorName_; }
    const ZORString& getToolName() const noexcept { return toolName_; }
    const ZORString& getToolVersions() const noexcept { return toolVersions_; }
    const ZORString& getMethodologySummary() const noexcept { return methodologySummary_; }

  private:
    ZORString toolWebReference_;
    ZORString vendorName_;
    ZORString toolName_;
    ZORString toolVersions_;
    ZORString methodologySummary_;
};
