// A page whose parts come in where the template names them: "{{title}}".
#pragma once

#include <functional>
#include <ostream>
#include <string_view>

namespace quorvan::tool {

/// Writes the template; `write` is called with the name of each part where it belongs.
void fillTemplate(std::string_view page, std::ostream& out,
                  const std::function<void(std::string_view part)>& write);

}  // namespace quorvan::tool
