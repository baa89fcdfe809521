// A drawing in memory, open for reading, for the tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include <tests/support/transfer_text.h>
#include <quorvan/reading/read.h>

namespace quorvan::test {

/// A file with these class elements, open as long as it lives.
class ReadingFile {
 public:
  explicit ReadingFile(const std::string& elements);
  ReadingFile(const ReadingFile&) = delete;
  ReadingFile& operator=(const ReadingFile&) = delete;
  ~ReadingFile() { quorvanCloseFile(m_file); }

  [[nodiscard]] QuorvanFile* get() const { return m_file; }

  /// The first element; null without one.
  [[nodiscard]] QuorvanElement* first() const;

 private:
  QuorvanFile* m_file = nullptr;
};

/// One element of the class CKtZantoMesh or whichever is named, with these items, at its walk.
class ReadingElement {
 public:
  explicit ReadingElement(const std::string& items, const char* className = "CKtZantoMesh");

  [[nodiscard]] QuorvanElement* get() const { return m_element; }
  [[nodiscard]] const QuorvanItem* item(const char* name) const {
    return quorvanItem(m_element, name);
  }

 private:
  ReadingFile m_file;
  QuorvanElement* m_element;
};

/// The text of an item; "(none)" where it cannot be read.
std::string textOf(const QuorvanItem* item);

}  // namespace quorvan::test
