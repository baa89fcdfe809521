#include <quorvan/export/series/repartition_writer.h>

#include <quorvan/elements/repartition.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/filing/scratch_search.h>
#include <quorvan/export/series/repartition_geometry.h>

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
