#include <quorvan/export/series/repartition_writer.h>

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/repartition.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/filing/scratch_search.h>
#include <quorvan/export/series/frame_grouping.h>
#include <quorvan/export/series/repartition_geometry.h>
#include <quorvan/filer/item_access.h>

namespace quorvan {

namespace {

// Files what identifies the repeated bar among the elements of its class.
void writeBarPattern(CKtPatternFiler& pattern, const PendingFrame& frame, bool hidden) {
  pattern.beginClass(frame.className, items::kElementVersion);
  const CKtZantoFrameRect& bar = frame.frame;
  ItemAccess::write(pattern, items::kReferenceName, static_cast<long>(frame.reference));
  ItemAccess::write(pattern, items::kSteelGradeName, bar.getSteelGrade());
  ItemAccess::write(pattern, items::kAdherenceName, bar.getAdherence());
  ItemAccess::write(pattern, items::kDiameterName, bar.getDiameter());
  ItemAccess::write(pattern, items::kHiddenName,
                    dom::AsciiText{hidden ? items::kTrue : items::kFalse});
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

void writeHeldSeries() {
  groupPendingFrames();
  for (std::size_t i = 0; i < groupedFrames.size(); ++i) {
    if (groupedFrames[i].empty()) {
      continue;
    }
    writeRepartition(groupedFrames[i]);
    groupedFrames[i].clear();
  }
}

}  // namespace quorvan
