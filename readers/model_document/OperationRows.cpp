#include "Rows.h"

namespace readers::document {

namespace {

enum Event { INSERT, UPDATE, DELETE };

constexpr Word TIMINGS[] = {{"before", false}, {"after", true}};
constexpr Word EVENTS[] = {{"insert", INSERT}, {"update", UPDATE}, {"delete", DELETE}};
constexpr Word DIRECTIONS[] = {{"none", ZOR_ARGUMENT_NONE},
                               {"in", ZOR_ARGUMENT_IN},
                               {"out", ZOR_ARGUMENT_OUT},
                               {"inout", ZOR_ARGUMENT_INOUT},
                               {"return", ZOR_ARGUMENT_RETURN}};

void addEvent(ZORModelObject& object, std::int32_t event) {
    auto& trigger = static_cast<ZORTrigger&>(object);
    switch (event) {
        case INSERT:
            trigger.setInsert(true);
            break;
        case UPDATE:
            trigger.setUpdate(true);
            break;
        default:
            trigger.setDelete(true);
            break;
    }
}

Field events() {
    Field row = field("events", Shape::WORDS, "What makes the trigger fire.");
    row.words = EVENTS;
    row.setNumber = addEvent;
    return row;
}

}  // namespace

std::vector<Field> operationFields() {
    return withCommonFields({
        reference<&ZOROperation::setResultType>("result", ANY_TYPE, "The type of the result."),
        objects<&ZOROperation::addArgument>("arguments", Family::ARGUMENTS,
                                            "The arguments, in the order of a call."),
        word<&ZOROperation::setConcurrency>("concurrency", CONCURRENCIES,
                                            "How the operation behaves when called at once."),
        boolean<&ZOROperation::setAbstract>("abstract", "Whether the operation has no method of its own."),
        boolean<&ZOROperation::setStatic>("static", "Whether the operation needs no object."),
        word<&ZOROperation::setVisibility>("visibility", VISIBILITIES, "Who may call the operation."),
        text<&ZOROperation::setPrecondition>("precondition", "What must hold before the operation."),
        text<&ZOROperation::setPostcondition>("postcondition", "What holds after the operation."),
        text<&ZOROperation::setSemantics>("semantics", "What the operation means."),
        text<&ZOROperation::setBody>("body", "A procedure's body, a trigger's statements."),
    });
}

std::vector<Field> triggerFields() {
    std::vector<Field> fields = operationFields();
    fields.push_back(word<&ZORTrigger::setAfter>("timing", TIMINGS,
                                                 "Whether the trigger fires before the event or after it."));
    fields.push_back(events());
    return fields;
}

std::vector<Field> argumentFields() {
    return withCommonFields({
        required(reference<&ZORArgument::addType>("type", ANY_TYPE, "The data type.")),
        text<&ZORArgument::setDefaultValue>("default", "What the argument is when a call leaves it out."),
        word<&ZORArgument::setKind>("direction", DIRECTIONS, "Which way the argument carries a value."),
    });
}

std::vector<Field> viewFields() {
    return withCommonFields({
        text<&ZORSQLViewEntity::setSQLText>("sql", "The view's SELECT statement."),
        objects<&ZORSQLViewEntity::addSQLViewAttribute>("columns", Family::COLUMNS, "The columns."),
        objects<&ZORSQLViewEntity::addOperation>("operations", Family::OPERATIONS,
                                                 "The operations and triggers."),
    });
}

std::vector<Field> columnFields() {
    return withCommonFields({
        reference<&ZORSQLViewAttribute::setType>("type", ANY_TYPE, "The data type, where it is known."),
        reference<&ZORSQLViewAttribute::setSource>(
            "source", ANY_OBJECT, "What the column shows: an attribute, or any other object."),
    });
}

}  // namespace readers::document
