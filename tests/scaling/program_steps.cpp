// Runs every command of the program on drawings of every shape at two sizes, for measure.sh to
// count. Arguments: the shapes to take, by a part of their names; all of them without.
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include <tests/scaling/measured_step.h>
#include <tests/scaling/program_shapes.h>
#include <tests/support/transfer_text.h>
#include <tools/program.h>

namespace quorvan::test {
namespace {

const std::vector<std::string> kCommands[] = {
    {"info", "shape.xml", "--all"},
    {"list", "shape.xml"},
    {"list", "shape.xml", "--csv"},
    {"list", "shape.xml", "--json"},
    {"bars", "shape.xml"},
    {"bars", "shape.xml", "--json"},
    {"check", "shape.xml"},
    {"check", "shape.xml", "--repair", "-o", "mended.xml"},
    {"draw", "shape.xml", "-o", "shape.svg"},
    {"draw", "shape.xml", "-o", "shape.html", "--marks", "all"},
    {"diff", "shape.xml", "shape.xml"},
};

void takeSteps(const DrawingShape& shape, std::size_t size) {
  writeBytes("shape.xml", "<Document>" + shape.make(size) + "</Document>");
  for (const std::vector<std::string>& command : kCommands) {
    std::string name;
    for (const std::string& argument : command) {
      name += (name.empty() ? "" : " ") + argument;
    }
    takeMeasuredStep(shape.name, name, size, [&] {
      std::ostringstream none;
      tool::Console console{none, none};
      tool::runProgram(command, console);
    });
  }
}

}  // namespace
}  // namespace quorvan::test

int main(int count, char** arguments) {
  for (const quorvan::test::DrawingShape& shape : quorvan::test::programShapes()) {
    bool isWanted = count == 1;
    for (int i = 1; i < count; ++i) {
      isWanted = isWanted || std::strstr(shape.name, arguments[i]) != nullptr;
    }
    if (isWanted) {
      quorvan::test::takeSteps(shape, shape.size);
      quorvan::test::takeSteps(shape, 4 * shape.size);
    }
  }
  return 0;
}
