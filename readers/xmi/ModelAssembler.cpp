#include "ModelAssembler.h"

#include "Assembly.h"
#include "Diagrams.h"
#include "Documentation.h"
#include "Expressions.h"
#include "Features.h"
#include "Losses.h"
#include "Packages.h"
#include "Relationships.h"
#include "ToolExtensions.h"
#include "Types.h"

namespace readers::xmi {

namespace {

constexpr NodeIndex NODES_PER_REPORT = 5000;

/// Words for kinds that the model tells apart by itself.
struct KindWord {
    Name kind;
    std::string_view word;
};
constexpr KindWord KIND_WORDS[] = {
    {"DataType"_n, "dataType"},   {"Enumeration"_n, "enum"},       {"Enumeration"_n, "enumeration"},
    {"Interface"_n, "interface"}, {"PrimitiveType"_n, "dataType"}, {"PrimitiveType"_n, "primitive"},
};

class ModelAssembler {
  public:
    ModelAssembler(Assembly& assembly, ZORString looseName)
        : assembly_(assembly),
          types_(assembly),
          packages_(assembly, std::move(looseName)),
          features_(assembly, types_),
          relationships_(assembly, features_) {}

    void assemble();

  private:
    void makeClasses();
    void setClass(ZORClass& cls, Element element);
    void addElements();
    void addClass(Element element);
    void setStereotypes();
    void setStereotype(Element element, ZORModelObject& object);
    void addKeywords();
    void completeCopies();

    Assembly& assembly_;
    Types types_;
    Packages packages_;
    Features features_;
    Relationships relationships_;
    /// Classes that have no package yet.
    std::unordered_map<NodeIndex, std::unique_ptr<ZORClass>> classes_;
};

void ModelAssembler::assemble() {
    addKeywords();
    makeClasses();
    types_.declare();
    addElements();
    Documentation documentation(assembly_);
    documentation.addAll();
    ToolExtensions(assembly_, documentation).read();
    documentation.complete();
    Diagrams(assembly_, packages_).addAll();
    setStereotypes();
    completeCopies();
    reportUnread(assembly_);
}

void ModelAssembler::makeClasses() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        if (assembly_.plan.isClass(index)) {
            auto cls = std::make_unique<ZORClass>();
            setClass(*cls, assembly_.tree.at(index));
            assembly_.record(assembly_.tree.at(index), cls.get());
            classes_.emplace(index, std::move(cls));
        }
    }
}

void ModelAssembler::setClass(ZORClass& cls, Element element) {
    constexpr int INTERFACE = 9;
    cls.setName(element.text("name"_n));
    cls.setClassType(element.is("Interface"_n) || element.flag("isInterface"_n) ? INTERFACE : 0);
    cls.setVisibility(visibilityOf(element));
    cls.setAbstract(element.flag("isAbstract"_n));
    cls.setConcurrency(element.flag("isActive"_n) ? ZOR_CONCURRENCY_ACTIVE : ZOR_CONCURRENCY_SEQUENTIAL);
}

/// In the order of the file; packages are made on the way.
void ModelAssembler::addElements() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        switch (assembly_.plan.of(index)) {
            case Becomes::PACKAGE:
                packages_.packageOfNode(index);
                break;
            case Becomes::CLASS:
                addClass(element);
                break;
            case Becomes::ASSOCIATION:
            case Becomes::GENERALIZATION:
            case Becomes::DEPENDENCY:
            case Becomes::REALIZATION:
                relationships_.add(packages_.of(element), element);
                break;
            default:
                break;
        }
        if (index % NODES_PER_REPORT == 0) {
            assembly_.context.progress(assembly_.tree.size() + index);
        }
    }
}

void ModelAssembler::addClass(Element element) {
    ZORDesignPackage& package = packages_.of(element);
    ZORClass& cls = *package.addModelElement(std::move(classes_.at(element.index())));
    features_.addAll(cls, element);
    relationships_.add(package, element);
    if (const NodeIndex outer = assembly_.plan.outerClassOf(element.index()); outer != NO_NODE) {
        assembly_.lose("nestings of classes", element, "it stands beside " + assembly_.tree.pathOf(outer));
    }
}

