#include <tests/tools/bvbs/sealed_records.h>

#include <tools/bvbs/checking/abs_checker.h>

namespace quorvan::test {

// The sum by the rule of the format, not by the program's own.
std::string sealedRecord(std::string_view blocks) {
  std::string line = std::string(blocks) + 'C';
  int sum = 0;
  for (const char one : line) {
    sum += static_cast<unsigned char>(one);
  }
  return line + std::to_string(96 - sum % 32) + "@\r\n";
}

std::string bendingFindings(std::string_view bytes) {
  std::string text;
  for (const tool::Finding& one : tool::bvbs::checkBendingData(bytes)) {
    text += (text.empty() ? "" : ", ") + std::to_string(one.kind->number) +
            (one.item.empty() ? "" : ' ' + one.item);
  }
  return text;
}

}  // namespace quorvan::test
