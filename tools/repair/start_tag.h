// A start tag as it stands in the source, and how it is changed there.
#pragma once

#include <string>
#include <string_view>

#include <tools/model/item_mending.h>

namespace quorvan::tool {

class StartTag {
 public:
  explicit StartTag(std::string_view source) : m_source(source) {}

  /// Puts an attribute right; whatever else stands in the tag stays as it is.
  void mend(const AttributeMend& mend);
  void rename(std::string_view name);
  /// Lets a tag that closes itself open an element.
  void open();

  [[nodiscard]] const std::string& source() const noexcept { return m_source; }

 private:
  // The places of an attribute in the source; `end` is behind its closing quote.
  struct Place {
    std::size_t name = 0;
    std::size_t nameEnd = 0;
    std::size_t value = 0;
    std::size_t end = 0;
  };

  [[nodiscard]] std::size_t nameEnd() const;
  // The attribute of that name; one that begins and ends behind the last where there is none.
  [[nodiscard]] Place find(std::string_view name) const;

  std::string m_source;
};

}  // namespace quorvan::tool
