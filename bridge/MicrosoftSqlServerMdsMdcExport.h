// bridge/: the frame of the export bridge: its entry and options, the run driver, preprocessing and the
// identity of objects. The views are written in uml/, erd/ and dbm/, the elements of the document in writer/,
// data types in types/; nothing here reads a source or talks to a user other than through the log.
#pragma once

#include <concepts>
#include <memory>
#include <unordered_map>

#include "DTMTypes.h"
#include "ObjectUserData.h"
#include "ZOR.h"
#include "ZORBridgeLib.h"
#include "ZORStringHashtable.h"

class LazyCollection;
struct UMLStereotype;

/// The subject areas. They index an object's identifiers and choose behaviour in the writer and the type
/// sets.
enum MDCSubjectArea { UML = 0, ERD = 1, DBM = 2 };

/// What the option "Model" chooses.
enum MDCModelView { MODEL_VIEW_UML = 0, MODEL_VIEW_ERD = 1, MODEL_VIEW_DBM = 2, MODEL_VIEW_ERD_AND_DBM = 3 };

/// What the option "UML 1.3 Support" chooses.
enum MDCUML13Support { UML_1_3_FULL = 0, UML_1_3_PARTIAL = 1, UML_1_3_DISABLED = 2 };

/// The bridge: one object writes one document. It is one class, spread over many files by subject.
///
/// | group | subject                                  | source file                                |
/// |------:|------------------------------------------|--------------------------------------------|
/// |     1 | run driver                               | bridge/MicrosoftSqlServerMdsMdcExport.cpp  |
/// |     2 | object identity and unique names         | bridge/Identity.cpp                        |
/// |     3 | elements, attributes, references         | writer/Elements.cpp                        |
/// |     4 | transfer document                        | writer/Transfer.cpp                        |
/// |     5 | key members, traceability, shared words  | writer/SharedEmitters.cpp                  |
/// |     6 | choice of a type set                     | types/TypeSetChoice.cpp                    |
/// |     7 | type resolution and type-set output      | types/TypeResolution.cpp                   |
/// |     8 | DBM: catalog and schemas                 | dbm/MicrosoftSqlServerMdsMdcDBMExport.cpp  |
/// |     9 | DBM: tables                              | dbm/Tables.cpp                             |
/// |    10 | DBM: columns                             | dbm/Columns.cpp                            |
/// |    11 | DBM: keys and indexes                    | dbm/Keys.cpp                               |
/// |    12 | DBM: foreign keys and constraints        | dbm/ReferentialConstraints.cpp             |
/// |    13 | DBM: views and synonyms                  | dbm/Views.cpp                              |
/// |    14 | DBM: procedures and triggers             | dbm/Procedures.cpp                         |
/// |    15 | ERD: model, entities, attributes         | erd/MicrosoftSqlServerMdsMdcERDExport.cpp  |
/// |    16 | ERD: keys                                | erd/EntityKeys.cpp                         |
/// |    17 | ERD: relationships                       | erd/Relationships.cpp                      |
/// |    18 | ERD: domains                             | erd/Domains.cpp                            |
/// |    19 | ERD: diagrams                            | erd/Diagrams.cpp                           |
/// |    20 | UML: model and packages                  | uml/MicrosoftSqlServerMdsMdcUMLExport.cpp  |
/// |    21 | UML: classes and data types              | uml/Classes.cpp                            |
/// |    22 | UML: attributes, operations, parameters  | uml/Features.cpp                           |
/// |    23 | UML: relationships                       | uml/ClassRelationships.cpp                 |
/// |    24 | UML: stereotypes, constraints, comments  | uml/Extensions.cpp                         |
///
/// A source file defines its group in the order in which it stands here: filters (`isExportable...`), then
/// mappings (`get...`), then printers. Preprocessing (bridge/Preprocessing.h) and the type tables
/// (types/DTMTypes.h) need no state of the bridge's and have headers of their own.
class ZORMicrosoftSqlServerMdsMdcExportBridge : public ZORXMLWriter {
  public:
    class Inspection;
    class PreprocessOperation;
    class ResetGeneralPointerOperation;
    class StereotypeHashtable;
    class UMLConstraint;
    class ZORMDCGeneralization;

