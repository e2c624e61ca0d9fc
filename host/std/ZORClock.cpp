#include "ZORClock.h"

namespace {

std::optional<std::time_t> fixedMoment;

}  // namespace

void ZORClock::setFixed(std::optional<std::time_t> moment) noexcept {
    fixedMoment = moment;
}

std::tm ZORClock::now() noexcept {
    std::tm parts{};
    if (fixedMoment) {
        gmtime_r(&*fixedMoment, &parts);
    } else {
        const std::time_t moment = std::time(nullptr);
        localtime_r(&moment, &parts);
    }
    return parts;
}
