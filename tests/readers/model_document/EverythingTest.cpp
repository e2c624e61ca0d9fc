// The example document that uses every construct, against the model that it describes.
#include <gmock/gmock.h>

#include <map>

#include "Documents.h"
#include "ModelDump.h"
#include "ZORModelCheck.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Finds the objects of a model by their names.
class Names : public ZORTraversalOperation {
  public:
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        objects_.emplace(std::string(object->getName()), object);
        return true;
    }
    template <typename Object>
    Object& find(const std::string& name) const {
        for (auto [entry, end] = objects_.equal_range(name); entry != end; ++entry) {
            if (auto* object = dynamic_cast<Object*>(entry->second)) {
                return *object;
            }
        }
        throw std::runtime_error("there is no such object called " + name);
    }

  private:
    std::multimap<std::string, ZORObject*> objects_;
};

class Everything : public testing::Test {
  protected:
    Everything() : model(documents::read(documents::projectFile("examples/everything.model.json"))) {
        void* context = nullptr;
        model->_depthTraversal(names, context);
    }

    template <typename Object>
    Object& find(const std::string& name) const {
        return names.find<Object>(name);
    }

    std::unique_ptr<ZORModel> model;
    Names names;
};

template <typename Part>
std::vector<std::string> namesOf(const ZORVector<Part*>& parts) {
    std::vector<std::string> names;
    for (const Part* part : parts) {
        names.emplace_back(part->getName());
    }
    return names;
}

TEST_F(Everything, IsASoundModel) {
    EXPECT_THAT(checkModel(*model), IsEmpty());
}

TEST_F(Everything, ModelHasItsTextsChildrenAndTypes) {
    EXPECT_EQ(model->getName(), "Library");
    EXPECT_EQ(model->getPhysicalName(), "LIBRARY");
    EXPECT_EQ(model->getDescription(), "Books, the people who borrow them, and who has what.");
    EXPECT_EQ(model->getComments(), "Reviewed once a year.");
    EXPECT_EQ(model->getStereotype(), "domain");
    EXPECT_EQ(model->getDesignLevel(), ZOR_LOGICAL_AND_PHYSICAL);
    ASSERT_EQ(model->getNotes().size(), 1U);
    EXPECT_EQ(model->getNotes()[0]->getDescription(),
              "Fines are the treasurer's business and stay out of this model.");
    EXPECT_THAT(namesOf(model->getChildPackages()), ElementsAre("library", "Lending"));
    EXPECT_THAT(namesOf(model->getTypes()), ElementsAre("Anything", "integer", "text", "date", "money",
                                                        "counter", "ISBN", "Condition", "Title", "Book"));
}

TEST_F(Everything, CatalogHasItsDatabaseType) {
    const auto& catalog = find<ZORDatabaseCatalog>("library");
    EXPECT_EQ(catalog.getDatabaseType(), "SQL Server 7.x");
    EXPECT_EQ(catalog.getOwner(), model.get());
}

TEST_F(Everything, TypesAreOfTheirKinds) {
    EXPECT_EQ(find<ZORType>("Anything").getElementType(), ZOR_TYPE);
    EXPECT_EQ(find<ZORType>("integer").getElementType(), ZOR_CONCRETE_TYPE);
    EXPECT_EQ(find<ZORType>("ISBN").getElementType(), ZOR_DERIVED_TYPE);
    EXPECT_EQ(find<ZORType>("Title").getElementType(), ZOR_ALIAS_TYPE);
    EXPECT_EQ(find<ZORType>("Book").getElementType(), ZOR_CLASS_TYPE);
}

TEST_F(Everything, TypesHaveTheirProperties) {
    const auto& money = find<ZORConcreteType>("money");
    EXPECT_EQ(money.getDataType(), "SQL_NUMERIC");
    EXPECT_EQ(money.getLength(), 8);
    EXPECT_EQ(money.getScale(), 2);
    EXPECT_EQ(money.getInitialValue(), "0.00");
    EXPECT_EQ(money.getLowerBound(), "0.00");
    EXPECT_EQ(money.getUpperBound(), "999999.99");
    EXPECT_EQ(find<ZORDerivedType>("ISBN").getBaseType(), &find<ZORType>("text"));
    EXPECT_EQ(find<ZORAliasType>("Title").getBaseType(), &find<ZORType>("text"));
    EXPECT_EQ(find<ZORClassType>("Book").getAssociatedClass(), &find<ZORClass>("Book"));
}

TEST_F(Everything, TypeValuesHaveNamesCodesAndTexts) {
    const auto& condition = find<ZORDerivedType>("Condition");
    ASSERT_THAT(namesOf(condition.getTypeValues()), ElementsAre("lost", "good", "worn"));
    EXPECT_EQ(condition.getTypeValues()[0]->getCode(), -1);
    EXPECT_EQ(condition.getTypeValues()[2]->getCode(), 2);
    EXPECT_EQ(condition.getTypeValues()[2]->getValue(), "W");
}

