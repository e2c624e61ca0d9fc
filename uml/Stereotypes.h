#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

/// One stereotype of the document, shared by the objects of one kind that carry it.
struct UMLStereotype {
    ZORModelObject* object;  ///< the first object that used it; its kind is the base class
    ZORString name;
    int id;  ///< the identifier of its element
};

/// The stereotypes met so far, by the kind of their object and their name. It owns them.
///
/// An interface looks for its stereotype under a kind of its own, while a record counts as of its object's
/// real element type: a class finds the record of an interface, an interface finds none.
class ZORMicrosoftSqlServerMdsMdcExportBridge::StereotypeHashtable : public ZORHashtable {
  public:
    struct Key {
        int elementType;
        const ZORString* name;
    };

    explicit StereotypeHashtable(std::size_t initialSize) : ZORHashtable(initialSize) {}
    ~StereotypeHashtable() override { freeAll(); }

    UMLStereotype* findStereotype(const Key& key) const { return static_cast<UMLStereotype*>(find(&key)); }
    UMLStereotype* addStereotype(std::unique_ptr<UMLStereotype> record) {
        add(record.get());
        return record.release();
    }
    UMLStereotype* getStereotype(std::size_t index) const {
        return static_cast<UMLStereotype*>((*this)[index]);
    }
    void freeAll() noexcept;

  protected:
    int compare2Object(const void* object1, const void* object2) const override;
    int compare2Key(const void* object, const void* key) const override;
    std::uint32_t hashObject(const void* object) const override;
    std::uint32_t hashKey(const void* key) const override;
};

/// A constraint of the document: a condition of an operation, or the constraint text of an association or an
/// end.
class ZORMicrosoftSqlServerMdsMdcExportBridge::UMLConstraint : public ZORModelObject {
  public:
    /// `stereotype` may be null.
    UMLConstraint(ZORModelObject* element, const char* stereotype, const ZORString& body)
        : ZORModelObject(ZOR_OBJECT), element_(element) {
        setStereotype(stereotype);
        setPhysicalName(body);
    }
    /// What the constraint is about.
    ZORModelObject* getConstrainedElement() const noexcept { return element_; }
    /// The text; it stands where other objects have their physical name.
    const ZORString& getBody() const noexcept { return getPhysicalName(); }

  private:
    ZORModelObject* element_;
};
