#include "Vocabulary.h"

#include <array>
#include <stdexcept>

#include "Rows.h"
#include "Wording.h"

namespace readers::document {

namespace {

enum class KindKey { NONE, OPTIONAL, REQUIRED };

template <typename Object>
std::unique_ptr<ZORModelObject> makeObject() {
    return std::make_unique<Object>();
}

/// A kind whose objects there are many of.
template <typename Object>
Kind kind(std::string_view word, std::string_view noun, std::vector<Field> fields) {
    Kind kind;
    kind.word = word;
    kind.noun = noun;
    kind.make = makeObject<Object>;
    kind.elementType = Object().getElementType();
    kind.fields = std::move(fields);
    return kind;
}

/// The kind of the document or of its model, of which there is one.
Kind loneKind(std::string_view noun, std::vector<Field> fields) {
    Kind kind;
    kind.noun = noun;
    kind.elementType = ZOR_MODEL;
    kind.fields = std::move(fields);
    return kind;
}

/// Adds what follows from the kinds and their fields.
FamilyKinds family(std::string_view plural, KindKey kindKey, std::vector<Kind> kinds) {
    FamilyKinds family;
    family.plural = plural;
    family.kinds = std::move(kinds);
    family.kindRequired = kindKey == KindKey::REQUIRED;
    if (kindKey != KindKey::NONE) {
        for (const Kind& kind : family.kinds) {
            family.words.push_back({kind.word, static_cast<std::int32_t>(family.words.size())});
        }
    }
    for (Kind& kind : family.kinds) {
        if (kindKey != KindKey::NONE) {
            Field row = field("kind", Shape::KIND, "Which kind of object this is.");
            row.required = family.kindRequired;
            row.words = family.words;
            kind.fields.insert(kind.fields.begin(), row);
        }
        for (std::size_t i = 0; i < kind.fields.size(); ++i) {
            kind.requiredFields |= static_cast<std::uint64_t>(kind.fields[i].required) << i;
            kind.indexField = kind.fields[i].defaultsToIndex ? i : kind.indexField;
        }
    }
    return family;
}

FamilyKinds types() {
    using enum TypeKind;
    return family("types", KindKey::REQUIRED,
                  {
                      kind<ZORType>("base", "base type", typeFields(BASE)),
                      kind<ZORConcreteType>("concrete", "concrete type", typeFields(CONCRETE)),
                      kind<ZORDerivedType>("derived", "derived type", typeFields(DERIVED)),
                      kind<ZORAliasType>("alias", "alias type", typeFields(ALIAS)),
                      kind<ZORClassType>("class", "class type", typeFields(CLASS)),
                  });
}

FamilyKinds elements() {
    return family("elements", KindKey::REQUIRED,
                  {
                      kind<ZORClass>("class", "class", classFields()),
                      kind<ZORSQLViewEntity>("view", "view", viewFields()),
                      kind<ZORAssociation>("association", "association", associationFields()),
                      kind<ZORGeneralization>("generalization", "generalization", generalizationFields()),
                      kind<ZORDependency>("dependency", "dependency", dependencyFields()),
                      kind<ZORRealization>("realization", "realization", realizationFields()),
                  });
}

FamilyKinds operations() {
    return family("operations", KindKey::OPTIONAL,
                  {
                      kind<ZOROperation>("operation", "operation", operationFields()),
                      kind<ZORStoredProcedure>("procedure", "procedure", operationFields()),
                      kind<ZORTrigger>("trigger", "trigger", triggerFields()),
                  });
}

FamilyKinds makeFamily(Family id) {
    using enum KindKey;
    switch (id) {
        case Family::DOCUMENT:
            return family("model documents", NONE, {loneKind("model document", documentFields())});
        case Family::MODEL:
            return family("models", NONE, {loneKind("model", modelFields())});
        case Family::CHILDREN:
            return family("packages and catalogs", REQUIRED,
                          {kind<ZORDesignPackage>("package", "package", packageFields()),
                           kind<ZORDatabaseCatalog>("catalog", "catalog", catalogFields())});
        case Family::TYPES:
            return types();
        case Family::TYPE_VALUES:
            return family("type values", NONE, {kind<ZORTypeValue>("", "type value", typeValueFields())});
        case Family::PACKAGES:
            return family("packages", OPTIONAL,
                          {kind<ZORDesignPackage>("package", "package", packageFields())});
        case Family::ELEMENTS:
            return elements();
        case Family::DIAGRAMS:
            return family("diagrams", NONE, {kind<ZORDiagram>("", "diagram", diagramFields())});
        case Family::ATTRIBUTES:
            return family("attributes", NONE, {kind<ZORAttribute>("", "attribute", attributeFields())});
        case Family::ROLE_NAME_MAPS:
            return family("role-name maps", NONE,
                          {kind<ZORAssociationRoleNameMap>("", "role-name map", roleNameMapFields())});
        case Family::KEYS:
            return family("keys", REQUIRED,
                          {kind<ZORCandidateKey>("candidate", "candidate key", candidateKeyFields()),
                           kind<ZORForeignKey>("foreign", "foreign key", foreignKeyFields())});
        case Family::INDEXES:
            return family("indexes", NONE, {kind<ZORIndex>("", "index", indexFields())});
        case Family::INDEX_MEMBERS:
            return family("index members", NONE,
                          {kind<ZORIndexMember>("", "index member", indexMemberFields())});
        case Family::SYNONYMS:
            return family("synonyms", NONE, {kind<ZORSynonym>("", "synonym", withCommonFields({}))});
        case Family::OPERATIONS:
            return operations();
        case Family::ARGUMENTS:
            return family("arguments", NONE, {kind<ZORArgument>("", "argument", argumentFields())});
        case Family::COLUMNS:
            return family("columns", NONE, {kind<ZORSQLViewAttribute>("", "column", columnFields())});
        case Family::ROLES:
            return family("roles", NONE, {kind<ZORAssociationRole>("", "role", roleFields())});
        case Family::COUNT:
            break;
    }
    throw std::logic_error("no such family");
}

constexpr auto FAMILY_COUNT = static_cast<std::size_t>(Family::COUNT);

std::array<FamilyKinds, FAMILY_COUNT> makeFamilies() {
    std::array<FamilyKinds, FAMILY_COUNT> families;
    for (std::size_t i = 0; i < FAMILY_COUNT; ++i) {
        families[i] = makeFamily(static_cast<Family>(i));
    }
    return families;
}

}  // namespace

const FamilyKinds& kindsOf(Family family) {
    static const std::array<FamilyKinds, FAMILY_COUNT> families = makeFamilies();
    return families[static_cast<std::size_t>(family)];
}

const FamilyKinds& familyOf(const Kind& kind) {
    std::size_t id = 0;
    while (id + 1 < FAMILY_COUNT) {
        const std::vector<Kind>& kinds = kindsOf(static_cast<Family>(id)).kinds;
        if (&kind >= kinds.data() && &kind < kinds.data() + kinds.size()) {
            break;
        }
        ++id;
    }
    return kindsOf(static_cast<Family>(id));
}

std::string describeObject(const ZORModelObject& object) {
    for (std::size_t i = 0; i < FAMILY_COUNT; ++i) {
        for (const Kind& kind : kindsOf(static_cast<Family>(i)).kinds) {
            if (kind.elementType == object.getElementType() && static_cast<Family>(i) != Family::DOCUMENT) {
                return withArticle(kind.noun);
            }
        }
    }
    return "an object";
}

}  // namespace readers::document
