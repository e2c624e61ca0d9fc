#include "UmlGenerator.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace bench {
namespace {

constexpr int CLASSES_PER_PACKAGE = 100;
constexpr int ATTRIBUTES = 8;
constexpr int OPERATIONS = 2;

constexpr const char* PRIMITIVE_TYPES[] = {"String", "Integer", "Boolean", "Real"};
constexpr const char* ATTRIBUTE_WORDS[] = {"displayName", "weight", "isOpen", "price", "remark", "count"};

/// What of a class an identifier is for; parts of features follow their feature.
enum Slot : std::uint32_t {
    CLASS,
    PACKAGE,
    COMMENT,
    GENERALIZATION,
    ASSOCIATION,
    OTHER_END,
    OWN_END = 8,
    ATTRIBUTE = 16,
    OPERATION = 128,
    SLOTS = 256
};
constexpr std::uint32_t PARTS = 4;  ///< of a feature, itself included

std::uint64_t scramble(std::uint64_t number) {
    number = (number ^ (number >> 31)) * 0x9E3779B97F4A7C15U;
    number = (number ^ (number >> 29)) * 0xD6E8FEB86659FD93U;
    return number ^ (number >> 32);
}

/// 23 characters that look arbitrary, as those tools make them; no two are the same.
std::string id(int ofClass, std::uint32_t slot) {
    constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    const std::uint64_t first = scramble(static_cast<std::uint64_t>(ofClass) * SLOTS + slot + 1);
    std::string text = "_";
    for (std::uint64_t rest : {first, scramble(first)}) {
        for (int digit = 0; digit < 11; ++digit, rest /= 64) {
            text += DIGITS[rest % 64];
        }
    }
    return text;
}

std::string idAttribute(int ofClass, std::uint32_t slot) {
    return " xmi:id=\"" + id(ofClass, slot) + '"';
}

std::string className(int index) {
    return "Component" + std::to_string(index);
}

std::string primitiveType(int index) {
    return "<type xmi:type=\"uml:PrimitiveType\" href=\"pathmap://UML_LIBRARIES/"
           "UMLPrimitiveTypes.library.uml#" +
           std::string(PRIMITIVE_TYPES[static_cast<std::size_t>(index) % std::size(PRIMITIVE_TYPES)]) +
           "\"/>\n";
}

std::string lowerValue(int ofClass, std::uint32_t slot) {
    return "        <lowerValue xmi:type=\"uml:LiteralInteger\"" + idAttribute(ofClass, slot) + "/>\n";
}

std::string upperValue(int ofClass, std::uint32_t slot, const char* value) {
    return "        <upperValue xmi:type=\"uml:LiteralUnlimitedNatural\"" + idAttribute(ofClass, slot) +
           " value=\"" + value + "\"/>\n";
}

std::string attribute(int ofClass, int index) {
    const std::uint32_t slot = ATTRIBUTE + static_cast<std::uint32_t>(index) * PARTS;
    return "      <ownedAttribute" + idAttribute(ofClass, slot) + " name=\"" +
           ATTRIBUTE_WORDS[static_cast<std::size_t>(index) % std::size(ATTRIBUTE_WORDS)] +
           std::to_string(index) + "\" visibility=\"private\">\n        " + primitiveType(ofClass + index) +
           lowerValue(ofClass, slot + 1) + upperValue(ofClass, slot + 2, "1") + "      </ownedAttribute>\n";
}

std::string operation(int ofClass, int index) {
    const std::uint32_t slot = OPERATION + static_cast<std::uint32_t>(index) * PARTS;
    return "      <ownedOperation" + idAttribute(ofClass, slot) + " name=\"compute" + std::to_string(index) +
           "\">\n        <ownedParameter" + idAttribute(ofClass, slot + 1) + " name=\"amount\">\n          " +
           primitiveType(index) + "        </ownedParameter>\n        <ownedParameter" +
           idAttribute(ofClass, slot + 2) + " name=\"result\" direction=\"return\">\n          " +
           primitiveType(index + 1) + "        </ownedParameter>\n      </ownedOperation>\n";
}

std::string comment(int ofClass) {
    return "      <ownedComment" + idAttribute(ofClass, COMMENT) + " annotatedElement=\"" +
           id(ofClass, CLASS) +
           "\">\n        <body>What the class stands for, in &quot;some&quot; words &amp; signs.</body>\n"
           "      </ownedComment>\n";
}

/// The end that the class owns: many of another class.
std::string ownEnd(int ofClass, int other) {
    return "      <ownedAttribute" + idAttribute(ofClass, OWN_END) + " name=\"parts\" type=\"" +
           id(other, CLASS) + "\" aggregation=\"shared\" association=\"" + id(ofClass, ASSOCIATION) +
           "\">\n" + lowerValue(ofClass, OWN_END + 1) + upperValue(ofClass, OWN_END + 2, "*") +
           "      </ownedAttribute>\n";
}

std::string classElement(int index) {
    std::string text = "    <packagedElement xmi:type=\"uml:Class\"" + idAttribute(index, CLASS) +
                       " name=\"" + className(index) + "\">\n" + comment(index);
    if (index > 0) {
        text += "      <generalization" + idAttribute(index, GENERALIZATION) + " general=\"" +
                id(index / 2, CLASS) + "\"/>\n";
    }
    for (int i = 0; i < ATTRIBUTES; ++i) {
        text += attribute(index, i);
    }
    text += ownEnd(index, index / 3);
    for (int i = 0; i < OPERATIONS; ++i) {
        text += operation(index, i);
    }
    return text + "    </packagedElement>\n";
}

std::string associationElement(int index) {
    return "    <packagedElement xmi:type=\"uml:Association\"" + idAttribute(index, ASSOCIATION) +
           " memberEnd=\"" + id(index, OWN_END) + ' ' + id(index, OTHER_END) + "\">\n      <ownedEnd" +
           idAttribute(index, OTHER_END) + " name=\"whole\" type=\"" + id(index, CLASS) +
           "\" association=\"" + id(index, ASSOCIATION) + "\"/>\n    </packagedElement>\n";
}

}  // namespace

std::string generateUmlModel(int classes) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<uml:Model xmi:version=\"20131001\" "
        "xmlns:xmi=\"http://www.omg.org/spec/XMI/20131001\" "
        "xmlns:uml=\"http://www.eclipse.org/uml2/5.0.0/UML\" xmi:id=\"_generated\" name=\"Generated\">\n";
    for (int first = 0; first < classes; first += CLASSES_PER_PACKAGE) {
        text += "  <packagedElement xmi:type=\"uml:Package\"" + idAttribute(first, PACKAGE) +
                " name=\"package" + std::to_string(first / CLASSES_PER_PACKAGE) + "\">\n";
        const int last = std::min(first + CLASSES_PER_PACKAGE, classes);
        for (int index = first; index < last; ++index) {
            text += classElement(index) + associationElement(index);
        }
        text += "  </packagedElement>\n";
    }
    return text + "</uml:Model>\n";
}

}  // namespace bench
