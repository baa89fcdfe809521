#include <tests/differential/call_script.h>

#include <cstdlib>

#include <tests/differential/filer_script.h>
#include <tests/differential/host_script.h>

namespace quorvan::test {

std::string runCallScript(std::uint64_t seed) {
  Random random(seed);
  Transcript transcript;
  {
    FilerScript script(random, transcript);
    for (int steps = 20 + random.below(100); steps > 0; --steps) {
      script.step();
    }
    script.finish();
  }
  for (int filings = random.below(3); filings > 0; --filings) {
    runHostScript(random, transcript);
  }
  return transcript.text();
}

int callScriptCount() {
  const char* const count = std::getenv("QUORVAN_CALL_SCRIPTS");
  return count == nullptr ? 300 : std::atoi(count);
}

}  // namespace quorvan::test
