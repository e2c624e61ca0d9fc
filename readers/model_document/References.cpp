#include "References.h"

#include "LargePages.h"
#include "Refusal.h"
#include "Wording.h"

namespace readers::document {

namespace {

constexpr std::uint64_t OBJECTS_PER_PROGRESS = 65536;

/// The class that an object is, or is a part of; null when there is none.
const ZORObject* enclosingClass(const ZORObject* object) noexcept {
    while (object != nullptr && object->getElementType() != ZOR_CLASS) {
        object = static_cast<const ZORModelObject*>(object)->getOwner();
    }
    return object;
}

}  // namespace

/// Visits the objects of a model and ties what refers from them.
class References::Tying : public ZORTraversalOperation {
  public:
    Tying(References& references, const IdTable& ids, const std::function<void()>& progress)
        : references_(references), ids_(ids), progress_(progress) {}

    bool pre_process(ZORObject* object, void*& /*context*/) override {
        if (object->getElementType() == ZOR_NOTE) {
            return true;
        }
        if (++visited_ % OBJECTS_PER_PROGRESS == 0) {
            progress_();
        }
        references_.tieAll(static_cast<ZORModelObject&>(*object), ids_);
        if (object->getElementType() == ZOR_ATTRIBUTE) {
            // The walk does not visit role-name maps.
            for (ZORAssociationRoleNameMap* map : static_cast<ZORAttribute*>(object)->getRoleNameMaps()) {
                references_.tieAll(*map, ids_);
            }
        }
        return true;
    }

  private:
    References& references_;
    const IdTable& ids_;
    const std::function<void()>& progress_;
    std::uint64_t visited_ = 0;
};

void References::reserve(std::size_t count) {
    records_.reserve(count);
    adviseLargePages(records_.data(), count * sizeof(Record));
}

void References::add(Chain& chain, const Field& field, std::string_view id, std::uint32_t offset) {
    records_.push_back({&field, id, offset, 0});
    const auto number = static_cast<std::uint32_t>(records_.size());
    if (chain.last == 0) {
        chain.first = number;
    } else {
        records_[chain.last - 1].next = number;
    }
    chain.last = number;
}

void References::attach(ZORModelObject& object, const Chain& chain) noexcept {
    if (chain.first != 0) {
        object.setGeneralPointer(reinterpret_cast<void*>(static_cast<std::uintptr_t>(chain.first)));
    }
}

void References::tie(ZORModel& model, const IdTable& ids, const std::function<void()>& progress) {
    Tying tying(*this, ids, progress);
    void* context = nullptr;
    model._depthTraversal(tying, context);
    refuseBaseCycles();
}

void References::tieAll(ZORModelObject& object, const IdTable& ids) {
    auto number = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(object.getGeneralPointer()));
    object.setGeneralPointer(nullptr);
    while (number != 0) {
        tieOne(number, object, ids);
        number = records_[number - 1].next;
    }
}

void References::tieOne(std::uint32_t number, ZORModelObject& object, const IdTable& ids) {
    const Record& record = records_[number - 1];
    const Target& wanted = *record.field->target;
    const IdTable::Entry* entry = ids.find(record.id);
    if (entry == nullptr) {
        throw Refusal{record.offset, describeItem(*record.field), ", which is no object's id", {}};
    }
    ZORModelObject& target = *entry->object;
    if (!target.isInstanceOf(wanted.type)) {
        throw Refusal{record.offset,
                      describeItem(*record.field),
                      ", the id of " + describeObject(target),
                      {},
                      entry->offset};
    }
    if (wanted.condition == Target::Condition::SAME_CLASS &&
        enclosingClass(&target) != enclosingClass(&object)) {
        throw Refusal{record.offset,
                      describeItem(*record.field),
                      ", the id of " + describeObject(target) + " elsewhere",
                      {},
                      entry->offset};
    }
    if (wanted.condition == Target::Condition::ONLY_ONCE) {
        claim(record, target);
    }
    record.field->refer(object, target);
    if (wanted.type == ZOR_TYPE && object.isInstanceOf(ZOR_TYPE)) {
        basedTypes_.emplace_back(static_cast<ZORType*>(&object), number);
    }
}

void References::claim(const Record& record, const ZORModelObject& target) {
    const auto [claim, isFirst] = claims_.emplace(&target, record.offset);
    if (!isFirst) {
        throw Refusal{
            record.offset, describeItem(*record.field), ", which is referred to already", {}, claim->second};
    }
}

/// Follows every chain of bases until it ends or meets a type that an earlier chain has passed. The general
/// pointers tell which chain passed a type.
void References::refuseBaseCycles() const {
    for (const auto& [start, number] : basedTypes_) {
        void* const mark = start;
        ZORType* type = start;
        while (type->getBaseType() != nullptr && type->getGeneralPointer() == nullptr) {
            type->setGeneralPointer(mark);
            type = type->getBaseType();
        }
        if (type->getGeneralPointer() == mark) {
            const Record& record = records_[number - 1];
            throw Refusal{
                record.offset, "a type whose chain of bases ends", ", whose bases go round in a circle", {}};
        }
    }
    for (const auto& [type, number] : basedTypes_) {
        type->setGeneralPointer(nullptr);
    }
}

}  // namespace readers::document
