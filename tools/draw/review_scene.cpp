#include <tools/draw/review_scene.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <span>

#include <tools/console/terminal.h>
#include <tools/diff/difference_text.h>
#include <tools/diff/list_change.h>
#include <tools/draw/drawing_survey.h>
#include <tools/draw/element_painter.h>
#include <tools/draw/labels/revision_clouds.h>
#include <tools/draw/labels/title_block.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/scene/text_width.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

constexpr double kRoomForClouds = 8.0;  // mm
constexpr double kNumbers = 2.5;        // mm, lettering beside the clouds
constexpr double kSamples = 1.6;        // mm, lettering of the row that explains the lines
constexpr double kLeastOld = 0.25;      // mm
constexpr double kLeastNew = 0.5;       // mm

enum class State : std::uint8_t { kSame, kDeleted, kBefore, kAfter, kAdded };

struct Look {
  State state;
  Color color;
  const char* name;
};

constexpr Look kLooks[] = {{State::kSame, {150, 150, 150}, "unchanged"},
                           {State::kDeleted, {200, 30, 30}, "deleted"},
                           {State::kBefore, {205, 120, 0}, "before"},
                           {State::kAfter, {0, 90, 200}, "after"},
                           {State::kAdded, {0, 130, 60}, "added"}};
constexpr Color kCloud{140, 0, 120};
constexpr Color kPaleFill{232, 232, 232};  // what lies on it is pale as well

const Look& lookOf(State state) {
  return kLooks[static_cast<std::size_t>(state)];
}

bool isOld(State state) {
  return state == State::kDeleted || state == State::kBefore;
}

Style styled(Style style, State state) {
  style.color = lookOf(state).color;
  if (isOld(state)) {
    style.width = std::max(style.width, kLeastOld);
    style.isFilled = false;
    style.isDashed = true;
  } else if (state != State::kSame) {
    style.width = style.isFilled ? style.width : std::max(style.width, kLeastNew);
    style.isDashed = false;
  }
  return style;
}

Shape textShape(Layer layer, Color color, std::string text, PlanePoint at, double height) {
  Shape shape{layer, Shape::Kind::kText, kNoElement, false, {color, 0.0, true}, {}, {}, 0.0, {}};
  shape.lettering = {std::move(text), at, height};
  return shape;
}

Shape pathShape(Layer layer, const Style& style, Path path) {
  return {layer, Shape::Kind::kPath, kNoElement, false, style, std::move(path), {}, 0.0, {}};
}

// A line through a text: dashes cannot tell that it went.
Shape strikeThrough(const Shape& text) {
  const TextCorners around = cornersOf(text.lettering);
  Path path;
  path.moveTo((around.corners[0] + around.corners[3]) * 0.5);
  path.lineTo((around.corners[1] + around.corners[2]) * 0.5);
  Shape shape = pathShape(text.layer, {text.style.color, kLeastOld}, std::move(path));
  shape.element = text.element;
  return shape;
}

// One of the two drawings, and what becomes of each of its elements.
class Side {
 public:
  Side(const TransferFile& file, const DrawOptions& options)
      : m_file(file),
        m_options(options),
        m_angles(options.angles ? *options.angles : guessAngleUnit(file).unit),
        m_repeated(file),
        m_survey(survey(file, options, m_angles, m_repeated)),
        m_states(file.elements().size(), State::kSame),
        m_isReplaced(file.elements().size(), false),
        m_differences(file.elements().size(), kNoElement) {}

  [[nodiscard]] const SheetContents& contents() const { return m_survey.contents; }

  void note(const Element* element, State state, std::size_t difference, DifferenceKind kind) {
    if (element != nullptr) {
      m_states[element->place] = state;
      m_isReplaced[element->place] = kind == DifferenceKind::kChanged;
      m_differences[element->place] = static_cast<std::uint32_t>(difference);
    }
  }

