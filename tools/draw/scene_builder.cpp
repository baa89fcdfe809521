#include <tools/draw/scene_builder.h>

#include <algorithm>
#include <utility>

#include <tools/draw/drawing_survey.h>
#include <tools/draw/element_painter.h>
#include <tools/draw/labels/legend.h>
#include <tools/draw/labels/title_block.h>
#include <tools/draw/scene/language_guess.h>
#include <tools/draw/scene/painted_box.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr double kLabelLettering = 2.0;  // mm, where the drawing has none
constexpr double kLeastLabel = 1.8;      // mm
constexpr double kLargestLabel = 3.5;    // mm
constexpr double kRoomForLabels = 12.0;  // mm
constexpr int kMostTries = 3;

// The labels are as high as the drawing's own texts.
double letteringOf(const ScaleHints& hints, const Sheet& sheet) {
  const auto height = usualHeight(hints);
  return height ? std::clamp(*height / sheet.scale(), kLeastLabel, kLargestLabel) : kLabelLettering;
}

// A list that has the numbers and lengths of the marks.
std::shared_future<BarList> beginNumbers(const TransferFile& file, const DrawOptions& options,
                                         AngleUnit angles) {
  ListOptions numbers;
  numbers.unit = options.unit;
  numbers.angles = angles;
  numbers.hasShapes = false;
  return beginBarList(file, numbers);
}

// Draws element by element.
class Builder {
 public:
  Builder(const TransferFile& file, const DrawOptions& options, std::shared_future<BarList> list,
          Progress& progress)
      : m_file(file),
        m_options(options),
        m_progress(progress),
        m_angles(options.angles ? *options.angles : guessAngleUnit(file).unit),
        m_colors(options.colors ? *options.colors : guessColorScheme(file)),
        m_language(options.language ? *options.language : guessLanguage(file)),
        m_list(list.valid() || options.marks == Marks::kNone
                   ? std::move(list)
                   : beginNumbers(file, options, m_angles)),
        m_repeated(file),
        m_survey(survey(file, options, m_angles, m_repeated)),
        m_listed(m_list.valid() ? BarsByMark(m_list.get()) : BarsByMark()) {
    if (m_survey.hasBars && options.marks != Marks::kNone && !m_survey.contents.hints.frame &&
        !options.window) {
      m_survey.contents.around = kRoomForLabels;
    }
  }

  // Labels and wide lines may reach beyond what was measured: then there is more room around it.
  SceneResult build() {
    for (int tries = 1;; ++tries) {
      SceneResult result = buildOnce();
      const double over = m_overhang;
      if (over <= 0.0 || tries == kMostTries || m_options.window || m_options.sheet) {
        result.outliers = m_survey.outliers;
        return result;
      }
      m_survey.contents.around += over;
    }
  }

 private:
  SceneResult buildOnce() {
    const Sheet sheet(m_survey.contents, m_options);
    DrawContext context{sheet, m_colors, m_angles, m_options.hidden, m_language};
    context.lettering = letteringOf(m_survey.contents.hints, sheet);
    ShapeSink sink(context);
    MarkLabels labels(m_file, m_listed, sheet, m_options);
    ElementPainter painter(m_file, m_repeated, sink, &labels);
    drawElements(painter);
    labels.draw(sink);
    sink.drawLabels();
    drawLegend(m_options, sink);
    drawTitleBlock(m_file, m_options, sink);
    SceneResult result;
    result.scene.width = sheet.width();
    result.scene.height = sheet.height();
    result.scene.title = titleOf(m_file);
    result.unitsPerMillimetre = 1.0 / sheet.factor();
    result.scale = sheet.scale();
    result.statedScales = m_survey.contents.hints.statedScales;
    if (m_options.window) {
      result.scene.window = windowOn(sheet);
    }
    result.leftOut = sink.leftOut();
    result.darkened = sink.darkened();
    result.withoutHeight = sink.withoutHeight();
    result.scene.shapes = sink.take();
    keepShown(result.scene.shapes);
    m_overhang = overhang(result.scene, sheet.room());
    return result;
  }

  // A mark whose bar is not shown would point at nothing, unless marks are all that is wanted.
  void keepShown(std::vector<Shape>& shapes) const {
    std::erase_if(shapes, [this](const Shape& shape) { return !m_options.shows(shape.layer); });
    if (m_options.showsMarksAlone()) {
      return;
    }
    std::vector<bool> isDrawn(m_file.elements().size());
    for (const Shape& shape : shapes) {
      if (shape.layer != Layer::kMarks && shape.element != kNoElement) {
        isDrawn[shape.element] = true;
      }
    }
    std::erase_if(shapes, [&isDrawn](const Shape& shape) {
      return shape.layer == Layer::kMarks && shape.element != kNoElement && !isDrawn[shape.element];
    });
  }

  void drawElements(ElementPainter& painter) {
    const std::uint64_t total = m_file.elements().size();
    auto outlier = m_survey.outliers.begin();
    for (const Element& element : m_file.elements()) {
      m_progress.report(element.place, total);
      if (outlier != m_survey.outliers.end() && *outlier == element.place) {
        ++outlier;
        continue;
      }
      painter.draw(element);
    }
  }

  [[nodiscard]] SheetBox windowOn(const Sheet& sheet) const {
    const PlanePoint size =
        (m_survey.contents.box.most - m_survey.contents.box.least) * (1.0 / sheet.scale());
    return {sheet.middle() - size * 0.5, sheet.middle() + size * 0.5};
  }

  // How far the drawing is painted beyond its room.
  static double overhang(const Scene& scene, const SheetBox& room) {
    double most = 0.0;
    for (const Shape& shape : scene.shapes) {
      if (shape.layer == Layer::kTitle) {
        continue;
      }
      const SheetBox box = paintedBox(shape);
      most = std::max({most, room.least.x - box.least.x, box.most.x - room.most.x,
                       room.least.y - box.least.y, box.most.y - room.most.y});
    }
    return most;
  }

  const TransferFile& m_file;
  const DrawOptions& m_options;
  Progress& m_progress;
  AngleUnit m_angles;
  ColorScheme m_colors;
  Language m_language;
  std::shared_future<BarList> m_list;  // made while the drawing is surveyed
  RepeatedBars m_repeated;
  DrawingSurvey m_survey;
  BarsByMark m_listed;
  double m_overhang = 0.0;
};

}  // namespace

SceneResult buildScene(const TransferFile& file, const DrawOptions& options, Console& console,
                       std::shared_future<BarList> list) {
  Progress progress(console, "drawing " + printable(file.name()));
  return Builder(file, options, std::move(list), progress).build();
}

}  // namespace quorvan::tool
