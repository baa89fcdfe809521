// Series that look like the same bars seen twice.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// Series of one mark with the same number of bars and the same steps, forwards or backwards, in
/// more than one view.
struct TwinGroup {
  struct Member {
    const Element* element;
    std::int64_t viewPoint;
  };

  std::vector<Member> members;  // in the order in which they were added

  /// The view that has the most of them; the first such view where two have as many. The members in
  /// other views may be no other bars.
  [[nodiscard]] std::int64_t mainView() const;
};

class ViewTwins {
 public:
  /// `mark` is that of the repeated bar. A series without steps has no twin.
  void add(const Element& element, const Repartition& series, std::int64_t mark);

  /// By mark, then number and steps.
  [[nodiscard]] std::vector<TwinGroup> groups() const;

 private:
  using Steps = std::vector<std::int64_t>;

  std::map<std::pair<std::int64_t, Steps>, TwinGroup> m_groups;
};

}  // namespace quorvan::tool
