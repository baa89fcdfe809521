#include <quorvan/xml/embedded/files/file_window.h>

#include <cstring>

namespace quorvan::embedded {

FileWindow::FileWindow(FileSource& file)
    : m_file(file), m_bytes(std::make_unique_for_overwrite<char[]>(kFirstCapacity + kSlack)) {
  std::memset(m_bytes.get(), 0, kSlack);
}

bool FileWindow::moveOn(const char* from) {
  const auto left = static_cast<std::size_t>(end() - from);
  // A part that already fills half of the window is doubled, so that the cost stays in proportion
  // to what is read.
  if (left > m_capacity / 2) {
    auto larger = std::make_unique_for_overwrite<char[]>(2 * m_capacity + kSlack);
    std::memcpy(larger.get(), from, left);
    m_bytes = std::move(larger);
    m_capacity *= 2;
  } else if (left != 0) {
    std::memmove(m_bytes.get(), from, left);
  }
  m_size = left;
  const std::size_t count = m_file.read(m_bytes.get() + left, m_capacity - left);
  m_size += count;
  std::memset(m_bytes.get() + m_size, 0, kSlack);
  return count != 0;
}

}  // namespace quorvan::embedded
