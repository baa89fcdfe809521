// The fixture of the tests of saving and loading when the system fails.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <tests/support/saved_file.h>
#include <tests/xml/embedded/embedded_dom.h>
#include <tests/xml/embedded/file_faults.h>

namespace quorvan::test {

inline constexpr HRESULT kDiskFull = static_cast<HRESULT>(0x80070070U);

class FileErrors : public EmbeddedDom {
 protected:
  // A document of several blocks, saved once.
  FileErrors() {
    for (int i = 0; i < 4000; ++i) {
      dom::addAttribute(m_document, appended(m_root, "CKtZantoLine"), "long", std::int32_t{i});
    }
    dom::save(m_document, target(), dom::Durability::kScratch);
    m_old = fileBytes(file("drawing.xml"));
    appended(m_root, "New");
    dom::save(m_document, wide(file("expected.xml")), dom::Durability::kScratch);
    m_new = fileBytes(file("expected.xml"));
    std::filesystem::remove(file("expected.xml"));
  }

  [[nodiscard]] CString target() const { return wide(file("drawing.xml")); }
  [[nodiscard]] std::string content() const { return fileBytes(file("drawing.xml")); }
  [[nodiscard]] std::ptrdiff_t filesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(file("")), {});
  }
  [[nodiscard]] HRESULT save() const {
    return raisedBy([&] { dom::save(m_document, target()); });
  }

  std::string m_old;
  std::string m_new;
};

}  // namespace quorvan::test