TEST_F(Everything, PackageHasItsParts) {
    const auto& lending = find<ZORDesignPackage>("Lending");
    EXPECT_THAT(namesOf(lending.getChildPackages()), ElementsAre("People"));
    EXPECT_THAT(namesOf(lending.getModelElements()),
                ElementsAre("Book", "Copy", "Loan", "Lendable", "Calendar", "Shelf", "has", "is lent",
                            "is charged", "borrows", "looks up", "", "Overdue"));
    EXPECT_THAT(namesOf(lending.getOperations()), ElementsAre("close_year"));
    EXPECT_THAT(namesOf(lending.getDiagrams()), ElementsAre("Lending"));
}

TEST_F(Everything, DiagramShowsItsElements) {
    const auto& diagram = find<ZORDiagram>("Lending");
    EXPECT_THAT(namesOf(diagram.getModelElements()),
                ElementsAre("Book", "Copy", "Loan", "Member", "has", "borrows", "people", "Overdue"));
    EXPECT_THAT(namesOf(find<ZORClass>("Member").getDiagrams()), ElementsAre("Lending"));
}

TEST_F(Everything, ClassHasItsProperties) {
    const auto& book = find<ZORClass>("Book");
    EXPECT_EQ(book.getClassType(), 1);
    EXPECT_EQ(book.getVisibility(), ZOR_VISIBILITY_PUBLIC);
    EXPECT_EQ(book.getConcurrency(), ZOR_CONCURRENCY_GUARDED);
    EXPECT_TRUE(book.isPersistent());
    EXPECT_FALSE(book.isAbstract());
    EXPECT_EQ(book.getEstimatedSize(), 50000);
    EXPECT_TRUE(find<ZORClass>("Person").isAbstract());
    EXPECT_EQ(book.getNotes().size(), 2U);
    EXPECT_THAT(namesOf(find<ZORClass>("Shelf").getArguments()), ElementsAre("Item"));
    ASSERT_EQ(book.getSynonyms().size(), 1U);
    EXPECT_EQ(book.getSynonyms()[0]->getPhysicalName(), "TITLES");
}

TEST_F(Everything, AttributesHaveTheirProperties) {
    const auto& book = find<ZORClass>("Book");
    EXPECT_THAT(namesOf(book.getAttributes()), ElementsAre("isbn", "title", "language"));
    EXPECT_EQ(book.getAttributes()[0]->getPosition(), 0) << "the index";
    EXPECT_EQ(book.getAttributes()[1]->getPosition(), 2);
    EXPECT_EQ(book.getAttributes()[2]->getPosition(), 1);
    EXPECT_FALSE(book.getAttributes()[1]->isOptional());
    EXPECT_TRUE(book.getAttributes()[2]->isOptional());
    EXPECT_EQ(book.getAttributes()[0]->getType(), &find<ZORType>("ISBN"));
    EXPECT_EQ(find<ZORAttribute>("since").getInitialValue(), "CURRENT_DATE");
    EXPECT_TRUE(find<ZORAttribute>("fee").isStatic());
    EXPECT_EQ(find<ZORAttribute>("fee").getVisibility(), ZOR_VISIBILITY_PROTECTED);
    EXPECT_EQ(find<ZORAttribute>("age").getDesignLevel(), ZOR_LOGICAL_ONLY);
    EXPECT_EQ(find<ZORAttribute>("row_version").getDesignLevel(), ZOR_PHYSICAL_ONLY);
}

TEST_F(Everything, KeysHaveTheirProperties) {
    const auto& book = find<ZORClass>("Book");
    ASSERT_THAT(namesOf(book.getKeys()), ElementsAre("PK_BOOK", "AK_BOOK_TITLE"));
    const auto& primary = find<ZORCandidateKey>("PK_BOOK");
    EXPECT_TRUE(primary.isUnique());
    EXPECT_EQ(primary.getPrimaryOfClass(), &book);
    const auto& alternate = find<ZORCandidateKey>("AK_BOOK_TITLE");
    EXPECT_FALSE(alternate.isUnique());
    EXPECT_EQ(alternate.getPrimaryOfClass(), nullptr);
    EXPECT_THAT(namesOf(alternate.getAttributes()), ElementsAre("title", "language"));
    EXPECT_THAT(namesOf(book.getAttributes()[0]->getKeys()), ElementsAre("PK_BOOK"));
    EXPECT_EQ(find<ZORForeignKey>("FK_COPY_BOOK").getCandidateKey(), &primary);
}

