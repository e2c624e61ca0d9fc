#pragma once

#include <memory>

#include "ZORElementType.h"
#include "ZOREnumerations.h"
#include "ZORString.h"
#include "ZORVector.h"

class ZORObject;
class ZORType;

/// What a depth-first walk does at every object.
class ZORTraversalOperation {
  public:
    virtual ~ZORTraversalOperation() = default;
    /// Called before the objects that `object` aggregates. False ends the whole walk.
    virtual bool pre_process(ZORObject* object, void*& context) = 0;
    /// Called after them. False ends the whole walk.
    virtual bool post_process(ZORObject* object, void*& context);
};

/// The root of the model's classes.
class ZORObject {
  public:
    explicit ZORObject(ZORElementType type) noexcept : elementType_(type) {}
    virtual ~ZORObject() = default;
    ZORObject& operator=(const ZORObject&) = delete;

    /// The object's own code, as stored.
    ZORElementType getElementType() const noexcept { return elementType_; }
    /// Whether the object's class is, or derives from, the class of this code.
    virtual bool isInstanceOf(ZORElementType type) const noexcept {
        return type == ZOR_ANY || type == ZOR_OBJECT;
    }

    virtual const ZORString& getName() const { return name_; }
    virtual void setName(ZORString name) { name_ = std::move(name); }

    /// The one pointer that is free for the data of whoever works on the model at the moment; null when
    /// nobody does. The object never follows it.
    void* getGeneralPointer() const noexcept { return generalPointer_; }
    void setGeneralPointer(void* pointer) noexcept { generalPointer_ = pointer; }

    /// Walks over this object and everything that it aggregates, every object before its parts and its notes
    /// last. Objects may be appended to the lists that are being walked: they are visited too. Recurses once
    /// per package level. False when the operation ended the walk.
    bool _depthTraversal(ZORTraversalOperation& operation, void*& context);

  protected:
    ZORObject(const ZORObject& other) : name_(other.name_), elementType_(other.elementType_) {}
    virtual bool traverseParts(ZORTraversalOperation& operation, void*& context);

    template <typename Part>
    static bool traverseList(const ZORVector<Part*>& parts, ZORTraversalOperation& operation,
                             void*& context) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (!parts[i]->_depthTraversal(operation, context)) {
                return false;
            }
        }
        return true;
    }

  private:
    void* generalPointer_ = nullptr;
    ZORString name_;
    ZORElementType elementType_;
};

/// A text attached to an object.
class ZORNote : public ZORObject {
  public:
    explicit ZORNote(ZORString text = {}) : ZORObject(ZOR_NOTE), description_(std::move(text)) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_NOTE || ZORObject::isInstanceOf(type);
    }

    /// The text of the note.
    const ZORString& getDescription() const noexcept { return description_; }
    void setDescription(ZORString text) { description_ = std::move(text); }

  private:
    ZORString description_;
};

/// The base of everything that a model is made of.
///
/// Ownership: an object owns its parts and its notes. `add...` operations that take a unique_ptr make the
/// object the owner of the part and give back the part; those that take a plain pointer only refer to it.
/// Destroying an object destroys its parts and leaves references to it as they are: an object that goes while
/// the rest of its model stays is first taken out with `setOwner(nullptr)`.
class ZORModelObject : public ZORObject {
  public:
    explicit ZORModelObject(ZORElementType type) noexcept : ZORObject(type) {}
    ~ZORModelObject() override;
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_MODEL_OBJECT || ZORObject::isInstanceOf(type);
    }

    const ZORString& getDescription() const noexcept { return description_; }
    void setDescription(ZORString text) { description_ = std::move(text); }
    const ZORString& getComments() const noexcept { return comments_; }
    void setComments(ZORString text) { comments_ = std::move(text); }
    /// The name in the database, empty when it is that of the model.
    const ZORString& getPhysicalName() const noexcept { return physicalName_; }
    void setPhysicalName(ZORString name) { physicalName_ = std::move(name); }
    const ZORString& getStereotype() const noexcept { return stereotype_; }
    void setStereotype(ZORString text) { stereotype_ = std::move(text); }
    ZORDesignLevel getDesignLevel() const noexcept { return designLevel_; }
    void setDesignLevel(ZORDesignLevel level) noexcept { designLevel_ = level; }
    /// The name for people: the name, or the physical name where there is none.
    const ZORString& getDisplayName() const { return getName().isEmpty() ? physicalName_ : getName(); }

    const ZORVector<ZORNote*>& getNotes() const noexcept { return notes_; }
    ZORNote* addNote(std::unique_ptr<ZORNote> note);

    /// The object whose part this one is; null for a model and for an object that stands alone.
    ZORObject* getOwner() const noexcept { return owner_; }
    /// With null, takes the object out: it leaves its owner's list and undoes what it registered with others,
    /// and the caller owns it. This works for model elements, association roles, types and lone arguments; of
    /// other objects only the owner is forgotten. An owner other than null is only remembered: the owner's
    /// `add...` operations call it.
    virtual void setOwner(ZORObject* owner) { owner_ = owner; }

  protected:
    ZORModelObject(const ZORModelObject& other);
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override;
    bool traverseNotes(ZORTraversalOperation& operation, void*& context) {
        return traverseList(notes_, operation, context);
    }

    /// Appends a part that this object owns from now on.
    template <typename Part, typename List>
    Part* adopt(ZORVector<List*>& list, std::unique_ptr<Part> part) {
        list.append(part.get());
        part->setOwner(this);
        return part.release();
    }
    template <typename Part>
    static void destroyAll(ZORVector<Part*>& parts) noexcept {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            delete parts[i];
        }
    }

  private:
    // The small member comes first: it fits behind the base class's last one.
    ZORDesignLevel designLevel_ = ZOR_LOGICAL_AND_PHYSICAL;
    ZORObject* owner_ = nullptr;
    ZORString description_;
    ZORString comments_;
    ZORString physicalName_;
    ZORString stereotype_;
    ZORVector<ZORNote*> notes_;
};
