// Runs every command of the program on drawings of every shape at two sizes, for measure.sh to
// count. Arguments: the shapes to take, by a part of their names; all of them without.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include <tests/scaling/measured_step.h>
#include <tests/scaling/program_shapes.h>
#include <tests/support/transfer_text.h>
#include <tools/program.h>

namespace quorvan::test {
namespace {

struct Allocations {
  std::size_t calls = 0;
  std::size_t bytes = 0;
};

// A page is made by two threads.
struct AllocationCount {
  std::atomic<std::size_t> calls = 0;
  std::atomic<std::size_t> bytes = 0;

  [[nodiscard]] Allocations now() const { return {calls, bytes}; }
} allocationCount;

const std::vector<std::string> kCommands[] = {
    {"info", "shape.xml", "--all"},
    {"list", "shape.xml"},
    {"list", "shape.xml", "--csv"},
    {"list", "shape.xml", "--json"},
    {"bars", "shape.xml"},
    {"bars", "shape.xml", "--json"},
    {"check", "shape.xml"},
    {"check", "shape.xml", "--rules", "ec2,bs8666", "--cover", "30", "--angles", "deg"},
    {"check", "shape.xml", "--repair", "-o", "mended.xml"},
    {"draw", "shape.xml", "-o", "shape.svg"},
    {"draw", "shape.xml", "-o", "shape.html", "--marks", "all"},
    {"diff", "shape.xml", "shape.xml"},
};

std::string nameOf(const std::vector<std::string>& command) {
  std::string name;
  for (const std::string& argument : command) {
    name += (name.empty() ? "" : " ") + argument;
  }
  return name;
}

void run(const std::vector<std::string>& command) {
  std::ostringstream none;
  tool::Console console{none, none};
  tool::runProgram(command, console);
}

void writeShape(const DrawingShape& shape, std::size_t size) {
  writeBytes("shape.xml", "<Document>" + shape.make(size) + "</Document>");
}

void takeSteps(const DrawingShape& shape, std::size_t size) {
  writeShape(shape, size);
  for (const std::vector<std::string>& command : kCommands) {
    takeMeasuredStep(shape.name, nameOf(command), size, [&] { run(command); });
  }
}

// What a run of the command asks of the memory.
Allocations allocationsOf(const std::vector<std::string>& command) {
  const Allocations before = allocationCount.now();
  run(command);
  const Allocations after = allocationCount.now();
  return {after.calls - before.calls, after.bytes - before.bytes};
}

// Whether four times the drawing asks for no more than five times the memory, but for what is as
// good as nothing.
bool growsInProportion(const DrawingShape& shape) {
  constexpr std::size_t kFewCalls = 5000;
  constexpr std::size_t kFewBytes = 1'000'000;
  std::vector<Allocations> small;
  writeShape(shape, shape.size);
  for (const std::vector<std::string>& command : kCommands) {
    small.push_back(allocationsOf(command));
  }
  bool isInProportion = true;
  writeShape(shape, 4 * shape.size);
  for (std::size_t i = 0; i < std::size(kCommands); ++i) {
    const Allocations large = allocationsOf(kCommands[i]);
    const bool isTooMuch = large.calls > 5 * std::max(small[i].calls, kFewCalls) ||
                           large.bytes > 5 * std::max(small[i].bytes, kFewBytes);
    if (isTooMuch) {
      std::printf("%s, %s: %zu and %zu calls, %zu and %zu bytes\n", shape.name,
                  nameOf(kCommands[i]).c_str(), small[i].calls, large.calls, small[i].bytes,
                  large.bytes);
    }
    isInProportion = isInProportion && !isTooMuch;
  }
  return isInProportion;
}

}  // namespace
}  // namespace quorvan::test

// Every allocation of the program is counted; what frees them is the usual one.
void* operator new(std::size_t size) {
  ++quorvan::test::allocationCount.calls;
  quorvan::test::allocationCount.bytes += size;
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

int main(int count, char** arguments) {
  const bool isCounting = count > 1 && std::strcmp(arguments[1], "--allocations") == 0;
  const int first = isCounting ? 2 : 1;
  bool isInProportion = true;
  for (const quorvan::test::DrawingShape& shape : quorvan::test::programShapes()) {
    bool isWanted = count == first;
    for (int i = first; i < count; ++i) {
      isWanted = isWanted || std::strstr(shape.name, arguments[i]) != nullptr;
    }
    if (isWanted && isCounting) {
      isInProportion = quorvan::test::growsInProportion(shape) && isInProportion;
    } else if (isWanted) {
      quorvan::test::takeSteps(shape, shape.size);
      quorvan::test::takeSteps(shape, 4 * shape.size);
    }
  }
  return isInProportion ? 0 : 1;
}
