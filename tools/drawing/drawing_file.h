// A drawing as JSON, in a file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <tools/drawing/element_from_json.h>

namespace quorvan::tool {

/// The drawing control record.
struct ControlInput {
  std::string name;
  std::string version;
  std::int64_t servicePack = 0;
  std::int64_t checkSum = 0;
};

/// One pushed frame of a series: the arguments of pushRepartitionFrameRect.
struct FrameInput {
  double values[6] = {};
  std::string className;
  double hookLength1 = 0.0;
  double hookAngle1 = 0.0;
  std::string steelGrade;
  std::string adherence;
  std::int64_t reference = 0;
  double diameter = 0.0;
  bool hidden = false;
  std::int64_t keyC = 0;
  std::int64_t viewPoint = 0;
  std::int64_t lastInt = 0;
};

/// An element, or a series of frames.
struct DrawingEntry {
  ElementInput element;  // of no schema for a series
  std::vector<FrameInput> series;
};

/// A drawing is read whole before anything is filed, so that a mistake in it leaves no half file.
struct DrawingInput {
  std::optional<ControlInput> control;
  std::vector<DrawingEntry> entries;
};

/// Reads the file. Raises Failure with its line where it is no JSON or not a drawing.
DrawingInput readDrawing(const std::string& name);

}  // namespace quorvan::tool
