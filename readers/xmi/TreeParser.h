#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Attributes.h"
#include "Reader.h"
#include "Tree.h"
#include "Vocabularies.h"
#include "XmlStream.h"

namespace readers::xmi {

/// Turns the elements of a file into the tree, evening out how the versions of XMI write the same thing:
///
///     <ownedAttribute xmi:type="uml:Property" name="x"/>                     XMI 2
///     <UML:Classifier.feature><UML:Attribute name="x"/></...>                XMI 1.1 and 1.2
///     <Foundation.Core.Classifier.feature><Foundation.Core.Attribute>        XMI 1.0
///         <Foundation.Core.ModelElement.name>x</...></...></...>
///
/// each become a node with the value `name`; its kind is "Property" or "Attribute", its role "ownedAttribute"
/// or "feature".
class TreeParser {
  public:
    TreeParser(Tree& tree, ReadContext& context)
        : tree_(tree), context_(context), attributeReader_(tree.names) {}
    void parse(std::string_view content);

  private:
    /// What an open element turned out to be.
    enum class What : std::uint8_t {
        TRANSPARENT,  ///< a wrapper that says nothing: what it holds belongs to what it stands in
        HEADER,       ///< in the file's words about itself
        OBJECT,       ///< has a node
        PROPERTY,     ///< XMI 1: holds objects, references or a text
        UNDECIDED,    ///< XMI 2: an object if it holds elements, else a text
        REFERENCE,    ///< names another object; may hold what a tool calls that
        SKIPPED
    };
    struct Frame {
        What what = What::TRANSPARENT;
        Space space = Space::UML;
        bool holdsElements = false;
        Name name = NO_NAME;                ///< of the property or of the element
        NodeIndex node = NO_NODE;           ///< the object that values and children belong to
        std::uint32_t reference = NO_NODE;  ///< the value that a REFERENCE has become
        std::uint32_t line = 0;
    };
    /// What an element's name tells, worked out once for each name.
    struct Tag {
        Name name = NO_NAME;
        bool isDotted = false;
        bool isCapital = false;  ///< the last part is a metaclass, not a property
    };

    void start(const xmlNode& element);
    void startInXmi(Tag tag, const Frame& parent);
    void startExtension(const Frame& parent);
    void startInExtension(Tag tag, const Frame& parent);
    void startForeign(const xmlNode& element, Tag tag, const Frame& parent);
    void startInUml(Tag tag, const Frame& parent);
    void startReference(Tag tag, const Identity& identity, const Frame& parent);
    void startObject(Tag tag, const Identity& identity, const Frame& parent);
    void startInReference(Tag tag, const Frame& parent);
    void decide(Frame& frame);
    void end();

    void noteRoot(const xmlNode& element);
    void noteUml(const xmlNode& element);
    void noteExporter();
    Tag tagOf(const xmlNode& element);
    Vocabulary vocabularyOfElement(const xmlNode& element);
    Name kindOf(Name tag, const Identity& identity);
    NodeIndex addNode(const Frame& parent, Name kind, Name role, Space space);
    void addNamespaceAttribute(const xmlNode& element, NodeIndex node);
    Frame& push(What what, const Frame& like);

    Tree& tree_;
    ReadContext& context_;
    AttributeReader attributeReader_;
    const std::vector<Attribute>* attributes_ = nullptr;  ///< of the element that has just begun
    std::uint32_t line_ = 0;                              ///< where it stands
    std::vector<Frame> frames_;
    std::vector<std::string> texts_;  ///< of the frames; those beyond them are kept for their memory
    std::unordered_map<const xmlChar*, Tag> tags_;
    std::string lastUri_;
    Vocabulary lastVocabulary_ = Vocabulary::NONE;
};

}  // namespace readers::xmi
