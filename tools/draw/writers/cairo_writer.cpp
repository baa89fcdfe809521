#include <tools/draw/writers/cairo_writer.h>

#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <numbers>
#include <utility>

#include <tools/console/console.h>
#include <tools/console/terminal.h>
#include <tools/draw/scene/lettering_metrics.h>
#include <tools/draw/writers/text_painter.h>

namespace quorvan::tool {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72.0;
constexpr double kMostPixelsASide = 30000.0;  // cairo's limit is a little higher
constexpr int kJoinedInPdf = 100;      // half of the PDF would be what goes around each stroke
constexpr double kUsualPixels = 36e6;  // A0 with 150 dots an inch has 34.9 million

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

// Draws on a context whose unit is the millimetre, y downwards.
class Painter {
 public:
  /// Strokes of one style that follow one another are painted as one, up to so many.
  Painter(cairo_t* context, const Scene& scene, int joined)
      : m_context(context), m_scene(scene), m_mostJoined(joined), m_texts(context) {}

  void paint() {
    cairo_set_source_rgb(m_context, 1.0, 1.0, 1.0);
    cairo_paint(m_context);
    cairo_set_line_cap(m_context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(m_context, CAIRO_LINE_JOIN_ROUND);
    for (const Shape& shape : m_scene.shapes) {
      cut(m_scene.window && shape.layer != Layer::kTitle);
      paint(shape);
    }
    flush();
    cut(false);
  }

 private:
  // From here on nothing is painted beyond the window; or anything again.
  void cut(bool isWanted) {
    if (isWanted == m_isCut) {
      return;
    }
    flush();
    m_isCut = isWanted;
    if (!isWanted) {
      cairo_restore(m_context);
      return;
    }
    cairo_save(m_context);
    const SheetBox& window = *m_scene.window;
    cairo_rectangle(m_context, window.least.x, down(window.most.y), window.width(),
                    window.height());
    cairo_clip(m_context);
  }

  void paint(const Shape& shape) {
    const Style& style = shape.style;
    const bool isStroke = shape.kind != Shape::Kind::kText && !style.isFilled && !style.isOnPaper;
    if (!isStroke || m_joined == m_mostJoined || (m_joined > 0 && style != m_open)) {
      flush();
    }
    if (isStroke) {
      m_open = style;
      ++m_joined;
      return trace(shape);
    }
    setInk(style.color);
    if (shape.kind == Shape::Kind::kText) {
      return paintText(shape);
    }
    trace(shape);
    if (style.isFilled) {
      cairo_fill(m_context);
      return;
    }
    cairo_set_source_rgb(m_context, 1.0, 1.0, 1.0);
    cairo_fill_preserve(m_context);
    setInk(style.color);
    stroke(style);
  }

  // Paints the strokes that are not painted yet.
  void flush() {
    if (m_joined > 0) {
      setInk(m_open.color);
      stroke(m_open);
      m_joined = 0;
    }
  }

  void trace(const Shape& shape) {
    if (shape.kind == Shape::Kind::kCircle) {
      cairo_new_sub_path(m_context);
      cairo_arc(m_context, shape.center.x, down(shape.center.y), shape.radius, 0.0,
                2.0 * std::numbers::pi);
    } else {
      trace(shape.path);
    }
  }

  void setInk(const Color& color) {
    cairo_set_source_rgb(m_context, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
  }

  void stroke(const Style& style) {
    const double dashes[] = {dashOf(style.width), kGapOfDash * dashOf(style.width)};
    cairo_set_dash(m_context, dashes, style.isDashed ? 2 : 0, 0.0);
    cairo_set_line_cap(m_context, style.isDashed ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(m_context, style.width);
    cairo_stroke(m_context);
  }

  void trace(const Path& path) {
    PlanePoint at;
    for (const PathStep& step : path.steps()) {
      switch (step.kind) {
        case PathStep::Kind::kMove:
          cairo_move_to(m_context, step.to.x, down(step.to.y));
          break;
        case PathStep::Kind::kLine:
          cairo_line_to(m_context, step.to.x, down(step.to.y));
          break;
        case PathStep::Kind::kArc:
          traceArc(step, at);
          break;
        case PathStep::Kind::kClose:
          cairo_close_path(m_context);
          continue;
      }
      at = step.to;
    }
  }

  void traceArc(const PathStep& step, PlanePoint from) {
    const PlanePoint out = from - step.center;
    if (isFlat(out, step.sweep)) {
      cairo_line_to(m_context, step.to.x, down(step.to.y));
      return;
    }
    const double begin = std::atan2(-out.y, out.x);
    const double end = begin - step.sweep;
    const auto arc = step.sweep > 0.0 ? cairo_arc_negative : cairo_arc;
    arc(m_context, step.center.x, down(step.center.y), lengthOf(out), begin, end);
  }

  void paintText(const Shape& shape) {
    const PlanePoint base = baseOf(shape.lettering);
    cairo_save(m_context);
    cairo_translate(m_context, base.x, down(base.y));
    cairo_rotate(m_context, -shape.lettering.angle);
    m_texts.paint(shape.lettering, shape.style);
    cairo_restore(m_context);
  }

  [[nodiscard]] double down(double y) const { return m_scene.height - y; }

  cairo_t* m_context;
  const Scene& m_scene;
  int m_mostJoined;
  int m_joined = 0;
  Style m_open;  // of the strokes that are not painted yet
  bool m_isCut = false;
  TextPainter m_texts;
};

void checkDrawing(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Failure(std::string("the picture cannot be drawn: ") + cairo_status_to_string(status));
  }
}

void paintOn(const Surface& surface, const Scene& scene, double unitsPerMillimetre, int joined) {
  const Context context(cairo_create(surface.get()), cairo_destroy);
  cairo_scale(context.get(), unitsPerMillimetre, unitsPerMillimetre);
  Painter(context.get(), scene, joined).paint();
  cairo_show_page(context.get());
  checkDrawing(cairo_status(context.get()));
}

struct PaintedBytes {
  std::string bytes;
  bool isWhole = true;
};

// cairo may forget that it was told of an error.
cairo_status_t append(void* painted, const unsigned char* data, unsigned int length) {
  auto& [bytes, isWhole] = *static_cast<PaintedBytes*>(painted);
  try {
    bytes.append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    isWhole = false;
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace

double mostDotsPerInch(const Scene& scene) {
  const double longer = std::max(scene.width, scene.height);
  return kMillimetresPerInch * std::min(std::sqrt(kUsualPixels / (scene.width * scene.height)),
                                        (kMostPixelsASide - 1.0) / longer);
}

void writePng(const Scene& scene, double dotsPerInch, const std::filesystem::path& path) {
  const double scale = dotsPerInch / kMillimetresPerInch;
  const double width = std::ceil(scene.width * scale);
  const double height = std::ceil(scene.height * scale);
  if (!(width <= kMostPixelsASide && height <= kMostPixelsASide)) {
    throw Failure(toUtf8(path) +
                  ": the picture would have more than 30000 points a side; "
                  "take a smaller sheet or --dpi");
  }
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width),
                                                   static_cast<int>(height)),
                        cairo_surface_destroy);
  paintOn(surface, scene, scale, 1);
  const cairo_status_t status = cairo_surface_write_to_png(surface.get(), toUtf8(path).c_str());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Failure(toUtf8(path) + ": cannot be written: " + cairo_status_to_string(status));
  }
}

std::string paintedPdf(std::span<const Scene> pages) {
  const double scale = kPointsPerInch / kMillimetresPerInch;
  const Scene& first = pages.front();
  PaintedBytes painted;
  const Surface surface(cairo_pdf_surface_create_for_stream(append, &painted, first.width * scale,
                                                            first.height * scale),
                        cairo_surface_destroy);
  checkDrawing(cairo_surface_status(surface.get()));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, first.title.c_str());
  // The same drawing gives the same bytes.
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                 "2000-01-01T00:00:00Z");
  for (const Scene& page : pages) {
    cairo_pdf_surface_set_size(surface.get(), page.width * scale, page.height * scale);
    paintOn(surface, page, scale, kJoinedInPdf);
  }
  cairo_surface_finish(surface.get());
  if (!painted.isWhole) {
    throw std::bad_alloc();
  }
  checkDrawing(cairo_surface_status(surface.get()));
  return std::move(painted.bytes);
}

}  // namespace quorvan::tool
