// plimo-scenario FILE...: runs scenarios without a display.
#include <iostream>
#include <string>
#include <vector>

#include "scenario/runner.h"

int main(int argc, char** argv) {
  const std::vector<std::string> files(argv + 1, argv + argc);
  if (files.empty()) {
    std::cerr << "usage: plimo-scenario FILE...\n";
    return 2;
  }
  return plimo::scenario::runScenarios(files, std::cout, std::cerr);
}
