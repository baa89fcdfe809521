#include <tools/draw/labels/legend.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/scene/text_width.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kRow = kMargin + kTitleHeight + 3.0;  // mm, where the samples lie
constexpr double kLettering = 1.6;                     // mm
constexpr double kSample = 7.0;                        // mm, the length of a line
constexpr double kGap = 1.2;                           // mm
constexpr double kApart = 4.5;                         // mm, between two entries
constexpr double kLongestScale = 30.0;                 // mm
constexpr double kScaleRoom = 55.0;                    // mm, with its text

struct Entry {
  Layer layer;
  Style style;
  std::string_view name;
};

double widthOf(std::string_view text) {
  return textWidth(text, kLettering);
}

std::vector<Entry> entriesOf(const ShapeSink& sink) {
  const Wording& words = wordingOf(sink.context().language);
  const Style end{ink::kBars, 0.0, true};
  const Entry all[] = {{Layer::kFormwork, {ink::kFormwork, pen::kFormwork}, words.formwork},
                       {Layer::kMeshes, {ink::kMeshes, pen::kMedium}, words.mesh},
                       {Layer::kBars, {ink::kBars, 0.7}, words.bar},
                       {Layer::kLinks, {ink::kLinks, 0.4}, words.link},
                       {Layer::kEndOn, end, words.endOn},
                       {Layer::kRepartitions, {ink::kRepartitions, pen::kThin}, words.repartition}};
  std::vector<Entry> entries;
  for (const Entry& entry : all) {
    if (sink.has(entry.layer)) {
      entries.push_back(entry);
    }
  }
  if (sink.hasHidden() && sink.context().hidden == HiddenBars::kDashed) {
    entries.push_back({Layer::kBars, {ink::kBars, 0.5, false, true}, words.hidden});
  }
  return entries;
}

void addText(std::string_view text, double x, ShapeSink& sink) {
  sink.addText(Layer::kTitle, ink::kTitle,
               {std::string(text), {x, kRow}, kLettering, 0.0, AlignX::kLeft, AlignY::kMiddle});
}

void drawSample(const Entry& entry, double x, ShapeSink& sink) {
  const PlanePoint from{x, kRow};
  const PlanePoint to{x + kSample, kRow};
  if (entry.style.isFilled) {
    return sink.addCircle(Layer::kTitle, entry.style, (from + to) * 0.5, 0.5);
  }
  Path line;
  line.moveTo(from);
  line.lineTo(to);
  if (entry.layer == Layer::kRepartitions) {
    const PlanePoint stroke{0.8, 0.8};
    for (const double share : {0.1, 0.5, 0.9}) {
      line.moveTo(from + (to - from) * share - stroke);
      line.lineTo(from + (to - from) * share + stroke);
    }
  }
  sink.addPath(Layer::kTitle, entry.style, std::move(line));
}

// The longest of 1, 2, 5, 10, ... units that is no longer than there is room for.
double scaleLength(double most) {
  const double power = std::pow(10.0, std::floor(std::log10(most)));
  for (const double digit : {5.0, 2.0}) {
    if (digit * power <= most) {
      return digit * power;
    }
  }
  return power;
}

void drawScale(const DrawOptions& options, ShapeSink& sink) {
  const double factor = sink.sheet().factor();
  const double length = scaleLength(kLongestScale / factor);
  const double x = sink.sheet().width() - kMargin - kScaleRoom;
  const double end = x + length * factor;
  Path ruler;
  ruler.moveTo({x, kRow});
  ruler.lineTo({end, kRow});
  for (const double place : {x, (x + end) / 2.0, end}) {
    ruler.moveTo({place, kRow - 0.9});
    ruler.lineTo({place, kRow + 0.9});
  }
  sink.addPath(Layer::kTitle, {ink::kTitle, pen::kMedium}, std::move(ruler));
  addText(shortest(length) + ' ' + std::string(options.unit->name), end + kGap, sink);
}

}  // namespace

void drawLegend(const DrawOptions& options, ShapeSink& sink) {
  if (!sink.sheet().hasTitle()) {
    return;
  }
  sink.begin(kNoElement);
  const std::vector<Entry> entries = entriesOf(sink);
  const double room = sink.sheet().width() - kMargin - kScaleRoom;
  double x = kMargin;
  for (const Entry& entry : entries) {
    const double next = x + kSample + kGap + widthOf(entry.name) + kApart;
    if (next > room) {
      break;
    }
    drawSample(entry, x, sink);
    addText(entry.name, x + kSample + kGap, sink);
    x = next;
  }
  if (room >= kMargin && std::isfinite(sink.sheet().factor()) && sink.sheet().factor() > 0.0) {
    drawScale(options, sink);
  }
}

}  // namespace quorvan::tool
