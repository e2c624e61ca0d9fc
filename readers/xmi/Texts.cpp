#include "Texts.h"

namespace readers::xmi {

namespace {

const ZORString& textOf(const ZORModelObject& object, TextOf which) noexcept {
    switch (which) {
        case TextOf::COMMENTS:
            return object.getComments();
        case TextOf::CONSTRAINT:
            return object.isInstanceOf(ZOR_ASSOCIATION)
                       ? static_cast<const ZORAssociation&>(object).getConstraint()
                       : static_cast<const ZORAssociationRole&>(object).getConstraint();
        case TextOf::PRECONDITION:
            return static_cast<const ZOROperation&>(object).getPrecondition();
        case TextOf::POSTCONDITION:
            return static_cast<const ZOROperation&>(object).getPostcondition();
        case TextOf::SEMANTICS:
            return static_cast<const ZOROperation&>(object).getSemantics();
        case TextOf::DESCRIPTION:
            break;
    }
    return object.getDescription();
}

void setText(ZORModelObject& object, TextOf which, ZORString text) {
    switch (which) {
        case TextOf::DESCRIPTION:
            object.setDescription(std::move(text));
            break;
        case TextOf::COMMENTS:
            object.setComments(std::move(text));
            break;
        case TextOf::CONSTRAINT:
            if (object.isInstanceOf(ZOR_ASSOCIATION)) {
                static_cast<ZORAssociation&>(object).setConstraint(std::move(text));
            } else {
                static_cast<ZORAssociationRole&>(object).setConstraint(std::move(text));
            }
            break;
        case TextOf::PRECONDITION:
            static_cast<ZOROperation&>(object).setPrecondition(std::move(text));
            break;
        case TextOf::POSTCONDITION:
            static_cast<ZOROperation&>(object).setPostcondition(std::move(text));
            break;
        case TextOf::SEMANTICS:
            static_cast<ZOROperation&>(object).setSemantics(std::move(text));
            break;
    }
}

}  // namespace

void Texts::append(ZORModelObject& object, TextOf which, std::string_view separator, std::string_view piece) {
    const Key key(&object, which);
    auto found = inPieces_.find(key);
    if (found == inPieces_.end()) {
        const ZORString& first = textOf(object, which);
        if (first.isEmpty()) {
            setText(object, which, ZORString(piece));
            return;
        }
        found = inPieces_.emplace(key, Pieces{&object, std::string(first.view())}).first;
    }
    if (!piece.empty()) {
        found->second.text.append(separator).append(piece);
    }
}

std::string_view Texts::of(const ZORModelObject& object, TextOf which) const {
    const auto found = inPieces_.find({&object, which});
    return found == inPieces_.end() ? textOf(object, which).view() : std::string_view(found->second.text);
}

void Texts::complete() {
    for (const auto& [key, pieces] : inPieces_) {
        setText(*pieces.object, key.second, ZORString(pieces.text));
    }
    inPieces_.clear();
}

}  // namespace readers::xmi
