#include "drawing_summary.h"

#include <quorvan/quorvan.h>

namespace {

// A fileIn that gives 0 may mean that no element is left or that an item is missing. Counting the
// elements first tells the two apart.
std::map<std::string, int> countElements(const CString& path) {
  std::map<std::string, int> counts;
  CKtFiler filer;
  filer.newFiler(path);
  for (const char* className :
       {"CKtDrawingControl", "CKtFilledPolygon", "CKtZantoCircle", "CKtZantoFormwork",
        "CKtZantoFrameCirc", "CKtZantoFrameRect", "CKtZantoLBar", "CKtZantoLine", "CKtZantoMesh",
        "CKtZantoPin", "CKtZantoPointBar", "CKtZantoPolygonBar", "CKtZantoRepartition",
        "CKtZantoStirrup", "CKtZantoStraightBar", "CKtZantoText", "CKtZantoUBar"}) {
    while (filer.beginClass(className) != 0) {
      filer.endClass();
      ++counts[className];
    }
  }
  filer.newFiler(L"");
  return counts;
}

// Reads every element of the class and hands it to `use`. All of a class are read before the next
// class is begun: another class in between would begin this one again from its first element.
template <class Element, class Use>
void readAll(CKtFiler& filer, DrawingSummary& summary, const char* className, Use use) {
  const auto found = summary.elements.find(className);
  const int count = found == summary.elements.end() ? 0 : found->second;
  for (int i = 0; i < count; ++i) {
    Element element;  // a new one each time: an item that is missing leaves its field as it was
    if (element.fileIn(&filer) == 0) {
      ++summary.incomplete[className];
    }
    use(element);
  }
}

template <class Bar>
void readBars(CKtFiler& filer, DrawingSummary& summary, const char* className) {
  readAll<Bar>(filer, summary, className, [&](const Bar& bar) {
    Mark& mark = summary.marks[bar.getReference()];
    mark.shapes.insert(className);
    mark.diameters.insert(bar.getDiameter());
    BarCount& ofKind = summary.barsByKind[{bar.getSteelGrade(), bar.getDiameter()}];
    for (BarCount* count : {&mark.count, &ofKind}) {
      ++count->all;
      count->hidden += bar.getHidden() ? 1 : 0;
    }
  });
}

void readAllBars(CKtFiler& filer, DrawingSummary& summary) {
  readBars<CKtZantoStraightBar>(filer, summary, "CKtZantoStraightBar");
  readBars<CKtZantoLBar>(filer, summary, "CKtZantoLBar");
  readBars<CKtZantoUBar>(filer, summary, "CKtZantoUBar");
  readBars<CKtZantoPin>(filer, summary, "CKtZantoPin");
  readBars<CKtZantoPointBar>(filer, summary, "CKtZantoPointBar");
  readBars<CKtZantoPolygonBar>(filer, summary, "CKtZantoPolygonBar");
  readBars<CKtZantoFrameRect>(filer, summary, "CKtZantoFrameRect");
  readBars<CKtZantoFrameCirc>(filer, summary, "CKtZantoFrameCirc");
  readBars<CKtZantoStirrup>(filer, summary, "CKtZantoStirrup");
}

void readSeries(CKtFiler& filer, DrawingSummary& summary) {
  readAll<CKtZantoRepartition>(filer, summary, "CKtZantoRepartition",
                               [&](const CKtZantoRepartition& repartition) {
                                 Series series;
                                 series.barClass = repartition.getDefClassName();
                                 series.barIndex = repartition.getIndex();
                                 series.viewPoint = repartition.getViewPoint();
                                 series.hidden = repartition.getHidden();
                                 std::vector<double> distances;  // one for each bar
                                 repartition.getAxisDistancesTop(distances);
                                 series.bars = distances.size();
                                 repartition.getPositions(series.spacings);
                                 summary.series.push_back(series);
                               });
}

void readTexts(CKtFiler& filer, DrawingSummary& summary) {
  std::set<CString> known;
  readAll<CKtZantoText>(filer, summary, "CKtZantoText", [&](const CKtZantoText& text) {
    if (known.insert(text.GetContents()).second) {
      summary.texts.push_back(text.GetContents());
    }
  });
}

void readControlRecord(CKtFiler& filer, DrawingSummary& summary) {
  readAll<CKtDrawingControl>(filer, summary, "CKtDrawingControl",
                             [&](const CKtDrawingControl& control) {
                               summary.hasControlRecord = true;
                               summary.name = control.GetDrawingName();
                               summary.version = control.GetZantoVersion();
                               summary.servicePack = control.GetServicePack();
                               summary.checkSum = control.GetCheckSum();
                             });
}

}  // namespace

DrawingSummary summarize(const std::filesystem::path& path) {
  const CString wide = path.wstring().c_str();
  DrawingSummary summary;
  summary.elements = countElements(wide);
  CKtFiler filer;
  filer.newFiler(wide);
  readControlRecord(filer, summary);
  readAllBars(filer, summary);
  readSeries(filer, summary);
  readTexts(filer, summary);
  filer.newFiler(L"");
  return summary;
}
