// Stored procedures with their parameters, and triggers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "ModelDump.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Procedures : public ::testing::Test {
  protected:
    Procedures() { procedure = model.addOperation<ZORStoredProcedure>(model.package(), "proc"); }

    std::string print(ZOROperation* operation) const {
        TestBridge bridge(model.model());
        bridge.printDBMOperation(operation);
        return bridge.text();
    }
    /// The start tag of the parameter behind its first line.
    std::string printArgument(ZORArgument* argument) const {
        TestBridge bridge(model.model());
        bridge.printDBMArgument(argument);
        return bridge.text();
    }

    ModelBuilder model;
    ZORStoredProcedure* procedure = nullptr;
};

TEST_F(Procedures, WithoutParametersAreEmptyElements) {
    EXPECT_EQ(print(procedure), "<dbm:StoredProcedure oim:id=\"_1\" name=\"proc\"/>\n");
    procedure->setBody("BEGIN\nEND");
    EXPECT_EQ(print(procedure),
              "<dbm:StoredProcedure oim:id=\"_1\" name=\"proc\"\nbody=\"BEGIN&#10;END\"\n/>\n");
    procedure->setName("");
    EXPECT_THAT(print(procedure), HasSubstr("name=\"unnamed$1\""));
}

TEST_F(Procedures, HoldTheirParametersInOrderAndTheReturnValueLast) {
    procedure->setPhysicalName("PROC");
    procedure->setDescription("What");
    procedure->setBody("RETURN 1");
    procedure->setResultType(model.addType("money", "SQL_NUMERIC", 10, 2));
    model.addArgument(procedure, "b");
    model.addArgument(procedure, "a", model.text, ZOR_ARGUMENT_OUT);
    EXPECT_EQ(print(procedure), R"xml(
<dbm:StoredProcedure oim:id="_1" name="PROC"
description="What"
body="RETURN 1"
>
<dbm:StoredProcedureParameters>
<dbm:StoredProcedureParameter oim:id="_2" name="b"/>
<dbm:StoredProcedureParameter oim:id="_3" name="a"
IsOutput="1"
Length="40"
/>
<dbm:StoredProcedureParameter oim:id="_4" name="proc"
IsOutput="1"
NumericPrecision="10"
NumericScale="2"
/>
</dbm:StoredProcedureParameters>
</dbm:StoredProcedure>
)xml"_lines);
}

TEST_F(Procedures, WithAReturnTypeAloneHaveOneParameterNamedLikeThem) {
    procedure->setResultType(model.number);
    EXPECT_EQ(print(procedure), R"xml(
<dbm:StoredProcedure oim:id="_1" name="proc">
<dbm:StoredProcedureParameters>
<dbm:StoredProcedureParameter oim:id="_2" name="proc"
IsOutput="1"
/>
</dbm:StoredProcedureParameters>
</dbm:StoredProcedure>
)xml"_lines);
}

TEST_F(Procedures, LeaveNothingOfTheReturnValueBehind) {
    procedure->setResultType(model.number);
    const std::string before = dumpModel(*model.model());
    TestBridge bridge(model.model());
    bridge.printDBMOperation(procedure);
    const std::size_t blocks = bridge.userData_.inUse();
    bridge.printDBMOperation(procedure);
    EXPECT_THAT(bridge.text(), HasSubstr("<dbm:StoredProcedureParameter oim:id=\"_3\" name=\"proc\""))
        << "a fresh number";
    EXPECT_EQ(bridge.userData_.inUse(), blocks) << "the parameter that stands for it keeps no data";
    bridge.cleanup();
    EXPECT_EQ(dumpModel(*model.model()), before);
}

TEST_F(Procedures, WithoutANameHaveAReturnValueThatIsNamedByItsOwnNumber) {
    procedure->setName("");
    procedure->setResultType(model.number);
    EXPECT_THAT(print(procedure),
                HasSubstr("<dbm:StoredProcedureParameter oim:id=\"_2\" name=\"unnamed$2\"\n"));
}

TEST_F(Procedures, KeepArgumentsOfAnyDirectionAndLevel) {
    model.addArgument(procedure, "r", nullptr, ZOR_ARGUMENT_RETURN)->setDesignLevel(ZOR_LOGICAL_ONLY);
    procedure->setResultType(model.number);
    EXPECT_EQ(count(print(procedure), "<dbm:StoredProcedureParameter "), 2U);
}

