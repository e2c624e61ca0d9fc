// What becomes of tables, keys, indexes, relationships, views and triggers: statements and the model made of
// them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SqliteTestSupport.h"
#include "ZORModelCheck.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

struct ModelCase {
    const char* name;
    const char* sql;
    const char* model;
    std::vector<std::string> warnings = {};
    std::vector<std::string> losses = {};
};

class SqliteModel : public testing::TestWithParam<ModelCase> {};

TEST_P(SqliteModel, IsAsDeclared) {
    const support::Reading reading = support::readDatabase(GetParam().sql);
    EXPECT_EQ(support::describe(*reading.model), GetParam().model + 1);
    EXPECT_THAT(reading.context.warnings, ElementsAreArray(GetParam().warnings));
    EXPECT_THAT(reading.context.lossLines(), ElementsAreArray(GetParam().losses));
    EXPECT_THAT(checkModel(*reading.model), IsEmpty());
}

void PrintTo(const ModelCase& modelCase, std::ostream* out) {
    *out << modelCase.sql;
}

std::string nameOf(const testing::TestParamInfo<ModelCase>& info) {
    return info.param.name;
}

const ModelCase TABLES[] = {
    {"TablesStandInTheOrderOfCreation", "CREATE TABLE z(a INT); CREATE TABLE a(b INT); CREATE TABLE m(c INT)",
     R"(
table z
  a INT null
table a
  b INT null
table m
  c INT null
)"},
    {"ColumnsAreOptionalUnlessNotNullOrOfThePrimaryKey",
     "CREATE TABLE t(a INT, b INT NOT NULL, c TEXT, d TEXT, PRIMARY KEY (d, c))",
     R"(
table t
  a INT null
  b INT
  c TEXT
  d TEXT
  primary t_pk (d, c)
)",
     {},
     {"orders of key columns: main.t.t_pk: d, c"}},
    {"DefaultsStayAsWrittenInSql",
     "CREATE TABLE t(a TEXT DEFAULT 'it''s', b INT DEFAULT -1, c DATE DEFAULT CURRENT_DATE, d INT DEFAULT (1 "
     "+ 2),"
     " e TEXT DEFAULT NULL, f BLOB DEFAULT x'00ff')",
     R"(
table t
  a TEXT null = 'it''s'
  b INT null = -1
  c DATE null = CURRENT_DATE
  d INT null = 1 + 2
  e TEXT null = NULL
  f BLOB null = x'00ff'
)"},
    {"GeneratedColumnsSaySo",
     "CREATE TABLE t(a INT NOT NULL, b INT GENERATED ALWAYS AS (a *\n  2) STORED, c INT AS (a + 1))", R"(
table t
  a INT
  b INT null -- Generated column, stored: a * 2
  c INT null -- Generated column, virtual: a + 1
)"},
    {"AutoincrementIsATypeOfItsOwn", "CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, n INTEGER)", R"(
table t
  id INTEGER AUTOINCREMENT
  n INTEGER null
  primary t_pk (id)
)"},
    {"InternalTablesAreLeftOut",
     "CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT); INSERT INTO t VALUES (1); ANALYZE", R"(
table t
  id INTEGER AUTOINCREMENT
  primary t_pk (id)
)"},
    {"VirtualTablesHaveTheirVisibleColumnsAndNoShadows",
     "CREATE VIRTUAL TABLE docs USING fts5(title, body); CREATE VIRTUAL TABLE box USING rtree(id, x0, x1);"
     " CREATE TABLE docs_notes(a INT); CREATE VIRTUAL TABLE old USING fts4(a)",
     R"(
table docs
  title BLOB null
  body BLOB null
table box
  id INT null
  x0 REAL null
  x1 REAL null
table docs_notes
  a INT null
table old
  a BLOB null
)",
     {},
     {"virtual-table modules: main.docs: fts5(title, body)",
      "virtual-table modules: main.box: rtree(id, x0, x1)", "virtual-table modules: main.old: fts4(a)",
      "shadow tables of virtual tables: main.docs_data: holds the data of docs",
      "shadow tables of virtual tables: main.docs_idx: holds the data of docs",
      "shadow tables of virtual tables: main.docs_content: holds the data of docs",
      "shadow tables of virtual tables: main.docs_docsize: holds the data of docs",
      "shadow tables of virtual tables: main.docs_config: holds the data of docs",
      "shadow tables of virtual tables: main.box_rowid: holds the data of box",
      "shadow tables of virtual tables: main.box_node: holds the data of box",
      "shadow tables of virtual tables: main.box_parent: holds the data of box",
      "shadow tables of virtual tables: main.old_content: holds the data of old",
      "shadow tables of virtual tables: main.old_segments: holds the data of old",
      "shadow tables of virtual tables: main.old_segdir: holds the data of old",
      "shadow tables of virtual tables: main.old_docsize: holds the data of old",
      "shadow tables of virtual tables: main.old_stat: holds the data of old"}},
    {"TablesNamedLikeShadowsOfAnotherModuleAreTables",
     "CREATE TABLE box_segdir(a INT); CREATE VIRTUAL TABLE Box USING rtree(id, x0, x1);",
     R"(
table box_segdir
  a INT null
table Box
  id INT null
  x0 REAL null
  x1 REAL null
)",
     {},
     {"virtual-table modules: main.Box: rtree(id, x0, x1)",
      "shadow tables of virtual tables: main.Box_rowid: holds the data of Box",
      "shadow tables of virtual tables: main.Box_node: holds the data of Box",
      "shadow tables of virtual tables: main.Box_parent: holds the data of Box"}},
    {"SizesThatDoNotFitAreLost",
     "CREATE TABLE t(a VARCHAR(99999999999), b DECIMAL(10,-2), c DECIMAL(2.5), d VARCHAR(2147483647), e "
     "DECIMAL(+08, 0), f \"TEXT(x)\")",
     R"(
table t
  a VARCHAR(99999999999) null
  b DECIMAL(10,-2) null
  c DECIMAL(2.5) null
  d VARCHAR(2147483647) null
  e DECIMAL(+08,0) null
  f TEXT(x) null
)",
     {},
     {"sizes of data types: main.t.a: VARCHAR(99999999999)", "sizes of data types: main.t.b: DECIMAL(10,-2)",
      "sizes of data types: main.t.c: DECIMAL(2.5)", "sizes of data types: main.t.f: TEXT(x)"}},
    {"TableOptionsAreLost",
     "CREATE TABLE t(a TEXT PRIMARY KEY, b ANY) STRICT, WITHOUT ROWID",
     R"(
table t
  a TEXT
  b ANY null
  primary t_pk (a)
)",
     {},
     {"table options: main.t: STRICT", "table options: main.t: WITHOUT ROWID"}},
    {"NamesKeepTheirBlanksAndQuotes",
     "CREATE TABLE \"order \"\"x\"\"\"([the id] INTEGER PRIMARY KEY, `größe` INT)", R"(
table order "x"
  the id INTEGER
  größe INT null
  primary order "x"_pk (the id)
)"},
    {"WhatAModelCannotHoldIsLost",
     "CREATE TABLE t(a TEXT COLLATE NOCASE CHECK (a <>\n '') NOT NULL ON CONFLICT IGNORE, b TEXT COLLATE "
     "BINARY"
     " CONSTRAINT \"no x\" CHECK (b <> 'x'),"
     " UNIQUE (a COLLATE RTRIM, b DESC) ON CONFLICT REPLACE, CONSTRAINT both CHECK (a > b))",
     R"(
table t
  a TEXT
  b TEXT null
  unique t_a_b_uk (a, b)
)",
     {},
     {"collations: main.t.a: NOCASE", "conflict clauses: main.t.a: ON CONFLICT IGNORE",
      "collations: main.t.a: RTRIM", "descending key columns: main.t.b: DESC",
      "conflict clauses: main.t.a: ON CONFLICT REPLACE", "CHECK expressions: main.t.a: a <> ''",
      "CHECK expressions: main.t.no x: b <> 'x'", "CHECK expressions: main.t.both: a > b"}},
};
INSTANTIATE_TEST_SUITE_P(Tables, SqliteModel, testing::ValuesIn(TABLES), nameOf);

