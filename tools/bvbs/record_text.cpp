#include <tools/bvbs/record_text.h>

#include <tools/bvbs/record_kind.h>

namespace quorvan::tool::bvbs {

std::string RecordText::finished() const {
  const std::string text = m_text + 'C';
  return text + std::to_string(checksumOf(text)) + '@';
}

}  // namespace quorvan::tool::bvbs
