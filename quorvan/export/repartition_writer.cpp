#include <quorvan/export/repartition_writer.h>

#include <quorvan/elements/repartition.h>
#include <quorvan/export/export.h>
#include <quorvan/export/repartition_geometry.h>
#include <quorvan/export/scratch_search.h>

namespace quorvan {

namespace {

constexpr int kPatternVersion = 1;

// Files what identifies the repeated bar among the elements of its class.
void writeBarPattern(CKtPatternFiler& pattern, const PendingFrame& frame, bool hidden) {
  pattern.beginClass(frame.className, kPatternVersion);
  pattern.writeItem(L"Reference", static_cast<long>(frame.reference));
  pattern.writeItem(L"SteelGrade", frame.frame.getSteelGrade());
  pattern.writeItem(L"Adherence", frame.frame.getAdherence());
  pattern.writeItem(L"Diameter", frame.frame.getDiameter());
  pattern.writeItem(L"Hidden", hidden ? L"True" : L"False");
  pattern.endClass();
}

// The bar as visible as the frame is looked for first, then its counterpart; -1 for neither.
int indexOfRepeatedBar(const PendingFrame& frame) {
  const bool hidden = frame.frame.getHidden();
  const auto search = [&frame](bool asHidden) {
    return indexInFile(
        [&](CKtPatternFiler& pattern) { writeBarPattern(pattern, frame, asHidden); });
  };
  const int found = search(hidden);
  return found != -1 ? found : search(!hidden);
}

}  // namespace

void writeRepartition(FrameGroup& group) {
  if (filingStopped) {
    return;
  }
  CKtZantoRepartition repartition;
  layOutRepartition(group, repartition);
  const PendingFrame& first = *group.front();
  repartition.setDefClassName(first.className);
  repartition.setViewPoint(static_cast<CKtZantoRepartition::eViewPoint>(first.viewPoint));
  repartition.setHidden(first.hidden);
  repartition.setIndex(indexOfRepeatedBar(first));
  repartition.fileOut(&theFiler);
}

}  // namespace quorvan

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
  pending->hidden = hidden;
  pending->keyC = static_cast<int>(keyC);
  pending->viewPoint = viewPoint;
  pending->lastInt = lastInt;
  quorvan::pendingFrames.push_back(std::move(pending));
}
