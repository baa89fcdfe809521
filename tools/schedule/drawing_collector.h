// The rows of one drawing.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>
#include <tools/model/view_twins.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

class DrawingCollector {
 public:
  /// The rows go to the end of `list`, whose last drawing they are of.
  DrawingCollector(const TransferFile& file, BarList& list);

  void collect();

 private:
  // A series and the bar that it repeats.
  struct Use {
    const Element* element;
    std::uint64_t number;
    std::vector<double> spans;  // of its bars, where they differ
    const Element* sameBars = nullptr;
    std::size_t twins = kNoTwins;
  };

  // A bar, and as bent where its length in the list hangs on that.
  struct Measured {
    const Bar& bar;
    double length;
    BentBar bent = {};
  };

  // What rows are told apart and sorted by.
  using RowKey = std::tuple<std::int64_t, double, std::string, std::string, BarShape, double,
                            double, std::vector<std::int64_t>>;
  using MeshKey = std::tuple<std::string, std::string, double, double>;

  static constexpr std::size_t kNoTwins = static_cast<std::size_t>(-1);

  void collectSeries();
  void markTwins(const std::vector<TwinGroup>& groups);
  void addBar(const Element& element, BarShape shape);
  void addPointBar(const Element& element, const Bar& bar);
  void addVaryingSeries(const Element& element, const Bar& bar, const Use& use);
  void addEachLength(const Element& element, const Bar& bar, const Use& use,
                     const std::vector<double>& spans);
  void addMesh(const Element& element);
  void leaveOut(const Element& element, std::uint64_t number, LeftOutReason reason,
                std::string item = {});
  void addOrMerge(BarRow row);
  void settleEndOn();

  [[nodiscard]] Measured measure(const Bar& bar) const;
  /// The row of bars like the longest of these, the shortest of which is so long.
  BarRow& rowOf(const Measured& longest, double shortest);
  BarRow newRow(const Measured& longest, double shortest) const;
  static void addElement(BarRow& row, const Element& element, const Bar& bar, bool isRepeated);
  void addShare(BarRow& row, const Use& use, std::uint64_t number, double totalLength);
  [[nodiscard]] std::uint64_t numberOf(const Element& element) const;
  [[nodiscard]] double stepped(double length) const;
  [[nodiscard]] bool areAlike(const BarRow& a, const BarRow& b) const;

  const TransferFile& m_file;
  BarList& m_list;
  const LengthUnit& m_unit;
  std::size_t m_drawing;
  ItemReader m_reader;
  BendingRules m_bending;
  bool m_isAsFiled;  // lengths need no bending
  std::vector<ItemProblem> m_problems;
  std::vector<Use> m_uses;
  std::vector<std::vector<const Element*>> m_twins;
  std::set<std::pair<const BarRow*, std::size_t>> m_remarked;  // rows with their twins
  std::unordered_map<const Element*, std::vector<std::size_t>> m_usesOf;
  std::map<RowKey, BarRow> m_rows;
  std::map<MeshKey, MeshRow> m_meshes;
  std::vector<BarRow> m_settled;
};

}  // namespace quorvan::tool
