// The public operations, each as something that can be tried on a stage while something fails.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <tests/faults/stage.h>

namespace quorvan::test {

struct Scenario {
  std::string name;
  std::function<void(Stage&)> prepare;
  std::function<int(Stage&)> act;  // gives the operation's result
  int result = 1;                  // without a fault
  bool opensFile = false;          // a fault then leaves no document, and gives 0 and a message
  bool endsInDestructor = false;   // which lets nothing out
};

/// Every operation of the filer and the pattern filer.
std::vector<Scenario> filerScenarios();

/// An element class written and read.
struct ElementScenario {
  std::string className;
  Scenario write;
  Scenario read;
};

/// Every element class.
std::vector<ElementScenario> elementScenarios();

}  // namespace quorvan::test