TEST_F(Everything, RoleNameMapsLeadToKeyAndAttribute) {
    const auto& copyBook = *find<ZORClass>("Copy").getAttribute("book");
    ASSERT_EQ(copyBook.getRoleNameMaps().size(), 1U);
    EXPECT_EQ(copyBook.getRoleNameMaps()[0]->getForeignKey(), &find<ZORForeignKey>("FK_COPY_BOOK"));
    EXPECT_EQ(copyBook.getRoleNameMaps()[0]->getReferencedAttribute(),
              find<ZORClass>("Book").getAttribute("isbn"));
    const auto& librarian = *find<ZORClass>("Librarian").getAttribute("person");
    ASSERT_EQ(librarian.getRoleNameMaps().size(), 1U);
    EXPECT_EQ(librarian.getRoleNameMaps()[0]->getReferencedAttribute(), nullptr) << "null";
}

TEST_F(Everything, IndexesHaveTheirProperties) {
    const auto& index = find<ZORIndex>("IX_BOOK");
    EXPECT_TRUE(index.isClustered());
    EXPECT_TRUE(index.isUnique());
    EXPECT_EQ(index.getKey(), &find<ZORCandidateKey>("PK_BOOK"));
    ASSERT_EQ(index.getIndexMembers().size(), 1U);
    EXPECT_EQ(index.getIndexMembers()[0]->getSortOrder(), ZOR_SORT_ASCENDING);
    const auto& other = find<ZORIndex>("IX_BOOK_TITLE");
    EXPECT_FALSE(other.isClustered());
    EXPECT_EQ(other.getKey(), nullptr);
    ASSERT_EQ(other.getIndexMembers().size(), 2U);
    EXPECT_EQ(other.getIndexMembers()[0]->getSortOrder(), ZOR_SORT_NONE);
    EXPECT_EQ(other.getIndexMembers()[1]->getSortOrder(), ZOR_SORT_DESCENDING);
    EXPECT_EQ(other.getIndexMembers()[1]->getAttribute()->getName(), "language");
}

TEST_F(Everything, OperationsHaveTheirProperties) {
    const auto& lend = find<ZOROperation>("lend");
    EXPECT_EQ(lend.getElementType(), ZOR_OPERATION) << "the default";
    EXPECT_EQ(lend.getResultType(), &find<ZORType>("integer"));
    EXPECT_EQ(lend.getConcurrency(), ZOR_CONCURRENCY_SYNCHRONOUS);
    EXPECT_EQ(lend.getPrecondition(), "A copy is on the shelf.");
    EXPECT_EQ(lend.getPostcondition(), "One copy less is on the shelf.");
    EXPECT_EQ(lend.getSemantics(), "Takes the copy in the best condition.");
    EXPECT_TRUE(find<ZOROperation>("compare").isAbstract());
    const auto& count = find<ZORStoredProcedure>("count_titles");
    EXPECT_TRUE(count.isStatic());
    EXPECT_EQ(count.getBody(), "SELECT COUNT(*) FROM BOOK");
    EXPECT_EQ(find<ZORStoredProcedure>("close_year").getVisibility(), ZOR_VISIBILITY_PROTECTED);
}

TEST_F(Everything, ArgumentsHaveTheirProperties) {
    const auto& arguments = find<ZOROperation>("lend").getArguments();
    ASSERT_THAT(namesOf(arguments), ElementsAre("days", "due", "purse", "shelf mark", "remark"));
    EXPECT_EQ(arguments[0]->getDefaultValue(), "28");
    EXPECT_EQ(arguments[0]->getType(), &find<ZORType>("integer"));
    EXPECT_EQ(arguments[0]->getKind(), ZOR_ARGUMENT_IN);
    EXPECT_EQ(arguments[1]->getKind(), ZOR_ARGUMENT_OUT);
    EXPECT_EQ(arguments[2]->getKind(), ZOR_ARGUMENT_INOUT);
    EXPECT_EQ(arguments[3]->getKind(), ZOR_ARGUMENT_RETURN);
    EXPECT_EQ(arguments[4]->getKind(), ZOR_ARGUMENT_NONE);
}

TEST_F(Everything, TriggersHaveTheirTimingAndEvents) {
    const auto& before = find<ZORTrigger>("keep_isbn");
    EXPECT_FALSE(before.isAfter());
    EXPECT_TRUE(before.isUpdate());
    EXPECT_FALSE(before.isInsert() || before.isDelete());
    EXPECT_EQ(before.getBody(), "IF UPDATE(isbn)\n  ROLLBACK TRANSACTION");
    const auto& after = find<ZORTrigger>("log_changes");
    EXPECT_TRUE(after.isAfter() && after.isInsert() && after.isUpdate() && after.isDelete());
}

