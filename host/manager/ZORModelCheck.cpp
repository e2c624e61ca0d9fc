#include "ZORModelCheck.h"

#include "check/ModelChecker.h"

std::vector<ZORString> checkModel(ZORModel& model, std::size_t most) {
    return ModelChecker(model, most).run();
}
