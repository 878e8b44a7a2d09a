#include <gtest/gtest.h>

#include <string>

#include "catalogue/CppSQLite3Database.h"
#include "catalogue/CppSQLite3Exception.h"
#include "catalogue/CppSQLite3SqlText.h"
#include "tests/support/TempFolder.h"

namespace {

class SqlLayer : public ::testing::Test {
 protected:
  void SetUp() override {
    db.Open((folder.Path() + "/t.db").c_str());
    db.ExecuteStatement("CREATE TABLE T (PathID INTEGER, Name TEXT);");
    db.ExecuteStatement("INSERT INTO T VALUES (NULL, '12abc'), (7, 'abc');");
  }
  testing_support::TempFolder folder;
  CppSQLite3Database db;
};

std::string MessageOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const CppSQLite3Exception& e) {
    return e.Message();
  }
  return "(nothing thrown)";
}

TEST(SqlException, MessageCarriesCodeNameCodeAndText) {
  EXPECT_STREQ(CppSQLite3Exception(1000, "Invalid field index requested").Message(),
               "CPPSQLITE_ERROR[1000]: Invalid field index requested");
  EXPECT_STREQ(CppSQLite3Exception(42, nullptr, false).Message(), "UNKNOWN_ERROR[42]: ");
  EXPECT_STREQ(CppSQLite3Exception(-1, "x").Message(), "UNKNOWN_ERROR[-1]: x");
  EXPECT_STREQ(CppSQLite3Exception::CodeName(101), "SQLITE_DONE");
  EXPECT_STREQ(CppSQLite3Exception::CodeName(25), "SQLITE_RANGE");
  CppSQLite3Exception original(5, "busy");
  CppSQLite3Exception copy(original);
  EXPECT_STREQ(copy.Message(), original.Message());
  EXPECT_EQ(copy.Code(), 5);
}

TEST(SqlText, QuotesAreDoubledAndNullBecomesNull) {
  CppSQLite3SqlText sql;
  EXPECT_STREQ(sql.Format("%Q|%q|%Q|%d%%", "O'Brien", "it's", nullptr, -3),
               "'O''Brien'|it''s|NULL|-3%");
}

TEST_F(SqlLayer, FieldsByNameAndIndex) {
  CppSQLite3ResultSet rows;
  rows = db.ExecuteQuery("SELECT PathID, Name FROM T;");
  ASSERT_FALSE(rows.AtEnd());
  EXPECT_EQ(rows.FieldInt("PathID", -5), -5);  // NULL gives the caller's value
  EXPECT_TRUE(rows.FieldIsNull(0));
  EXPECT_EQ(rows.FieldInt(1, 0), 12);  // "12abc"
  EXPECT_EQ(MessageOf([&] { rows.FieldIndex("pathid"); }),
            "CPPSQLITE_ERROR[1000]: Invalid field name requested");
  EXPECT_EQ(MessageOf([&] { rows.FieldText(2); }),
            "CPPSQLITE_ERROR[1000]: Invalid field index requested");
  EXPECT_EQ(MessageOf([&] { rows.FieldText(-1); }),
            "CPPSQLITE_ERROR[1000]: Invalid field index requested");
  EXPECT_EQ(rows.NextRow(), 100);
  EXPECT_EQ(rows.FieldInt("Name", 0), 0);  // "abc"
  EXPECT_EQ(rows.NextRow(), 101);
  EXPECT_TRUE(rows.AtEnd());
}

TEST_F(SqlLayer, EmptyResultKeepsColumnNamesAndReadsNull) {
  CppSQLite3ResultSet rows;
  rows = db.ExecuteQuery("SELECT PathID, Name FROM T WHERE 0;");
  EXPECT_TRUE(rows.AtEnd());
  EXPECT_EQ(rows.FieldIndex("Name"), 1);
  EXPECT_EQ(rows.FieldText(0), nullptr);
}

TEST_F(SqlLayer, TransferLeavesExactlyOneOwner) {
  CppSQLite3ResultSet target;
  {
    CppSQLite3ResultSet source = db.ExecuteQuery("SELECT Name FROM T;");
    target = std::move(source);
    EXPECT_EQ(MessageOf([&] { source.AtEnd(); }),
              "CPPSQLITE_ERROR[1000]: Null Virtual Machine pointer");
  }  // destroying the source must not finalize the target's statement
  EXPECT_STREQ(target.FieldText(0), "12abc");
  target.Finalize();
  EXPECT_EQ(MessageOf([&] { target.NextRow(); }),
            "CPPSQLITE_ERROR[1000]: Null Virtual Machine pointer");
}

TEST_F(SqlLayer, ErrorsOfQueriesAndStatements) {
  // A query that cannot be prepared carries no SQLite text; a statement does.
  EXPECT_EQ(MessageOf([&] { db.ExecuteQuery("SELEC 1;"); }), "SQLITE_ERROR[1]: ");
  EXPECT_EQ(MessageOf([&] { db.ExecuteStatement("SELEC 1;"); }),
            "SQLITE_ERROR[1]: near \"SELEC\": syntax error");
  EXPECT_EQ(db.ExecuteStatement("UPDATE T SET Name='x';"), 2);
  CppSQLite3Database closed;
  EXPECT_EQ(MessageOf([&] { closed.ExecuteStatement("SELECT 1;"); }),
            "CPPSQLITE_ERROR[1000]: Database not open");
  EXPECT_EQ(closed.Close(), 0);
}

}  // namespace
