// What a sub-command talks to: where results and messages go.
#pragma once

#include <ostream>
#include <stdexcept>
#include <string>

namespace quorvan::tool {

/// The streams of one run. Results go to `out`, messages to `err`; both take UTF-8.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;
  bool outIsTerminal = false;
};

/// What ends the program, in every sub-command: 0 nothing to report, kFindings and kFailure.
inline constexpr int kSuccess = 0;
inline constexpr int kFindings = 1;
inline constexpr int kFailure = 2;

/// A sub-command cannot go on; the text is for the user and names the file.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvan::tool
