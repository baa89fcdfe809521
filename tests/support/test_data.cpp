#include <tests/support/test_data.h>

namespace quorvan::test {

std::string dataPath(std::string_view name) {
  return std::string(QUORVAN_TEST_DATA "/").append(name);
}

}  // namespace quorvan::test
