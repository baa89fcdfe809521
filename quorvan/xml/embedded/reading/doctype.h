// The DOCTYPE of a document, looked at ahead of it: the text that is kept, and what it declares
// that decides how the document is read and whether it may be.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <quorvan/xml/embedded/files/file_source.h>
#include <quorvan/xml/embedded/reading/entity_graph.h>
#include <quorvan/xml/load_problem.h>

namespace quorvan::embedded {

inline constexpr std::string_view kDoctypeBegin = "<!DOCTYPE";
// Why a file is refused.
inline constexpr const char* kBadName = "a name that XML does not allow";

/// The attributes declared for an element.
struct DeclaredAttributes {
  std::size_t count = 0;
  std::size_t prefixes = 0;        // of their names
  std::size_t addressBytes = 0;    // of the namespaces that they name
  std::size_t longestAddress = 0;  // of one, in bytes
};

struct Doctype {
  std::string source;  // as it stands in the file, in UTF-8; empty without one
  EntityGraph entities;
  // Something may be declared where nobody looks: references that the parser passes over have to be
  // found here.
  bool isOpenWorld = false;
  // By the name of their element.
  std::map<std::string, DeclaredAttributes, std::less<>> declaredAttributes;

  /// Reads the file, which stands at its beginning, up to its first element, and goes back.
  /// Nothing when it is not well-formed so far or goes beyond limits.h; `problem` then says which.
  /// A file that it takes can be parsed on 64 KB of stack.
  static std::optional<Doctype> read(FileSource& file, dom::LoadProblem& problem);
};

}  // namespace quorvan::embedded
