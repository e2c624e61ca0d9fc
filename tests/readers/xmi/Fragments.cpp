#include "Fragments.h"

#include "Exports.h"
#include "Outline.h"
#include "ZORModelCheck.h"
#include "xmi/XmiReader.h"

namespace xmi_test {

namespace {

class CollectingContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override {
        warnings.push_back(where + ": " + text);
    }
    void progress(std::uint64_t /*objects*/) override {}
    std::vector<std::string> warnings;
};

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

std::string xmi2(const std::string& umlNamespace, const std::string& elements,
                 const std::string& besideTheModel) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<xmi:XMI xmlns:xmi="http://www.omg.org/spec/XMI/20131001" xmlns:uml=")" +
           umlNamespace + R"(">
<uml:Model xmi:id="_m" name="m">)" +
           elements + "</uml:Model>" + besideTheModel + "</xmi:XMI>";
}

std::string xmi1(const std::string& version, const std::string& exporter, const std::string& modelName,
                 const std::string& elements, const std::string& besideTheModel) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<XMI xmi.version=\"" + version +
           "\" xmlns:UML=\"org.omg.xmi.namespace.UML\"><XMI.header><XMI.documentation><XMI.exporter>" +
           exporter +
           "</XMI.exporter></XMI.documentation></XMI.header><XMI.content><UML:Model xmi.id=\"m\" name=\"" +
           modelName + "\"><UML:Namespace.ownedElement>" + elements +
           "</UML:Namespace.ownedElement></UML:Model>" + besideTheModel + "</XMI.content></XMI>";
}

}  // namespace

std::string eclipse(const std::string& elements, const std::string& besideTheModel) {
    return xmi2("http://www.eclipse.org/uml2/5.0.0/UML", elements, besideTheModel);
}

std::string omg(const std::string& elements, const std::string& besideTheModel) {
    return xmi2("http://www.omg.org/spec/UML/20131001", elements, besideTheModel);
}

std::string enterpriseArchitect(const std::string& elements, const std::string& extension) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<xmi:XMI xmi:version="2.1" xmlns:uml="http://schema.omg.org/spec/UML/2.1" xmlns:xmi="http://schema.omg.org/spec/XMI/2.1">
<xmi:Documentation exporter="Enterprise Architect" exporterVersion="6.5"/>
<uml:Model xmi:type="uml:Model" name="m" visibility="public">)" +
           elements + "</uml:Model><xmi:Extension extender=\"Enterprise Architect\">" + extension +
           "</xmi:Extension></xmi:XMI>";
}

std::string xmi12(const std::string& elements, const std::string& besideTheModel) {
    return xmi1("1.2", "", "m", elements, besideTheModel);
}

std::string umbrello(const std::string& elements, const std::string& extension) {
    const std::string withExtension =
        extension.empty() ? "" : "<XMI.extension xmi.extender=\"umbrello\">" + extension + "</XMI.extension>";
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<XMI xmi.version="1.2" xmlns:UML="http://schema.omg.org/spec/UML/1.3"><XMI.header><XMI.documentation>
<XMI.exporter>umbrello uml modeller http://umbrello.kde.org</XMI.exporter></XMI.documentation></XMI.header><XMI.content>
<UML:Model xmi.id="m1" name="m"><UML:Namespace.ownedElement><UML:Model stereotype="folder" xmi.id="Logical View"
namespace="m1" name="Logical View"><UML:Namespace.ownedElement>)" +
           elements + "</UML:Namespace.ownedElement>" + withExtension +
           "</UML:Model></UML:Namespace.ownedElement></UML:Model></XMI.content></XMI>";
}

std::string plantUml(const std::string& elements) {
    return xmi1("1.1", "", "PlantUML", elements, "");
}

std::string xmi10(const std::string& elements) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<XMI xmi.version="1.0"><XMI.content><Model_Management.Model xmi.id="m">
<Foundation.Core.ModelElement.name>m</Foundation.Core.ModelElement.name><Foundation.Core.Namespace.ownedElement>)" +
           elements +
           "</Foundation.Core.Namespace.ownedElement></Model_Management.Model></XMI.content></XMI>";
}

std::string cls(const std::string& name, const std::string& content, const std::string& attributes) {
    return "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"_" + name + "\" name=\"" + name + "\" " +
           attributes + ">" + content + "</packagedElement>";
}

std::string cls12(const std::string& name, const std::string& content, const std::string& attributes) {
    return "<UML:Class xmi.id=\"" + name + "\" name=\"" + name + "\" " + attributes + ">" + content +
           "</UML:Class>";
}

std::string stringType() {
    return "<packagedElement xmi:type=\"uml:PrimitiveType\" xmi:id=\"_String\" name=\"String\"/>";
}

std::string Result::outline() const {
    return xmi_test::outline(*model);
}

std::string Result::lossLines() const {
    std::string text;
    for (const readers::LossReport::Item& item : losses.items()) {
        text += item.kind + ": " + item.where + (item.detail.empty() ? "" : " (" + item.detail + ")") + "\n";
    }
    return text;
}

std::string Result::warningLines() const {
    return joinLines(warnings);
}

Result read(const std::string& text, const std::string& name, const std::string& modelName) {
    CollectingContext context;
    readers::ReadRequest request;
    request.modelName = modelName;
    Result result;
    result.model = readers::xmiReader().read(readers::Source::fromText(name, text), request, context);
    result.warnings = std::move(context.warnings);
    result.losses = std::move(context.losses);
    for (const ZORString& fault : checkModel(*result.model)) {
        ADD_FAILURE() << fault.c_str();
    }
    if (!testing::Test::HasFailure()) {
        exportInEveryView(*result.model);
    }
    return result;
}

void PrintTo(const Case& shown, std::ostream* out) {
    *out << shown.fact;
}

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return info.param.fact;
}

}  // namespace xmi_test
