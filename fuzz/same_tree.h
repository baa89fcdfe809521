// Whether two trees are the same, white-space marks and all.
#pragma once

#include <quorvan/xml/embedded/tree/tree.h>

namespace quorvan::fuzz {

bool isSameTree(const embedded::Tree& a, const embedded::Tree& b);

}  // namespace quorvan::fuzz
