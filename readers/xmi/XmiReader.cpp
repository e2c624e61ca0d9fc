#include "XmiReader.h"

#include <string_view>

#include "ModelAssembler.h"
#include "Prolog.h"
#include "TreeParser.h"

namespace readers {

namespace {

/// The name of the outermost element without its prefix, and the whole tag as far as it is known.
struct Root {
    std::string_view name;
    std::string_view tag;
};

Root findRoot(std::string_view head) noexcept {
    const std::size_t start = xmi::findRootElement(head);
    if (start == std::string_view::npos) {
        return {};
    }
    const std::string_view tag = head.substr(start, head.find('>', start) - start);
    const std::string_view name = tag.substr(1, tag.find_first_of(" \t\r\n/>", 1) - 1);
    return {name.substr(name.find(':') + 1), tag};
}

/// Whether a file of one of the usual names may be meant as a model, though its content does not show it.
/// What begins like a script or a document of another kind is left to others.
bool isNamedLikeModel(const Source& source, std::string_view head) noexcept {
    const std::size_t start = head.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos ||
        !(source.name().ends_with(".xmi") || source.name().ends_with(".uml"))) {
        return false;
    }
    const char first = head[start];
    const bool isWord = (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
    return !isWord && std::string_view("{[(-/\"").find(first) == std::string_view::npos;
}

class XmiReader : public Reader {
  public:
    const ReaderDescription& describe() const override {
        static const ReaderDescription description = [] {
            ReaderDescription text;
            text.name = "xmi";
            text.title = "UML model in XMI";
            text.recognition = "XML whose outermost element is XMI, or a UML model or package";
            text.naturalView = "uml";
            return text;
        }();
        return description;
    }

    bool identify(const Source& source) const override {
        const std::string head = xmi::plainHead(source.head());
        const Root root = findRoot(head);
        const auto mentions = [&](std::string_view text) {
            return root.tag.find(text) != std::string_view::npos;
        };
        if (root.name == "XMI" || mentions("xmi:version") || mentions("/spec/UML/") ||
            (mentions("eclipse.org/uml2") && mentions("/UML"))) {
            return true;
        }
        return isNamedLikeModel(source, head);
    }

    std::unique_ptr<ZORModel> read(const Source& source, const ReadRequest& request,
                                   ReadContext& context) const override {
        xmi::Tree tree;
        {
            const std::string content = source.content();
            xmi::TreeParser(tree, context).parse(content);
        }
        const std::string fileName = source.name().substr(source.name().find_last_of('/') + 1);
        const xmi::References references(tree, fileName, context.losses);
        auto model = xmi::assembleModel(tree, references, request.modelName, source.stem(), context);
        warnOfEmptiness(tree, *model, context);
        return model;
    }

  private:
    /// A model without classes is no error of the file; why there are none is for the caller to tell.
    static void warnOfEmptiness(const xmi::Tree& tree, const ZORModel& model, ReadContext& context);
};

bool holdsClass(const ZORPackage& outermost) {
    std::vector<const ZORPackage*> open{&outermost};
    while (!open.empty()) {
        const ZORPackage* package = open.back();
        open.pop_back();
        if (package->getElementType() == ZOR_DESIGN_PACKAGE) {
            for (const ZORModelElement* element :
                 static_cast<const ZORDesignPackage*>(package)->getModelElements()) {
                if (element->getElementType() == ZOR_CLASS) {
                    return true;
                }
            }
        }
        open.insert(open.end(), package->getChildPackages().begin(), package->getChildPackages().end());
    }
    return false;
}

void XmiReader::warnOfEmptiness(const xmi::Tree& tree, const ZORModel& model, ReadContext& context) {
    if (holdsClass(model)) {
        return;
    }
    const std::string where(model.getName().view());
    if (!tree.header.hasUml) {
        context.warn(where, "there is no UML model in the file; its outermost element is <" +
                                tree.header.rootName + ">");
    } else if (model.getTypes().isEmpty()) {
        context.warn(where, "there is no class in the model, nor a data type");
    } else {
        context.warn(where, "there is no class in the model, only data types");
    }
}

}  // namespace

const Reader& xmiReader() {
    static const XmiReader reader;
    return reader;
}

}  // namespace readers
