#include <algorithm>

#include <quorvan/text/utf8.h>

#include <tools/check/rules.h>

namespace quorvan::tool {

namespace {

struct TextFaults {
  bool isLost = false;     // U+FFFD
  bool isControl = false;  // U+007F to U+009F
};

TextFaults faultsOf(const std::string& text) {
  TextFaults faults;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char32_t character = decodeUtf8(at, end);
    faults.isLost = faults.isLost || character == kReplacementCharacter;
    faults.isControl = faults.isControl || (character >= 0x7F && character <= 0x9F);
  }
  return faults;
}

Mend mendOf(const ItemProblem& problem) {
  Mend mend;
  if (problem.kind == ProblemKind::kRepeatedItem) {
    mend.kind = Mend::Kind::kRemove;
  } else if (problem.mend) {
    mend.kind = Mend::Kind::kSetAttribute;
    mend.attribute = *problem.mend;
  }
  return mend;
}

}  // namespace

const FindingKind& findingKindOf(ProblemKind problem) {
  switch (problem) {
    case ProblemKind::kMissing:
      return findings::kMissingItem;
    case ProblemKind::kMistyped:
      return findings::kMistypedItem;
    case ProblemKind::kNoNumber:
      return findings::kNoNumber;
    case ProblemKind::kBlanks:
      return findings::kBlanks;
    case ProblemKind::kNoFlag:
      return findings::kNoFlag;
    case ProblemKind::kNumericAdherence:
      return findings::kNumericAdherence;
    case ProblemKind::kCountDisagrees:
      return findings::kCountDisagrees;
    case ProblemKind::kCountOutOfRange:
      return findings::kCountOutOfRange;
    case ProblemKind::kOddCount:
      return findings::kOddCount;
    case ProblemKind::kUnknownItem:
      return findings::kUnknownItem;
    case ProblemKind::kRepeatedItem:
      return findings::kRepeatedItem;
  }
  return findings::kMissingItem;
}

bool areWhole(const std::vector<ItemProblem>& problems) {
  return std::ranges::none_of(problems, [](const ItemProblem& problem) {
    return findingKindOf(problem.kind).severity == Severity::kError;
  });
}

void reportProblems(const Element& element, const std::vector<ItemProblem>& problems,
                    FindingSink& sink) {
  for (const ItemProblem& problem : problems) {
    sink.add(findingKindOf(problem.kind), element, problem.item, problem.found, problem.expected,
             problem.at, mendOf(problem));
  }
}

void checkTexts(const Element& element, const std::vector<ItemValue>& items, FindingSink& sink) {
  for (const ItemValue& item : items) {
    if (item.text.empty()) {
      continue;
    }
    const TextFaults faults = faultsOf(item.text);
    if (faults.isLost) {
      sink.add(findings::kLostCharacter, element, item.schema->name, '"' + item.text + '"',
               "a text without U+FFFD", item.node);
    }
    if (faults.isControl) {
      sink.add(findings::kControlCharacter, element, item.schema->name, '"' + item.text + '"',
               "a text without U+007F to U+009F", item.node);
    }
  }
}

}  // namespace quorvan::tool