const ModelCase KEYS[] = {
    {"KeysAreNamedAsDeclaredElseAfterTheTable",
     "CREATE TABLE t(a INT, b INT UNIQUE, c INT CONSTRAINT \"c only\" UNIQUE, d INT, CONSTRAINT pk PRIMARY "
     "KEY (a, d),"
     " UNIQUE (c, b), CONSTRAINT [d b] UNIQUE (d, b))",
     R"(
table t
  a INT
  b INT null
  c INT null
  d INT
  primary pk (a, d)
  unique t_b_uk (b)
  unique c only (c)
  unique t_c_b_uk (c, b)
  unique d b (d, b)
)",
     {},
     {"orders of key columns: main.t.t_c_b_uk: c, b", "orders of key columns: main.t.d b: d, b"}},
    {"NamesThatWereMadeUpAreNeverTakenTwice",
     "CREATE TABLE t(a INT PRIMARY KEY, b INT, CONSTRAINT t_b_uk UNIQUE (a, b), UNIQUE (b));"
     " CREATE TABLE t_b(a INT CONSTRAINT t_pk PRIMARY KEY)",
     R"(
table t
  a INT
  b INT null
  primary t_pk_2 (a)
  unique t_b_uk (a, b)
  unique t_b_uk_2 (b)
table t_b
  a INT
  primary t_pk (a)
)"},
    {"ConstraintsInAnyLetterCaseFindTheirColumns", "CREATE TABLE t(Name TEXT, CONSTRAINT one UNIQUE (NAME))",
     R"(
table t
  Name TEXT null
  unique one (Name)
)"},
    {"UniqueConstraintsOfTheSameColumnsAreToldApartByTheirCollations",
     "CREATE TABLE t(code TEXT, CONSTRAINT by_bytes UNIQUE (code), CONSTRAINT by_letters UNIQUE (code "
     "COLLATE NOCASE));"
     " CREATE TABLE u(code TEXT COLLATE NOCASE, CONSTRAINT by_bytes UNIQUE (code COLLATE BINARY),"
     " CONSTRAINT by_letters UNIQUE (code))",
     R"(
table t
  code TEXT null
  unique by_bytes (code)
  unique by_letters (code)
table u
  code TEXT null
  unique by_bytes (code)
  unique by_letters (code)
)",
     {},
     {"collations: main.t.code: NOCASE", "collations: main.u.code: NOCASE"}},
    {"UniqueConstraintsThatSayTheSameAreAllKept",
     "CREATE TABLE t(code TEXT, name TEXT UNIQUE, CONSTRAINT first UNIQUE (code), CONSTRAINT second UNIQUE "
     "(CODE), CONSTRAINT third UNIQUE (name))",
     R"(
table t
  code TEXT null
  name TEXT null
  unique t_name_uk (name)
  unique first (code)
  unique second (code)
  unique third (name)
)"},
    {"UniqueConstraintsOfThePrimaryKeysColumnsAreKept",
     "CREATE TABLE before(code TEXT, CONSTRAINT uq UNIQUE (code), CONSTRAINT pk PRIMARY KEY (code));"
     " CREATE TABLE behind(code TEXT, CONSTRAINT pk PRIMARY KEY (code), CONSTRAINT uq UNIQUE (code));"
     " CREATE TABLE rows(id INTEGER PRIMARY KEY, CONSTRAINT uq UNIQUE (id));"
     " CREATE TABLE bare(code TEXT PRIMARY KEY UNIQUE) WITHOUT ROWID",
     R"(
table before
  code TEXT
  primary pk (code)
  unique uq (code)
table behind
  code TEXT
  primary pk (code)
  unique uq (code)
table rows
  id INTEGER
  primary rows_pk (id)
  unique uq (id)
table bare
  code TEXT
  primary bare_pk (code)
  unique bare_code_uk (code)
)",
     {},
     {"table options: main.bare: WITHOUT ROWID"}},
    {"AColumnThatAConstraintRepeatsIsOneOfTheKey",
     "CREATE TABLE t(a INT, b INT, CONSTRAINT twice UNIQUE (a, b, a))",
     R"(
table t
  a INT null
  b INT null
  unique twice (a, b)
)"},
    {"AKeyOfAWithoutRowidTable",
     "CREATE TABLE t(a TEXT, b TEXT UNIQUE, PRIMARY KEY (b, a)) WITHOUT ROWID",
     R"(
table t
  a TEXT
  b TEXT
  primary t_pk (b, a)
  unique t_b_uk (b)
)",
     {},
     {"table options: main.t: WITHOUT ROWID", "orders of key columns: main.t.t_pk: b, a"}},
    {"IndexesHaveTheirMembersInOrder",
     "CREATE TABLE t(a INT, b INT, c TEXT); CREATE INDEX z ON t(b DESC, a); CREATE UNIQUE INDEX y ON t(c "
     "ASC, a)",
     R"(
table t
  a INT null
  b INT null
  c TEXT null
  index z (b desc, a)
  unique index y (c, a)
)"},
    {"AnIndexBacksTheKeyOfItsColumns",
     "CREATE TABLE t(a INT, b INT, p INT REFERENCES t(a), q INT REFERENCES t, PRIMARY KEY (b), UNIQUE (a));"
     " CREATE UNIQUE INDEX of_a ON t(a); CREATE INDEX of_b ON t(b); CREATE INDEX of_p ON t(p); CREATE INDEX "
     "of_pq ON t(p, q);"
     " CREATE UNIQUE INDEX of_q ON t(q)",
     R"(
table t
  a INT null
  b INT
  p INT null
  q INT null
  primary t_pk (b)
  unique t_a_uk (a)
  foreign t_p_fk (p) -> t.t_a_uk (a)
  foreign t_q_fk (q) -> t.t_pk (b)
  unique index of_a (a) backs t_a_uk
  index of_b (b)
  index of_p (p) backs t_p_fk
  index of_pq (p, q)
  unique index of_q (q) backs t_q_fk
relationship t_p_fk: t 0..1, t 0..*, delete no action, update no action
relationship t_q_fk: t 0..1, t 0..1, delete no action, update no action
)"},
    {"ExpressionsAndConditionsOfIndexesAreLost",
     "CREATE TABLE t(a INT, b TEXT COLLATE NOCASE); CREATE INDEX e ON t(a, lower(b));"
     " CREATE UNIQUE INDEX p ON t(a) WHERE b\n IS NULL; CREATE INDEX only ON t(a + 1); CREATE INDEX c ON t(b "
     "COLLATE RTRIM DESC);"
     " CREATE INDEX usual ON t(b); CREATE UNIQUE INDEX ue ON t(a, b || 'x')",
     R"(
table t
  a INT null
  b TEXT null
  index e (a)
  index p (a)
  index c (b desc)
  index usual (b)
  index ue (a)
)",
     {},
     {"collations: main.t.b: NOCASE", "index expressions: main.e: lower(b)",
      "partial-index conditions: main.p: b IS NULL (unique among these rows only)",
      "indexes on expressions alone: main.only: a + 1", "collations: main.c: b COLLATE RTRIM DESC",
      "index expressions: main.ue: b || 'x' (not unique without it)"}},
    {"IndexesOnExpressionsAloneAreLostWithAllTheySay",
     "CREATE TABLE t(a INT, b TEXT); CREATE UNIQUE INDEX u ON t(lower(b) COLLATE RTRIM DESC, abs(a)) WHERE a "
     "> 0",
     R"(
table t
  a INT null
  b TEXT null
)",
     {},
     {"indexes on expressions alone: main.u: lower(b) COLLATE RTRIM DESC, abs(a) WHERE a > 0 (unique)"}},
    {"OrdersOfKeyColumnsOtherThanTheTablesAreLost",
     "CREATE TABLE t(a INT, b INT, c INT, CONSTRAINT pk PRIMARY KEY (c, a), UNIQUE (a, b), UNIQUE (b, a, c))",
     R"(
table t
  a INT
  b INT null
  c INT
  primary pk (c, a)
  unique t_a_b_uk (a, b)
  unique t_b_a_c_uk (b, a, c)
)",
     {},
     {"orders of key columns: main.t.pk: c, a", "orders of key columns: main.t.t_b_a_c_uk: b, a, c"}},
    {"TheIndexOfAKeyTellsItsOrder",
     "CREATE TABLE t(a INT, b INT, PRIMARY KEY (b, a)); CREATE UNIQUE INDEX of_t ON t(b, a);"
     "CREATE TABLE u(a INT, b INT, PRIMARY KEY (a, b)); CREATE UNIQUE INDEX of_u ON u(b, a)",
     R"(
table t
  a INT
  b INT
  primary t_pk (b, a)
  unique index of_t (b, a) backs t_pk
table u
  a INT
  b INT
  primary u_pk (a, b)
  unique index of_u (b, a) backs u_pk
)",
     {},
     {"orders of key columns: main.u.u_pk: a, b"}},
};
INSTANTIATE_TEST_SUITE_P(Keys, SqliteModel, testing::ValuesIn(KEYS), nameOf);

