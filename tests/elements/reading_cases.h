// Many elements read from one file: saving a file waits for the disk, so a test that reads
// hundreds of elements puts them into one.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <tests/elements/element_file.h>

namespace quorvan::test {

template <class Element>
class ReadingCases {
 public:
  /// Reading a class element with these items into `before` is to give this result and leave an
  /// element which `describe` gives as `expected`.
  void add(std::string items, Element before, int result, std::vector<std::string> expected) {
    m_elements += classElement(kClassName, static_cast<int>(m_cases.size() + 1), items);
    m_cases.push_back({std::move(items), std::move(before), result, std::move(expected)});
  }

  /// Reads them all, one after the other.
  void run() {
    ASSERT_FALSE(m_cases.empty()) << kClassName;
    writeBytes(kFile, transferFile(m_elements));
    CKtFiler filer;
    ASSERT_EQ(filer.newFiler(kFileName), 1);
    for (Case& one : m_cases) {
      EXPECT_EQ(one.element.fileIn(&filer), one.result) << one.items;
      EXPECT_EQ(describe(one.element), one.expected) << one.items;
    }
  }

 private:
  static constexpr const char* kClassName = ElementModel<Element>::kClassName;

  struct Case {
    std::string items;
    Element element;
    int result;
    std::vector<std::string> expected;
  };

  std::string m_elements;
  std::vector<Case> m_cases;
};

}  // namespace quorvan::test
