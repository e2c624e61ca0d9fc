// What the check accepts and what the mapping document says that the bridge writes are the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "MappingDocument.h"
#include "OimGrammar.h"

namespace {

using check_test::Description;
using check_test::MappingDocument;
using oimcheck::AttributeRule;
using oimcheck::ElementKind;
using oimcheck::ElementRule;
using oimcheck::OimGrammar;

using Names = std::set<std::string>;
using Descriptions = std::vector<const Description*>;

class MappingTest : public testing::Test {
  protected:
    MappingTest() { pair(OimGrammar::ROOT_RULE, mapping.root()); }

    /// Goes down from an element, in the check's rules and in the mapping document at once.
    void pair(std::uint16_t rule, const Description& description) {
        Descriptions& known = descriptions[rule];
        if (std::find(known.begin(), known.end(), &description) != known.end()) {
            return;
        }
        known.push_back(&description);
        for (const ElementRule::Child& child : grammar[rule].children) {
            for (const Description::Child& held : description.children) {
                if (held.name == grammar.nameOf(child.tag)) {
                    for (const Description* candidate : held.descriptions) {
                        pair(child.rule, *candidate);
                    }
                }
            }
        }
    }

    Names namesOf(const std::vector<std::uint16_t>& tags) const {
        Names names;
        for (const std::uint16_t tag : tags) {
            names.insert(grammar.nameOf(tag));
        }
        return names;
    }

    const MappingDocument mapping{MAPPING_DOCUMENT};
    const OimGrammar& grammar = OimGrammar::instance();
    /// Of the elements that stand where a rule holds.
    std::map<std::uint16_t, Descriptions> descriptions;
};

TEST_F(MappingTest, EveryRuleIsThatOfAMappedElement) {
    for (std::size_t i = 0; i < grammar.size(); ++i) {
        const auto rule = static_cast<std::uint16_t>(i);
        EXPECT_EQ(descriptions.count(rule), 1U) << grammar[rule].name;
    }
}

TEST_F(MappingTest, WhatMayStandInAnElementIsWhatIsMapped) {
    for (const auto& [number, mapped] : descriptions) {
        const ElementRule& rule = grammar[number];
        SCOPED_TRACE(rule.name);
        Names permitted;
        for (const ElementRule::Child& child : rule.children) {
            permitted.insert(grammar.nameOf(child.tag));
        }
        Names written;
        for (const Description* description : mapped) {
            for (const Description::Child& child : description->children) {
                written.insert(child.name);
            }
        }
        EXPECT_EQ(permitted, written);
    }
}

TEST_F(MappingTest, AnAssociationStandsOnceInAnElementAndHasToWhenItIsAlwaysThere) {
    for (const auto& [number, mapped] : descriptions) {
        for (const ElementRule::Child& child : grammar[number].children) {
            const std::string& name = grammar.nameOf(child.tag);
            SCOPED_TRACE(grammar[number].name + " holds " + name);
            if (grammar.kindOf(child.tag) != ElementKind::ASSOCIATION) {
                continue;
            }
            const bool isAlways =
                std::all_of(mapped.begin(), mapped.end(), [&](const Description* description) {
                    const Description::Child* association = description->findChild(name);
                    return association != nullptr && association->isAlways;
                });
            EXPECT_EQ(child.isRequired, isAlways);
            // Of twins of a domain, one names the other twice.
            EXPECT_EQ(child.isSingle || grammar[number].holdsOne, name != "erd:DomainParentDomain");
        }
    }
}

/// A description may hold for several places, each with a rule of its own that permits part of the
/// references.
TEST_F(MappingTest, WhatAnElementMayReferToIsWhatIsMapped) {
    std::map<const Description*, Names> permitted;
    for (const auto& [number, mapped] : descriptions) {
        const Names references = namesOf(grammar[number].references);
        Names written;
        for (const Description* description : mapped) {
            written.insert(description->references.begin(), description->references.end());
            permitted[description].insert(references.begin(), references.end());
        }
        EXPECT_THAT(written, testing::IsSupersetOf(references)) << grammar[number].name;
        EXPECT_EQ(references.empty(), written.empty()) << grammar[number].name;
    }
    for (const auto& [description, references] : permitted) {
        EXPECT_THAT(references, testing::IsSupersetOf(description->references)) << description->name;
    }
}

TEST_F(MappingTest, TheAttributesOfAnElementAreThoseThatAreMapped) {
    for (const auto& [number, mapped] : descriptions) {
        const ElementRule& rule = grammar[number];
        SCOPED_TRACE(rule.name);
        Names permitted;
        for (const AttributeRule& attribute : rule.attributes) {
            permitted.insert(attribute.name);
            EXPECT_EQ(attribute.isRequired,
                      std::all_of(mapped.begin(), mapped.end(),
                                  [&](const Description* description) {
                                      const auto found = description->attributes.find(attribute.name);
                                      return found != description->attributes.end() && found->second.isAlways;
                                  }))
                << attribute.name;
        }
        if (rule.kind == ElementKind::OBJECT || rule.kind == ElementKind::NUMBERED_ASSOCIATION) {
            permitted.insert("oim:id");
        }
        Names written;
        for (const Description* description : mapped) {
            for (const auto& [name, values] : description->attributes) {
                written.insert(name);
            }
        }
        EXPECT_EQ(permitted, written);
    }
}

/// Whether any value is permitted though some description has a fixed one: a role does not tell whether it is
/// an association's, which may have any multiplicity, or a generalization's; and who exported a document is
/// not checked.
bool isFreeInAnyCase(const ElementRule& rule, const AttributeRule& attribute) {
    return (attribute.name == "multiplicity" &&
            (rule.name == "erd:ParentRole" || rule.name == "erd:ChildRole")) ||
           rule.name == "oim:TransferHeader";
}

void expectSameValues(const ElementRule& rule, const AttributeRule& attribute, const Descriptions& mapped) {
    Names words;
    for (const Description* description : mapped) {
        const auto found = description->attributes.find(attribute.name);
        if (found == description->attributes.end()) {
            continue;
        }
        const Description::Values& values = found->second;
        EXPECT_EQ(attribute.isInteger, values.isInteger);
        if (!isFreeInAnyCase(rule, attribute)) {
            EXPECT_EQ(attribute.words.empty(), values.isFree || values.isInteger);
            words.insert(values.words.begin(), values.words.end());
        }
    }
    EXPECT_EQ(Names(attribute.words.begin(), attribute.words.end()), words);
}

TEST_F(MappingTest, TheValuesOfAnAttributeAreThoseOfEachDescription) {
    for (const auto& [number, mapped] : descriptions) {
        for (const AttributeRule& attribute : grammar[number].attributes) {
            SCOPED_TRACE(grammar[number].name + " " + attribute.name);
            expectSameValues(grammar[number], attribute, mapped);
        }
    }
}

}  // namespace