const ModelCase RELATIONSHIPS[] = {
    {"MultiplicitiesFollowFromNullabilityAndUniqueness",
     "CREATE TABLE p(id INTEGER PRIMARY KEY);"
     "CREATE TABLE many(p INT NOT NULL REFERENCES p); CREATE TABLE some(p INT REFERENCES p);"
     "CREATE TABLE one(p INTEGER PRIMARY KEY REFERENCES p); CREATE TABLE most(p INT UNIQUE REFERENCES p)",
     R"(
table p
  id INTEGER
  primary p_pk (id)
table many
  p INT
  foreign many_p_fk (p) -> p.p_pk (id)
table some
  p INT null
  foreign some_p_fk (p) -> p.p_pk (id)
table one
  p INTEGER
  primary one_pk (p)
  foreign one_p_fk (p) -> p.p_pk (id)
table most
  p INT null
  unique most_p_uk (p)
  foreign most_p_fk (p) -> p.p_pk (id)
relationship many_p_fk: p 1, many 0..*, delete no action, update no action
relationship some_p_fk: p 0..1, some 0..*, delete no action, update no action
relationship one_p_fk: p 1, one 0..1, delete no action, update no action
relationship most_p_fk: p 0..1, most 0..1, delete no action, update no action
)"},
    {"AUniqueIndexMakesTheChildUnique",
     "CREATE TABLE p(id INTEGER PRIMARY KEY); CREATE TABLE c(p INT NOT NULL REFERENCES p, q INT NOT NULL "
     "REFERENCES p);"
     " CREATE UNIQUE INDEX u ON c(p); CREATE UNIQUE INDEX partly ON c(q) WHERE q > 0",
     R"(
table p
  id INTEGER
  primary p_pk (id)
table c
  p INT
  q INT
  foreign c_p_fk (p) -> p.p_pk (id)
  foreign c_q_fk (q) -> p.p_pk (id)
  unique index u (p) backs c_p_fk
  index partly (q)
relationship c_p_fk: p 1, c 0..1, delete no action, update no action
relationship c_q_fk: p 1, c 0..*, delete no action, update no action
)",
     {},
     {"partial-index conditions: main.partly: q > 0 (unique among these rows only)"}},
    {"ActionsOfDeleteAndUpdate",
     "CREATE TABLE p(id INTEGER PRIMARY KEY);"
     "CREATE TABLE c(a INT REFERENCES p ON DELETE CASCADE ON UPDATE SET NULL,"
     " b INT REFERENCES p ON UPDATE RESTRICT ON DELETE SET DEFAULT, c INT REFERENCES p ON DELETE NO ACTION)",
     R"(
table p
  id INTEGER
  primary p_pk (id)
table c
  a INT null
  b INT null
  c INT null
  foreign c_a_fk (a) -> p.p_pk (id)
  foreign c_b_fk (b) -> p.p_pk (id)
  foreign c_c_fk (c) -> p.p_pk (id)
relationship c_a_fk: p 0..1, c 0..*, delete cascade, update set null
relationship c_b_fk: p 0..1, c 0..*, delete set default, update restrict
relationship c_c_fk: p 0..1, c 0..*, delete no action, update no action
)"},
    {"SeveralColumnsInAnyOrderAndLetterCase",
     "CREATE TABLE Parent(A INT, B INT, C INT, PRIMARY KEY (A, B), UNIQUE (C, B));"
     "CREATE TABLE child(x INT NOT NULL, y INT NOT NULL, z INT, CONSTRAINT swapped FOREIGN KEY (Y, X) "
     "REFERENCES pARENT (b, a),"
     " FOREIGN KEY (x, y) REFERENCES parent, CONSTRAINT cb FOREIGN KEY (x, z) REFERENCES PARENT(B, C))",
     R"(
table Parent
  A INT
  B INT
  C INT null
  primary Parent_pk (A, B)
  unique Parent_C_B_uk (C, B)
table child
  x INT
  y INT
  z INT null
  foreign swapped (y, x) -> Parent.Parent_pk (B, A)
  foreign child_x_y_fk (x, y) -> Parent.Parent_pk (A, B)
  foreign cb (x, z) -> Parent.Parent_C_B_uk (B, C)
relationship swapped: Parent 1, child 0..*, delete no action, update no action
relationship child_x_y_fk: Parent 1, child 0..*, delete no action, update no action
relationship cb: Parent 0..1, child 0..*, delete no action, update no action
)",
     {},
     {"orders of key columns: main.Parent.Parent_C_B_uk: C, B"}},
    {"ATableMayReferToItselfAndToLaterOnes",
     "CREATE TABLE a(id INTEGER PRIMARY KEY, up INT REFERENCES a, b INT REFERENCES b(id));"
     "CREATE TABLE b(id INTEGER PRIMARY KEY, a INT REFERENCES a)",
     R"(
table a
  id INTEGER
  up INT null
  b INT null
  primary a_pk (id)
  foreign a_up_fk (up) -> a.a_pk (id)
  foreign a_b_fk (b) -> b.b_pk (id)
table b
  id INTEGER
  a INT null
  primary b_pk (id)
  foreign b_a_fk (a) -> a.a_pk (id)
relationship a_up_fk: a 0..1, a 0..*, delete no action, update no action
relationship a_b_fk: b 0..1, a 0..*, delete no action, update no action
relationship b_a_fk: a 0..1, b 0..*, delete no action, update no action
)"},
    {"AUniqueIndexServesAsAKeyOfTheParent",
     "CREATE TABLE p(a INT, b INT); CREATE UNIQUE INDEX ab ON p(b, a);"
     "CREATE TABLE c(x INT, y INT, FOREIGN KEY (x, y) REFERENCES p(a, b), FOREIGN KEY (y, x) REFERENCES p(a, "
     "b))",
     R"(
table p
  a INT null
  b INT null
  unique ab (b, a)
  unique index ab (b, a) backs ab
table c
  x INT null
  y INT null
  foreign c_x_y_fk (x, y) -> p.ab (a, b)
  foreign c_y_x_fk (y, x) -> p.ab (a, b)
relationship c_x_y_fk: p 0..1, c 0..*, delete no action, update no action
relationship c_y_x_fk: p 0..1, c 0..*, delete no action, update no action
)"},
    {"ReferencesThatLeadNowhereAreLeftOut",
     "CREATE TABLE p(a INT, b INT); CREATE UNIQUE INDEX part ON p(b) WHERE b > 0; CREATE VIEW v AS SELECT a "
     "FROM p;"
     "CREATE TABLE two(a INT, b INT, PRIMARY KEY (a, b)); CREATE VIRTUAL TABLE f USING fts5(x);"
     "CREATE TABLE c(a INT REFERENCES nowhere, b INT REFERENCES p(zz), c INT REFERENCES p(a), d INT "
     "CONSTRAINT to_p REFERENCES p,"
     " e INT REFERENCES two, g INT REFERENCES p(b), h INT REFERENCES v(a), i INT REFERENCES f(x), FOREIGN "
     "KEY (a, b) REFERENCES two(a, a))",
     R"(
table p
  a INT null
  b INT null
  index part (b)
table two
  a INT
  b INT
  primary two_pk (a, b)
table f
  x BLOB null
table c
  a INT null
  b INT null
  c INT null
  d INT null
  e INT null
  g INT null
  h INT null
  i INT null
view v: SELECT a FROM p
  a INT <- p.a
)",
     {"main.c: the reference of a to nowhere is left out: there is no such table",
      "main.c: the reference of b to p is left out: there is no column zz",
      "main.c: the reference of c to p is left out: its columns there are not unique",
      "main.c.to_p: the reference of d to p is left out: it names no columns there, and the table has no "
      "primary "
      "key",
      "main.c: the reference of e to two is left out: the primary key there has another number of columns",
      "main.c: the reference of g to p is left out: its columns there are not unique",
      "main.c: the reference of h to v is left out: this is a view",
      "main.c: the reference of i to f is left out: a virtual table has no keys",
      "main.c: the reference of a, b to two is left out: its columns there are not unique"},
     {"virtual-table modules: main.f: fts5(x)",
      "shadow tables of virtual tables: main.f_data: holds the data of f",
      "shadow tables of virtual tables: main.f_idx: holds the data of f",
      "shadow tables of virtual tables: main.f_content: holds the data of f",
      "shadow tables of virtual tables: main.f_docsize: holds the data of f",
      "shadow tables of virtual tables: main.f_config: holds the data of f",
      "partial-index conditions: main.part: b > 0 (unique among these rows only)"}},
    {"DeferralAndMatchAreLost",
     "CREATE TABLE p(id INTEGER PRIMARY KEY); CREATE TABLE c(a INT REFERENCES p MATCH FULL DEFERRABLE "
     "INITIALLY DEFERRED,"
     " b INT REFERENCES p NOT DEFERRABLE)",
     R"(
table p
  id INTEGER
  primary p_pk (id)
table c
  a INT null
  b INT null
  foreign c_a_fk (a) -> p.p_pk (id)
  foreign c_b_fk (b) -> p.p_pk (id)
relationship c_a_fk: p 0..1, c 0..*, delete no action, update no action
relationship c_b_fk: p 0..1, c 0..*, delete no action, update no action
)",
     {},
     {"deferrable constraints: main.c.a: DEFERRABLE INITIALLY DEFERRED",
      "MATCH clauses: main.c.a: MATCH FULL"}},
};
INSTANTIATE_TEST_SUITE_P(Relationships, SqliteModel, testing::ValuesIn(RELATIONSHIPS), nameOf);

