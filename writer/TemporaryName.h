#pragma once

#include "ZORObject.h"

/// Gives an object another name for as long as this lives, in any way out. Setting the name back takes no
/// memory and cannot fail.
class TemporaryName {
  public:
    TemporaryName(ZORObject* object, ZORString name) : object_(object), own_(object->getName()) {
        object->setName(std::move(name));
    }
    ~TemporaryName() { object_->setName(std::move(own_)); }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;

  private:
    ZORObject* object_;
    ZORString own_;
};
