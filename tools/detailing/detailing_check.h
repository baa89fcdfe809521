// Holds the bars of a drawing against the rules by which they are detailed.
#pragma once

#include <vector>

#include <tools/check/finding.h>
#include <tools/detailing/detailing_limits.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

struct DetailingReport {
  std::vector<Finding> findings;       // by their places; equal ones of a mark are one
  std::vector<NotChecked> notChecked;  // by number
};

/// Elements with errors in their items are passed over. Takes time in proportion to the file: where
/// formwork lies so often over itself that this cannot be kept, its rules are given up.
DetailingReport checkDetailing(const TransferFile& file, const DetailingLimits& limits);

}  // namespace quorvan::tool
