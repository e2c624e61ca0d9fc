#include "Features.h"

#include <cstdint>

#include "Declarations.h"
#include "Expressions.h"
#include "Wording.h"

namespace readers::xmi {

namespace {

bool isAttribute(Element element) noexcept {
    return element.is("Attribute"_n) || element.is("Property"_n) || element.is("Port"_n);
}

bool isStatic(Element feature) {
    return feature.flag("isStatic"_n) || feature.text("ownerScope"_n) == "classifier";
}

ZORConcurrencyType concurrencyOf(Element operation) {
    const std::string_view word = operation.text("concurrency"_n);
    if (word == "guarded") {
        return ZOR_CONCURRENCY_GUARDED;
    }
    // Calls from several threads at once are served: the model's word for it is an older one.
    return word == "concurrent" ? ZOR_CONCURRENCY_SYNCHRONOUS : ZOR_CONCURRENCY_SEQUENTIAL;
}

std::string_view directionWord(Element parameter) {
    const std::string_view word = parameter.text("direction"_n);
    return word.empty() ? parameter.text("kind"_n) : word;
}

/// Names that tools give a result because it needs one.
bool isMadeUpName(std::string_view name, const ZORString& operation) noexcept {
    return name.empty() || name == "return" || name == "result" || name == operation.view();
}

/// The first of the properties that the element has, as a text.
std::string defaultOf(const Assembly& assembly, Element element, std::initializer_list<Name> properties) {
    for (const Name property : properties) {
        if (std::string text = expressionOf(assembly, element, property); !text.empty()) {
            return text;
        }
    }
    return {};
}

/// What is put in the place of a template's parameter unless something else is given: an element in the
/// parameter, one that it refers to, or what the exposed element has for a default.
std::string templateDefaultOf(const Assembly& assembly, Element parameter, Element exposed) {
    for (const Name role : {"ownedDefault"_n, "defaultElement"_n}) {
        if (const Element child = parameter.child(role)) {
            const std::string value = expressionText(assembly, child);
            return value.empty() ? std::string(child.text("name"_n)) : value;
        }
    }
    const Target target = assembly.references.first(parameter, {"default"_n, "defaultElement"_n});
    if (target.isFound()) {
        return std::string(assembly.tree.at(target.node).text("name"_n));
    }
    return target.exists() ? std::string(assembly.externalNames.of(target))
                           : defaultOf(assembly, exposed, {"defaultValue"_n, "default"_n});
}

}  // namespace

void Features::addAll(ZORClass& cls, Element classifier) {
    for (const Element child : classifier) {
        if (!child.isUml()) {
            continue;
        }
        if (child.role() == "templateParameter"_n || child.is("TemplateParameter"_n)) {
            addTemplateParameter(cls, child);
        } else if (isAttribute(child) && assembly_.plan.associationOf(child.index()) == NO_NODE &&
                   child.role() != "ownedEnd"_n) {
            if (cls.getAttributeCount() > INT16_MAX) {
                throw SourceError(SourceError::Kind::CANNOT_READ,
                                  "the class " + classifier.path() + " has more than 32,768 attributes");
            }
            cls.addAttribute(makeAttribute(child, cls.getAttributeCount()));
        } else if (child.is("Operation"_n)) {
            addOperation(cls, child);
        } else if (child.role() == "ownedTemplateSignature"_n) {
            addTemplateParameters(cls, child);
        }
    }
    for (const Element child : classifier) {
        if (child.is("Method"_n)) {
            addMethod(child);
        }
    }
}

void Features::addQualifiers(ZORAssociationRole& role, Element end) {
    for (const Element child : end) {
        if (child.role() == "qualifier"_n && isAttribute(child)) {
            role.addQualifier(makeAttribute(child, role.getQualifiers().size()));
        }
    }
}

std::unique_ptr<ZORAttribute> Features::makeAttribute(Element element, std::size_t position) {
    auto attribute = std::make_unique<ZORAttribute>();
    assembly_.record(element, attribute.get());
    attribute->setPosition(static_cast<std::int16_t>(position));
    attribute->setVisibility(visibilityOf(element));
    attribute->setStatic(isStatic(element));
    const Multiplicity multiplicity = multiplicityOf(assembly_, element);
    attribute->setOptional(multiplicity.mayBeNone);
    if (multiplicity.mayBeMany) {
        assembly_.lose("multiplicities of attributes", element, multiplicity.text);
    }
    const std::string_view name = element.text("name"_n);
    if (assembly_.dialect.namesAreDeclarations && !element.has("type"_n)) {
        declareAttribute(*attribute, name);
        return attribute;
    }
    attribute->setName(name);
    attribute->setType(types_.of(element));
    attribute->setInitialValue(
        ZORString(defaultOf(assembly_, element, {"defaultValue"_n, "default"_n, "initialValue"_n})));
    return attribute;
}

void Features::declareAttribute(ZORAttribute& attribute, std::string_view declaration) {
    const DeclaredFeature declared = parseFeature(declaration);
    attribute.setName(ZORString(declared.name));
    attribute.setType(declared.type.empty() ? types_.unspecified() : types_.named(declared.type));
    attribute.setInitialValue(ZORString(declared.defaultValue));
}

void Features::addOperation(ZORClass& cls, Element element) {
    ZOROperation& operation = *cls.addOperation(std::make_unique<ZOROperation>());
    assembly_.record(element, &operation);
    const std::string_view name = element.text("name"_n);
    operation.setName(name);
    operation.setVisibility(visibilityOf(element));
    operation.setAbstract(element.flag("isAbstract"_n));
    operation.setStatic(isStatic(element));
    operation.setConcurrency(concurrencyOf(element));
    operation.setSemantics(ZORString(expressionOf(assembly_, element, "specification"_n)));
    bool hasParameters = false;
    for (const Element child : element) {
        if (child.is("Parameter"_n)) {
            addParameter(operation, child);
            hasParameters = true;
        }
    }
    if (assembly_.dialect.namesAreDeclarations && !hasParameters) {
        declareOperation(operation, element, name);
    }
}

void Features::declareOperation(ZOROperation& operation, Element element, std::string_view declaration) {
    const DeclaredOperation declared = parseOperation(declaration);
    operation.setName(ZORString(declared.name));
    if (!declared.rest.empty()) {
        assembly_.lose("texts behind parameter lists", element, declared.rest);
    }
    if (!declared.result.empty()) {
        operation.setResultType(types_.named(declared.result));
    }
    for (const DeclaredFeature& parameter : declared.parameters) {
        ZORArgument* argument = operation.addArgument(std::make_unique<ZORArgument>());
        argument->setName(ZORString(parameter.name));
        argument->addType(parameter.type.empty() ? types_.unspecified() : types_.named(parameter.type));
        argument->setDefaultValue(ZORString(parameter.defaultValue));
        argument->setKind(assembly_.dialect.unstatedDirection);
    }
}

void Features::addParameter(ZOROperation& operation, Element parameter) {
    const std::string_view direction = directionWord(parameter);
    if (const Multiplicity multiplicity = multiplicityOf(assembly_, parameter); multiplicity.mayBeMany) {
        assembly_.lose("multiplicities of parameters", parameter, multiplicity.text);
    }
    if (direction == "return" && operation.getResultType() == nullptr) {
        setResult(operation, parameter);
        return;
    }
    ZORArgument& argument = *operation.addArgument(std::make_unique<ZORArgument>());
    assembly_.record(parameter, &argument);
    argument.setName(parameter.text("name"_n));
    argument.addType(types_.of(parameter));
    argument.setDefaultValue(
        ZORString(defaultOf(assembly_, parameter, {"defaultValue"_n, "default"_n, "value"_n})));
    argument.setKind(direction == "in"       ? ZOR_ARGUMENT_IN
                     : direction == "out"    ? ZOR_ARGUMENT_OUT
                     : direction == "inout"  ? ZOR_ARGUMENT_INOUT
                     : direction == "return" ? ZOR_ARGUMENT_RETURN
                                             : assembly_.dialect.unstatedDirection);
}

/// The model keeps of a result only its type.
void Features::setResult(ZOROperation& operation, Element parameter) {
    parameter.markRead();
    operation.setResultType(types_.ofOptional(parameter));
    const std::string_view name = parameter.text("name"_n);
    if (!isMadeUpName(name, operation.getName())) {
        assembly_.lose("names of results", parameter);
    }
}

/// UML 1 keeps the body of an operation beside it.
void Features::addMethod(Element method) {
    const Target target = assembly_.references.first(method, "specification"_n);
    ZORModelObject* object = target.isFound() ? assembly_.objects[target.node] : nullptr;
    if (object != nullptr && object->isInstanceOf(ZOR_OPERATION)) {
        method.markAllRead();
        static_cast<ZOROperation*>(object)->setBody(ZORString(expressionOf(assembly_, method, "body"_n)));
    }
}

void Features::addTemplateParameters(ZORClass& cls, Element holder) {
    holder.markRead();
    for (const Element child : holder) {
        if (child.role() == "ownedParameter"_n) {
            addTemplateParameter(cls, child);
        }
    }
}

void Features::addTemplateParameter(ZORClass& cls, Element parameter) {
    Element exposed = parameter;
    for (const Name role : {"ownedParameteredElement"_n, "parameter"_n, "parameteredElement"_n}) {
        if (const Element child = parameter.child(role)) {
            exposed = child;
        }
    }
    if (const Target target = assembly_.references.first(parameter, {"parameteredElement"_n, "parameter"_n});
        target.isFound()) {
        exposed = assembly_.tree.at(target.node);
    }
    ZORArgument& argument = *cls.addArgument(std::make_unique<ZORArgument>());
    assembly_.record(exposed, &argument);
    assembly_.record(parameter, &argument);
    argument.setName(exposed.text("name"_n));
    // What is neither typed nor of a special kind stands for a class.
    const bool isUnsaid = exposed.index() == parameter.index();
    ZORType* type = types_.ofOptional(exposed);
    argument.addType(
        type != nullptr ? type : types_.standIn(isUnsaid ? "class" : assembly_.tree.kindOf(exposed.index())));
    argument.setDefaultValue(ZORString(templateDefaultOf(assembly_, parameter, exposed)));
}

}  // namespace readers::xmi
