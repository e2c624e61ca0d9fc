#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Names.h"
#include "Vocabularies.h"
#include "XmlStream.h"

namespace readers::xmi {

/// One attribute of an element.
struct Attribute {
    Name name = NO_NAME;    ///< its last part
    bool isXmi = false;     ///< defined by XMI, or by XML Schema in its place, not by UML
    std::string_view text;  ///< valid as long as the element
};

/// The attributes of one element after the other. Names and namespaces come up again and again, so what they
/// mean is worked out once.
class AttributeReader {
  public:
    explicit AttributeReader(NameTable& names) : names_(names) {}
    /// Valid until the next call.
    const std::vector<Attribute>& read(const xmlNode& element);

  private:
    struct KnownName {
        Name name = NO_NAME;
        bool isXmi = false;
    };
    KnownName nameOf(const xmlAttr& attribute);
    bool isXmiNamespace(const xmlNs* space);

    NameTable& names_;
    std::unordered_map<const xmlChar*, KnownName> known_;
    std::string lastUri_;
    bool lastUriIsXmi_ = false;
    std::vector<Attribute> attributes_;
};

/// The attributes of an element of the model that say which object it is.
struct Identity {
    std::string_view id;
    std::string_view idref;
    std::string_view href;
    std::string_view type;  ///< the metaclass, without its prefix
    std::string_view value;
    bool hasOthers = false;
};
Identity identityOf(const std::vector<Attribute>& attributes) noexcept;

/// The address of a namespace; empty without one.
inline std::string_view uriOf(const xmlNs* space) noexcept {
    return space == nullptr ? std::string_view() : toView(space->href);
}

}  // namespace readers::xmi
