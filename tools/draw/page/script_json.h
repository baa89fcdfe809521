// JSON inside a page.
#pragma once

#include <string>

#include <tools/text/json_text.h>

namespace quorvan::tool {

/// JSON that can stand in a script: what would end it, or is markup in XML, is written out.
std::string scriptJson(const Json& value);

/// The same of a text, without a value being made of it first.
void appendScriptText(std::string& out, const std::string& text);

}  // namespace quorvan::tool