    /// One chosen type set: its table (null: no type set), what is written of it, the types used so far.
    struct MDCTypeSet {
        explicit MDCTypeSet(std::size_t initialSize) : types(initialSize) {}
        const DTMTypeMap* typeTable = nullptr;
        ZORString name;
        ZORString version;
        DTMTypeHashtable types;
    };

    /// What a column's or parameter's type decides beside its size.
    struct DBMColumnTraits {
        int category;     ///< see `getDBMTypeCategory`
        bool isIdentity;  ///< numbered by the database
    };

    /// @name 1. Run driver (bridge/MicrosoftSqlServerMdsMdcExport.cpp)
    /// @{
    explicit ZORMicrosoftSqlServerMdsMdcExportBridge(ZORLog* log);
    ~ZORMicrosoftSqlServerMdsMdcExportBridge() override;
    /// Writes the model to the file that the option "File" names. True when the export completed; failures
    /// leave by exception, with the model as it was.
    bool run(ZORModel* model, ZOROptionList* options);
    /// Goes through a run without a file, and then tells the observer what is written and what is left out.
    void inspect(ZORModel* model, ZOROptionList* options, ZORExportObserver* observer);
    /// What comes before a file is opened: the identifiers start anew, the options are read.
    void startRun(ZORModel* model, const ZOROptionList& options);
    /// From the opening of the file, or of the sink in its place, to the model as it was.
    void exportModel(const ZOROptionList& options, std::unique_ptr<ZORSink> sink);
    void openOutput(const ZOROptionList& options);
    /// Sets the state that the options decide, type sets included.
    void readOptions(const ZOROptionList& options);
    /// Notes for an inspection, if this is one, that an element of this tag stands for the object. Start tags
    /// of objects do so by themselves.
    void tellWritten(const ZORObject* object, const ZORString& tag) const {
        if (inspection_ != nullptr) {
            noteWritten(object, tag);
        }
    }
    void noteWritten(const ZORObject* object, const ZORString& tag) const;
    /// Notes for an inspection, if this is one, why the object is not in the subject area: filters end with
    /// it when they refuse an object. `reason` may hold ` "{0}"` for the name of the other object. Always
    /// false.
    bool leaveOut(const ZORObject* object, MDCSubjectArea area, const char* reason,
                  const ZORModelObject* other = nullptr) const;
    /// The same where the other object is left out, and this one because of that. With null for `reason`, the
    /// reason is that of the other object.
    bool leaveOutWith(const ZORObject* object, MDCSubjectArea area, const char* reason,
                      const ZORModelObject* cause) const;
    /// Releases all that the export attached to the model or created. Harmless when there is nothing (left).
    void cleanup();
    /// Frees the strings of a table of unique names and empties it.
    void cleanup(ZORStringHashtable& table);
    /// @}

    /// @name 2. Object identity and unique names (bridge/Identity.cpp)
    /// @{
    /// The next identifier: 1, 2, 3 ...
    int getUniqueID();
    /// The object's five slots, attached on first use.
    int* getObjectUserData(ZORModelObject* object) const;
    /// The object's identifier in the subject area, allocated on first use.
    int getXMLID(ZORModelObject* object, MDCSubjectArea area);
    void setXMLID(ZORModelObject* object, MDCSubjectArea area, int id);
    /// What a filter of the DBM view decided of the object: an ExportMark.
    unsigned char& getDBMMark(ZORModelObject* object) const;
    /// What a filter of the ERD view decided of the object: an ExportMark.
    unsigned char& getERDMark(ZORModelObject* object) const;
    /// Which of a type's ERD domains are referred to: bit 0 the nullable one, bit 1 the not-null one.
    unsigned char& getDomainVariants(ZORType* type) const;
    /// What `getDBMColumnTraits` found of a type; 0 when it was not asked yet.
    unsigned char& getColumnTraits(ZORType* type) const;
    /// Frees the slots of an object that is about to go; nothing happens when it has none.
    void releaseUserData(ZORModelObject* object) noexcept;
    /// Enters the object's name in the table. Null when it may stay (or `enabled` is false), else the name to
    /// write in its place, which the table owns: the name with "/1", "/2" ... behind it. A renaming is
    /// logged; `kind` is the word for the object in that message.
    ZORString* getUniqueName(ZORStringHashtable& names, bool enabled, const char* kind,
                             const ZORObject* object);
    /// @}

