#include "ZORObject.h"

bool ZORTraversalOperation::post_process(ZORObject* /*object*/, void*& /*context*/) {
    return true;
}

bool ZORObject::_depthTraversal(ZORTraversalOperation& operation, void*& context) {
    return operation.pre_process(this, context) && traverseParts(operation, context) &&
           operation.post_process(this, context);
}

bool ZORObject::traverseParts(ZORTraversalOperation& /*operation*/, void*& /*context*/) {
    return true;
}

ZORModelObject::ZORModelObject(const ZORModelObject& other)
    : ZORObject(other),
      designLevel_(other.designLevel_),
      description_(other.description_),
      comments_(other.comments_),
      physicalName_(other.physicalName_),
      stereotype_(other.stereotype_) {}

ZORModelObject::~ZORModelObject() {
    destroyAll(notes_);
}

ZORNote* ZORModelObject::addNote(std::unique_ptr<ZORNote> note) {
    notes_.append(note.get());
    return note.release();
}

bool ZORModelObject::traverseParts(ZORTraversalOperation& operation, void*& context) {
    return traverseNotes(operation, context);
}
