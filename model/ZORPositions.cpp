#include "ZORPositions.h"

ZORAttributeByPosition sortByPosition(const ZORVector<ZORAttribute*>& attributes) {
    const auto before = [](const ZORAttribute* a, const ZORAttribute* b) {
        return a->getPosition() < b->getPosition();
    };
    ZORVector<ZORAttribute*> sorted(attributes);
    if (!std::is_sorted(sorted.begin(), sorted.end(), before)) {
        std::stable_sort(&sorted[0], &sorted[0] + sorted.size(), before);
    }
    return ZORAttributeByPosition(std::move(sorted));
}
