// Elements of a file in few words, and the scene that the program makes of them.
#pragma once

#include <string>
#include <vector>

#include <tools/draw/scene_builder.h>
#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>

namespace quorvan::test {

using Coordinates = tool::Coordinates;

/// A file with these elements, in UTF-8.
std::string documentOf(const std::string& elements);

std::string lineOf(const Coordinates& from, const Coordinates& to, long color = 7);
std::string circleOf(const Coordinates& center, double radius, long color = 7);

struct TextParts {
  std::string contents{};
  Coordinates at{};
  double height = 50.0;
  double angle = 0.0;
  int across = 0;
  int upwards = 0;
  long color = 7;
};
std::string textOf(const TextParts& parts);

std::string fillOf(const std::vector<Coordinates>& points, long color = 9);
std::string meshOf(const std::string& reference, const std::string& type,
                   const std::vector<Coordinates>& points);
std::string formworkOf(const std::vector<tool::Segment>& segments);

/// A rectangle, as formwork and as four lines.
std::string concreteOf(double left, double low, double right, double high);
std::string frameOfLines(double left, double low, double right, double high);

struct BarParts {
  std::string className = "StraightBar";  // without its prefix
  std::vector<Coordinates> points{};      // of a circular frame: centre, start
  double hookLength1 = 0.0;
  double hookLength2 = 0.0;
  double hookAngle1 = 0.0;
  double hookAngle2 = 0.0;
  bool isUp1 = true;
  bool isUp2 = true;
  bool side = false;
  double radius = 0.0;
  double overlap = 0.0;
  double diameter = 10.0;
  long mark = 1;
  int index = 1;
  bool isHidden = false;
  std::string adherence = "Ha";
  std::string grade = "B500B";
};
/// A bar or link of any class.
std::string barOf(const BarParts& parts);

struct SeriesParts {
  Coordinates start{};
  Coordinates end{};
  Coordinates axis{};
  std::vector<double> top{};
  std::vector<double> bottom{};
  std::vector<double> positions{};
  std::string className = "StraightBar";
  int index = 1;  // of the repeated bar
  int view = 2;
  bool isHidden = false;
};
std::string seriesOf(const SeriesParts& parts);

/// `count` upright bars from `low` to `high`, the first at x, `step` apart.
SeriesParts uprightBars(double x, double low, double high, int count, double step);

/// A control record with this drawing name.
std::string controlOf(const std::string& name, const std::string& version = "1",
                      long servicePack = 0, long checkSum = 0);

/// What the program draws of a file with these elements.
tool::SceneResult sceneOf(const std::string& elements, const tool::DrawOptions& options = {});

/// The same at 1:1 on a sheet around it: a millimetre is a unit of the drawing.
tool::DrawOptions atFullSize();

/// What the elements themselves look like, in the coordinates of the drawing: a bar is as wide as
/// it is, and the program adds nothing by itself.
std::vector<tool::Shape> bareShapesOf(const std::string& elements,
                                      tool::AngleUnit angles = tool::AngleUnit::kDegrees);

/// How long the bar of these elements is when it is cut, bent by the usual rules.
double centreLineOf(const std::string& elements);

/// The length along the path.
double lengthAlong(const tool::Path& path);

/// How far the point lies from the lines and arcs of the path.
double distanceTo(const tool::Path& path, tool::PlanePoint point);

/// The shapes of one layer, or those of one kind on it.
std::vector<tool::Shape> shapesOn(const tool::Scene& scene, tool::Layer layer);
std::vector<tool::Shape> shapesOn(const tool::Scene& scene, tool::Layer layer,
                                  tool::Shape::Kind kind);

/// The texts of one layer.
std::vector<std::string> textsOn(const tool::Scene& scene, tool::Layer layer);

/// Points of a path no farther apart than a fiftieth of a turn of its arcs.
std::vector<tool::PlanePoint> pointsAlong(const tool::Path& path);

}  // namespace quorvan::test
