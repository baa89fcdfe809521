#include <tests/filer/model/script.h>

#include <tests/filer/model/performance.h>

#include <algorithm>
#include <cstddef>
#include <span>

namespace quorvan::test::model {

const char* const kScriptFiles[4] = {"first.xml", "second.xml", "pattern.xml",
                                     "missing/unwritable.xml"};

namespace {

const char* nameOf(Action action) {
  static constexpr const char* kNames[] = {"put file",
                                           "open",
                                           "close",
                                           "renew",
                                           "assign",
                                           "copy",
                                           "begin class",
                                           "read class",
                                           "end class",
                                           "begin vector",
                                           "read vector",
                                           "end vector",
                                           "write double",
                                           "write long",
                                           "write text",
                                           "write point",
                                           "write direction",
                                           "write points",
                                           "write directions",
                                           "read double",
                                           "read long",
                                           "read text",
                                           "read point",
                                           "read direction",
                                           "read points",
                                           "read directions",
                                           "seek",
                                           "class name",
                                           "first item",
                                           "next item",
                                           "hand out",
                                           "turn"};
  return kNames[static_cast<std::size_t>(action)];
}

std::string described(const Call& call) {
  std::string text = "filer " + std::to_string(call.filer) + ": " + nameOf(call.action) + " \"" +
                     call.name + "\" other=" + std::to_string(call.other) +
                     " number=" + std::to_string(call.number) +
                     " value=" + std::to_string(call.value) + " text=\"" + call.text + '"';
  if (call.sample != nullptr) {
    text += '\n' + fileText(*call.sample->document);
  }
  return text;
}

// Only these write files, other than putting one.
bool maySave(Action action) {
  return action == Action::kClose || action == Action::kRenew || action == Action::kCopy;
}

std::string filesDifference(Performance& library, Performance& model) {
  for (const char* path : kScriptFiles) {
    const std::string saved = library.file(path);
    const std::string expected = model.file(path);
    if (saved != expected) {
      std::string difference = path;
      return difference.append("\n  library: ")
          .append(saved)
          .append("\n  model:   ")
          .append(expected);
    }
  }
  return "";
}

std::string callDifference(const Call& call, Performance& library, Performance& model) {
  const std::string seen = library.perform(call);
  const std::string expected = model.perform(call);
  if (seen != expected) {
    return described(call) + "\n  library: " + seen + "\n  model:   " + expected;
  }
  if (maySave(call.action)) {
    return filesDifference(library, model);
  }
  return "";
}

// Takes away pieces of `size` calls as long as a difference stays.
void takeAway(Script& script, std::size_t size) {
  for (std::size_t start = 0; start < script.size();) {
    const std::size_t end = std::min(start + size, script.size());
    Script shorter(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(start));
    shorter.insert(shorter.end(), script.begin() + static_cast<std::ptrdiff_t>(end), script.end());
    if (difference(shorter).empty()) {
      start = end;
    } else {
      script = std::move(shorter);
    }
  }
}

}  // namespace

std::string difference(const Script& script) {
  const std::unique_ptr<Performance> library = libraryPerformance();
  const std::unique_ptr<Performance> model = modelPerformance();
  for (std::size_t i = 0; i < script.size(); ++i) {
    const std::string found = callDifference(script[i], *library, *model);
    if (!found.empty()) {
      return "call " + std::to_string(i) + ", " + found;
    }
  }
  return "";
}

std::string shrunk(Script script) {
  std::size_t before = 0;
  do {
    before = script.size();
    for (std::size_t size = std::max<std::size_t>(before / 2, 1); size > 0; size /= 2) {
      takeAway(script, size);
    }
  } while (script.size() < before);
  std::string text;
  for (const Call& call : script) {
    text += described(call) + '\n';
  }
  return text + difference(script);
}

}  // namespace quorvan::test::model