    /// @name 3. Elements, attributes, references (writer/Elements.cpp)
    /// The order of calls: a start tag, its attributes, `closeTag`, its children, `endTag`.
    /// @{
    /// Starts the element of a model object in a subject area; it stays open for attributes. With `unnamed`,
    /// an object without a name is called "unnamed$" and its identifier.
    void startTag(const ZORString& tag, ZORModelObject* object, MDCSubjectArea area, bool unnamed);
    /// Starts an element with the given identifier, or a fresh one for 0. The object, which may be null, only
    /// gives name, description and comments; with `unnamed`, an element without an object is called
    /// "unnamed$" and its identifier.
    void startTag(const ZORString& tag, ZORModelObject* object, int id, bool unnamed, bool keepOpen);
    /// Starts an element without an identifier: a collection or the root.
    void startTag(const ZORString& tag, bool keepOpen);
    /// An attribute with text of the model or the options.
    void propertyAttribute(const ZORString& name, const ZORString& value, bool skipEmpty);
    /// An attribute with a word of the program's own, not escaped; none for null.
    void propertyAttribute(const ZORString& name, const char* value);
    void propertyAttribute(const ZORString& name, int value);
    /// "1" or "0"; false is written only when forced.
    template <std::same_as<bool> Bool>
    void propertyAttribute(const ZORString& name, Bool value, bool force) {
        flagAttribute(name, value, force);
    }
    /// Ends the start tag, and the element with it when it is empty.
    void closeTag(bool empty);
    void endTag(const ZORString& tag);
    /// A reference to the element of a model object, written already or not.
    void linkTag(const ZORString& tag, ZORModelObject* object, MDCSubjectArea area);
    void linkTag(const ZORString& tag, int id);
    /// The form for flags, behind the template above.
    void flagAttribute(const ZORString& name, bool value, bool force);
    /// The steps that the operations above share: indentation, the parts of a start tag and of an attribute
    /// line.
    void pushIndentation();
    void popIndentation();
    void writeIndentation();
    void lengthenIndentation();
    void shortenIndentation();
    void writeTagStart(const ZORString& tag, int id);
    void writeTagName(const ZORString& name);
    void writeUnnamed(int id);
    void writeTexts(ZORModelObject* object);
    void beginAttribute(const ZORString& name);
    void endAttribute();
    /// @}

    /// @name 4. Transfer document (writer/Transfer.cpp)
    /// @{
    void printTransfer();
    void printTransferRoot();
    void printTransferHeader();
    /// The views that were chosen, each with its type set.
    void printTransferContent();
    /// @}

