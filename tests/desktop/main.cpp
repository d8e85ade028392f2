#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

int main(int count, char** words) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  return RUN_ALL_TESTS();
}
