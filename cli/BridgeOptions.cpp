#include "BridgeOptions.h"

#include <algorithm>

#include "DefaultTypeSet.h"
#include "Failure.h"

namespace cli {

namespace {

constexpr const char* BRIDGE_NAME = "MicrosoftSqlServerMdsMdcExport";

void setDefault(ZOROptionList& options, const Arguments& arguments, const char* displayName,
                const std::string& value) {
    const bool given =
        std::any_of(arguments.bridgeOptions.begin(), arguments.bridgeOptions.end(),
                    [&](const BridgeSetting& setting) { return setting.displayName == displayName; });
    if (!given) {
        options.setValue(displayName, std::string_view(value));
    }
}

std::string hintFor(const ZOROptionList& options, const BridgeSetting& setting) {
    const bool isKnown = options.find(std::string_view(setting.displayName)) != nullptr;
    return isKnown ? "oimbridge options \"" + setting.displayName + "\" lists what it permits"
                   : "oimbridge options lists all options";
}

}  // namespace

ZORBridge loadBridge() {
    try {
        return ZORBridgeManager().load(BRIDGE_NAME);
    } catch (const ZORException& error) {
        throw Failure(
            ExitCode::OUTPUT_NOT_WRITTEN, {}, error.what(),
            "the environment variable ZOR_BRIDGE_PATH names the folder of the bridge; unset, it is beside "
            "the program's libraries");
    }
}

void setGivenOptions(ZOROptionList& options, const Arguments& arguments) {
    for (const BridgeSetting& setting : arguments.bridgeOptions) {
        try {
            options.setValue(std::string_view(setting.displayName), std::string_view(setting.value));
        } catch (const ZORException& error) {
            throw Failure(ExitCode::WRONG_USE, setting.givenBy, error.what(), hintFor(options, setting));
        }
    }
}

const View* givenView(const ZOROptionList& options, const Arguments& arguments) {
    const auto& settings = arguments.bridgeOptions;
    const auto last = std::find_if(settings.rbegin(), settings.rend(), [](const BridgeSetting& setting) {
        return setting.displayName == "Model";
    });
    if (last == settings.rend()) {
        return nullptr;
    }
    return findViewByBridgeValue(options.getValue("Model").view());
}

void setDefaultTypeSets(ZOROptionList& options, const Arguments& arguments, const std::string& databaseType) {
    std::vector<std::string> typeSets;
    if (const ZOROption* option = options.find("DBM TypeSet"); option != nullptr) {
        for (const ZORString& value : option->getPermittedValues()) {
            typeSets.emplace_back(value.view());
        }
    }
    const std::string fitting = findTypeSet(databaseType, typeSets);
    setDefault(options, arguments, "DBM TypeSet",
               fitting.empty() ? std::string(FALLBACK_DBM_TYPE_SET) : fitting);
    setDefault(options, arguments, "ERD TypeSet", std::string(DEFAULT_ERD_TYPE_SET));
}

}  // namespace cli
