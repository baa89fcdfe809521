#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

const Bar* RepeatedBars::find(const Repartition& series) {
  const auto shape = barShapeOf(series.className);
  const Element* const element = shape ? m_index.find(series.className, series.index) : nullptr;
  if (element == nullptr) {
    return nullptr;
  }
  const auto [known, isNew] = m_bars.try_emplace(element);
  if (isNew) {
    known->second = toBar(*shape, m_reader.read(*element));
  }
  return &known->second;
}

}  // namespace quorvan::tool
