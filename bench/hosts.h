// The same work of a host on each system and document service: quorvan-bench-host, run for each in
// turn.
#pragma once

#include <string>
#include <vector>

#include <bench/report.h>

namespace bench {

/// Runs each host, given as NAME=COMMAND, `rounds` times in turn in the folder. Raises
/// std::runtime_error when one fails.
std::vector<HostRow> measureHosts(const std::vector<std::string>& hosts, int rounds,
                                  const std::string& folder);

}  // namespace bench
