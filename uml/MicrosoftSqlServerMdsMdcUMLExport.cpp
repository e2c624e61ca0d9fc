// uml/: the model as packages, classes and relationships. This file has the model and its packages, and the
// UML names of things. Nothing here decides how an element is spelled.

#include <algorithm>
#include <iterator>

#include "LazyCollection.h"
#include "QLT_SQMDC.h"
#include "Stereotypes.h"
#include "TemporaryName.h"
#include "UniqueNames.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

namespace {

struct UMLName {
    int elementType;
    const char* name;
};

/// In ascending order of the codes. The first is that of interfaces, which only stereotypes tell from
/// classes.
constexpr UMLName UML_NAMES[] = {
    {0, "Interface"},
    {ZOR_MODEL, "Model"},
    {ZOR_DESIGN_PACKAGE, "Package"},
    {ZOR_CLASS, "Class"},
    {ZOR_ATTRIBUTE, "Attribute"},
    {ZOR_GENERALIZATION, "Generalization"},
    {ZOR_ASSOCIATION, "Association"},
    {ZOR_ASSOCIATION_ROLE, "AssociationEnd"},
    {ZOR_OPERATION, "Operation"},
    {ZOR_ARGUMENT, "Parameter"},
    {ZOR_OBJECT, "Constraint"},
    {ZOR_DEPENDENCY, "Dependency"},
    {ZOR_REALIZATION, "Dependency"},
};
static_assert(std::is_sorted(std::begin(UML_NAMES), std::end(UML_NAMES),
                             [](const UMLName& a, const UMLName& b) {
                                 return a.elementType < b.elementType;
                             }));

}  // namespace

bool Bridge::isExportableUMLModelObject(const ZORModelObject* object) const {
    return object->getDesignLevel() != ZOR_PHYSICAL_ONLY || leaveOut(object, UML, "it is physical only");
}

bool Bridge::isExportableUMLElement(const ZORModelElement* element) const {
    switch (element->getElementType()) {
        case ZOR_CLASS:
            return isExportableUMLModelObject(element);
        case ZOR_GENERALIZATION:
            return isExportableUMLGeneralization(static_cast<const ZORGeneralization*>(element));
        case ZOR_ASSOCIATION: {
            // An association that has a class is written by that class, if at all.
            const auto* association = static_cast<const ZORAssociation*>(element);
            if (association->getAssociationClass() != nullptr) {
                return leaveOutWith(association, UML, "its association class \"{0}\" is left out",
                                    association->getAssociationClass());
            }
            return isExportableUMLAssociation(association);
        }
        case ZOR_DEPENDENCY:
            return isExportableUMLDependency(static_cast<const ZORDependency*>(element));
        case ZOR_REALIZATION:
            if (uml13Support_ != UML_1_3_FULL) {
                return leaveOut(element, UML, "realizations are written with full UML 1.3 support only");
            }
            return isExportableUMLRealization(static_cast<const ZORRealization*>(element));
        default:
            return false;
    }
}

bool Bridge::isExportableUMLType(const ZORType* type) const {
    if (type->getElementType() == ZOR_CLASS_TYPE) {
        const ZORClass* cls = static_cast<const ZORClassType*>(type)->getAssociatedClass();
        return isExportableUMLModelObject(cls)
                   ? leaveOut(type, UML, "its class \"{0}\" is written in its place", cls)
                   : leaveOutWith(type, UML, "its class \"{0}\" is left out", cls);
    }
    const bool isUnused = type->getTypedObjects().isEmpty() && type->getBasedTypes().isEmpty();
    if (type->getElementType() == ZOR_CONCRETE_TYPE && isUnused) {
        return leaveOut(type, UML, "nothing refers to it");
    }
    return true;
}

