// Pictures that tests make and measure.
#pragma once

#include <string>
#include <vector>

namespace quorvan::test {

/// Draws the file with these bytes as SVG and gives it back. The run must end well; what it says on
/// standard error goes into `messages` unless that is null.
std::string drawFile(const std::string& bytes, const std::vector<std::string>& options = {},
                     std::string* messages = nullptr);

/// Draws the elements of a drawing in JSON likewise: what stands between the brackets of
/// "elements".
std::string drawJson(const std::string& elements, const std::vector<std::string>& options = {},
                     std::string* messages = nullptr);

/// A shape of a picture as it is painted, in millimetres of the sheet, y downwards.
struct PaintedShape {
  std::string layer;
  std::string tag;      // path, circle, text
  std::string content;  // of a text
  int element = -1;     // its place in the file
  double width = 0.0;   // of the stroke, 0 without one
  bool isDashed = false;
  std::vector<double>
      xs;  // the ends of its lines, arcs cut small, with the stroke's width not added
  std::vector<double> ys;

  [[nodiscard]] double left() const;
  [[nodiscard]] double right() const;
  [[nodiscard]] double top() const;
  [[nodiscard]] double bottom() const;
};

struct PaintedPicture {
  double width = 0.0;
  double height = 0.0;
  std::vector<PaintedShape> shapes;

  [[nodiscard]] std::vector<PaintedShape> layer(const std::string& name) const;
};

/// Measures an SVG picture of this program: paths, circles and texts. A letter counts as half as
/// wide as its font is high.
PaintedPicture measure(const std::string& svg);

}  // namespace quorvan::test
