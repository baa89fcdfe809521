// The fixed parts of the page, from the files in page/.
#pragma once

#include <string_view>

namespace quorvan::tool {

extern const std::string_view kPageTemplate;  // page.html
extern const std::string_view kPageStyle;     // page.css
extern const std::string_view kPageScript;    // page.js

}  // namespace quorvan::tool
