#pragma once

#include <cstdint>

#include "ZORObject.h"

class ZORClass;

/// One value of an enumerated type.
class ZORTypeValue : public ZORModelObject {
  public:
    ZORTypeValue() noexcept : ZORModelObject(ZOR_TYPE_VALUE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_TYPE_VALUE || ZORModelObject::isInstanceOf(type);
    }

    /// The numeric code.
    std::int16_t getCode() const noexcept { return code_; }
    void setCode(std::int16_t code) noexcept { code_ = code; }
    /// The stored text.
    const ZORString& getValue() const noexcept { return value_; }
    void setValue(ZORString value) { value_ = std::move(value); }

  private:
    ZORString value_;
    std::int16_t code_ = 0;
};

/// The base of all data types, and a type of its own. The model owns its types.
class ZORType : public ZORModelObject {
  public:
    ZORType() noexcept : ZORType(ZOR_TYPE) {}
    ~ZORType() override { destroyAll(values_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_TYPE || ZORModelObject::isInstanceOf(type);
    }

    /// The data-type name, such as "SQL_VARCHAR" or "character varying".
    const ZORString& getDataType() const noexcept { return dataType_; }
    void setDataType(ZORString name) { dataType_ = std::move(name); }
    /// Characters, digits or bytes; 0 when not set.
    std::int32_t getLength() const noexcept { return length_; }
    void setLength(std::int32_t length) noexcept { length_ = length; }
    /// Digits behind the point; 0 when not set.
    std::int32_t getScale() const noexcept { return scale_; }
    void setScale(std::int32_t scale) noexcept { scale_ = scale; }
    const ZORString& getInitialValue() const noexcept { return initialValue_; }
    void setInitialValue(ZORString value) { initialValue_ = std::move(value); }
    const ZORString& getLowerBound() const noexcept { return lowerBound_; }
    void setLowerBound(ZORString bound) { lowerBound_ = std::move(bound); }
    const ZORString& getUpperBound() const noexcept { return upperBound_; }
    void setUpperBound(ZORString bound) { upperBound_ = std::move(bound); }

    const ZORVector<ZORTypeValue*>& getTypeValues() const noexcept { return values_; }
    std::size_t getTypeValueCount() const noexcept { return values_.size(); }
    ZORTypeValue* addTypeValue(std::unique_ptr<ZORTypeValue> value) {
        return adopt(values_, std::move(value));
    }

    /// The type that an alias stands for, followed through aliases of aliases; any other type, and an alias
    /// without a base, is its own.
    const ZORType* getActualType() const noexcept;
    ZORType* getActualType() noexcept { return const_cast<ZORType*>(std::as_const(*this).getActualType()); }
    /// The type that a derived or alias type is based on; null for every other kind.
    virtual ZORType* getBaseType() const noexcept { return nullptr; }

    /// What is typed by this type: attributes, view columns, arguments and operations (by their result). An
    /// object stands in the list once for every reference, in the order in which the references were made.
    const ZORVector<ZORModelObject*>& getTypedObjects() const noexcept { return typedObjects_; }
    /// The derived and alias types that are based on this one.
    const ZORVector<ZORType*>& getBasedTypes() const noexcept { return basedTypes_; }

    /// For the objects that refer to types: replaces a reference, and keeps both types' lists right.
    static void changeTypeOf(ZORModelObject* object, ZORType*& reference, ZORType* type);

    void setOwner(ZORObject* owner) override;

  protected:
    explicit ZORType(ZORElementType type) noexcept : ZORModelObject(type) {}
    void changeBase(ZORType*& reference, ZORType* base);
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override;

  private:
    ZORString dataType_;
    ZORString initialValue_;
    ZORString lowerBound_;
    ZORString upperBound_;
    ZORVector<ZORTypeValue*> values_;
    ZORVector<ZORModelObject*> typedObjects_;
    ZORVector<ZORType*> basedTypes_;
    std::int32_t length_ = 0;
    std::int32_t scale_ = 0;
};

/// A plain type of the database or language.
class ZORConcreteType : public ZORType {
  public:
    ZORConcreteType() noexcept : ZORType(ZOR_CONCRETE_TYPE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_CONCRETE_TYPE || ZORType::isInstanceOf(type);
    }
};

/// A type made from another one, with a size, a default or valid values of its own.
class ZORDerivedType : public ZORType {
  public:
    ZORDerivedType() noexcept : ZORType(ZOR_DERIVED_TYPE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_DERIVED_TYPE || type == ZOR_REFINED_TYPE || ZORType::isInstanceOf(type);
    }
    ZORType* getBaseType() const noexcept override { return base_; }
    void setBaseType(ZORType* base) { changeBase(base_, base); }

  private:
    ZORType* base_ = nullptr;
};

/// Another name for a type.
class ZORAliasType : public ZORType {
  public:
    ZORAliasType() noexcept : ZORType(ZOR_ALIAS_TYPE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ALIAS_TYPE || ZORType::isInstanceOf(type);
    }
    ZORType* getBaseType() const noexcept override { return base_; }
    void setBaseType(ZORType* base) { changeBase(base_, base); }

  private:
    ZORType* base_ = nullptr;
};

/// The type whose values are the objects of a class.
class ZORClassType : public ZORType {
  public:
    ZORClassType() noexcept : ZORType(ZOR_CLASS_TYPE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_CLASS_TYPE || ZORType::isInstanceOf(type);
    }
    ZORClass* getAssociatedClass() const noexcept { return class_; }
    void setAssociatedClass(ZORClass* cls) noexcept { class_ = cls; }

  private:
    ZORClass* class_ = nullptr;
};
