// Lines of text in columns to the right of a drawing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// Widens the scene, which outlives it, by a column at a time, up to eight; how many lines do not
/// go into them is said in the last. Nothing else is added to the scene meanwhile.
class ListColumns {
 public:
  explicit ListColumns(Scene& scene);

  /// A line, broken between words where it is too wide; what follows is indented further.
  void add(const std::string& line, Color color, std::uint32_t element = kNoElement);

  /// Half a line.
  void skip();

 private:
  void put(const std::string& line, Color color, std::uint32_t element);
  void tellLeftOut();

  Scene& m_scene;
  double m_left;
  double m_y;
  int m_columns = 0;
  std::size_t m_leftOut = 0;
};

}  // namespace quorvan::tool