  // The shapes, with the number of the difference in the place of that of the element; what is the
  // same goes to its own.
  void draw(const Sheet& sheet, std::vector<Shape>* same, std::vector<Shape>& different) {
    DrawContext context{sheet, ColorScheme::kIndex, m_angles, m_options.hidden};
    ShapeSink sink(context);
    ElementPainter painter(m_file, m_repeated, sink, nullptr);
    auto outlier = m_survey.outliers.begin();
    for (const Element& element : m_file.elements()) {
      if (outlier != m_survey.outliers.end() && *outlier == element.place) {
        ++outlier;
      } else if (same != nullptr || m_states[element.place] != State::kSame) {
        painter.draw(element);
      }
    }
    for (Shape& shape : sink.take()) {
      if (!m_options.shows(shape.layer)) {
        continue;
      }
      const State state = m_states[shape.element];
      const bool isReplaced = m_isReplaced[shape.element];
      Shape drawn = std::move(shape);
      drawn.element = m_differences[drawn.element];
      const bool isText = drawn.kind == Shape::Kind::kText;
      drawn.style = isText ? Style{lookOf(state).color, 0.0, true} : styled(drawn.style, state);
      if (state == State::kSame) {
        drawn.style.color = drawn.layer == Layer::kFills ? kPaleFill : drawn.style.color;
        same->push_back(std::move(drawn));
      } else if (isText && isOld(state)) {
        // Beneath the text that took its place, nobody could read it.
        if (!isReplaced) {
          different.push_back(strikeThrough(drawn));
          different.push_back(std::move(drawn));
        }
      } else {
        different.push_back(std::move(drawn));
      }
    }
  }

 private:
  const TransferFile& m_file;
  const DrawOptions& m_options;
  AngleUnit m_angles;
  RepeatedBars m_repeated;
  DrawingSurvey m_survey;
  std::vector<State> m_states;
  std::vector<bool> m_isReplaced;  // by the same element with other contents
  std::vector<std::uint32_t> m_differences;
};

const char* signOf(DifferenceKind kind) {
  return kind == DifferenceKind::kAdded ? "+" : kind == DifferenceKind::kDeleted ? "\u2212" : "~";
}

class ReviewBuilder {
 public:
  ReviewBuilder(const TransferFile& before, const TransferFile& after,
                const std::vector<Difference>& differences, const DrawOptions& options)
      : m_before(before),
        m_after(after),
        m_differences(differences),
        m_options(options),
        m_groups(groupsOf(differences)),
        m_texts(before, after),
        m_old(before, options),
        m_new(after, options) {}

  Review build() {
    m_review.lines = listChanges(m_before, m_after, *m_options.unit);
    noteStates();
    const Sheet sheet(contents(), m_options);
    std::vector<Shape> same;
    std::vector<Shape> different;
    m_old.draw(Sheet(movedBack(contents()), m_options), nullptr, different);
    m_new.draw(sheet, &same, different);
    addNotes(different);
    Scene& scene = m_review.scene;
    scene.width = sheet.width();
    scene.height = sheet.height();
    scene.title = nameOf(m_before) + " \u2192 " + nameOf(m_after);
    scene.shapes = std::move(same);
    std::ranges::move(different, std::back_inserter(scene.shapes));
    std::ranges::move(m_clouds, std::back_inserter(scene.shapes));
    addTitle(sheet);
    return std::move(m_review);
  }

 private:
  static std::string nameOf(const TransferFile& file) {
    return toUtf8(toPath(file.name()).filename());
  }

  // Differences by their places among all.
  [[nodiscard]] std::size_t placeOf(const Difference* one) const {
    return static_cast<std::size_t>(one - m_differences.data());
  }

