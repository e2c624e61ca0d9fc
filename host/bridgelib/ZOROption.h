#pragma once

#include <memory>
#include <vector>

#include "ZORLiterals.h"
#include "ZORVector.h"

/// An option of a bridge as the host presents it, with its present value. It holds copies of the catalogue's
/// texts and outlives the bridge's library.
class ZOROption {
  public:
    /// The internal name, such as "BP_MODEL".
    const ZORString& getName() const noexcept { return name_; }
    /// The name for people and the key of the option in its list, such as "Model".
    const ZORString& getDisplayName() const noexcept { return displayName_; }
    /// "File", "Enumerated", "Boolean" or "String".
    const ZORString& getType() const noexcept { return type_; }
    const ZORString& getDescription() const noexcept { return description_; }
    const ZORString& getDefault() const noexcept { return default_; }
    /// The values that the option permits; empty when it permits any.
    const std::vector<ZORString>& getPermittedValues() const noexcept { return permittedValues_; }
    /// The extension of the files that a "File" option names, without a point; else empty.
    const ZORString& getFileExtension() const noexcept { return fileExtension_; }
    const ZORString& getFileText() const noexcept { return fileText_; }

    /// The default until another value is set.
    const ZORString& getValue() const noexcept { return value_; }
    /// Takes any value; `ZOROptionList::setValue` is the one that checks.
    void setValue(ZORString value) { value_ = std::move(value); }
    bool permits(const ZORString& value) const;

  private:
    friend std::unique_ptr<ZOROption> generateOption(const ZORBridgeOptionLiteral& literal,
                                                     const char* fileExtension, const char* fileText);

    ZORString name_;
    ZORString displayName_;
    ZORString type_;
    ZORString description_;
    ZORString default_;
    ZORString value_;
    ZORString fileExtension_;
    ZORString fileText_;
    std::vector<ZORString> permittedValues_;
};

/// The option that a literal describes, set to its default.
std::unique_ptr<ZOROption> generateOption(const ZORBridgeOptionLiteral& literal,
                                          const char* fileExtension = "", const char* fileText = "");

/// The options of a bridge with their values; it owns the options.
class ZOROptionList {
  public:
    ZOROptionList() = default;
    ~ZOROptionList() { removeAll(); }
    ZOROptionList(const ZOROptionList&) = delete;
    ZOROptionList& operator=(const ZOROptionList&) = delete;

    const ZORVector<ZOROption*>& getOptions() const noexcept { return options_; }
    ZOROption* append(std::unique_ptr<ZOROption> option);
    void removeAll() noexcept;

    /// The option of this display name, letter case included, or null.
    ZOROption* find(const ZORString& displayName) const noexcept;
    /// The value of the option of this display name; empty when there is no such option.
    ZORString getValue(const ZORString& displayName) const;
    /// Sets a value. Throws a ZORException when there is no such option or it does not permit the value; its
    /// text names the nearest ones.
    void setValue(const ZORString& displayName, const ZORString& value);

  private:
    ZORVector<ZOROption*> options_;
};
