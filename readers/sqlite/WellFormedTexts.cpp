#include "WellFormedTexts.h"

#include "Utf8.h"

namespace readers::sqlite {

namespace {

/// The names of what the object belongs to and its own: "main.customer.name".
std::string pathOf(const ZORObject* object) {
    std::string path;
    while (object != nullptr && object->getElementType() != ZOR_MODEL) {
        path.insert(0, path.empty() ? "" : ".").insert(0, object->getName().view());
        object = object->isInstanceOf(ZOR_MODEL_OBJECT)
                     ? static_cast<const ZORModelObject*>(object)->getOwner()
                     : nullptr;
    }
    return path;
}

class Mender : public ZORTraversalOperation {
  public:
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        if (object->isInstanceOf(ZOR_MODEL) || object->isInstanceOf(ZOR_DATABASE_CATALOG)) {
            return true;
        }
        mend(*object, &ZORObject::getName, &ZORObject::setName);
        if (object->isInstanceOf(ZOR_MODEL_OBJECT)) {
            mend(static_cast<ZORModelObject&>(*object), &ZORModelObject::getComments,
                 &ZORModelObject::setComments);
        }
        mendOwnTexts(*object);
        return true;
    }

    MendedTexts result;

  private:
    void mendOwnTexts(ZORObject& object) {
        switch (object.getElementType()) {
            case ZOR_ATTRIBUTE:
                mend(static_cast<ZORAttribute&>(object), &ZORAttribute::getInitialValue,
                     &ZORAttribute::setInitialValue);
                break;
            case ZOR_TYPE_VALUE:
                mend(static_cast<ZORTypeValue&>(object), &ZORTypeValue::getValue, &ZORTypeValue::setValue);
                break;
            case ZOR_SQL_VIEW_ENTITY:
                mend(static_cast<ZORSQLViewEntity&>(object), &ZORSQLViewEntity::getSQLText,
                     &ZORSQLViewEntity::setSQLText);
                break;
            case ZOR_TRIGGER:
                mend(static_cast<ZORTrigger&>(object), &ZORTrigger::getBody, &ZORTrigger::setBody);
                break;
            default:
                break;
        }
    }

    template <typename Object, typename Get, typename Set>
    void mend(Object& object, Get get, Set set) {
        const std::string_view text = (object.*get)().view();
        if (isUtf8(text)) {
            return;
        }
        (object.*set)(ZORString(std::string_view(toWellFormed(text))));
        if (result.count++ == 0) {
            result.first = pathOf(&object);
        }
    }
};

}  // namespace

std::string MendedTexts::describe() const {
    if (count == 0) {
        return {};
    }
    const std::string others = count == 1   ? std::string()
                               : count == 2 ? ", and in another text,"
                                            : ", and in " + std::to_string(count - 1) + " other texts,";
    return "here" + others + " U+FFFD stands for what is not UTF-8";
}

MendedTexts makeTextsWellFormed(ZORModel& model) {
    Mender mender;
    void* context = nullptr;
    model._depthTraversal(mender, context);
    return std::move(mender.result);
}

}  // namespace readers::sqlite
