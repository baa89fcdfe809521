// Sequences of calls to filers and pattern filers, held against the model of the filer call by
// call. It works on files of the current folder.
#include <cstdio>
#include <string>

#include <fuzz/input.h>
#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <tests/filer/model/performance.h>
#include <tests/filer/model/random_document.h>
#include <tests/filer/model/script.h>
#include <quorvan/xml/embedded/files/file_calls.h>

namespace model = quorvan::test::model;
using quorvan::fuzz::Input;

namespace {

constexpr int kActions = static_cast<int>(model::Action::kNextItem) + 1;
constexpr std::size_t kMostCalls = 60;

bool isForPatterns(model::Action action) {
  return action >= model::Action::kClassName;
}

bool takesPattern(model::Action action) {
  return action == model::Action::kSeek;
}

// A file to open may be one that cannot be written; one that is put there is not.
std::string nameFrom(Input& input, model::Action action) {
  const char* const kNames[] = {"A", "B", "point", "size", "N", "a b", ""};
  if (action == model::Action::kOpen) {
    return input.pick(model::kScriptFiles);
  }
  if (action == model::Action::kPutFile) {
    return model::kScriptFiles[input.below(3)];
  }
  return input.pick(kNames);
}

model::Call callFrom(Input& input) {
  const char* const kTexts[] = {"A", "B", "point", "size", "N", "a b", ""};
  model::Call call{static_cast<model::Action>(input.below(kActions))};
  constexpr int kPatterns = model::kFilers - model::kFirstPattern;
  call.filer = isForPatterns(call.action) ? model::kFirstPattern + input.below(kPatterns)
                                          : input.below(model::kFilers);
  call.other = takesPattern(call.action) ? model::kFirstPattern + input.below(kPatterns)
                                         : input.below(model::kFilers);
  // A filer is not made a copy of itself, and a pattern filer only of another.
  if (call.action == model::Action::kAssign || call.action == model::Action::kCopy) {
    call.other = call.filer ^ 1;
  }
  call.name = nameFrom(input, call.action);
  call.text = input.pick(kTexts);
  call.value = input.real();
  call.number = input.number();
  if (call.action == model::Action::kPutFile) {
    model::RandomSource random(static_cast<std::uint32_t>(input.bits(2)));
    call.sample = model::randomDocument(random, input.below(6));
  }
  return call;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // None of the files has to survive a power failure.
  quorvan::embedded::FileCalls calls = quorvan::embedded::systemFileCalls();
  calls.fsync = [](int) { return 0; };
  quorvan::embedded::setFileCalls(calls);
  Input input(data, size);
  model::Script script;
  while (!input.isOver() && script.size() < kMostCalls) {
    script.push_back(callFrom(input));
  }
  const std::string difference = model::difference(script);
  if (!difference.empty()) {
    std::fprintf(stderr, "%s\n%s\n", difference.c_str(), model::shrunk(script).c_str());
  }
  quorvan::fuzz::require(difference.empty(), "the library does what the model does");
  return 0;
}
