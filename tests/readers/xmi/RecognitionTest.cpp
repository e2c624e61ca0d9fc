// Which files are taken for UML models, and in what encodings.

#include <gtest/gtest.h>

#include "Fragments.h"
#include "xmi/XmiReader.h"

namespace xmi_test {
namespace {

bool isRecognised(const std::string& name, const std::string& text) {
    return readers::xmiReader().identify(readers::Source::fromText(name, text));
}

TEST(XmiRecognition, GoesByContent) {
    const std::vector<std::string> files = {
        eclipse(""),
        xmi12(""),
        xmi10(""),
        plantUml(""),
        "\xEF\xBB\xBF<XMI xmi.version=\"1.2\"/>",
        "<!-- written by hand -->\n<?tool x?><XMI xmi.version=\"1.2\"/>",
        R"(<uml:Model xmi:version="2.1" xmlns:xmi="http://schema.omg.org/spec/XMI/2.1"/>)",
        R"(<uml:Package xmlns:uml="http://www.eclipse.org/uml2/5.0.0/UML" name="p"/>)",
        R"(<m:Model xmlns:m="http://schema.omg.org/spec/UML/2.1.1"/>)",
    };
    for (const std::string& file : files) {
        EXPECT_TRUE(isRecognised("anything.xml", file)) << file;
    }
}

TEST(XmiRecognition, LeavesOtherFilesAlone) {
    for (const std::string file :
         {"", "<html/>", "<xmimodel/>", "CREATE TABLE XMI (a INTEGER);", "{\"XMI\": 1}"}) {
        EXPECT_FALSE(isRecognised("anything.xml", file)) << file;
    }
}

TEST(XmiRecognition, GoesByNameWhereTheContentIsDamaged) {
    EXPECT_TRUE(isRecognised("model.xmi", "%PDF-1.4"));
    EXPECT_TRUE(isRecognised("model.uml", "<html/>"));
    EXPECT_FALSE(isRecognised("model.uml", "@startuml") && isRecognised("model.uml", "CREATE TABLE a (b);"));
}

std::string inEncoding(const std::string& encoding, const std::string& text) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" + text.substr(text.find('\n'));
}

std::string toUtf16(const std::string& ascii) {
    std::string wide = "\xFF\xFE";
    for (const char character : ascii) {
        wide += character;
        wide += '\0';
    }
    return wide;
}

TEST(XmiEncoding, IsTheFilesOwn) {
    const std::string expected = "model m\n  package m\n    class Größe €\n";
    EXPECT_EQ(read(eclipse(cls("Größe €"))).outline(), expected);
    EXPECT_EQ(read(inEncoding("windows-1252", eclipse(cls("Gr\xF6\xDF"
                                                          "e \x80"))))
                  .outline(),
              expected);
    EXPECT_EQ(read(eclipse(cls("Gr&#246;&#xDF;e &#8364;"))).outline(), expected);
    const std::string wide = toUtf16(inEncoding("UTF-16", eclipse(cls("A"))));
    EXPECT_TRUE(isRecognised("anything.xml", wide));
    EXPECT_EQ(read(wide).outline(), "model m\n  package m\n    class A\n");
}

}  // namespace
}  // namespace xmi_test
