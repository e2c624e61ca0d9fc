#include "ZOROption.h"

#include <algorithm>
#include <string>

#include "ZORException.h"
#include "ZORNearest.h"

bool ZOROption::permits(const ZORString& value) const {
    return permittedValues_.empty() ||
           std::find(permittedValues_.begin(), permittedValues_.end(), value) != permittedValues_.end();
}

std::unique_ptr<ZOROption> generateOption(const ZORBridgeOptionLiteral& literal, const char* fileExtension,
                                          const char* fileText) {
    auto option = std::make_unique<ZOROption>();
    option->name_ = literal.getKey();
    option->displayName_ = literal.getDisplayName();
    option->type_ = literal.getType();
    option->description_ = literal.getDescription();
    option->default_ = literal.getDefault().getText();
    option->value_ = option->default_;
    option->fileExtension_ = fileExtension;
    option->fileText_ = fileText;
    if (const ZORBridgeOptionEnumerationLiteral* enumeration = literal.getEnumeration()) {
        for (std::size_t i = 0; i < enumeration->size(); ++i) {
            option->permittedValues_.push_back((*enumeration)[i].getText());
        }
    }
    return option;
}

ZOROption* ZOROptionList::append(std::unique_ptr<ZOROption> option) {
    options_.append(option.get());
    return option.release();
}

void ZOROptionList::removeAll() noexcept {
    for (ZOROption* option : options_) {
        delete option;
    }
    options_.clear();
}

ZOROption* ZOROptionList::find(const ZORString& displayName) const noexcept {
    for (ZOROption* option : options_) {
        if (option->getDisplayName() == displayName) {
            return option;
        }
    }
    return nullptr;
}

ZORString ZOROptionList::getValue(const ZORString& displayName) const {
    const ZOROption* option = find(displayName);
    return option == nullptr ? ZORString() : option->getValue();
}

void ZOROptionList::setValue(const ZORString& displayName, const ZORString& value) {
    std::vector<std::string_view> candidates;
    ZOROption* option = find(displayName);
    if (option == nullptr) {
        for (const ZOROption* known : options_) {
            candidates.push_back(known->getDisplayName().view());
        }
        throw ZORException("There is no option \"" + displayName + "\"." +
                           describeNearest(displayName.view(), candidates).c_str());
    }
    if (!option->permits(value)) {
        for (const ZORString& permitted : option->getPermittedValues()) {
            candidates.push_back(permitted.view());
        }
        throw ZORException("The option \"" + displayName + "\" does not permit the value \"" + value + "\"." +
                           describeNearest(value.view(), candidates).c_str());
    }
    option->setValue(value);
}
