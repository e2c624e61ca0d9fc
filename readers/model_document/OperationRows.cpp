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

std::int32_t eventsOf(const ZORModelObject& object) {
    const auto& trigger = static_cast<const ZORTrigger&>(object);
    return (trigger.isInsert() ? 1 << INSERT : 0) | (trigger.isUpdate() ? 1 << UPDATE : 0) |
           (trigger.isDelete() ? 1 << DELETE : 0);
}

Field events() {
    Field row = field("events", Shape::WORDS, "What makes the trigger fire.");
    row.words = EVENTS;
    row.setNumber = addEvent;
    row.getNumber = eventsOf;
    return row;
}

}  // namespace

std::vector<Field> operationFields() {
    return withCommonFields({
        reference<&ZOROperation::setResultType, &ZOROperation::getResultType>("result", ANY_TYPE,
                                                                              "The type of the result."),
        objects<&ZOROperation::addArgument, &ZOROperation::getArguments>(
            "arguments", Family::ARGUMENTS, "The arguments, in the order of a call."),
        word<&ZOROperation::setConcurrency, &ZOROperation::getConcurrency>(
            "concurrency", CONCURRENCIES, "How the operation behaves when called at once."),
        boolean<&ZOROperation::setAbstract, &ZOROperation::isAbstract>(
            "abstract", "Whether the operation has no method of its own."),
        boolean<&ZOROperation::setStatic, &ZOROperation::isStatic>("static",
                                                                   "Whether the operation needs no object."),
        word<&ZOROperation::setVisibility, &ZOROperation::getVisibility>("visibility", VISIBILITIES,
                                                                         "Who may call the operation."),
        text<&ZOROperation::setPrecondition, &ZOROperation::getPrecondition>(
            "precondition", "What must hold before the operation."),
        text<&ZOROperation::setPostcondition, &ZOROperation::getPostcondition>(
            "postcondition", "What holds after the operation."),
        text<&ZOROperation::setSemantics, &ZOROperation::getSemantics>("semantics",
                                                                       "What the operation means."),
        text<&ZOROperation::setBody, &ZOROperation::getBody>("body",
                                                             "A procedure's body, a trigger's statements."),
    });
}

std::vector<Field> triggerFields() {
    std::vector<Field> fields = operationFields();
    fields.push_back(word<&ZORTrigger::setAfter, &ZORTrigger::isAfter>(
        "timing", TIMINGS, "Whether the trigger fires before the event or after it."));
    fields.push_back(events());
    return fields;
}

std::vector<Field> argumentFields() {
    return withCommonFields({
        required(reference<&ZORArgument::addType, &ZORArgument::getType>("type", ANY_TYPE, "The data type.")),
        text<&ZORArgument::setDefaultValue, &ZORArgument::getDefaultValue>(
            "default", "What the argument is when a call leaves it out."),
        word<&ZORArgument::setKind, &ZORArgument::getKind>("direction", DIRECTIONS,
                                                           "Which way the argument carries a value."),
    });
}

std::vector<Field> viewFields() {
    return withCommonFields({
        text<&ZORSQLViewEntity::setSQLText, &ZORSQLViewEntity::getSQLText>("sql",
                                                                           "The view's SELECT statement."),
        objects<&ZORSQLViewEntity::addSQLViewAttribute, &ZORSQLViewEntity::getSQLViewAttributes>(
            "columns", Family::COLUMNS, "The columns."),
        objects<&ZORSQLViewEntity::addOperation, &ZORSQLViewEntity::getOperations>(
            "operations", Family::OPERATIONS, "The operations and triggers."),
    });
}

std::vector<Field> columnFields() {
    return withCommonFields({
        reference<&ZORSQLViewAttribute::setType, &ZORSQLViewAttribute::getType>(
            "type", ANY_TYPE, "The data type, where it is known."),
        reference<&ZORSQLViewAttribute::setSource, &ZORSQLViewAttribute::getSource>(
            "source", ANY_OBJECT, "What the column shows: an attribute, or any other object."),
    });
}

}  // namespace readers::document