    /// @name 5. Key members, traceability, shared words (writer/SharedEmitters.cpp)
    /// @{
    /// Whether a column takes part in the references of a key in this subject area.
    bool isExportableKeyMember(const ZORAttribute* column, MDCSubjectArea area) const;
    /// Whether the element is an association, or one of the bridge's own that stand for generalizations,
    /// which carry the root's code.
    static bool isAnyAssociation(const ZORModelElement* element);
    /// OIM's code of a referential action; null when there is none to write.
    static const char* getXMLRule(ZORReferentialActionType action);
    static const char* getXMLVisibility(ZORVisibilityType visibility);
    /// The column of the referenced key that a foreign key's column takes its values from: the one that the
    /// column's first role-name map for this key names, else the one of the same name; null when there is
    /// none.
    static ZORAttribute* getCounterpart(const ZORForeignKey* key, const ZORAttribute* column);
    /// A candidate key's columns in the order of its index or, without one, of their positions.
    static ZORVector<ZORAttribute*> getOrderedColumns(const ZORCandidateKey* key);
    /// One reference per member of the key that the subject area shows; those of a foreign key in the order
    /// of the referenced key's members.
    void printKeyAttributes(ZORKey* key, const char* tag, MDCSubjectArea area);
    /// The link to the element that this one was derived from.
    void printTraceability(const char* tag, ZORModelObject* object, MDCSubjectArea area);
    /// Notes on each column of the referenced key which column of the foreign key is its partner, and takes
    /// the notes off again.
    void pairColumns(const ZORForeignKey* key);
    void unpairColumns(const ZORForeignKey* key);
    /// @}

    /// @name 6. Choice of a type set (types/TypeSetChoice.cpp)
    /// @{
    /// Fills the set from the values of the area's three type-set options.
    void dtmInit(MDCTypeSet& set, MDCSubjectArea area, const ZORString& choice, const ZORString& nameOverride,
                 const ZORString& versionOverride);
    /// @}

    /// @name 7. Type resolution and type-set output (types/TypeResolution.cpp)
    /// @{
    /// The first row of the table that fits the type, or its end row.
    static const DTMTypeMap* getDTMTypeMap(const ZORType* type, const DTMTypeMap* table);
    /// The identifier of the type's counterpart in the set, whose table must not be null.
    int getDTMTypeID(MDCTypeSet& set, MDCSubjectArea area, ZORType* type);
    /// The identifier of a type's domain: variant 1 the nullable one, 2 the not-null one, 0 whichever is
    /// used.
    int getERDTypeID(ZORType* type, int variant);
    /// 0 numeric or boolean, 2 date or time, 1 anything else.
    static int getDBMTypeCategory(const ZORType* type);
    void printDTMType(const char* tag, const DTMTypeMap* row, int id);
    void printDTMTypeSet(const char* setTag, const char* collectionTag, const char* memberTag,
                         const MDCTypeSet& set);
    /// @}

    /// @name 8. DBM: catalog and schemas (dbm/MicrosoftSqlServerMdsMdcDBMExport.cpp)
    /// @{
    bool isExportableDBMModelObject(const ZORModelObject* object) const;
    /// Whether the package becomes a schema: it holds a table, a view or a constraint. Its own procedures do
    /// not count.
    bool isExportableDBMPackage(const ZORDesignPackage* package) const;
    void printDBMModel(ZORModel* model);
    /// The schema of a package and then those of its sub-packages.
    void printDBMPackages(ZORDesignPackage* package);
    void printDBMPackage(ZORDesignPackage* package);
    void printDBMPackageSynonyms(ZORDesignPackage* package);
    void printDBMPackageProcedures(ZORDesignPackage* package);
    void printDBMPackageViews(ZORDesignPackage* package);
    void printDBMPackageConstraints(ZORDesignPackage* package);
    /// @}

    /// @name 9. DBM: tables (dbm/Tables.cpp)
    /// @{
    bool isExportableDBMClass(ZORClass* cls) const;
    /// Whether a key is a foreign key to be written with its table, which its association decides.
    bool isExportableDBMTableForeignKey(ZORKey* key) const;
    void printDBMClass(ZORClass* cls);
    void printDBMTableColumns(ZORClass* cls);
    void printDBMTableKeys(ZORClass* cls);
    void printDBMTableTriggers(ZORClass* cls);
    void printDBMTableIndexes(ZORClass* cls);
    /// @}

