#include <tools/repair/repair.h>

#include <algorithm>
#include <optional>

#include <tools/console/terminal.h>
#include <tools/files/forbidden_characters.h>
#include <tools/repair/source_edits.h>
#include <tools/repair/source_rewriter.h>

namespace quorvan::tool {

namespace {

// What one mend lets readers see may be mended in its turn: the entries behind a count that was too
// small. No file is known that takes more than four rounds.
constexpr int kMostRounds = 10;

bool isAboutCharacter(const Finding& finding) {
  return finding.mend.kind == Mend::Kind::kReplaceCharacter;
}

std::string mended(const std::string& bytes, const TransferFile& file,
                   const std::vector<Finding>& findings) {
  const SourceEncoding& encoding = file.encoding();
  const std::string text = plainText(bytes, encoding);
  // The places of all other findings are known once these characters are gone.
  if (std::ranges::any_of(findings, isAboutCharacter)) {
    return sourceBytes(withoutForbiddenCharacters(text, encoding.isSingleByte).text, encoding);
  }
  return sourceBytes(rewritten(text, encoding.isSingleByte, SourceEdits(file, findings)), encoding);
}

}  // namespace

std::string repairedBytes(const InputFile& input, const StandardSizes& sizes,
                          const std::filesystem::path& scratch, Console& console) {
  std::string bytes = readBytes(input.path(), input.name());
  std::optional<InputFile> copy;
  for (int round = 0; round < kMostRounds; ++round) {
    const TransferFile file(copy ? *copy : input, console, Tolerance::kForbiddenCharacters);
    const std::vector<Finding> findings = checkFile(file, sizes, console);
    if (std::ranges::none_of(findings, &Finding::isRepairable)) {
      break;
    }
    bytes = mended(bytes, file, findings);
    writeBytes(scratch, bytes);
    copy.emplace(toUtf8(scratch));
  }
  return bytes;
}

}  // namespace quorvan::tool
