// GoogleTest over a QApplication on Qt's offscreen platform (no display needed).
// A QtTest check (QVERIFY, QCOMPARE, QTRY_*, a fatal QAbstractItemModelTester)
// outside a QtTest run only marks QtTest's own result, which GoogleTest does
// not read: QTEST_FATAL_FAIL makes QtTest end the process at the failed check
// instead, so the test that made it fails where it stands. The listener is a
// second guard, for a QtTest that marks without ending.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <cstdio>

namespace {

class QtTestFailures : public ::testing::EmptyTestEventListener {
 public:
  void OnTestEnd(const ::testing::TestInfo& test) override {
    if (!QTest::currentTestFailed()) return;
    failed_ = true;  // QtTest keeps its mark: every later test of this run is named too
    std::fprintf(stderr, "[  FAILED  ] %s.%s: a QtTest check failed\n", test.test_suite_name(), test.name());
  }
  bool Failed() const { return failed_; }

 private:
  bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QTEST_FATAL_FAIL", "1");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  auto* qtFailures = new QtTestFailures;
  ::testing::UnitTest::GetInstance()->listeners().Append(qtFailures);  // owned by GoogleTest
  const int result = RUN_ALL_TESTS();
  return qtFailures->Failed() ? 1 : result;
}
