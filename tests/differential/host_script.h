// Random calls of the flat functions, as a host makes them.
#pragma once

#include <tests/differential/random.h>
#include <tests/differential/transcript.h>

namespace quorvan::test {

/// One filing of some calls into "host.xml", onto what the file holds already.
void runHostScript(Random& random, Transcript& transcript);

}  // namespace quorvan::test
