#pragma once

#include "ZORType.h"

/// A parameter of an operation, or a template argument of a class.
class ZORArgument : public ZORModelObject {
  public:
    ZORArgument() noexcept : ZORModelObject(ZOR_ARGUMENT) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ARGUMENT || ZORModelObject::isInstanceOf(type);
    }

    ZORType* getType() const noexcept { return type_; }
    void addType(ZORType* type) { ZORType::changeTypeOf(this, type_, type); }
    const ZORString& getDefaultValue() const noexcept { return defaultValue_; }
    void setDefaultValue(ZORString value) { defaultValue_ = std::move(value); }
    ZORArgumentType getKind() const noexcept { return kind_; }
    void setKind(ZORArgumentType kind) noexcept { kind_ = kind; }

    /// With null, the argument also leaves its type's list of typed objects and has no type any more.
    void setOwner(ZORObject* owner) override;

  private:
    ZORType* type_ = nullptr;
    ZORString defaultValue_;
    ZORArgumentType kind_ = ZOR_ARGUMENT_NONE;
};

/// An operation of a class, view or package; the base of stored procedures and triggers.
class ZOROperation : public ZORModelObject {
  public:
    ZOROperation() noexcept : ZOROperation(ZOR_OPERATION) {}
    ~ZOROperation() override { destroyAll(arguments_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_OPERATION || ZORModelObject::isInstanceOf(type);
    }

    /// Null when the operation has no result.
    ZORType* getResultType() const noexcept { return resultType_; }
    void setResultType(ZORType* type) { ZORType::changeTypeOf(this, resultType_, type); }
    const ZORVector<ZORArgument*>& getArguments() const noexcept { return arguments_; }
    ZORArgument* addArgument(std::unique_ptr<ZORArgument> argument) {
        return adopt(arguments_, std::move(argument));
    }
    ZORConcurrencyType getConcurrency() const noexcept { return concurrency_; }
    void setConcurrency(ZORConcurrencyType concurrency) noexcept { concurrency_ = concurrency; }
    ZORVisibilityType getVisibility() const noexcept { return visibility_; }
    void setVisibility(ZORVisibilityType visibility) noexcept { visibility_ = visibility; }
    bool isAbstract() const noexcept { return abstract_; }
    void setAbstract(bool isAbstract) noexcept { abstract_ = isAbstract; }
    bool isStatic() const noexcept { return static_; }
    void setStatic(bool isStatic) noexcept { static_ = isStatic; }
    const ZORString& getPrecondition() const noexcept { return precondition_; }
    void setPrecondition(ZORString text) { precondition_ = std::move(text); }
    const ZORString& getPostcondition() const noexcept { return postcondition_; }
    void setPostcondition(ZORString text) { postcondition_ = std::move(text); }
    const ZORString& getSemantics() const noexcept { return semantics_; }
    void setSemantics(ZORString text) { semantics_ = std::move(text); }
    /// A stored procedure's body, a trigger's statements.
    const ZORString& getBody() const noexcept { return body_; }
    void setBody(ZORString text) { body_ = std::move(text); }

  protected:
    explicit ZOROperation(ZORElementType type) noexcept : ZORModelObject(type) {}
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseList(arguments_, operation, context) && traverseNotes(operation, context);
    }

  private:
    ZORType* resultType_ = nullptr;
    ZORVector<ZORArgument*> arguments_;
    ZORString precondition_;
    ZORString postcondition_;
    ZORString semantics_;
    ZORString body_;
    ZORConcurrencyType concurrency_ = ZOR_CONCURRENCY_SEQUENTIAL;
    ZORVisibilityType visibility_ = ZOR_VISIBILITY_PUBLIC;
    bool abstract_ = false;
    bool static_ = false;
};

class ZORStoredProcedure : public ZOROperation {
  public:
    ZORStoredProcedure() noexcept : ZOROperation(ZOR_STORED_PROCEDURE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_STORED_PROCEDURE || ZOROperation::isInstanceOf(type);
    }
};

class ZORTrigger : public ZOROperation {
  public:
    ZORTrigger() noexcept : ZOROperation(ZOR_TRIGGER) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_TRIGGER || ZOROperation::isInstanceOf(type);
    }

    /// The timing flag: on when the trigger fires after the event, off when before it.
    bool isAfter() const noexcept { return after_; }
    void setAfter(bool after) noexcept { after_ = after; }
    bool isInsert() const noexcept { return insert_; }
    void setInsert(bool insert) noexcept { insert_ = insert; }
    bool isUpdate() const noexcept { return update_; }
    void setUpdate(bool update) noexcept { update_ = update; }
    bool isDelete() const noexcept { return delete_; }
    void setDelete(bool isDelete) noexcept { delete_ = isDelete; }

  private:
    bool after_ = false;
    bool insert_ = false;
    bool update_ = false;
    bool delete_ = false;
};
