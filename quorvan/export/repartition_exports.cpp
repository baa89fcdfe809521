// Repartitions: a frame handed over is held back until the filing ends.
#include <memory>
#include <utility>

#include <quorvan/export/caller_arguments.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/series/held_frames.h>

void pushRepartitionFrameRect(double value1, double value2, double value3, double value4,
                              double value5, double value6, const wchar_t* className,
                              double hookLength1, double hookAngle1, const wchar_t* steelGrade,
                              const wchar_t* adherence, long reference, double diameter,
                              bool hidden, long keyC, int viewPoint, int lastInt) {
  if (quorvan::filingStopped) {
    return;
  }
  auto pending = std::make_unique<quorvan::PendingFrame>();
  pending->frame.setHookLength1(hookLength1);
  pending->frame.setHookAngle1(hookAngle1);
  pending->frame.setSteelGrade(steelGrade);
  pending->frame.setAdherence(adherence);
  pending->frame.setDiameter(diameter);
  pending->className = className;
  pending->value1 = value1;
  pending->value2 = value2;
  pending->value3 = value3;
  pending->value4 = value4;
  pending->value5 = value5;
  pending->value6 = value6;
  pending->reference = static_cast<int>(reference);
  pending->hidden = quorvan::flagOf(hidden);
  pending->keyC = static_cast<int>(keyC);
  pending->viewPoint = viewPoint;
  pending->lastInt = lastInt;
  quorvan::pendingFrames.push_back(std::move(pending));
}