    /// @name 10. DBM: columns (dbm/Columns.cpp)
    /// @{
    /// The category and the identity of a type, worked out once and kept with the type: columns are many.
    DBMColumnTraits getDBMColumnTraits(ZORType* type);
    /// A column of a table; with a name, a view's column of that name that shows the table's column.
    void printDBMAttribute(ZORAttribute* column, const ZORString* name);
    /// What the size of a column or parameter is called depends on the category of its type.
    void printDBMTypeSize(ZORType* type);
    /// The reference to the type's counterpart in the type set; nothing when no set is in force.
    void printDBMDataType(ZORType* type);
    /// @}

    /// @name 11. DBM: keys and indexes (dbm/Keys.cpp)
    /// @{
    bool isExportableDBMCandidateKey(ZORCandidateKey* key) const;
    bool isExportableDBMIndex(ZORIndex* index) const;
    void printDBMKey(ZORKey* key);
    void printDBMIndex(ZORIndex* index);
    void printDBMIndexMember(ZORIndexMember* member);
    /// @}

    /// @name 12. DBM: foreign keys and constraints (dbm/ReferentialConstraints.cpp)
    /// @{
    bool isExportableDBMAssociation(ZORAssociation* association) const;
    bool isExportableDBMAssociationRole(ZORAssociationRole* role) const;
    bool isExportableDBMForeignKey(ZORForeignKey* key) const;
    void printDBMAssociation(ZORAssociation* association);
    void printDBMAssociationRole(ZORAssociationRole* role, ZORKey* key);
    /// @}

    /// @name 13. DBM: views and synonyms (dbm/Views.cpp)
    /// @{
    void printDBMSQLViewEntity(ZORSQLViewEntity* view);
    void printDBMSQLViewAttribute(ZORSQLViewAttribute* column);
    void printDBMSynonyms(ZORClass* table);
    /// @}

    /// @name 14. DBM: procedures and triggers (dbm/Procedures.cpp)
    /// @{
    /// Those of the operations that are stored procedures of the database.
    void printDBMStoredProcedures(const ZORVector<ZOROperation*>& operations);
    void printDBMOperation(ZOROperation* operation);
    void printDBMArgument(ZORArgument* argument);
    void printDBMTrigger(ZORTrigger* trigger);
    /// @}

    /// @name 15. ERD: model, entities, attributes (erd/MicrosoftSqlServerMdsMdcERDExport.cpp)
    /// @{
    bool isExportableERDModelObject(const ZORModelObject* object) const;
    bool isExportableERDClass(ZORClass* entity) const;
    void printERDModel(ZORModel* model);
    /// The entities of a package and then those of its sub-packages, under names unique in the table.
    void printERDPackageClasses(ZORStringHashtable& names, ZORDesignPackage* package);
    void printERDClass(ZORClass* entity);
    void printERDAttribute(ZORAttribute* attribute);
    /// All types' domains, in the variants that attributes referred to.
    void printERDModelDomains(ZORModel* model);
    /// @}

    /// @name 16. ERD: keys (erd/EntityKeys.cpp)
    /// @{
    bool isExportableERDKey(ZORKey* key) const;
    bool isExportableERDCandidateKey(ZORCandidateKey* key) const;
    bool isExportableERDForeignKey(ZORForeignKey* key) const;
    void printERDKey(ZORKey* key);
    /// @}

    /// @name 17. ERD: relationships (erd/Relationships.cpp)
    /// @{
    bool isExportableERDAssociation(ZORAssociation* association) const;
    bool isExportableERDAssociationRole(ZORAssociationRole* role) const;
    /// Nothing calls the filter and the printer of generalizations: the view shows them as relationships.
    bool isExportableERDGeneralization(ZORGeneralization* generalization) const;
    void printERDPackageAssociations(ZORDesignPackage* package);
    void printERDAssociation(ZORAssociation* association);
    /// The key is the foreign key of a child role, the referenced key of a parent role or null.
    void printERDAssociationRole(ZORAssociationRole* role, ZORKey* key, bool isParent);
    void printERDGeneralization(ZORGeneralization* generalization);
    /// @}