TEST_F(Procedures, ThatArePlainOperationsHaveNoBody) {
    auto* plain = model.addOperation<ZOROperation>(model.package(), "plain");
    plain->setBody("not written");
    EXPECT_EQ(print(plain), "<dbm:StoredProcedure oim:id=\"_1\" name=\"plain\"/>\n");
}

class Parameters : public Procedures {};

TEST_F(Parameters, AreOutputsUnlessTheyAreInputs) {
    ZORArgument* argument = model.addArgument(procedure, "p");
    for (const ZORArgumentType kind :
         {ZOR_ARGUMENT_NONE, ZOR_ARGUMENT_OUT, ZOR_ARGUMENT_INOUT, ZOR_ARGUMENT_RETURN}) {
        argument->setKind(kind);
        EXPECT_EQ(printArgument(argument), R"xml(
<dbm:StoredProcedureParameter oim:id="_1" name="p"
IsOutput="1"
/>
)xml"_lines) << kind;
    }
    argument->setKind(ZOR_ARGUMENT_IN);
    EXPECT_EQ(printArgument(argument), "<dbm:StoredProcedureParameter oim:id=\"_1\" name=\"p\"/>\n");
}

TEST_F(Parameters, TellDefaultDirectionAndSizeInThisOrder) {
    ZORArgument* argument =
        model.addArgument(procedure, "p", model.addType("t", "SQL_NUMERIC", 8, 3), ZOR_ARGUMENT_OUT);
    argument->setDefaultValue("<none>");
    argument->setDescription("What");
    EXPECT_EQ(printArgument(argument), R"xml(
<dbm:StoredProcedureParameter oim:id="_1" name="p"
description="What"
defaultValue="&lt;none&gt;"
IsOutput="1"
NumericPrecision="8"
NumericScale="3"
/>
)xml"_lines);
}

TEST_F(Parameters, TakeTheirSizeThroughAliases) {
    ZORArgument* argument =
        model.addArgument(procedure, "p", model.addAlias("alias", model.addType("t", "SQL_TIME", 3)));
    EXPECT_THAT(printArgument(argument), HasSubstr("\nTimePrecision=\"3\"\n"));
}

TEST_F(Parameters, NameNoTypeInitialValueOrNullability) {
    ZORType* type = model.addType("t", "AUTOINCREMENT");
    type->setInitialValue("1");
    ZORArgument* argument = model.addArgument(procedure, "p", type);
    TestBridge bridge(model.model());
    bridge.dtmInit(bridge.dbmTypeSet_, DBM, "Oracle 8.x", {}, {});
    bridge.printDBMArgument(argument);
    EXPECT_EQ(bridge.text(), "<dbm:StoredProcedureParameter oim:id=\"_1\" name=\"p\"/>\n");
}

TEST_F(Parameters, WithoutANameAreNumbered) {
    EXPECT_THAT(printArgument(model.addArgument(procedure, "")), HasSubstr("name=\"unnamed$1\""));
}

class Triggers : public Procedures {
  protected:
    Triggers() { trigger = model.addOperation<ZORTrigger>(model.addTable("T"), "trigger"); }

    std::string print() const {
        TestBridge bridge(model.model());
        bridge.printDBMTrigger(trigger);
        return bridge.text();
    }

    ZORTrigger* trigger = nullptr;
};

TEST_F(Triggers, OnUpdateTellOnlyThat) {
    trigger->setUpdate(true);
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalTrigger oim:id="_1" name="trigger"
BeforeAfter="1"
IsUpdate="1"
/>
)xml"_lines);
}

TEST_F(Triggers, TellTimingEventsAndStatementsInThisOrder) {
    trigger->setAfter(true);
    trigger->setDelete(true);
    trigger->setInsert(true);
    trigger->setUpdate(true);
    trigger->setBody("DELETE FROM t WHERE a > 1;");
    trigger->setComments("Why");
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalTrigger oim:id="_1" name="trigger"
comments="Why"
BeforeAfter="2"
IsDelete="1"
IsInsert="1"
IsUpdate="1"
Statements="DELETE FROM t WHERE a &gt; 1;"
/>
)xml"_lines);
}

TEST_F(Triggers, WithoutANameAreNumbered) {
    trigger->setName("");
    EXPECT_THAT(print(), HasSubstr("<dbm:LogicalTrigger oim:id=\"_1\" name=\"unnamed$1\"\n"));
}

TEST_F(Triggers, LeaveArgumentsAndResultsOut) {
    model.addArgument(trigger, "p");
    trigger->setResultType(model.number);
    EXPECT_THAT(print(), Not(HasSubstr("Parameter")));
}

}  // namespace
