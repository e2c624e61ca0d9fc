#pragma once

#include <memory>

#include "Assembly.h"
#include "Types.h"

namespace readers::xmi {

/// Attributes, operations and template parameters.
class Features {
  public:
    Features(Assembly& assembly, Types& types) : assembly_(assembly), types_(types) {}

    /// Gives a class what the element holds; ends of associations are none of its attributes.
    void addAll(ZORClass& cls, Element classifier);
    /// The qualifiers of an association's end.
    void addQualifiers(ZORAssociationRole& role, Element end);

  private:
    std::unique_ptr<ZORAttribute> makeAttribute(Element element, std::size_t position);
    void declareAttribute(ZORAttribute& attribute, std::string_view declaration);
    void addOperation(ZORClass& cls, Element element);
    void declareOperation(ZOROperation& operation, Element element, std::string_view declaration);
    void addParameter(ZOROperation& operation, Element parameter);
    void setResult(ZOROperation& operation, Element parameter);
    void addMethod(Element method);
    void addTemplateParameters(ZORClass& cls, Element holder);
    void addTemplateParameter(ZORClass& cls, Element parameter);

    Assembly& assembly_;
    Types& types_;
};

}  // namespace readers::xmi
