#include "Rows.h"

namespace readers::document {

namespace {

constexpr Word SORT_ORDERS[] = {
    {"none", ZOR_SORT_NONE}, {"ascending", ZOR_SORT_ASCENDING}, {"descending", ZOR_SORT_DESCENDING}};

Field position() {
    Field row = integer<&ZORAttribute::setPosition, &ZORAttribute::getPosition>(
        "position", 0, 32767, "Where the attribute stands among the others, counted from 0.");
    row.defaultsToIndex = true;
    return row;
}

Field primary() {
    Field row = field("primary", Shape::BOOLEAN,
                      "Whether this is the primary key of its class, which has at most one.");
    row.onceInList = true;
    row.setNumber = [](ZORModelObject& object, std::int32_t number) {
        auto& key = static_cast<ZORCandidateKey&>(object);
        key.setPrimaryOfClass(number != 0 ? key.getAssociatedClass() : nullptr);
    };
    row.getNumber = [](const ZORModelObject& object) -> std::int32_t {
        return static_cast<const ZORCandidateKey&>(object).getPrimaryOfClass() != nullptr ? 1 : 0;
    };
    return row;
}

Field keyAttributes() {
    return references<&ZORKey::addAttribute, &ZORKey::getAttributes>("attributes", OWN_ATTRIBUTE,
                                                                     "The attributes that make up the key.");
}

}  // namespace

std::vector<Field> classFields() {
    return withCommonFields({
        integer<&ZORClass::setClassType, &ZORClass::getClassType>(
            "classType", 0, 9, "0 and 1 are tables, 4 to 6 utilities, 8 is a metaclass, 9 an interface."),
        word<&ZORClass::setVisibility, &ZORClass::getVisibility>("visibility", VISIBILITIES,
                                                                 "Who may use the class."),
        word<&ZORClass::setConcurrency, &ZORClass::getConcurrency>(
            "concurrency", CONCURRENCIES, "How the class behaves when used at once."),
        boolean<&ZORClass::setAbstract, &ZORClass::isAbstract>(
            "abstract", "Whether the class has no objects of its own."),
        boolean<&ZORClass::setPersistent, &ZORClass::isPersistent>(
            "persistent", "Whether objects outlive the program that makes them."),
        integer<&ZORClass::setEstimatedSize, &ZORClass::getEstimatedSize>(
            "estimatedSize", LOWEST_INTEGER, HIGHEST_INTEGER,
            "How many rows or objects to expect; 0 when not known."),
        objects<&ZORClass::addAttribute, &ZORClass::getAttributes>("attributes", Family::ATTRIBUTES,
                                                                   "The attributes or columns."),
        objects<&ZORClass::addOperation, &ZORClass::getOperations>(
            "operations", Family::OPERATIONS, "The operations, procedures and triggers."),
        objects<&ZORClass::addArgument, &ZORClass::getArguments>("templateArguments", Family::ARGUMENTS,
                                                                 "The arguments of a template class."),
        objects<&ZORClass::addKey<ZORKey>, &ZORClass::getKeys>("keys", Family::KEYS,
                                                               "The candidate and foreign keys."),
        objects<&ZORClass::addIndex, &ZORClass::getIndexes>("indexes", Family::INDEXES, "The indexes."),
        objects<&ZORClass::addSynonym, &ZORClass::getSynonyms>("synonyms", Family::SYNONYMS,
                                                               "Other names of the table."),
    });
}

std::vector<Field> attributeFields() {
    return withCommonFields({
        required(
            reference<&ZORAttribute::setType, &ZORAttribute::getType>("type", ANY_TYPE, "The data type.")),
        position(),
        text<&ZORAttribute::setInitialValue, &ZORAttribute::getInitialValue>(
            "initialValue", "What the attribute is at first; a column's default."),
        boolean<&ZORAttribute::setOptional, &ZORAttribute::isOptional>("optional",
                                                                       "Whether the attribute may be null."),
        boolean<&ZORAttribute::setStatic, &ZORAttribute::isStatic>("static",
                                                                   "Whether all objects share one value."),
        word<&ZORAttribute::setVisibility, &ZORAttribute::getVisibility>("visibility", VISIBILITIES,
                                                                         "Who may use the attribute."),
        objects<&ZORAttribute::addRoleNameMap, &ZORAttribute::getRoleNameMaps>(
            "roleNameMaps", Family::ROLE_NAME_MAPS,
            "For foreign keys that the attribute is in: what it refers to."),
    });
}

std::vector<Field> roleNameMapFields() {
    Field references = reference<&ZORAssociationRoleNameMap::setReferencedAttribute,
                                 &ZORAssociationRoleNameMap::getReferencedAttribute>(
        "references", ANY_ATTRIBUTE, "The attribute of the referenced key; null leaves it to the name.");
    references.nullable = true;
    return {
        reference<&ZORAssociationRoleNameMap::setForeignKey, &ZORAssociationRoleNameMap::getForeignKey>(
            "foreignKey", ANY_FOREIGN_KEY, "The foreign key."),
        references,
    };
}

std::vector<Field> candidateKeyFields() {
    return withCommonFields({
        keyAttributes(),
        boolean<&ZORCandidateKey::setUnique, &ZORCandidateKey::isUnique>(
            "unique", "Whether no two objects have equal values."),
        primary(),
    });
}

std::vector<Field> foreignKeyFields() {
    return withCommonFields({
        keyAttributes(),
        reference<&ZORForeignKey::setCandidateKey, &ZORForeignKey::getCandidateKey>(
            "references", ANY_CANDIDATE_KEY, "The key that it refers to."),
    });
}

std::vector<Field> indexFields() {
    return withCommonFields({
        boolean<&ZORIndex::setClustered, &ZORIndex::isClustered>(
            "clustered", "Whether the rows are stored in the index's order."),
        boolean<&ZORIndex::setUnique, &ZORIndex::isUnique>("unique",
                                                           "Whether no two rows have equal values."),
        reference<&ZORIndex::setKey, &ZORIndex::getKey>("key", OWN_KEY, "The key that the index implements."),
        objects<&ZORIndex::addIndexMember, &ZORIndex::getIndexMembers>("members", Family::INDEX_MEMBERS,
                                                                       "The columns of the index."),
    });
}

std::vector<Field> indexMemberFields() {
    return withCommonFields({
        required(reference<&ZORIndexMember::setAttribute, &ZORIndexMember::getAttribute>(
            "attribute", OWN_ATTRIBUTE, "The column.")),
        word<&ZORIndexMember::setSortOrder, &ZORIndexMember::getSortOrder>("order", SORT_ORDERS,
                                                                           "How the index sorts the column."),
    });
}

}  // namespace readers::document
