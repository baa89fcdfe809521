#include <tests/reading/reading_file.h>

namespace quorvan::test {

ReadingFile::ReadingFile(const std::string& elements) {
  const std::string bytes = transferFile(elements);
  EXPECT_EQ(quorvanOpenMemory(bytes.data(), bytes.size(), &m_file), QUORVAN_DONE)
      << quorvanLastErrorText();
}

QuorvanElement* ReadingFile::first() const {
  QuorvanElement* element = nullptr;
  quorvanNextElement(m_file, nullptr, &element);
  return element;
}

ReadingElement::ReadingElement(const std::string& items, const char* className)
    : m_file(classElement(className, 1, items)), m_element(m_file.first()) {}

std::string textOf(const QuorvanItem* item) {
  const char* text = nullptr;
  std::size_t length = 0;
  if (quorvanReadText(item, &text, &length) != QUORVAN_DONE) {
    return "(none)";
  }
  EXPECT_EQ(std::string(text).size(), length);
  return text;
}

}  // namespace quorvan::test