  // What was moved with the drawing as a whole counts as the same.
  void noteStates() {
    m_groupOf.resize(m_differences.size());
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
      const DifferenceGroup& group = m_groups[i];
      const bool isWhole = 2 * group.size() > m_before.elements().size();
      if (isWhole) {
        m_shift = group.front()->by;
        m_review.lines.push_back(m_texts.lineOf(group));
      }
      for (const Difference* const one : group) {
        m_groupOf[placeOf(one)] = i;
        if (!isWhole) {
          const bool isBoth = one->before != nullptr && one->after != nullptr;
          m_old.note(one->before, isBoth ? State::kBefore : State::kDeleted, placeOf(one),
                     one->kind);
          m_new.note(one->after, isBoth ? State::kAfter : State::kAdded, placeOf(one), one->kind);
        }
      }
    }
  }

  [[nodiscard]] SheetContents contents() const {
    SheetContents contents = m_new.contents();
    if (contents.box.isEmpty()) {
      contents = m_old.contents();
    } else if (!m_options.window && !m_old.contents().box.isEmpty()) {
      const PlanePoint by = Sheet::natural(m_options).direction(m_shift);
      const SheetBox& old = m_old.contents().box;
      contents.box.include(SheetBox{old.least + by, old.most + by});
    }
    contents.around = m_options.sheet || m_options.scale ? 0.0 : kRoomForClouds;
    return contents;
  }

  // What the sheet is to hold, where the old drawing has it.
  [[nodiscard]] SheetContents movedBack(SheetContents contents) const {
    const PlanePoint by = Sheet::natural(m_options).direction(m_shift);
    contents.box = {contents.box.least - by, contents.box.most - by};
    if (SheetBox* const frame = contents.hints.frame ? &*contents.hints.frame : nullptr) {
      *frame = {frame->least - by, frame->most - by};
    }
    return contents;
  }

  // A cloud round what lies together, and a note for each. Their places take the place of those of
  // the differences.
  void addNotes(std::vector<Shape>& shapes) {
    std::vector<SheetBox> boxes;
    boxes.reserve(shapes.size());
    for (const Shape& shape : shapes) {
      boxes.push_back(paintedBox(shape));
    }
    std::set<std::size_t> drawn;
    for (const CloudGroup& cloud : groupsOfBoxes(boxes)) {
      std::set<std::size_t> groups;
      std::set<std::string> signs;
      for (const std::size_t member : cloud.members) {
        const std::uint32_t difference = shapes[member].element;
        groups.insert(m_groupOf[difference]);
        signs.insert(signOf(m_differences[difference].kind));
        shapes[member].element = static_cast<std::uint32_t>(m_review.notes.size());
      }
      addNote(cloud.box, groups, signs);
      drawn.merge(groups);
    }
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
      if (!drawn.contains(i) && 2 * m_groups[i].size() <= m_before.elements().size()) {
        addLines(i, m_review.lines);
      }
    }
  }

  void addNote(const SheetBox& box, const std::set<std::size_t>& groups,
               const std::set<std::string>& signs) {
    const auto number = static_cast<std::uint32_t>(m_review.notes.size());
    PageNote& note = m_review.notes.emplace_back();
    note.heading = std::to_string(number + 1);
    for (const std::string& sign : signs) {
      note.heading += ' ' + sign;
    }
    for (const std::size_t group : groups) {
      addLines(group, note.lines);
    }
    m_clouds.push_back(pathShape(Layer::kMarks, {kCloud, pen::kMedium}, cloudAround(box)));
    const PlanePoint above{box.least.x, box.most.y + 2.0 * kNumbers};
    Shape label = textShape(Layer::kMarks, kCloud, note.heading, above, kNumbers);
    label.style.isOnPaper = true;
    m_clouds.push_back(std::move(label));
    for (Shape& shape : std::span(m_clouds).last(2)) {
      shape.element = number;
    }
  }

  void addLines(std::size_t group, std::vector<std::string>& lines) {
    lines.push_back(m_texts.lineOf(m_groups[group]));
    for (const ItemChange& change : m_groups[group].front()->items) {
      lines.push_back("    " + change.item + ": " + change.before + " \u2192 " + change.after);
    }
  }

  // The title block of the new drawing, and what the lines mean.
  void addTitle(const Sheet& sheet) {
    DrawContext context{sheet, ColorScheme::kIndex, AngleUnit::kDegrees, m_options.hidden};
    ShapeSink sink(context);
    drawTitleBlock(m_after, m_options, sink);
    std::ranges::move(sink.take(), std::back_inserter(m_review.scene.shapes));
    if (!sheet.hasTitle()) {
      return;
    }
    constexpr double kSample = 9.0;
    const double y = kMargin + kTitleHeight + 3.0;
    double x = kMargin;
    for (const Look& look : kLooks) {
      Path path;
      path.moveTo({x, y});
      path.lineTo({x + kSample, y});
      m_review.scene.shapes.push_back(
          pathShape(Layer::kTitle, styled({{}, pen::kMedium}, look.state), std::move(path)));
      Shape name = textShape(Layer::kTitle, {}, look.name, {x + kSample + 1.5, y}, kSamples);
      name.lettering.alignY = AlignY::kMiddle;
      x += kSample + 6.0 + textWidth(look.name, kSamples);
      m_review.scene.shapes.push_back(std::move(name));
    }
  }

  const TransferFile& m_before;
  const TransferFile& m_after;
  const std::vector<Difference>& m_differences;
  const DrawOptions& m_options;
  std::vector<DifferenceGroup> m_groups;
  DifferenceTexts m_texts;
  Side m_old;
  Side m_new;
  Coordinates m_shift;
  std::vector<std::size_t> m_groupOf;  // of each difference
  std::vector<Shape> m_clouds;
  Review m_review;
};