const ModelCase VIEWS[] = {
    {"ColumnsAreTracedToTheirTables",
     "CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, name VARCHAR(9) NOT NULL, loose);"
     "CREATE VIEW v(a, b, c, d, e) AS SELECT id, name, upper(name), loose, rowid FROM t AS x;"
     "CREATE VIEW w AS SELECT b AS again, count(*) FROM v GROUP BY b; CREATE VIEW x AS WITH q AS (SELECT "
     "name FROM t) SELECT * FROM q",
     R"(
table t
  id INTEGER AUTOINCREMENT
  name VARCHAR(9)
  loose BLOB null
  primary t_pk (id)
view v: SELECT id, name, upper(name), loose, rowid FROM t AS x
  a INTEGER <- t.id
  b VARCHAR(9) <- t.name
  c
  d BLOB <- t.loose
  e INTEGER <- t.id
view w: SELECT b AS again, count(*) FROM v GROUP BY b
  again VARCHAR(9) <- t.name
  count(*)
view x: WITH q AS (SELECT name FROM t) SELECT * FROM q
  name VARCHAR(9) <- t.name
)"},
    {"ColumnsOfCompoundViewsHaveNoSingleSource",
     "CREATE TABLE t(a INT); CREATE TABLE u(a INT); CREATE VIEW v AS SELECT a FROM t UNION ALL SELECT a FROM "
     "u;"
     "CREATE VIEW w AS SELECT a FROM v",
     R"(
table t
  a INT null
table u
  a INT null
view v: SELECT a FROM t UNION ALL SELECT a FROM u
  a INT
view w: SELECT a FROM v
  a INT
)"},
    {"ViewsThatSqliteDoesNotUnderstandKeepTheirText",
     "CREATE TABLE t(a INT); CREATE VIEW v AS SELECT nothing_like_it(a) FROM t; CREATE VIEW w AS SELECT b "
     "FROM t;"
     "CREATE VIEW x AS SELECT * FROM gone; CREATE VIEW y AS SELECT * FROM y",
     R"(
table t
  a INT null
view v: SELECT nothing_like_it(a) FROM t
view w: SELECT b FROM t
view x: SELECT * FROM gone
view y: SELECT * FROM y
)",
     {"main.v: SQLite does not understand the view (no such function: nothing_like_it); its text is kept, "
      "its columns are left out",
      "main.w: SQLite does not understand the view (no such column: b); its text is kept, its columns are "
      "left out",
      "main.x: SQLite does not understand the view (no such table: main.gone); its text is kept, its columns "
      "are left out",
      "main.y: the view uses itself, or too many other views one inside the other; its text is kept, its "
      "columns are left out"}},
};
INSTANTIATE_TEST_SUITE_P(Views, SqliteModel, testing::ValuesIn(VIEWS), nameOf);

