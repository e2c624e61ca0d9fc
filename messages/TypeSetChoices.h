#pragma once

/// The choices of the type-set options in order, `ENTRY(the end of the literal's name, text)` each. Both
/// options have them all; the descriptors of types/TypeTables.cpp stand in the same order.
#define QLT_SQMDC_TYPESET_CHOICES(ENTRY)    \
    ENTRY(NONE, "None")                     \
    ENTRY(DEFAULT, "Default")               \
    ENTRY(ACCESS_1_1, "Access 1.1")         \
    ENTRY(ACCESS_2_0, "Access 2.0")         \
    ENTRY(ACCESS_7, "Access 7")             \
    ENTRY(ACCESS_97, "Access 97")           \
    ENTRY(AS_400_2, "AS/400 2")             \
    ENTRY(AS_400_3, "AS/400 3")             \
    ENTRY(AS_400_4_X, "AS/400 4.x")         \
    ENTRY(CLIPPER, "Clipper")               \
    ENTRY(DB2_390_5, "DB2/390 5")           \
    ENTRY(DB2_CS_2, "DB2/CS 2")             \
    ENTRY(DB2_MVS_2, "DB2/MVS 2")           \
    ENTRY(DB2_MVS_3, "DB2/MVS 3")           \
    ENTRY(DB2_MVS_4, "DB2/MVS 4")           \
    ENTRY(DB2_UDB_5, "DB2/UDB 5")           \
    ENTRY(DBASE_3, "DBase 3")               \
    ENTRY(DBASE_4, "DBase 4")               \
    ENTRY(FOXPRO, "FoxPro")                 \
    ENTRY(INFORMIX_4_X, "Informix 4.x")     \
    ENTRY(INFORMIX_5_X, "Informix 5.x")     \
    ENTRY(INFORMIX_7_X, "Informix 7.x")     \
    ENTRY(INFORMIX_9_X, "Informix 9.x")     \
    ENTRY(INGRES_6_4, "Ingres 6.4")         \
    ENTRY(INGRES_1_X, "Ingres 1.x")         \
    ENTRY(INGRES_2_X, "Ingres 2.x")         \
    ENTRY(INTERBASE, "InterBase")           \
    ENTRY(ORACLE_7_0, "Oracle 7.0")         \
    ENTRY(ORACLE_7_1, "Oracle 7.1")         \
    ENTRY(ORACLE_7_2, "Oracle 7.2")         \
    ENTRY(ORACLE_7_3, "Oracle 7.3")         \
    ENTRY(ORACLE_8_X, "Oracle 8.x")         \
    ENTRY(PARADOX_4_X, "Paradox 4.x")       \
    ENTRY(PARADOX_5_X, "Paradox 5.x")       \
    ENTRY(PARADOX_7_X, "Paradox 7.x")       \
    ENTRY(PROGRESS_7_0, "Progress 7.0")     \
    ENTRY(PROGRESS_8_X, "Progress 8.x")     \
    ENTRY(RDB_4, "Rdb 4")                   \
    ENTRY(RDB_6, "Rdb 6")                   \
    ENTRY(RDB_7, "Rdb 7")                   \
    ENTRY(RED_BRICK_3_0, "Red Brick 3.0")   \
    ENTRY(RED_BRICK_4_0, "Red Brick 4.0")   \
    ENTRY(RED_BRICK_5_X, "Red Brick 5.x")   \
    ENTRY(SQL_ANYWHERE_5, "SQL Anywhere 5") \
    ENTRY(SQLBASE_5_0, "SQLBase 5.0")       \
    ENTRY(SQLBASE_6_X, "SQLBase 6.x")       \
    ENTRY(SQL_SERVER_4_X, "SQL Server 4.x") \
    ENTRY(SQL_SERVER_6_X, "SQL Server 6.x") \
    ENTRY(SQL_SERVER_7_X, "SQL Server 7.x") \
    ENTRY(SYBASE_4_2, "Sybase 4.2")         \
    ENTRY(SYBASE_10, "Sybase 10")           \
    ENTRY(SYBASE_11_X, "Sybase 11.x")       \
    ENTRY(TERADATA_1, "Teradata 1")         \
    ENTRY(TERADATA_2_X, "Teradata 2.x")     \
    ENTRY(WATCOM_3, "Watcom 3")             \
    ENTRY(WATCOM_4, "Watcom 4")             \
    ENTRY(XML_DATATYPES, "XML Datatypes")
