// A drawing described in JSON, turned into the calls that write it.
#pragma once

#include <nlohmann/json.hpp>
#include <quorvan/text/cstring.h>

#include <filesystem>
#include <functional>
#include <vector>

/// A drawing ready to be written: every value was looked at, so that nothing can be wrong with it
/// once the filing has begun.
struct Drawing {
  CString name;
  CString version;
  int servicePack = 0;
  int checkSum = 0;
  std::vector<std::function<void()>> calls;  // one flat function each, in drawing order
};

/// The drawing that the JSON describes (docs/drawing-json.md). Raises DrawingError, naming the
/// first element that cannot be written.
Drawing readDrawing(const nlohmann::json& json);

/// Writes the drawing to `path`, over a file that may be there. Raises what the flat functions
/// raise; a file that is there then stays as it was.
void writeDrawing(const Drawing& drawing, const std::filesystem::path& path);
