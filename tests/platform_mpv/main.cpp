// The player's tests need an application, but no screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

// Known to the leak checker, where the tests are built with one: SDL, which libmpv asks for a sound device after all
// others, forgets a little at each asking.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libSDL2"; }

int main(int count, char** words) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  return RUN_ALL_TESTS();
}
