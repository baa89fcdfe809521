#include <tools/check/checker.h>

#include <algorithm>

#include <tools/check/rules.h>
#include <tools/model/item_reader.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

// Takes the elements through all rules.
class Checker {
 public:
  Checker(const TransferFile& file, const StandardSizes& sizes, std::vector<Finding>& findings)
      : m_file(file),
        m_sizes(sizes),
        m_sink(file, findings),
        m_reader(file),
        m_index(file, m_sink),
        m_hidden(file, m_sink),
        m_references(file, m_sink),
        m_equalBars(file, m_sink),
        m_seriesViews(file, m_sink),
        m_degenerateSeries(m_sink) {}

  void check(Progress& progress) {
    checkDocument(m_file, m_sink);
    for (const Element& element : m_file.elements()) {
      progress.report(element.place, m_file.elements().size());
      checkElement(element);
    }
    m_seriesViews.report();
    m_degenerateSeries.report();
    checkControl(m_file, m_sink);
  }

 private:
  void checkElement(const Element& element) {
    m_index.look(element);
    if (element.schema == nullptr) {
      m_sink.add(findings::kUnknownClass, element, "", '"' + std::string(element.className()) + '"',
                 "a class of this format");
      return;
    }
    m_problems.clear();
    const std::vector<ItemValue>& items = m_reader.read(element, &m_problems);
    reportProblems(element, m_problems, m_sink);
    checkTexts(element, items, m_sink);
    if (!areWhole(m_problems)) {
      return;
    }
    if (element.is(items::ElementClass::kRepartition)) {
      checkRepartition(m_seriesViews.elements(), element, items, m_sink);
      m_seriesViews.look(element, toRepartition(items));
      m_degenerateSeries.look(element, items);
      return;
    }
    m_degenerateSeries.lookAtSize(items);
    if (const auto shape = barShapeOf(element)) {
      const Bar bar = toBar(*shape, items);
      m_hidden.look(element, bar);
      m_references.look(element, items, bar);
      m_equalBars.look(element, bar);
      checkDiameter(element, items, bar, m_sizes, m_sink);
    }
  }

  const TransferFile& m_file;
  const StandardSizes& m_sizes;
  FindingSink m_sink;
  ItemReader m_reader;
  IndexRule m_index;
  HiddenBarRule m_hidden;
  ReferenceRule m_references;
  EqualBarRule m_equalBars;
  SeriesViewRule m_seriesViews;
  DegenerateSeriesRule m_degenerateSeries;
  std::vector<ItemProblem> m_problems;
};

}  // namespace

StandardSizes europeanSizes() {
  return {
      {4, 4.5, 5, 5.5, 6, 6.5, 7, 7.5, 8, 8.5, 9, 9.5, 10, 11, 12, 14, 16, 20, 25, 28, 32, 40, 50}};
}

std::vector<Finding> checkFile(const TransferFile& file, const StandardSizes& sizes,
                               Console& console) {
  std::vector<Finding> findings;
  {
    Progress progress(console, "checking " + printable(file.name()));
    Checker(file, sizes, findings).check(progress);
  }
  if (!file.isPlain()) {
    for (Finding& finding : findings) {
      finding.mend = {};
    }
  }
  sortByPlace(findings);
  return findings;
}

Finding findingOf(const Unreadable& fault) {
  return {&findings::kUnreadable, {}, {}, {}, {}, fault.reason(), "a file that can be read", {}};
}

Finding findingOf(const NotWellFormed& fault) {
  return {&findings::kNotWellFormed, fault.refusal().position, {}, {}, {},
          fault.refusal().reason,    "a well-formed document", {}};
}

}  // namespace quorvan::tool
