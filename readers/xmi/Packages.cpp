#include "Packages.h"

namespace readers::xmi {

namespace {

/// Where the next name in a path such as "a.b" or "a::b" ends, from a position behind the last separator.
std::size_t findSeparator(std::string_view path, std::size_t from) noexcept {
    return path.find_first_of(".:", from);
}

}  // namespace

ZORDesignPackage& Packages::of(Element element) {
    if (const std::string_view path = assembly_.plan.mentionedPackageOf(element.index()); !path.empty()) {
        return mentioned(path);
    }
    const NodeIndex package = assembly_.plan.packageOf(element.index());
    return package == NO_NODE ? loose() : packageOfNode(package);
}

ZORDesignPackage& Packages::packageOfNode(NodeIndex node) {
    if (assembly_.objects[node] == nullptr) {
        const Element element = assembly_.tree.at(node);
        const std::string_view path = assembly_.plan.mentionedPackageOf(node);
        const NodeIndex outer = assembly_.plan.packageOf(node);
        ZORPackage* parent = &assembly_.model;
        if (!path.empty()) {
            parent = &mentioned(path);
        } else if (outer != NO_NODE) {
            parent = &packageOfNode(outer);
        }
        auto* package = parent->addChildPackage(std::make_unique<ZORDesignPackage>());
        package->setName(element.text("name"_n));
        assembly_.record(element, package);
    }
    return *static_cast<ZORDesignPackage*>(assembly_.objects[node]);
}

ZORDesignPackage& Packages::loose() {
    if (loose_ == nullptr) {
        loose_ = assembly_.model.addChildPackage(std::make_unique<ZORDesignPackage>());
        loose_->setName(looseName_);
    }
    return *loose_;
}

ZORDesignPackage& Packages::mentioned(std::string_view path) {
    ZORPackage* parent = &assembly_.model;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(findSeparator(path, start), path.size());
        if (end > start) {
            const std::string_view name = path.substr(start, end - start);
            ZORDesignPackage*& package = mentioned_[{parent, name}];
            if (package == nullptr) {
                package = parent->addChildPackage(std::make_unique<ZORDesignPackage>());
                package->setName(name);
            }
            parent = package;
        }
        start = end + 1;
    }
    return parent == &assembly_.model ? loose() : *static_cast<ZORDesignPackage*>(parent);
}

}  // namespace readers::xmi
