#include "DefaultTypeSet.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace cli {

namespace {

/// The values that name no convention.
bool isNoConvention(std::string_view typeSet) {
    return typeSet == "None" || typeSet == "Default";
}

std::string toLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

struct ProductVersion {
    std::string product;  ///< in small letters
    std::string version;  ///< the last word where that begins with a digit; else empty
};

ProductVersion split(std::string_view text) {
    const std::string lower = toLower(text);
    const std::size_t blank = lower.rfind(' ');
    if (blank == std::string::npos || blank + 1 == lower.size() || !isDigit(lower[blank + 1])) {
        return {lower, {}};
    }
    return {lower.substr(0, blank), lower.substr(blank + 1)};
}

/// How well a convention's product fits a database's: the higher, the better; nothing when it does not.
std::optional<int> fit(const std::string& product, const std::string& databaseProduct) {
    if (product == databaseProduct) {
        return 3;
    }
    if (databaseProduct.ends_with(" " + product)) {
        return 2;
    }
    if (databaseProduct.starts_with(product + " ") || product.starts_with(databaseProduct + "/")) {
        return 1;
    }
    return std::nullopt;
}

/// Whether a version such as "7.0.3" is one of those that a pattern such as "7.x" or "7.0" stands for.
bool fitsVersion(std::string_view pattern, std::string_view version) {
    while (!pattern.empty() && !version.empty()) {
        const std::string_view wanted = pattern.substr(0, pattern.find('.'));
        std::string_view part = version.substr(0, version.find('.'));
        version.remove_prefix(std::min(part.size() + 1, version.size()));
        pattern.remove_prefix(std::min(wanted.size() + 1, pattern.size()));
        // "8i" is version 8.
        part = part.substr(0, std::min(part.find_first_not_of("0123456789"), part.size()));
        if (wanted != "x" && wanted != part) {
            return false;
        }
    }
    return pattern.empty() || pattern == "x";
}

}  // namespace

std::string findTypeSet(std::string_view databaseType, const std::vector<std::string>& typeSets) {
    if (databaseType.empty() || isNoConvention(databaseType)) {
        return {};
    }
    if (std::find(typeSets.begin(), typeSets.end(), databaseType) != typeSets.end()) {
        return std::string(databaseType);
    }
    const ProductVersion database = split(databaseType);
    std::string best;
    std::pair<int, bool> bestRank{0, false};
    for (const std::string& typeSet : typeSets) {
        const ProductVersion candidate = split(typeSet);
        const std::optional<int> productFit =
            isNoConvention(typeSet) ? std::nullopt : fit(candidate.product, database.product);
        if (!productFit.has_value()) {
            continue;
        }
        const std::pair rank(*productFit,
                             !database.version.empty() && fitsVersion(candidate.version, database.version));
        // The later of equals is the newer one.
        if (rank >= bestRank) {
            best = typeSet;
            bestRank = rank;
        }
    }
    return best;
}

}  // namespace cli
