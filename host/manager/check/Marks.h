#pragma once

#include <functional>
#include <vector>

#include "ZORModelCheck.h"

/// Small numbers noted on objects of a model, through the general pointers that nobody else uses at the time;
/// a check then needs no table of what it has seen. The notes are taken off again in the end.
class Marks {
  public:
    static constexpr int LARGEST = ZOR_DEEPEST_NESTING + 2;

    Marks() = default;
    ~Marks() {
        for (ZORObject* object : marked_) {
            object->setGeneralPointer(nullptr);
        }
    }
    Marks(const Marks&) = delete;
    Marks& operator=(const Marks&) = delete;

    /// The number on the object; -1 when there is none.
    int get(const ZORObject& object) const noexcept {
        const auto* pointer = static_cast<const char*>(object.getGeneralPointer());
        const bool mine = pointer != nullptr && !std::less<>()(pointer, numbers_) &&
                          std::less<>()(pointer, numbers_ + LARGEST + 1);
        return mine ? static_cast<int>(pointer - numbers_) : -1;
    }
    /// Puts a number from 0 to LARGEST on an object whose general pointer is free.
    void set(ZORObject& object, int number) {
        if (get(object) < 0) {
            marked_.push_back(&object);
        }
        object.setGeneralPointer(numbers_ + number);
    }
    /// Whether somebody else uses the object's general pointer.
    bool isTaken(const ZORObject& object) const noexcept {
        return object.getGeneralPointer() != nullptr && get(object) < 0;
    }

  private:
    /// Only the addresses count: a pointer into it is a number.
    char numbers_[LARGEST + 1];
    std::vector<ZORObject*> marked_;
};
