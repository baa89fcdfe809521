// What is wrong with a document, for somebody who does not know parsers.
#pragma once

#include <string>

#include <tools/files/well_formedness.h>

namespace quorvan::tool {

/// The refusal with its reason as a sentence that names the tags it is about and where they were
/// opened. A reason that is not known stays as it is. `bytes` is the content of the file.
Refusal inWords(Refusal refusal, const std::string& bytes);

}  // namespace quorvan::tool
