#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "catalogue/CppSQLite3Database.h"
#include "catalogue/CppSQLite3Exception.h"
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

TEST_F(SqlLayer, FieldsReadNullsAndNumbersAsTheCatalogueExpects) {
  CppSQLite3ResultSet rows;
  rows = db.ExecuteQuery("SELECT PathID, Name FROM T;");
  EXPECT_EQ(rows.FieldInt("PathID", -5), -5);  // NULL gives the caller's value
  EXPECT_EQ(rows.FieldInt(1, 0), 12);          // "12abc"
  EXPECT_NE(MessageOf([&] { rows.FieldText(2); }), "(nothing thrown)");
  rows.NextRow();
  EXPECT_EQ(rows.FieldInt("Name", 0), 0);  // "abc"
  EXPECT_EQ(db.ExecuteStatement("UPDATE T SET Name='x';"), 2);
}

TEST_F(SqlLayer, TransferLeavesExactlyOneOwner) {
  CppSQLite3ResultSet target;
  {
    CppSQLite3ResultSet source = db.ExecuteQuery("SELECT Name FROM T;");
    target = std::move(source);
  }  // destroying the source must not finalize the target's statement
  EXPECT_STREQ(target.FieldText(0), "12abc");
  target.Finalize();
  EXPECT_NE(MessageOf([&] { target.NextRow(); }), "(nothing thrown)");
}

}  // namespace
