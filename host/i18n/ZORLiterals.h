#pragma once

#include <array>
#include <cstddef>
#include <utility>

#include "ZORException.h"
#include "ZORLog.h"

/// A catalogue entry: a key and a text that may hold the placeholders "{0}", "{1}" and "{2}". The entries of
/// a catalogue are made of `"..."_text` and are `constexpr`: loading the library then takes no memory for
/// them.
class ZORTextLiteral {
  public:
    constexpr ZORTextLiteral(ZORString key, ZORString text) noexcept
        : key_(std::move(key)), text_(std::move(text)) {}
    constexpr virtual ~ZORTextLiteral() = default;
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
    constexpr ZORMessageLiteral(ZORString key, ZORString prefix, ZORString code, ZORString text,
                                ZORString severity) noexcept
        : ZORTextLiteral(std::move(key), std::move(text)),
          prefix_(std::move(prefix)),
          code_(std::move(code)),
          severity_(std::move(severity)) {}
    constexpr ~ZORMessageLiteral() override {}

    const ZORString& getCode() const noexcept { return code_; }
    /// The severity as the catalogue's word.
    const ZORString& getSeverity() const noexcept { return severity_; }
    /// For example "QLT_SQMDC_F0002".
    ZORString getMessageId() const;

  private:
    ZORString prefix_;
    ZORString code_;
    ZORString severity_;
};

/// The four things one does with a message that takes the given arguments, each a `const ZORString&`.
template <typename... Arguments>
class ZORMessageLiteralOf : public ZORMessageLiteral {
  public:
    using ZORMessageLiteral::ZORMessageLiteral;
    constexpr ~ZORMessageLiteralOf() override = default;

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
    constexpr ~ZORBridgeEnumValueLiteral() override {}
};

/// The ordered list of the values that an option permits.
class ZORBridgeOptionEnumerationLiteral : public ZORTextLiteral {
  public:
    /// `values` ends with a null pointer and lives as long as the catalogue.
    constexpr ZORBridgeOptionEnumerationLiteral(ZORString key,
                                                const ZORBridgeEnumValueLiteral* const* values) noexcept
        : ZORTextLiteral(std::move(key), ZORString()), values_(values) {
        while (values_[size_] != nullptr) {
            ++size_;
        }
    }
    constexpr ~ZORBridgeOptionEnumerationLiteral() override {}

    std::size_t size() const noexcept { return size_; }
    const ZORBridgeEnumValueLiteral& operator[](std::size_t index) const noexcept { return *values_[index]; }

  private:
    const ZORBridgeEnumValueLiteral* const* values_;
    std::size_t size_ = 0;
};

/// An option of a bridge; its key is the internal name.
class ZORBridgeOptionLiteral : public ZORTextLiteral {
  public:
    /// `type` is "File", "Enumerated", "Boolean" or "String"; `enumeration` may be null. The default is the
    /// text of a text literal or of an enumeration value.
    constexpr ZORBridgeOptionLiteral(ZORString key, ZORString displayName, ZORString type,
                                     ZORString description,
                                     const ZORBridgeOptionEnumerationLiteral* enumeration,
                                     const ZORTextLiteral& defaultValue) noexcept
        : ZORTextLiteral(std::move(key), std::move(displayName)),
          type_(std::move(type)),
          description_(std::move(description)),
          enumeration_(enumeration),
          default_(defaultValue) {}
    constexpr ~ZORBridgeOptionLiteral() override {}

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
    constexpr ZORBridgeSpecificationLiteral(ZORString bridgeId, ZORString descriptionId,
                                            ZORString toolWebReference, ZORString vendorName,
                                            ZORString toolName, ZORString toolVersions,
                                            ZORString methodologySummary) noexcept
        : ZORTextLiteral(std::move(bridgeId), std::move(descriptionId)),
          toolWebReference_(std::move(toolWebReference)),
          vendorName_(std::move(vendorName)),
          toolName_(std::move(toolName)),
          toolVersions_(std::move(toolVersions)),
          methodologySummary_(std::move(methodologySummary)) {}
    constexpr ~ZORBridgeSpecificationLiteral() override {}

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
