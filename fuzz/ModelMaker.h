#pragma once

#include <memory>
#include <vector>

#include "Choices.h"
#include "ZOR.h"

namespace fuzz {

/// Makes a model of choices: any objects in any number, with any properties, related in any way. Most are
/// sound; what a check has to refuse occurs as well.
class ModelMaker {
  public:
    explicit ModelMaker(Choices& choices) : choices_(choices) {}
    std::unique_ptr<ZORModel> make();

  private:
    void makeTypes();
    void makePackages();
    ZORDesignPackage& anyPackage();
    void makeElement();
    void makeClass();
    void makeAttributes(ZORClass& cls);
    void makeKeys(ZORClass& cls);
    void makeIndex(ZORClass& cls);
    void makeOperation(ZOROperation& operation);
    std::unique_ptr<ZOROperation> anyOperation();
    void makeArgument(ZORArgument& argument);
    void makeView();
    void makeAssociation();
    void makeRole(ZORAssociation& association);
    void makeGeneralization();
    void makeDiagram();
    void completeForeignKeys();
    void setTexts(ZORModelObject& object);
    ZORString anyText();

    template <typename Object>
    std::unique_ptr<Object> anyObject() {
        auto object = std::make_unique<Object>();
        setTexts(*object);
        return object;
    }
    template <typename Enumeration>
    Enumeration anyOf(int count) {
        return static_cast<Enumeration>(choices_.below(static_cast<std::size_t>(count)));
    }
    template <typename Object>
    Object* any(const std::vector<Object*>& objects) {
        return objects.empty() ? nullptr
                               : objects[choices_.below(std::min<std::size_t>(objects.size(), 256))];
    }

    Choices& choices_;
    std::unique_ptr<ZORModel> model_ = std::make_unique<ZORModel>();
    std::vector<ZORDesignPackage*> packages_;
    std::vector<ZORType*> types_;
    std::vector<ZORClass*> classes_;
    std::vector<ZORAttribute*> attributes_;
    std::vector<ZORCandidateKey*> candidateKeys_;
    std::vector<ZORForeignKey*> foreignKeys_;
    std::vector<ZORModelElement*> elements_;
};

}  // namespace fuzz
