#pragma once

#include <ctime>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ZOR.h"
#include "ZORManager.h"

namespace cases {

/// 12 June 2007, 10:53:57.
constexpr std::time_t MOMENT = 1181645637;

struct Reading {
    std::unique_ptr<ZORModel> model;
    std::string log;  ///< what the reader warned of, then what it did not carry over, a line each
};

/// Reads the source with the reader that recognises it; `modelName` may be empty.
Reading readModel(const std::string& source, const std::string& modelName);

/// The model as a model document, and back.
std::string saveModel(const ZORModel& model);
std::unique_ptr<ZORModel> readSavedModel(const std::string& document);

/// Exports through the plug-in as a host loads it. `name` is that of the file that is written meanwhile.
std::string exportModel(ZORModel& model, const std::vector<std::pair<std::string, std::string>>& options,
                        const std::string& name, ZORLog& log);

}  // namespace cases
