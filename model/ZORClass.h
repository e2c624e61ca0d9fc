#pragma once

#include "ZORKeys.h"
#include "ZORModelElement.h"
#include "ZOROperations.h"

class ZORAssociation;
class ZORDependency;
class ZORGeneralization;
class ZORRealization;

/// Another name of a table.
class ZORSynonym : public ZORModelObject {
  public:
    ZORSynonym() noexcept : ZORModelObject(ZOR_SYNONYM) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_SYNONYM || ZORModelObject::isInstanceOf(type);
    }
};

/// A class, interface or table.
class ZORClass : public ZORModelElement {
  public:
    ZORClass() noexcept : ZORModelElement(ZOR_CLASS) {}
    ~ZORClass() override;
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_CLASS || type == ZOR_CLASSIFIER || ZORModelElement::isInstanceOf(type);
    }

    /// 0 and 1 are tables, 4 to 6 utilities, 8 is a metaclass, 9 an interface; 0 to 9 are known.
    int getClassType() const noexcept { return classType_; }
    void setClassType(int type) noexcept { classType_ = type; }
    ZORVisibilityType getVisibility() const noexcept { return visibility_; }
    void setVisibility(ZORVisibilityType visibility) noexcept { visibility_ = visibility; }
    ZORConcurrencyType getConcurrency() const noexcept { return concurrency_; }
    void setConcurrency(ZORConcurrencyType concurrency) noexcept { concurrency_ = concurrency; }
    bool isAbstract() const noexcept { return abstract_; }
    void setAbstract(bool isAbstract) noexcept { abstract_ = isAbstract; }
    bool isPersistent() const noexcept { return persistent_; }
    void setPersistent(bool persistent) noexcept { persistent_ = persistent; }
    /// Rows to be expected; 0 when not known.
    std::int32_t getEstimatedSize() const noexcept { return estimatedSize_; }
    void setEstimatedSize(std::int32_t size) noexcept { estimatedSize_ = size; }
    /// The association whose association class this is; null for every other class.
    ZORAssociation* getAssociation() const noexcept { return association_; }

    std::size_t getAttributeCount() const noexcept { return attributes_.size(); }
    const ZORVector<ZORAttribute*>& getAttributes() const noexcept { return attributes_; }
    ZORAttribute* addAttribute(std::unique_ptr<ZORAttribute> attribute) {
        return adopt(attributes_, std::move(attribute));
    }
    /// The first attribute of this name in list order, letter case included, or null. Its index in the list
    /// is stored in `position` where that is not null; -1 when there is none.
    ZORAttribute* getAttribute(const ZORString& name, int* position = nullptr) const;

    const ZORVector<ZOROperation*>& getOperations() const noexcept { return operations_; }
    ZOROperation* addOperation(std::unique_ptr<ZOROperation> operation) {
        return adopt(operations_, std::move(operation));
    }
    /// The template arguments.
    const ZORVector<ZORArgument*>& getArguments() const noexcept { return arguments_; }
    ZORArgument* addArgument(std::unique_ptr<ZORArgument> argument) {
        return adopt(arguments_, std::move(argument));
    }
    /// Candidate and foreign keys, in one order.
    const ZORVector<ZORKey*>& getKeys() const noexcept { return keys_; }
    template <typename Key>
    Key* addKey(std::unique_ptr<Key> key) {
        return adopt(keys_, std::move(key));
    }
    const ZORVector<ZORIndex*>& getIndexes() const noexcept { return indexes_; }
    ZORIndex* addIndex(std::unique_ptr<ZORIndex> index) { return adopt(indexes_, std::move(index)); }
    /// The first index that implements the key, or null.
    ZORIndex* getIndexOfKey(const ZORKey* key) const noexcept;
    const ZORVector<ZORSynonym*>& getSynonyms() const noexcept { return synonyms_; }
    ZORSynonym* addSynonym(std::unique_ptr<ZORSynonym> synonym) {
        return adopt(synonyms_, std::move(synonym));
    }

    /// The generalizations in which this class is a child.
    const ZORVector<ZORGeneralization*>& getGeneralizations() const noexcept { return generalizations_; }
    /// The dependencies in which this class is the client.
    const ZORVector<ZORDependency*>& getClientDependencies() const noexcept { return clientDependencies_; }
    /// The realizations in which this class is the client.
    const ZORVector<ZORRealization*>& getRealizations() const noexcept { return realizations_; }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override;

  private:
    friend class ZORAssociation;
    friend class ZORDependency;
    friend class ZORGeneralization;
    friend class ZORRealization;

    ZORAssociation* association_ = nullptr;
    ZORVector<ZORAttribute*> attributes_;
    ZORVector<ZOROperation*> operations_;
    ZORVector<ZORArgument*> arguments_;
    ZORVector<ZORKey*> keys_;
    ZORVector<ZORIndex*> indexes_;
    ZORVector<ZORSynonym*> synonyms_;
    ZORVector<ZORGeneralization*> generalizations_;
    ZORVector<ZORDependency*> clientDependencies_;
    ZORVector<ZORRealization*> realizations_;
    std::int32_t classType_ = 0;
    std::int32_t estimatedSize_ = 0;
    ZORVisibilityType visibility_ = ZOR_VISIBILITY_PUBLIC;
    ZORConcurrencyType concurrency_ = ZOR_CONCURRENCY_SEQUENTIAL;
    bool abstract_ = false;
    bool persistent_ = false;
};
