#pragma once

#include <map>
#include <string_view>
#include <utility>

#include "Assembly.h"

namespace readers::xmi {

/// The packages of the model, made when they are first needed, so that they stand in the order of the file.
class Packages {
  public:
    /// `looseName` is the name of the package for elements that stand in no package.
    Packages(Assembly& assembly, ZORString looseName)
        : assembly_(assembly), looseName_(std::move(looseName)) {}

    /// The package that an element goes into.
    ZORDesignPackage& of(Element element);
    /// The package that has the node, which becomes one.
    ZORDesignPackage& packageOfNode(NodeIndex node);

  private:
    ZORDesignPackage& loose();
    ZORDesignPackage& mentioned(std::string_view path);

    Assembly& assembly_;
    ZORString looseName_;
    ZORDesignPackage* loose_ = nullptr;
    std::map<std::pair<const ZORPackage*, std::string_view>, ZORDesignPackage*> mentioned_;
};

}  // namespace readers::xmi