/// The words by which UML shows kinds that the model has no word for go before the stereotypes.
void ModelAssembler::addKeywords() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Becomes becomes = assembly_.plan.of(index);
        const KindRow* row = findKind(assembly_.tree.node(index).kind, assembly_.dialect.isXmi2);
        if (row != nullptr && !row->keyword.empty() &&
            (becomes == Becomes::CLASS || becomes == Becomes::DEPENDENCY || becomes == Becomes::PACKAGE)) {
            assembly_.stereotypes.addKeyword(index, row->keyword);
        }
    }
}

void ModelAssembler::setStereotypes() {
    for (const NodeIndex node : assembly_.stereotypes.carriers()) {
        const Element element = assembly_.tree.at(node);
        for (const KindWord& row : KIND_WORDS) {
            // A data type that became a class keeps its word: the model does not tell it from other classes.
            if (row.kind == element.kind() && (element.is("Interface"_n) || !assembly_.plan.isClass(node))) {
                assembly_.stereotypes.remove(node, row.word);
            }
        }
        ZORModelObject* object = assembly_.objects[node];
        if (object != nullptr && object->isInstanceOf(ZOR_MODEL_OBJECT)) {
            setStereotype(element, *object);
            continue;
        }
        for (const std::string& name : assembly_.stereotypes.of(node)) {
            assembly_.lose("stereotypes of things that are left out", element, name);
        }
    }
}

/// Several stereotypes stand together, as UML shows them.
void ModelAssembler::setStereotype(Element element, ZORModelObject& object) {
    const bool isType = object.isInstanceOf(ZOR_TYPE);
    const bool isValue = object.isInstanceOf(ZOR_TYPE_VALUE);
    const bool isRealization = object.isInstanceOf(ZOR_REALIZATION);
    std::string all;
    for (const std::string& name : assembly_.stereotypes.of(element.index())) {
        if (isType || isValue || isRealization) {
            assembly_.lose(isType    ? "stereotypes of data types"
                           : isValue ? "stereotypes of enumeration literals"
                                     : "stereotypes of realizations",
                           element, name);
        } else {
            all.append(all.empty() ? "" : ", ").append(name);
        }
    }
    object.setStereotype(ZORString(all));
}

void ModelAssembler::completeCopies() {
    for (const auto& [copy, original] : relationships_.copies()) {
        assembly_.spend(original->getDescription().length() + original->getComments().length() +
                        original->getStereotype().length());
        copy->setDescription(original->getDescription());
        copy->setComments(original->getComments());
        copy->setStereotype(original->getStereotype());
    }
}

}  // namespace

std::unique_ptr<ZORModel> assembleModel(Tree& tree, const References& references,
                                        const std::string& modelName, const std::string& fileStem,
                                        ReadContext& context) {
    const Dialect& dialect = recogniseDialect(tree);
    Stereotypes stereotypes(tree, references, context.losses);
    const ExternalNames externalNames(tree, references, dialect);
    const Plan plan(tree, references, externalNames, stereotypes, dialect, context.losses);
    auto model = std::make_unique<ZORModel>();
    Assembly assembly{tree, references, stereotypes, externalNames, dialect, plan, context, *model, {}, 0};
    assembly.objects.resize(tree.size(), nullptr);
    std::string ownName;
    if (plan.model() != NO_NODE) {
        ownName = tree.at(plan.model()).text("name"_n);
        assembly.record(tree.at(plan.model()), model.get());
    }
    ownName = ownName.empty() ? fileStem : ownName;
    model->setName(ZORString(modelName.empty() ? ownName : modelName));
    ModelAssembler(assembly, ZORString(ownName)).assemble();
    return model;
}

}  // namespace readers::xmi
