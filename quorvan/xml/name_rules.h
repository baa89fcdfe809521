// Which texts XML can carry as the name of an element or attribute: the same answer on every
// backend, whatever the document service underneath lets pass.
#pragma once

#include <string_view>

namespace quorvan::dom {

/// Whether `utf8` is a name that a saved file can carry and that every strict parser reads back:
/// a letter or "_", then letters, digits, "_", "-", "." and combining marks, by the tables of
/// XML 1.0. A colon would make the part before it a namespace prefix that nothing declares, and
/// the saved file unreadable: only the prefix "xml" is known everywhere and is let pass. False
/// for the empty text and for bytes that are not UTF-8.
bool isXmlName(std::string_view utf8) noexcept;

}  // namespace quorvan::dom
