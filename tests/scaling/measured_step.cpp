#include <tests/scaling/measured_step.h>

#include <cstdio>

// The counter knows it by its name; it must not vanish in its caller.
extern "C" void quorvan_measured_step(const std::function<void()>& action);

void quorvan_measured_step(const std::function<void()>& action) {
  action();
}

namespace quorvan::test {

void takeMeasuredStep(const std::string& shape, const std::string& step, std::size_t size,
                      const std::function<void()>& action) {
  void (*const volatile call)(const std::function<void()>&) = quorvan_measured_step;
  call(action);
  std::printf("%s\t%s\t%zu\n", shape.c_str(), step.c_str(), size);
}

}  // namespace quorvan::test