const char* Bridge::getUMLName(const ZORModelObject* object) {
    if (object->getElementType() == ZOR_CLASS &&
        static_cast<const ZORClass*>(object)->getAssociation() != nullptr) {
        return "AssociationClass";
    }
    const int type = object->getElementType();
    const auto* found =
        std::lower_bound(std::begin(UML_NAMES), std::end(UML_NAMES), type,
                         [](const UMLName& row, int wanted) { return row.elementType < wanted; });
    if (found == std::end(UML_NAMES) || found->elementType != type) {
        zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcUMLExport", 999);
    }
    return found->name;
}

void Bridge::printUMLModel(ZORModel* model) {
    // Filled with the top-level packages that carry notes, and not written.
    CommentList comments;
    startTag("uml:Model"_z, model, UML, false);
    closeTag(false);
    linkUMLStereotype(model, nullptr);
    LazyCollection owned(*this, "uml:NamespaceOwnedElement"_z);
    if (!model->getChildPackages().isEmpty()) {
        owned.open();
    }
    for (ZORPackage* child : model->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printUMLPackage(static_cast<ZORDesignPackage*>(child), comments);
        }
    }
    printUMLTypes(model, owned);
    printUMLStereotypes(owned);
    owned.close();
    endTag("uml:Model"_z);
}

void Bridge::printUMLTypes(ZORModel* model, LazyCollection& owned) {
    UniqueNames names(*this, 2 * model->getTypes().size());
    for (ZORType* type : model->getTypes()) {
        if (!isExportableUMLType(type)) {
            continue;
        }
        owned.open();
        if (const ZORString* uniqueName = getUniqueName(names.table, msRepository_, "Type", type)) {
            const TemporaryName name(type, *uniqueName);
            printUMLType(type);
        } else {
            printUMLType(type);
        }
    }
}

void Bridge::printUMLStereotypes(LazyCollection& owned) {
    UniqueNames names(*this, 2 * stereotypes_->size());
    for (std::size_t i = 0; i < stereotypes_->size(); ++i) {
        UMLStereotype* record = stereotypes_->getStereotype(i);
        owned.open();
        if (msRepository_) {
            auto name = std::make_unique<ZORString>(record->name);
            if (names.table.add(name.get())) {
                name.release();
            } else {
                record->name.append("/").append(getUMLName(record->object));
                QLT_SQMDC::MDC_E_NAME_CLASH.log(*log_, "Stereotype", *name, record->name);
            }
        }
        printUMLStereotype(record);
    }
}

void Bridge::printUMLPackage(ZORDesignPackage* package, CommentList& comments) {
    CommentList ownComments;
    collectComments(package, comments);
    startTag("uml:Package"_z, package, UML, true);
    closeTag(false);
    linkUMLStereotype(package, nullptr);
    LazyCollection owned(*this, "uml:NamespaceOwnedElement"_z);
    if (!package->getChildPackages().isEmpty()) {
        owned.open();
    }
    for (ZORPackage* child : package->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printUMLPackage(static_cast<ZORDesignPackage*>(child), ownComments);
        }
    }
    for (ZORModelElement* element : package->getModelElements()) {
        if (isExportableUMLElement(element)) {
            owned.open();
            printUMLElement(element, ownComments);
        }
    }
    printUMLComments(ownComments);
    owned.close();
    endTag("uml:Package"_z);
}

void Bridge::printUMLElement(ZORModelElement* element, CommentList& comments) {
    switch (element->getElementType()) {
        case ZOR_CLASS:
            printUMLClass(static_cast<ZORClass*>(element), comments);
            break;
        case ZOR_GENERALIZATION:
            printUMLGeneralization(static_cast<ZORGeneralization*>(element), comments);
            break;
        case ZOR_ASSOCIATION:
            printUMLAssociation(static_cast<ZORAssociation*>(element), comments);
            break;
        case ZOR_DEPENDENCY:
            printUMLDependency(static_cast<ZORDependency*>(element), comments);
            break;
        case ZOR_REALIZATION:
            printUMLRealization(static_cast<ZORRealization*>(element), comments);
            break;
        default:
            // The filter lets no other kind through.
            break;
    }
}
