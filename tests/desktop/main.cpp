#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

// Read by the address sanitizer. Qt and fontconfig keep some memory until the end.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

int main(int count, char** words) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  return RUN_ALL_TESTS();
}
