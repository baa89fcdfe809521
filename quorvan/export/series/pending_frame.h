// PendingFrame: one frame of a series, held back until the filing ends. Not installed.
#pragma once

#include <quorvan/elements/frame_rect.h>
#include <quorvan/geometry/point.h>
#include <quorvan/text/cstring.h>

namespace quorvan {

#pragma pack(push, 1)

/// What pushRepartitionFrameRect was given, without padding. The frame part carries hook, steel and
/// diameter; its points, its reference and its hidden flag keep their defaults.
struct PendingFrame {
  CKtZantoFrameRect frame;
  CString className;    // of the repeated bar
  double value1 = 0.0;  // first point, or top distance
  double value2 = 0.0;  // ... bottom distance
  double value3 = 0.0;  // ... position; in the key of its group
  double value4 = 0.0;  // second point
  double value5 = 0.0;
  double value6 = 0.0;
  int viewPoint = 0;
  int reference = 0;
  bool hidden = false;
  int keyC = 0;
  int lastInt = 0;

  [[nodiscard]] CKtPnt3D firstPoint() const { return {value1, value2, value3}; }
  [[nodiscard]] CKtPnt3D secondPoint() const { return {value4, value5, value6}; }
};

#pragma pack(pop)

}  // namespace quorvan
