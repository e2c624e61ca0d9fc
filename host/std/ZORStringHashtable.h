#pragma once

#include "ZORHashtable.h"
#include "ZORString.h"

/// A set of strings, letter case included, that inserts if absent. The table does not own the strings: who
/// adds them frees them.
class ZORStringHashtable {
  public:
    /// `initialSize` strings fit without the table growing.
    explicit ZORStringHashtable(std::size_t initialSize) : table_(initialSize) {}

    /// Adds the string unless an equal one is a member. True when it was added; else it stays the caller's
    /// alone.
    bool add(ZORString* text) {
        if (table_.find(text) != nullptr) {
            return false;
        }
        table_.add(text);
        return true;
    }
    /// The member that equals the text, or null.
    ZORString* find(const ZORString& text) const { return static_cast<ZORString*>(table_.find(&text)); }
    /// Forgets all members; they are not freed.
    void clear() noexcept { table_.clear(); }

    std::size_t size() const noexcept { return table_.size(); }
    bool isEmpty() const noexcept { return table_.isEmpty(); }
    /// The string added as number `index`, counted from 0.
    ZORString* operator[](std::size_t index) const noexcept { return static_cast<ZORString*>(table_[index]); }

  private:
    class Table : public ZORHashtable {
      public:
        using ZORHashtable::ZORHashtable;

      protected:
        static const ZORString& text(const void* member) { return *static_cast<const ZORString*>(member); }
        int compare2Object(const void* a, const void* b) const override {
            return text(a).view().compare(text(b).view());
        }
        int compare2Key(const void* a, const void* key) const override { return compare2Object(a, key); }
        std::uint32_t hashObject(const void* member) const override {
            return stringHashCode(text(member).view());
        }
        std::uint32_t hashKey(const void* key) const override { return hashObject(key); }
    };

    Table table_;
};
