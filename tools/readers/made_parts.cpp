#include <tools/readers/made_parts.h>

#include <tools/console/console.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kStart = "--- made from the item tables";
constexpr std::string_view kEnd = "--- end of what is made";

// Where the line with the mark begins, from `from` on.
std::size_t lineOf(std::string_view source, std::string_view mark, std::size_t from) {
  const std::size_t at = source.find(mark, from);
  return at == std::string_view::npos ? at : source.rfind('\n', at) + 1;
}

}  // namespace

std::string withMadeParts(std::string_view source, const std::vector<std::string>& parts) {
  std::string result;
  std::size_t written = 0;
  for (const std::string& part : parts) {
    const std::size_t start = source.find(kStart, written);
    const std::size_t end = lineOf(source, kEnd, start);
    if (start == std::string_view::npos || end == std::string_view::npos) {
      throw Failure("a mark of a part that is made is missing");
    }
    const std::size_t body = source.find('\n', start) + 1;
    result.append(source.substr(written, body - written)).append(part);
    written = end;
  }
  if (source.find(kStart, written) != std::string_view::npos) {
    throw Failure("a mark of a part that is made is one too many");
  }
  return result.append(source.substr(written));
}

}  // namespace quorvan::tool
