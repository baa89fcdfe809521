#include <tools/draw/page/page_template.h>

namespace quorvan::tool {

void fillTemplate(std::string_view page, std::ostream& out,
                  const std::function<void(std::string_view part)>& write) {
  while (!page.empty()) {
    const std::size_t begin = page.find("{{");
    const std::size_t end = page.find("}}", begin);
    out << page.substr(0, begin);
    if (begin == std::string_view::npos || end == std::string_view::npos) {
      break;
    }
    write(page.substr(begin + 2, end - begin - 2));
    page.remove_prefix(end + 2);
  }
}

}  // namespace quorvan::tool