TEST_F(Everything, ViewHasItsTextColumnsAndOperations) {
    const auto& view = find<ZORSQLViewEntity>("Overdue");
    EXPECT_THAT(std::string(view.getSQLText()), testing::StartsWith("SELECT copy, due"));
    const auto& columns = view.getSQLViewAttributes();
    ASSERT_THAT(namesOf(columns), ElementsAre("copy", "due", "days"));
    EXPECT_EQ(columns[1]->getType(), &find<ZORType>("date"));
    EXPECT_EQ(columns[1]->getSource(), find<ZORClass>("Loan").getAttribute("due"));
    EXPECT_EQ(columns[2]->getType(), nullptr);
    EXPECT_EQ(columns[2]->getSource(), &find<ZORClass>("Calendar"));
    EXPECT_THAT(namesOf(view.getOperations()), ElementsAre("return_copy"));
}

TEST_F(Everything, AssociationHasItsProperties) {
    const auto& has = find<ZORAssociation>("has");
    EXPECT_TRUE(has.isAggregation());
    EXPECT_EQ(has.getConstraint(), "Every copy on the shelves is of one book.");
    EXPECT_EQ(has.getAssociationKind(), 0);
    EXPECT_EQ(has.getAssociationClass(), nullptr);
    const auto& borrows = find<ZORAssociation>("borrows");
    EXPECT_EQ(borrows.getAssociationClass(), &find<ZORClass>("Loan"));
    EXPECT_EQ(find<ZORClass>("Loan").getAssociation(), &borrows);
}

TEST_F(Everything, RolesHaveTheirProperties) {
    const auto& whole = find<ZORAssociationRole>("book");
    EXPECT_EQ(whole.getAssociatedClass(), &find<ZORClass>("Book"));
    EXPECT_EQ(whole.getMultiplicity(), "1");
    EXPECT_TRUE(whole.isAggregateEnd());
    EXPECT_TRUE(whole.isNavigable());
    EXPECT_FALSE(whole.isOrdered());
    const auto& parts = find<ZORAssociationRole>("copies");
    EXPECT_EQ(parts.getForeignKey(), &find<ZORForeignKey>("FK_COPY_BOOK"));
    EXPECT_EQ(parts.getForeignKey()->getAssociationRole(), &parts);
    EXPECT_EQ(parts.getUpdateRule(), ZOR_ACTION_CASCADE);
    EXPECT_EQ(parts.getDeleteRule(), ZOR_ACTION_RESTRICT);
    EXPECT_EQ(parts.getInsertRule(), ZOR_ACTION_NONE);
    EXPECT_TRUE(parts.isOrdered());
    EXPECT_FALSE(parts.isNavigable());
    EXPECT_EQ(parts.getAggregationKind(), 2);
    EXPECT_EQ(parts.getVisibility(), ZOR_VISIBILITY_PRIVATE);
    EXPECT_EQ(parts.getConstraint(), "At most a hundred.");
    ASSERT_THAT(namesOf(parts.getQualifiers()), ElementsAre("number"));
    EXPECT_EQ(parts.getQualifiers()[0]->getAssociatedClass(), nullptr);
}

TEST_F(Everything, GeneralizationTiesParentsAndChildren) {
    const auto& people = find<ZORGeneralization>("people");
    EXPECT_THAT(namesOf(people.getParents()), ElementsAre("Person"));
    EXPECT_THAT(namesOf(people.getChildren()), ElementsAre("Member", "Librarian"));
    EXPECT_THAT(namesOf(people.getForeignKeys()), ElementsAre("FK_MEMBER_PERSON", "FK_LIBRARIAN_PERSON"));
    EXPECT_EQ(people.getVisibility(), ZOR_VISIBILITY_PUBLIC);
    EXPECT_THAT(namesOf(find<ZORClass>("Member").getGeneralizations()), ElementsAre("people"));
    EXPECT_TRUE(find<ZORClass>("Person").getGeneralizations().isEmpty());
}

TEST_F(Everything, DependencyAndRealizationTieClientAndSupplier) {
    const auto& uses = find<ZORDependency>("looks up");
    EXPECT_EQ(uses.getClient(), &find<ZORClass>("Loan"));
    EXPECT_EQ(uses.getSupplier(), &find<ZORClass>("Calendar"));
    EXPECT_THAT(namesOf(find<ZORClass>("Loan").getClientDependencies()), ElementsAre("looks up"));
    const auto& realizations = find<ZORClass>("Copy").getRealizations();
    ASSERT_EQ(realizations.size(), 1U);
    EXPECT_EQ(realizations[0]->getSupplier(), &find<ZORClass>("Lendable"));
}

}  // namespace
