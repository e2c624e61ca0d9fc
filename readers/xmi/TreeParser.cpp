#include "TreeParser.h"

#include <algorithm>
#include <iterator>

namespace readers::xmi {

namespace {

constexpr NodeIndex NODES_PER_REPORT = 5000;

/// Parts of tools' extensions that say how something looks or how code is made from it.
constexpr Name SKIPPED_IN_EXTENSIONS[] = {
    "appearance"_n,
    "code"_n,
    "codegeneration"_n,
    "containment"_n,
    "coords"_n,
    "docsettings"_n,
    "extendedProperties"_n,
    "flags"_n,
    "labels"_n,
    "listview"_n,
    "modifiers"_n,
    "options"_n,
    "paths"_n,
    "project"_n,
    "style"_n,
    "times"_n,
    "xrefs"_n,
};

/// The metaclass of an element of XMI 2 that does not state it.
struct DefaultKind {
    Name role;
    Name kind;
};
constexpr DefaultKind DEFAULT_KINDS[] = {
    {"generalization"_n, "Generalization"_n},
    {"interfaceRealization"_n, "InterfaceRealization"_n},
    {"ownedAttribute"_n, "Property"_n},
    {"ownedComment"_n, "Comment"_n},
    {"ownedEnd"_n, "Property"_n},
    {"ownedLiteral"_n, "EnumerationLiteral"_n},
    {"ownedOperation"_n, "Operation"_n},
    {"ownedParameter"_n, "Parameter"_n},
    {"ownedPort"_n, "Port"_n},
    {"ownedRule"_n, "Constraint"_n},
    {"postcondition"_n, "Constraint"_n},
    {"precondition"_n, "Constraint"_n},
    {"qualifier"_n, "Property"_n},
    {"substitution"_n, "Substitution"_n},
};

bool isBlank(std::string_view text) noexcept {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

void TreeParser::parse(std::string_view content) {
    XmlStream stream(content);
    push(What::TRANSPARENT, Frame());
    NodeIndex reported = 0;
    for (auto event = stream.next(); event != XmlStream::Event::FINISHED; event = stream.next()) {
        if (event == XmlStream::Event::START) {
            line_ = stream.line();
            start(stream.node());
            if (tree_.size() - reported >= NODES_PER_REPORT) {
                reported = tree_.size();
                context_.progress(reported);
            }
        } else if (event == XmlStream::Event::END) {
            end();
        } else if (frames_.back().what != What::SKIPPED) {
            texts_[frames_.size() - 1].append(toView(stream.node().content));
        }
    }
}

TreeParser::Frame& TreeParser::push(What what, const Frame& like) {
    Frame frame = like;
    frame.what = what;
    frame.holdsElements = false;
    frame.reference = NO_NODE;
    frame.line = line_;
    frames_.push_back(frame);
    if (texts_.size() < frames_.size()) {
        texts_.emplace_back();
    }
    texts_[frames_.size() - 1].clear();
    return frames_.back();
}

void TreeParser::start(const xmlNode& element) {
    if (frames_.back().what == What::SKIPPED) {
        push(What::SKIPPED, Frame());
        return;
    }
    if (frames_.size() == 1) {
        noteRoot(element);
    }
    attributes_ = &attributeReader_.read(element);
    const Tag tag = tagOf(element);
    const Vocabulary vocabulary = vocabularyOfElement(element);
    decide(frames_.back());
    frames_.back().holdsElements = true;
    const Frame parent = frames_.back();  // a copy: pushing a frame may move the others
    if (parent.what == What::REFERENCE) {
        startInReference(tag, parent);
    } else if (parent.what == What::HEADER) {
        noteExporter();
        push(What::HEADER, parent).name = tag.name;
    } else if (vocabulary == Vocabulary::XMI) {
        startInXmi(tag, parent);
    } else if (parent.space == Space::EXTENSION) {
        startInExtension(tag, parent);
    } else if (parent.space == Space::FOREIGN || vocabulary == Vocabulary::OTHER ||
               (vocabulary == Vocabulary::NONE && parent.node == NO_NODE &&
                parent.name != "primitivetypes"_n)) {
        startForeign(element, tag, parent);
    } else {
        if (vocabulary == Vocabulary::UML) {
            noteUml(element);
        }
        startInUml(tag, parent);
    }
}

/// XMI 2 writes an object that has neither attributes nor a text like a property: what it holds tells.
void TreeParser::decide(Frame& frame) {
    if (frame.what == What::UNDECIDED) {
        frame.node =
            tree_.addNode(frame.node, kindOf(frame.name, Identity()), frame.name, frame.space, frame.line);
        frame.what = What::OBJECT;
    }
}

void TreeParser::startInXmi(Tag tag, const Frame& parent) {
    switch (tag.name) {
        case "extension"_n:
        case "extensions"_n:
        case "Extension"_n:
            startExtension(parent);
            break;
        case "header"_n:
        case "documentation"_n:
        case "Documentation"_n:
            noteExporter();
            push(What::HEADER, parent).name = tag.name;
            break;
        default:
            push(What::TRANSPARENT, parent);
    }
}

void TreeParser::startExtension(const Frame& parent) {
    const NodeIndex node = addNode(parent, "Extension"_n, NO_NAME, Space::EXTENSION);
    Frame& frame = push(What::OBJECT, parent);
    frame.space = Space::EXTENSION;
    frame.node = node;
}

void TreeParser::startInExtension(Tag tag, const Frame& parent) {
    if (std::find(std::begin(SKIPPED_IN_EXTENSIONS), std::end(SKIPPED_IN_EXTENSIONS), tag.name) !=
        std::end(SKIPPED_IN_EXTENSIONS)) {
        push(What::SKIPPED, parent);
        return;
    }
    if (tag.name == "primitivetypes"_n) {
        Frame& frame = push(What::TRANSPARENT, parent);
        frame.space = Space::UML;
        frame.node = NO_NODE;
        frame.name = tag.name;
        return;
    }
    const NodeIndex node = addNode(parent, tag.name, tag.name, Space::EXTENSION);
    push(What::OBJECT, parent).node = node;
}

void TreeParser::startForeign(const xmlNode& element, Tag tag, const Frame& parent) {
    const NodeIndex node = addNode(parent, tag.name, tag.name, Space::FOREIGN);
    addNamespaceAttribute(element, node);
    Frame& frame = push(What::OBJECT, parent);
    frame.node = node;
    frame.space = Space::FOREIGN;
}

void TreeParser::startInUml(Tag tag, const Frame& parent) {
    const Identity identity = identityOf(*attributes_);
    if (!tag.isCapital && tag.isDotted) {
        push(What::PROPERTY, parent).name = tag.name;
        texts_[frames_.size() - 1] = identity.value;
    } else if (!identity.idref.empty() || (!identity.href.empty() && identity.id.empty())) {
        startReference(tag, identity, parent);
    } else if (tag.isCapital || identity.hasOthers || !identity.id.empty() || !identity.type.empty()) {
        startObject(tag, identity, parent);
    } else {
        push(What::UNDECIDED, parent).name = tag.name;
    }
}

void TreeParser::startReference(Tag tag, const Identity& identity, const Frame& parent) {
    const bool isHref = identity.idref.empty();
    std::uint32_t value = NO_NODE;
    if (parent.node != NO_NODE) {
        value = tree_.addValue(parent.node, parent.what == What::PROPERTY ? parent.name : tag.name,
                               isHref ? Form::HREF : Form::IDREF, isHref ? identity.href : identity.idref);
    }
    push(What::REFERENCE, parent).reference = value;
}

/// Tools say in extensions what a thing in another file is called.
void TreeParser::startInReference(Tag tag, const Frame& parent) {
    for (const Attribute& attribute : *attributes_) {
        const bool isPath = attribute.name == "referentPath"_n ||
                            (tag.name == "referentPath"_n && attribute.name == "value"_n);
        if (isPath && parent.reference != NO_NODE) {
            tree_.setLabel(parent.reference, attribute.text);
        }
    }
    push(What::REFERENCE, parent).reference = parent.reference;
}

void TreeParser::startObject(Tag tag, const Identity& identity, const Frame& parent) {
    const Name role = !tag.isCapital ? tag.name : parent.what == What::PROPERTY ? parent.name : NO_NAME;
    const NodeIndex node = addNode(parent, kindOf(tag.name, identity), role, Space::UML);
    tree_.node(node).id = tree_.store(identity.id);
    push(What::OBJECT, parent).node = node;
}

void TreeParser::end() {
    const Frame& frame = frames_.back();
    const std::string& text = texts_[frames_.size() - 1];
    const bool isProperty = frame.what == What::PROPERTY || frame.what == What::UNDECIDED;
    if (isProperty && !frame.holdsElements && frame.node != NO_NODE) {
        tree_.addValue(frame.node, frame.name, Form::TEXT, text);
    } else if (frame.what == What::OBJECT && !isBlank(text)) {
        tree_.addValue(frame.node, "text"_n, Form::TEXT, text);
    } else if (frame.what == What::HEADER && frame.name == "exporter"_n && !isBlank(text)) {
        tree_.header.exporter = text;
    }
    frames_.pop_back();
}

void TreeParser::noteRoot(const xmlNode& element) {
    tree_.header.rootName = toView(element.name);
    for (const xmlNs* space = element.nsDef; space != nullptr; space = space->next) {
        const bool isXmi = vocabularyOf(uriOf(space), {}) == Vocabulary::XMI;
        tree_.header.isXmi2 = tree_.header.isXmi2 || isXmi;
    }
}

void TreeParser::noteUml(const xmlNode& element) {
    tree_.header.hasUml = true;
    if (tree_.header.umlNamespace.empty()) {
        tree_.header.umlNamespace = uriOf(element.ns);
    }
}

void TreeParser::noteExporter() {
    for (const Attribute& attribute : *attributes_) {
        if (attribute.name == "exporter"_n) {
            tree_.header.exporter = attribute.text;
        }
    }
}

TreeParser::Tag TreeParser::tagOf(const xmlNode& element) {
    const auto [found, isNew] = tags_.try_emplace(element.name);
    if (isNew) {
        const std::string_view whole = toView(element.name);
        const std::string_view last = lastPart(whole);
        const char first = last.empty() ? 'x' : last.front();
        found->second = {tree_.names.intern(last), whole.find('.') != std::string_view::npos,
                         first >= 'A' && first <= 'Z'};
    }
    return found->second;
}

Vocabulary TreeParser::vocabularyOfElement(const xmlNode& element) {
    const std::string_view uri = uriOf(element.ns);
    if (uri.empty()) {
        return vocabularyOf(uri, toView(element.name));
    }
    if (uri != lastUri_) {
        lastUri_ = uri;
        lastVocabulary_ = vocabularyOf(uri, toView(element.name));
    }
    return lastVocabulary_;
}

Name TreeParser::kindOf(Name tag, const Identity& identity) {
    if (!identity.type.empty()) {
        return tree_.names.intern(identity.type);
    }
    const auto* const found = std::find_if(std::begin(DEFAULT_KINDS), std::end(DEFAULT_KINDS),
                                           [&](const DefaultKind& row) { return row.role == tag; });
    return found == std::end(DEFAULT_KINDS) ? tag : found->kind;
}

/// Adds a node with its attributes; outside the model those that XMI defines are kept too.
NodeIndex TreeParser::addNode(const Frame& parent, Name kind, Name role, Space space) {
    const NodeIndex node = tree_.addNode(parent.node, kind, role, space, line_);
    for (const Attribute& attribute : *attributes_) {
        if (space != Space::UML || !attribute.isXmi) {
            tree_.addValue(node, attribute.name, Form::TEXT, attribute.text);
        }
    }
    return node;
}

/// A tagged value named "xmlns" was written as an attribute, and XML takes it for a namespace.
void TreeParser::addNamespaceAttribute(const xmlNode& element, NodeIndex node) {
    for (const xmlNs* space = element.nsDef; space != nullptr; space = space->next) {
        if (space->prefix == nullptr && element.ns != nullptr && element.ns->prefix != nullptr) {
            tree_.addValue(node, tree_.names.intern("xmlns"), Form::TEXT, uriOf(space));
        }
    }
}

}  // namespace readers::xmi
