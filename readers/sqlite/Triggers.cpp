// Triggers of tables and views.

#include "Build.h"
#include "Definitions.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

using Timing = TriggerDefinition::Timing;
using Event = TriggerDefinition::Event;

std::unique_ptr<ZORTrigger> triggerOf(Build& build, const TriggerFacts& facts) {
    const TriggerDefinition definition = parseTriggerDefinition(facts.sql);
    auto trigger = std::make_unique<ZORTrigger>();
    trigger->setName(ZORString(facts.name));
    trigger->setAfter(definition.timing == Timing::AFTER);
    trigger->setInsert(definition.event == Event::INSERT);
    trigger->setUpdate(definition.event == Event::UPDATE);
    trigger->setDelete(definition.event == Event::DELETE);
    trigger->setBody(ZORString(definition.action));
    const std::string place = placeOf(facts.table, facts.name);
    if (definition.timing == Timing::INSTEAD_OF) {
        build.losses.add("trigger timings", place, "INSTEAD OF");
    }
    if (!definition.columns.empty()) {
        build.losses.add("trigger column lists", place, "UPDATE OF " + toLine(definition.columns));
    }
    return trigger;
}

}  // namespace

void addTriggers(Build& build) {
    for (const TriggerFacts& facts : build.catalog.triggers) {
        if (!build.selectsTrigger(facts)) {
            continue;
        }
        const auto view = build.views.find(foldCase(facts.table));
        if (TableModel* table = build.table(facts.table)) {
            table->cls->addOperation(triggerOf(build, facts));
        } else if (view != build.views.end()) {
            view->second->addOperation(triggerOf(build, facts));
        } else {
            continue;
        }
        build.monitor.advance();
    }
}

}  // namespace readers::sqlite
