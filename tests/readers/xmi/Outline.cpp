#include "Outline.h"

#include <array>

namespace xmi_test {

namespace {

std::string toText(const ZORString& text) {
    return std::string(text.view());
}

/// The words in parentheses; nothing without any.
class Flags {
  public:
    Flags& add(bool set, const std::string& word) {
        if (set) {
            words_ += (words_.empty() ? "" : ", ") + word;
        }
        return *this;
    }
    Flags& add(ZORVisibilityType visibility) {
        constexpr std::array WORDS = {"public", "protected", "private", "implementation"};
        return add(visibility != ZOR_VISIBILITY_PUBLIC, WORDS[static_cast<std::size_t>(visibility)]);
    }
    Flags& add(ZORConcurrencyType concurrency) {
        constexpr std::array WORDS = {"sequential", "guarded", "active", "synchronous"};
        return add(concurrency != ZOR_CONCURRENCY_SEQUENTIAL, WORDS[static_cast<std::size_t>(concurrency)]);
    }
    std::string text() const { return words_.empty() ? "" : " (" + words_ + ")"; }

  private:
    std::string words_;
};

class Outline {
  public:
    std::string write(const ZORModel& model) {
        line("model", model);
        ++depth_;
        packages(model);
        --depth_;
        for (const ZORType* type : model.getTypes()) {
            if (type->getElementType() != ZOR_CLASS_TYPE) {
                writeType(*type);
            }
        }
        return std::move(text_);
    }

  private:
    void put(const std::string& words) { text_ += std::string(2 * depth_, ' ') + words + "\n"; }

    /// What every object may have, and its notes below.
    void line(const std::string& kind, const ZORModelObject& object, const std::string& more = {}) {
        std::string words = kind;
        const auto add = [&](const ZORString& text, const char* open, const char* close) {
            words += text.isEmpty() ? "" : std::string(" ") + open + toText(text) + close;
        };
        add(object.getName(), "", "");
        words += more;
        add(object.getDescription(), "\"", "\"");
        add(object.getComments(), "/*", "*/");
        add(object.getStereotype(), "«", "»");
        put(words);
        for (const ZORNote* note : object.getNotes()) {
            put("  note " + toText(note->getDescription()));
        }
    }

    void packages(const ZORPackage& parent) {
        for (const ZORPackage* child : parent.getChildPackages()) {
            line("package", *child);
            ++depth_;
            packages(*child);
            const auto& package = static_cast<const ZORDesignPackage&>(*child);
            for (const ZORModelElement* element : package.getModelElements()) {
                writeElement(*element);
            }
            for (const ZORDiagram* diagram : package.getDiagrams()) {
                writeDiagram(*diagram);
            }
            --depth_;
        }
    }

    void writeElement(const ZORModelElement& element) {
        switch (element.getElementType()) {
            case ZOR_CLASS:
                return writeClass(static_cast<const ZORClass&>(element));
            case ZOR_ASSOCIATION:
                return writeAssociation(static_cast<const ZORAssociation&>(element));
            case ZOR_GENERALIZATION: {
                const auto& generalization = static_cast<const ZORGeneralization&>(element);
                return line("generalization", element,
                            arrow(generalization.getChildren()[0], generalization.getParents()[0]) +
                                Flags().add(generalization.getVisibility()).text());
            }
            case ZOR_DEPENDENCY: {
                const auto& dependency = static_cast<const ZORDependency&>(element);
                return line("dependency", element, arrow(dependency.getClient(), dependency.getSupplier()));
            }
            case ZOR_REALIZATION: {
                const auto& realization = static_cast<const ZORRealization&>(element);
                return line("realization", element,
                            arrow(realization.getClient(), realization.getSupplier()));
            }
            default:
                put("something else");
        }
    }

    static std::string arrow(const ZORClass* from, const ZORClass* to) {
        return " " + toText(from->getName()) + " -> " + toText(to->getName());
    }

    void writeClass(const ZORClass& cls) {
        const std::string kind = cls.getClassType() == 9 ? "interface" : "class";
        Flags flags;
        flags.add(cls.getVisibility()).add(cls.getConcurrency()).add(cls.isPersistent(), "persistent");
        line((cls.isAbstract() ? "abstract " : "") + kind, cls, flags.text());
        ++depth_;
        for (const ZORArgument* argument : cls.getArguments()) {
            line("template", *argument, parameterEnd(*argument));
        }
        for (const ZORAttribute* attribute : cls.getAttributes()) {
            writeAttribute("attribute", *attribute);
        }
        for (const ZOROperation* operation : cls.getOperations()) {
            writeOperation(*operation);
        }
        --depth_;
    }

