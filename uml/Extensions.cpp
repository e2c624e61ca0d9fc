// Stereotypes, tagged values, constraints and comments, and the references that they make to what they are
// about.

#include "Stereotypes.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::collectComments(ZORModelObject* object, CommentList& comments) {
    if (!object->getNotes().isEmpty()) {
        comments.append(object);
    }
}

void Bridge::addUMLConstraint(ZORModelObject* element, const char* stereotype, const ZORString& body,
                              ConstraintList& constraints) {
    if (body.isEmpty()) {
        return;
    }
    auto constraint = std::make_unique<UMLConstraint>(element, stereotype, body);
    auxiliary_.append(constraint.get());
    constraints.append(constraint.release());
}

void Bridge::printUMLStereotype(const UMLStereotype* record) {
    startTag("uml:Stereotype"_z, nullptr, record->id, false, true);
    propertyAttribute("name"_z, record->name, true);
    propertyAttribute("baseClass"_z, getUMLName(record->object));
    closeTag(true);
}

void Bridge::printUMLTaggedValue(const char* name, const ZORString& value) {
    startTag("uml:TaggedValue"_z, nullptr, 0, false, true);
    propertyAttribute("name"_z, name);
    propertyAttribute("value"_z, value, true);
    closeTag(true);
}

void Bridge::printUMLConstraint(UMLConstraint* constraint) {
    startTag("uml:Constraint"_z, constraint, UML, true);
    propertyAttribute("body"_z, constraint->getBody(), true);
    closeTag(false);
    linkUMLStereotype(constraint, nullptr);
    startTag("uml:ConstraintConstrainedElement"_z, false);
    linkUMLTag(constraint->getConstrainedElement());
    endTag("uml:ConstraintConstrainedElement"_z);
    endTag("uml:Constraint"_z);
}

void Bridge::printUMLComments(const CommentList& objects) {
    for (ZORModelObject* object : objects) {
        for (const ZORNote* note : object->getNotes()) {
            tellWritten(note, "uml:Comment"_z);
            startTag("uml:Comment"_z, nullptr, 0, true, true);
            propertyAttribute("comments"_z, note->getDescription(), true);
            closeTag(false);
            startTag("uml:CommentAnnotatedElement"_z, false);
            linkUMLTag(object);
            endTag("uml:CommentAnnotatedElement"_z);
            endTag("uml:Comment"_z);
        }
    }
}

void Bridge::linkUMLStereotype(ZORModelObject* object, const char* standard) {
    const ZORString& own = object->getStereotype();
    if (own.isEmpty() && standard == nullptr) {
        return;
    }
    if (!own.isEmpty() && standard != nullptr) {
        zorAssertionFailed("obj->getStereotype().isEmpty()==true", "MicrosoftSqlServerMdsMdcUMLExport", 1018);
    }
    const bool isInterface =
        object->getElementType() == ZOR_CLASS && isUMLInterface(static_cast<ZORClass*>(object));
    const ZORString name = standard != nullptr ? ZORString(standard) : own;
    const StereotypeHashtable::Key key{isInterface ? ZOR_ANY : object->getElementType(), &name};
    const UMLStereotype* record = stereotypes_->findStereotype(key);
    if (record == nullptr) {
        record = stereotypes_->addStereotype(
            std::make_unique<UMLStereotype>(UMLStereotype{object, name, getUniqueID()}));
    }
    startTag("uml:ModelElementStereotype"_z, false);
    linkTag("uml:Stereotype"_z, record->id);
    endTag("uml:ModelElementStereotype"_z);
}

void Bridge::linkUMLTag(ZORModelObject* object) {
    linkTag("uml:" + ZORString(getUMLName(object)), object, UML);
}
