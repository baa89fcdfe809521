#include "drawing.h"

#include <quorvan/export/export.h>
#include <quorvan/platform/com_error.h>

#include <string>
#include <system_error>

#include "element_calls.h"
#include "json_element.h"

namespace {

void addElement(JsonElement& element, Drawing& drawing) {
  if (element.has("series")) {
    for (JsonElement& frame : element.list("series", "frame")) {
      drawing.calls.push_back(frameCall(frame));
      frame.expectNoOtherItem();
    }
  } else {
    const std::string className = element.utf8("class");
    element.setClassName(className);
    drawing.calls.push_back(elementCall(className, element));
  }
  element.expectNoOtherItem();
}

// Ends the filing and keeps nothing of it. A filing left open would be saved at the program's end,
// and frames still held back would go into the next drawing: closing takes care of both.
void abandonFiling(const std::filesystem::path& draft) {
  stopFiling();
  try {
    endFiling(L"", 0, L"", 0);
  } catch (const _com_error&) {
    startFiling(L"");  // cannot be saved either: lets go of it
  }
  std::error_code ignored;  // the error that led here is the one to report
  std::filesystem::remove(draft, ignored);
}

void fileDrawing(const Drawing& drawing, const std::filesystem::path& path) {
  startFiling(path.wstring().c_str());
  for (const auto& call : drawing.calls) {
    call();
  }
  endFiling(drawing.version, drawing.servicePack, drawing.name, drawing.checkSum);
}

}  // namespace

Drawing readDrawing(const nlohmann::json& json) {
  JsonElement file(json);
  JsonElement control = file.object("drawing");
  Drawing drawing;
  drawing.name = control.text("name");
  drawing.version = control.text("version");
  drawing.servicePack = control.whole("servicePack");
  drawing.checkSum = control.whole("checkSum");
  control.expectNoOtherItem();
  for (JsonElement& element : file.list("elements", "element")) {
    addElement(element, drawing);
  }
  file.expectNoOtherItem();
  return drawing;
}

void writeDrawing(const Drawing& drawing, const std::filesystem::path& path) {
  // A filing adds to the file that it finds: the drawing is written to a file of its own first.
  std::filesystem::path draft = path;
  draft += ".draft";
  std::filesystem::remove(draft);
  try {
    fileDrawing(drawing, draft);
  } catch (...) {
    abandonFiling(draft);
    throw;
  }
  std::filesystem::rename(draft, path);
}
