#include <gtest/gtest.h>

#include <QApplication>

int main(int count, char** words) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  return RUN_ALL_TESTS();
}
