#include "ZORModelCheck.h"

#include "check/ModelChecker.h"

std::vector<ZORString> checkModel(ZORModel& model, std::size_t most, ZORViewsToCheck views) {
    return ModelChecker(model, most, views).run();
}