    /// @name 18. ERD: domains (erd/Domains.cpp)
    /// @{
    /// Variant 0: no word on null; 1: the nullable domain; 2: the not-null one.
    void printERDType(ZORType* type, int variant);
    void printERDParentDomains(ZORType* type, int variant);
    void printERDDefaultValue(const ZORType* type);
    void printERDValidValues(const ZORType* type);
    void printERDTypeValue(ZORTypeValue* value);
    /// @}

    /// @name 19. ERD: diagrams (erd/Diagrams.cpp)
    /// @{
    /// The diagrams of a package and then those of its sub-packages, under names unique in the table.
    void printERDPackageDiagrams(ZORStringHashtable& names, ZORDesignPackage* package);
    void printERDDiagram(ZORDiagram* diagram);
    void printERDGraphicFeatures(ZORDiagram* diagram);
    /// @}

    /// Objects whose notes are to be written as comments, in the order of their elements.
    using CommentList = ZORVector<ZORModelObject*>;
    /// Constraints that are to be written behind the element at hand.
    using ConstraintList = ZORVector<UMLConstraint*>;

    /// @name 20. UML: model and packages (uml/MicrosoftSqlServerMdsMdcUMLExport.cpp)
    /// @{
    bool isExportableUMLModelObject(const ZORModelObject* object) const;
    /// Whether an element of a package is written with the package.
    bool isExportableUMLElement(const ZORModelElement* element) const;
    /// Whether a type is written as a data type: not when a class stands for it, nor a plain type that
    /// nothing refers to.
    bool isExportableUMLType(const ZORType* type) const;
    /// The UML name of the object's kind. Interfaces count as classes.
    static const char* getUMLName(const ZORModelObject* object);
    void printUMLModel(ZORModel* model);
    void printUMLTypes(ZORModel* model, LazyCollection& owned);
    void printUMLStereotypes(LazyCollection& owned);
    void printUMLPackage(ZORDesignPackage* package, CommentList& comments);
    void printUMLElement(ZORModelElement* element, CommentList& comments);
    /// @}

    /// @name 21. UML: classes and data types (uml/Classes.cpp)
    /// @{
    static bool isUMLInterface(const ZORClass* cls);
    static const ZORString& getUMLClassTag(const ZORClass* cls);
    void printUMLClass(ZORClass* cls, CommentList& comments);
    void printUMLClassStereotype(ZORClass* cls);
    void printUMLTemplateParameters(ZORClass* cls, CommentList& comments);
    void printUMLFeatures(ZORClass* cls, CommentList& comments, ConstraintList& constraints);
    void printUMLClassGeneralizations(ZORClass* cls);
    void printUMLClientDependencies(ZORClass* cls);
    void printUMLType(ZORType* type);
    /// @}

    /// @name 22. UML: attributes, operations, parameters (uml/Features.cpp)
    /// @{
    bool isExportableUMLAttribute(const ZORAttribute* attribute) const;
    bool isExportableUMLOperation(const ZOROperation* operation) const;
    /// Null for an argument without a direction.
    static const char* getUMLArgumentKind(ZORArgumentType kind);
    static const char* getUMLConcurrency(ZORConcurrencyType concurrency);
    static const char* getUMLOwnerScope(bool isStatic);
    /// The operation's name with the types and names of its arguments.
    static ZORString getUMLSignature(const ZOROperation* operation);
    void printUMLAttribute(ZORAttribute* attribute, CommentList& comments);
    void printUMLOperation(ZOROperation* operation, CommentList& comments, ConstraintList& constraints);
    void printUMLParameters(ZOROperation* operation, CommentList& comments);
    void printUMLArgument(ZORArgument* argument, CommentList& comments);
    void linkUMLType(ZORType* type);
    /// @}