const ModelCase TRIGGERS[] = {
    {"TriggersHaveTimingEventAndBody",
     "CREATE TABLE t(a INT, b INT);"
     "CREATE TRIGGER one AFTER INSERT ON t BEGIN UPDATE t SET b = 1; END;"
     "CREATE TRIGGER two DELETE ON T FOR EACH ROW WHEN old.a > 0 BEGIN SELECT 1; END;"
     "CREATE TRIGGER three BEFORE UPDATE OF a, b ON t BEGIN SELECT 2; END;"
     "CREATE VIEW v AS SELECT a FROM t; CREATE TRIGGER four INSTEAD OF INSERT ON v BEGIN SELECT 3; END",
     R"(
table t
  a INT null
  b INT null
  trigger one after insert: BEGIN UPDATE t SET b = 1; END
  trigger two before delete: WHEN old.a > 0 BEGIN SELECT 1; END
  trigger three before update: BEGIN SELECT 2; END
view v: SELECT a FROM t
  a INT <- t.a
  trigger four before insert: BEGIN SELECT 3; END
)",
     {},
     {"trigger column lists: main.t.three: UPDATE OF a, b", "trigger timings: main.v.four: INSTEAD OF"}},
};
INSTANTIATE_TEST_SUITE_P(Triggers, SqliteModel, testing::ValuesIn(TRIGGERS), nameOf);

}  // namespace
