#include <tools/draw/review/review_scene.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <span>

#include <tools/console/terminal.h>
#include <tools/diff/difference_text.h>
#include <tools/diff/list_change.h>
#include <tools/draw/labels/revision_clouds.h>
#include <tools/draw/labels/title_block.h>
#include <tools/draw/review/list_columns.h>
#include <tools/draw/review/review_side.h>
#include <tools/draw/review/review_states.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/draw/scene/text_width.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

constexpr double kRoomForClouds = 8.0;  // mm
constexpr double kNumbers = 2.5;        // mm, lettering beside the clouds
constexpr double kSamples = 1.6;        // mm, lettering of the row that explains the lines
constexpr Color kCloud{140, 0, 120};

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
          m_old.note(one->before, isBoth ? ReviewState::kBefore : ReviewState::kDeleted,
                     placeOf(one), one->kind);
          m_new.note(one->after, isBoth ? ReviewState::kAfter : ReviewState::kAdded, placeOf(one),
                     one->kind);
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
    m_clouds.push_back(reviewPath(Layer::kMarks, {kCloud, pen::kMedium}, cloudAround(box)));
    const PlanePoint above{box.least.x, box.most.y + 2.0 * kNumbers};
    Shape label = reviewText(Layer::kMarks, kCloud, note.heading, above, kNumbers);
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
    for (const ReviewLook& look : reviewLooks()) {
      Path path;
      path.moveTo({x, y});
      path.lineTo({x + kSample, y});
      m_review.scene.shapes.push_back(
          reviewPath(Layer::kTitle, styled({{}, pen::kMedium}, look.state), std::move(path)));
      Shape name = reviewText(Layer::kTitle, {}, look.name, {x + kSample + 1.5, y}, kSamples);
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
  ReviewSide m_old;
  ReviewSide m_new;
  Coordinates m_shift;
  std::vector<std::size_t> m_groupOf;  // of each difference
  std::vector<Shape> m_clouds;
  Review m_review;
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