// Writes lines in columns to the right of a scene.
class ListColumns {
 public:
  explicit ListColumns(Scene& scene)
      : m_scene(scene), m_left(scene.width + kFromDrawing), m_y(scene.height - kMargin) {}

  void add(const std::string& line, Color color, std::uint32_t element = kNoElement) {
    std::string rest = line;
    const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    while (!rest.empty()) {
      const std::size_t end = fitting(rest);
      put(rest.substr(0, end), color, element);
      rest.erase(0, std::min(rest.find_first_not_of(' ', end), rest.size()));
      rest.insert(0, rest.empty() ? 0 : indent + 4, ' ');
    }
  }

  void skip() { m_y -= kPitch / 2.0; }

 private:
  static constexpr double kFromDrawing = 2.0;  // mm
  static constexpr double kColumn = 120.0;     // mm
  static constexpr double kLettering = 2.0;
  static constexpr double kPitch = 4.2;
  static constexpr int kMostColumns = 8;

  // As many bytes as go on a line, whole words where there are some.
  static std::size_t fitting(const std::string& text) {
    const double room = kColumn - 2.0 * kMargin;
    if (textWidth(text, kLettering) <= room) {
      return text.size();
    }
    std::size_t fits = std::min(text.find_first_not_of(' '), text.size());
    for (std::size_t end = text.find(' ', fits); end != std::string::npos;
         end = text.find(' ', end + 1)) {
      if (textWidth(text.substr(0, end), kLettering) > room) {
        break;
      }
      fits = end;
    }
    return fits == text.find_first_not_of(' ') ? std::min(text.find(' ', fits), text.size()) : fits;
  }

  void put(const std::string& line, Color color, std::uint32_t element) {
    if (m_columns == 0 || m_y < kMargin + kPitch) {
      if (m_columns == kMostColumns) {
        return;
      }
      ++m_columns;
      m_y = m_scene.height - kMargin - kPitch;
      m_scene.width = m_left + kColumn * m_columns;
    }
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    const double x = m_left + kColumn * (m_columns - 1) + static_cast<double>(blanks);
    Shape shape = textShape(Layer::kTitle, color, line.substr(blanks), {x, m_y}, kLettering);
    shape.element = element;
    m_scene.shapes.push_back(std::move(shape));
    m_y -= kPitch;
  }

  Scene& m_scene;
  double m_left;
  double m_y;
  int m_columns = 0;
};

}  // namespace

Review reviewOf(const TransferFile& before, const TransferFile& after,
                const std::vector<Difference>& differences, const DrawOptions& options) {
  return ReviewBuilder(before, after, differences, options).build();
}

Scene withList(const Review& review) {
  Scene scene = review.scene;
  ListColumns columns(scene);
  columns.add(scene.title, {});
  columns.skip();
  for (const std::string& line : review.lines) {
    columns.add(line, {});
  }
  for (std::size_t i = 0; i < review.notes.size(); ++i) {
    columns.skip();
    const PageNote& note = review.notes[i];
    columns.add(note.heading, kCloud, static_cast<std::uint32_t>(i));
    for (const std::string& line : note.lines) {
      columns.add(line, {});
    }
  }
  return scene;
}

}  // namespace quorvan::tool