    void writeAttribute(const std::string& kind, const ZORAttribute& attribute) {
        const ZORString& value = attribute.getInitialValue();
        Flags flags;
        flags.add(attribute.isOptional(), "optional")
            .add(attribute.isStatic(), "static")
            .add(attribute.getVisibility());
        line(kind, attribute,
             " : " + toText(attribute.getType()->getName()) + (value.isEmpty() ? "" : " = " + toText(value)) +
                 flags.text());
    }

    static std::string parameterEnd(const ZORArgument& argument) {
        const ZORString& value = argument.getDefaultValue();
        return " : " + toText(argument.getType()->getName()) + (value.isEmpty() ? "" : " = " + toText(value));
    }

    void writeOperation(const ZOROperation& operation) {
        constexpr std::array DIRECTIONS = {"", "in ", "out ", "inout ", "return "};
        std::string parameters;
        for (const ZORArgument* argument : operation.getArguments()) {
            parameters += (parameters.empty() ? "" : ", ") +
                          std::string(DIRECTIONS[static_cast<std::size_t>(argument->getKind())]) +
                          toText(argument->getName()) + parameterEnd(*argument);
        }
        const ZORType* result = operation.getResultType();
        Flags flags;
        flags.add(operation.isAbstract(), "abstract").add(operation.isStatic(), "static");
        flags.add(operation.getVisibility()).add(operation.getConcurrency());
        line("operation", operation,
             "(" + parameters + ")" + (result == nullptr ? "" : " : " + toText(result->getName())) +
                 flags.text());
        const auto condition = [this](const char* word, const ZORString& text) {
            if (!text.isEmpty()) {
                put(std::string("  ") + word + " " + toText(text));
            }
        };
        condition("precondition", operation.getPrecondition());
        condition("postcondition", operation.getPostcondition());
        condition("semantics", operation.getSemantics());
        condition("body", operation.getBody());
    }

    void writeAssociation(const ZORAssociation& association) {
        const ZORClass* cls = association.getAssociationClass();
        line("association", association,
             (cls == nullptr ? "" : " of class " + toText(cls->getName())) +
                 (association.getConstraint().isEmpty() ? ""
                                                        : " {" + toText(association.getConstraint()) + "}"));
        ++depth_;
        for (std::size_t i = 0; i < association.getRoles().size(); ++i) {
            writeRole(association, i);
        }
        --depth_;
    }

    void writeRole(const ZORAssociation& association, std::size_t index) {
        const ZORAssociationRole& role = *association.getRoles()[index];
        const bool isWhole = association.isAggregation() && role.isAggregateEnd();
        const ZORAssociationRole& opposite = *association.getRoles()[index == 0 ? 1 : 0];
        Flags flags;
        flags.add(role.isNavigable(), "navigable").add(role.isOrdered(), "ordered");
        flags.add(isWhole, opposite.getAggregationKind() == 0 ? "composite" : "aggregate")
            .add(role.getVisibility());
        const std::string multiplicity = toText(role.getMultiplicity());
        line("role", role,
             " : " + toText(role.getAssociatedClass()->getName()) +
                 (multiplicity.empty() ? "" : " " + multiplicity) + flags.text() +
                 (role.getConstraint().isEmpty() ? "" : " {" + toText(role.getConstraint()) + "}"));
        ++depth_;
        for (const ZORAttribute* qualifier : role.getQualifiers()) {
            writeAttribute("qualifier", *qualifier);
        }
        --depth_;
    }

    void writeDiagram(const ZORDiagram& diagram) {
        std::string shown;
        for (const ZORObject* element : diagram.getModelElements()) {
            shown += (shown.empty() ? ": " : ", ") + toText(element->getName());
        }
        line("diagram", diagram, shown);
    }

    void writeType(const ZORType& type) {
        const ZORType* base = type.getBaseType();
        const std::string kind = type.getElementType() == ZOR_DERIVED_TYPE ? "derived type" : "type";
        line(kind, type,
             (base == nullptr ? "" : " from " + toText(base->getName())) +
                 (type.getDataType().isEmpty() ? "" : " " + toText(type.getDataType())));
        for (const ZORTypeValue* value : type.getTypeValues()) {
            put("  value " + toText(value->getName()) + " " + std::to_string(value->getCode()) + " " +
                toText(value->getValue()));
        }
    }

    std::string text_;
    std::size_t depth_ = 0;
};

}  // namespace

std::string outline(const ZORModel& model) {
    return Outline().write(model);
}

}  // namespace xmi_test
