// Every handler is declared once, defined (or the program would not link), and wired to one event.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "window/form1.h"

namespace plimo {
namespace {

// Names that look like handlers: a control or the form, an underscore, an event.
std::multiset<std::string> declaredHandlers() {
  std::ifstream file(std::string(PLIMO_SOURCE_DIR) + "/src/window/form1.h");
  std::stringstream text;
  text << file.rdbuf();
  const std::string header = text.str();
  static const std::regex handler(R"(void (\w+_(?:Load|Resize|Terminate|MouseMove|MouseDown|Click|DblClick|ItemCheck)"
                                  R"(|KeyPress|KeyUp|Scroll|Change|Timer|NewStream))\()");
  std::multiset<std::string> names;
  for (std::sregex_iterator found(header.begin(), header.end(), handler), end; found != end; ++found) {
    names.insert((*found)[1]);
  }
  return names;
}

TEST(Wiring, EveryHandlerDeclaredIsWiredOnce) {
  const std::multiset<std::string> declared = declaredHandlers();
  ASSERT_GT(declared.size(), 100U);
  std::multiset<std::string> wired;
  for (const Form1::Wire& wire : Form1::wires()) wired.insert(wire.handler);
  EXPECT_EQ(declared, wired);
}

TEST(Wiring, EveryEventHasOneHandler) {
  std::set<std::string> events;
  for (const Form1::Wire& wire : Form1::wires()) EXPECT_TRUE(events.insert(wire.event).second) << wire.event;
}

}  // namespace
}  // namespace plimo