    /// @name 23. UML: relationships (uml/ClassRelationships.cpp)
    /// @{
    bool isExportableUMLAssociation(const ZORAssociation* association) const;
    bool isExportableUMLGeneralization(const ZORGeneralization* generalization) const;
    bool isExportableUMLDependency(const ZORDependency* dependency) const;
    bool isExportableUMLRealization(const ZORRealization* realization) const;
    /// Whether both classes of a relationship are in the view.
    bool areEndsExportable(const ZORModelObject* relationship, const ZORClass* end,
                           const ZORClass* otherEnd) const;
    static const char* getUMLAggregation(const ZORAssociationRole* role);
    void printUMLAssociation(ZORAssociation* association, CommentList& comments);
    /// The ends of an association, or of an association class.
    void printUMLConnection(ZORAssociation* association, CommentList& comments, ConstraintList& constraints);
    void printUMLAssociationRole(ZORAssociationRole* role, CommentList& comments,
                                 ConstraintList& constraints);
    void printUMLGeneralization(ZORGeneralization* generalization, CommentList& comments);
    void printUMLDependency(ZORDependency* dependency, CommentList& comments);
    void printUMLRealization(ZORRealization* realization, CommentList& comments);
    void printUMLSupplier(ZORClass* supplier);
    void linkUMLClass(ZORClass* cls);
    /// @}

    /// @name 24. UML: stereotypes, constraints, comments (uml/Extensions.cpp)
    /// @{
    /// Remembers the object when it carries notes.
    static void collectComments(ZORModelObject* object, CommentList& comments);
    /// Makes a constraint of a text that is not empty. `stereotype` may be null.
    void addUMLConstraint(ZORModelObject* element, const char* stereotype, const ZORString& body,
                          ConstraintList& constraints);
    void printUMLStereotype(const UMLStereotype* record);
    void printUMLTaggedValue(const char* name, const ZORString& value);
    void printUMLConstraint(UMLConstraint* constraint);
    void printUMLComments(const CommentList& objects);
    /// The reference to the object's own stereotype or, for an object that has none, to a standard one, which
    /// may be null; the stereotype's element follows at the end of the model.
    void linkUMLStereotype(ZORModelObject* object, const char* standard);
    /// A reference under the UML name of the object's kind.
    void linkUMLTag(ZORModelObject* object);
    /// @}

  protected:
    /// The state of one run. Each member says who writes it.
    /// @{
    ZORModel* model_ = nullptr;               ///< `startRun`
    ZORLog* log_;                             ///< the constructor
    std::unique_ptr<Inspection> inspection_;  ///< `inspect`; null in every other run
    int nextId_ = 1;                          ///< `startRun`, `getUniqueID`
    mutable ObjectUserDataPool userData_;   ///< `getObjectUserData`, `cleanup`, ResetGeneralPointerOperation
    ZORVector<ZORModelObject*> auxiliary_;  ///< preprocessing and printers that make objects; `cleanup`
    std::unique_ptr<StereotypeHashtable> stereotypes_;  ///< `linkUMLStereotype`; `cleanup`
    MDCModelView modelView_ = MODEL_VIEW_UML;           ///< `readOptions`
    MDCUML13Support uml13Support_ = UML_1_3_FULL;       ///< `readOptions`
    bool msRepository_ = false;                         ///< `readOptions`
    MDCTypeSet erdTypeSet_{50};  ///< `readOptions`, `dtmInit`; its types `getDTMTypeID`
    MDCTypeSet dbmTypeSet_{50};  ///< `readOptions`, `dtmInit`; its types `getDTMTypeID`
    /// Of names that clashed, by the string in the table, the last number that was tried.
    std::unordered_map<const ZORString*, int> nameCounters_;  ///< `getUniqueName`; `cleanup`
    int attributeState_ = 0;                                  ///< the start tags and attributes of group 3
    /// @}
};
