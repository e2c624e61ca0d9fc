#pragma once

#include <string_view>
#include <vector>

#include "Faults.h"
#include "Marks.h"
#include "ZORModelCheck.h"

/// One pass over a model: first the packages, whose marks then tell what belongs to the model, then
/// everything in them. Neither the depth of nesting nor that of base types costs stack.
///
/// References are followed only as far as the object at their end and its owners, which live as long as the
/// model.
class ModelChecker {
  public:
    ModelChecker(ZORModel& model, std::size_t most, ZORViewsToCheck views)
        : model_(model), checksUml_(views == ZORViewsToCheck::ALL), faults_(most) {}
    std::vector<ZORString> run();

  private:
    // Packages and types (PackageCheck.cpp)
    void collectPackages();
    bool checkNesting(const Place& place, const ZORPackage* parent, int depth);
    void checkPackage(const Place& place, const ZORPackage& package);
    void checkDiagram(const Place& place, const ZORDiagram& diagram);
    void checkType(const Place& place, ZORType& type);
    void checkBases(ZORType& type);
    ZORType* markBases(ZORType& type);

    // Classes and views (ClassCheck.cpp)
    void checkElement(const Place& place, const ZORModelElement& element);
    void checkClass(const Place& place, const ZORClass& cls);
    void checkClassReferences(const Place& place, const ZORClass& cls);
    void checkAttribute(const Place& place, const ZORAttribute& attribute);
    void checkRoleNameMap(const Place& place, const ZORAssociationRoleNameMap& map,
                          const ZORAttribute& attribute);
    void checkKeys(const Place& place, const ZORClass& cls);
    void checkKey(const Place& place, const ZORKey& key, const ZORClass& cls);
    void checkForeignKey(const Place& place, const ZORForeignKey& key);
    void checkIndex(const Place& place, const ZORIndex& index, const ZORClass& cls);
    void checkOperation(const Place& place, const ZOROperation& operation);
    void checkArgument(const Place& place, const ZORArgument& argument);
    void checkView(const Place& place, const ZORSQLViewEntity& view);

    // Relationships (RelationshipCheck.cpp)
    void checkAssociation(const Place& place, const ZORAssociation& association);
    void checkRole(const Place& place, const ZORAssociationRole& role);
    void checkForeignKeyOfRole(const Place& place, const ZORAssociationRole& role);
    void checkGeneralization(const Place& place, const ZORGeneralization& generalization);
    template <typename Relationship>
    void checkClientAndSupplier(const Place& place, const Relationship& relationship) {
        checkReference(place, relationship.getClient(), "client");
        checkReference(place, relationship.getSupplier(), "supplier");
    }

    // What all of them need (ModelChecker.cpp)
    void checkObject(const Place& place, const ZORModelObject& object);
    void checkNotes(const Place& place, const ZORModelObject& object);
    void checkNumber(const Place& place, const char* what, int number, int greatest) {
        if (number < 0 || number > greatest) {
            addNumberFault(place, what, number, greatest);
        }
    }
    void addNumberFault(const Place& place, const char* what, int number, int greatest);
    /// Every type of the model is owned by it, so this is the short way for the many references to types.
    void checkTypeReference(const Place& place, const ZORType* type, const char* what);
    void checkRequiredType(const Place& place, const ZORType* type);
    /// Refuses what is missing or not of this model; false then.
    bool checkReference(const Place& place, const ZORModelObject* object, const char* what);
    void checkOptionalReference(const Place& place, const ZORModelObject* object, const char* what) {
        if (object != nullptr) {
            checkReference(place, object, what);
        }
    }
    template <typename Object>
    void checkReferences(const Place& place, const ZORVector<Object*>& objects, const char* what) {
        for (const Object* object : objects) {
            checkReference(place, object, what);
        }
    }
    bool isInModel(const ZORModelObject* object) const;
    /// Checks the parts that stand in a list, first what all objects have in common.
    template <typename Part, typename Check>
    void checkParts(const Place& place, const ZORVector<Part*>& parts, const Check& check) {
        for (std::size_t i = 0; i < parts.size() && !faults_.isFull(); ++i) {
            const Place partPlace{&place, parts[i], i + 1};
            checkObject(partPlace, *parts[i]);
            check(partPlace, *parts[i]);
        }
    }
    void checkOperations(const Place& place, const ZORVector<ZOROperation*>& operations) {
        checkParts(place, operations,
                   [this](const Place& at, const ZOROperation& operation) { checkOperation(at, operation); });
    }
    void checkArguments(const Place& place, const ZORVector<ZORArgument*>& arguments) {
        checkParts(place, arguments,
                   [this](const Place& at, const ZORArgument& argument) { checkArgument(at, argument); });
    }

    ZORModel& model_;
    bool checksUml_;
    Faults faults_;
    Marks marks_;
    /// The model and its packages in document order, with their numbers in their lists.
    std::vector<Place> packages_;
    std::vector<ZORType*> bases_;  ///< `markBases`: the types on the way to a known one
};
