#include "Rows.h"

namespace readers::document {

namespace {

constexpr Word SORT_ORDERS[] = {
    {"none", ZOR_SORT_NONE}, {"ascending", ZOR_SORT_ASCENDING}, {"descending", ZOR_SORT_DESCENDING}};

Field position() {
    Field row = integer<&ZORAttribute::setPosition>(
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
    return row;
}

Field keyAttributes() {
    return references<&ZORKey::addAttribute>("attributes", OWN_ATTRIBUTE,
                                             "The attributes that make up the key.");
}

}  // namespace

std::vector<Field> classFields() {
    return withCommonFields({
        integer<&ZORClass::setClassType>(
            "classType", 0, 9, "0 and 1 are tables, 4 to 6 utilities, 8 is a metaclass, 9 an interface."),
        word<&ZORClass::setVisibility>("visibility", VISIBILITIES, "Who may use the class."),
        word<&ZORClass::setConcurrency>("concurrency", CONCURRENCIES,
                                        "How the class behaves when used at once."),
        boolean<&ZORClass::setAbstract>("abstract", "Whether the class has no objects of its own."),
        boolean<&ZORClass::setPersistent>("persistent",
                                          "Whether objects outlive the program that makes them."),
        integer<&ZORClass::setEstimatedSize>("estimatedSize", LOWEST_INTEGER, HIGHEST_INTEGER,
                                             "How many rows or objects to expect; 0 when not known."),
        objects<&ZORClass::addAttribute>("attributes", Family::ATTRIBUTES, "The attributes or columns."),
        objects<&ZORClass::addOperation>("operations", Family::OPERATIONS,
                                         "The operations, procedures and triggers."),
        objects<&ZORClass::addArgument>("templateArguments", Family::ARGUMENTS,
                                        "The arguments of a template class."),
        objects<&ZORClass::addKey<ZORKey>>("keys", Family::KEYS, "The candidate and foreign keys."),
        objects<&ZORClass::addIndex>("indexes", Family::INDEXES, "The indexes."),
        objects<&ZORClass::addSynonym>("synonyms", Family::SYNONYMS, "Other names of the table."),
    });
}

std::vector<Field> attributeFields() {
    return withCommonFields({
        required(reference<&ZORAttribute::setType>("type", ANY_TYPE, "The data type.")),
        position(),
        text<&ZORAttribute::setInitialValue>("initialValue",
                                             "What the attribute is at first; a column's default."),
        boolean<&ZORAttribute::setOptional>("optional", "Whether the attribute may be null."),
        boolean<&ZORAttribute::setStatic>("static", "Whether all objects share one value."),
        word<&ZORAttribute::setVisibility>("visibility", VISIBILITIES, "Who may use the attribute."),
        objects<&ZORAttribute::addRoleNameMap>(
            "roleNameMaps", Family::ROLE_NAME_MAPS,
            "For foreign keys that the attribute is in: what it refers to."),
    });
}

std::vector<Field> roleNameMapFields() {
    Field references = reference<&ZORAssociationRoleNameMap::setReferencedAttribute>(
        "references", ANY_ATTRIBUTE, "The attribute of the referenced key; null leaves it open.");
    references.nullable = true;
    return {
        reference<&ZORAssociationRoleNameMap::setForeignKey>("foreignKey", ANY_FOREIGN_KEY,
                                                             "The foreign key."),
        references,
    };
}

std::vector<Field> candidateKeyFields() {
    return withCommonFields({
        keyAttributes(),
        boolean<&ZORCandidateKey::setUnique>("unique", "Whether no two objects have equal values."),
        primary(),
    });
}

std::vector<Field> foreignKeyFields() {
    return withCommonFields({
        keyAttributes(),
        reference<&ZORForeignKey::setCandidateKey>("references", ANY_CANDIDATE_KEY,
                                                   "The key that it refers to."),
    });
}

std::vector<Field> indexFields() {
    return withCommonFields({
        boolean<&ZORIndex::setClustered>("clustered", "Whether the rows are stored in the index's order."),
        boolean<&ZORIndex::setUnique>("unique", "Whether no two rows have equal values."),
        reference<&ZORIndex::setKey>("key", OWN_KEY, "The key that the index implements."),
        objects<&ZORIndex::addIndexMember>("members", Family::INDEX_MEMBERS, "The columns of the index."),
    });
}

std::vector<Field> indexMemberFields() {
    return withCommonFields({
        required(reference<&ZORIndexMember::setAttribute>("attribute", OWN_ATTRIBUTE, "The column.")),
        word<&ZORIndexMember::setSortOrder>("order", SORT_ORDERS, "How the index sorts the column."),
    });
}

}  // namespace readers::document
