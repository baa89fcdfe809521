#include <tools/draw/dxf/layer_table.h>

#include <algorithm>
#include <cmath>

#include <tools/draw/shapes/shape_sink.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr int kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                            53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr double kHundredths = 100.0;
// R12 has 31 letters for a name: a diameter may take five with its point.
constexpr double kLargestWithDecimals = 100.0;  // mm
constexpr double kLargestNamed = 1e5;           // mm

// Colours that are seen on black and on white.
constexpr int kBlackOrWhite = 7;
constexpr int kRed = 1;
constexpr int kBlue = 150;
constexpr int kGreen = 94;
constexpr int kViolet = 200;

int weightOf(double millimetres) {
  const double wanted = millimetres * kHundredths;
  return *std::ranges::min_element(kWeights, {}, [wanted](int weight) {
    return std::abs(wanted - static_cast<double>(weight));
  });
}

int colorOfKind(Layer kind) {
  switch (kind) {
    case Layer::kLinks:
      return kBlue;
    case Layer::kBars:
    case Layer::kEndOn:
      return kRed;
    case Layer::kRepartitions:
      return kGreen;
    case Layer::kMeshes:
      return kViolet;
    case Layer::kFills:
    case Layer::kFormwork:
    case Layer::kLines:
    case Layer::kCircles:
    case Layer::kTexts:
    case Layer::kMarks:
    case Layer::kTitle:
      break;
  }
  return kBlackOrWhite;
}

double penOfKind(Layer kind) {
  return kind == Layer::kFormwork ? pen::kFormwork
         : kind == Layer::kMeshes ? pen::kMedium
                                  : pen::kThin;
}

// As wide as the bar is on paper, and wide enough to be told from other lines.
double penOfBar(double diameter, double scale) {
  constexpr double kThinnest = 0.35;
  constexpr double kThickestLeast = 0.8;
  return std::max(std::clamp(0.3 + 0.0125 * diameter, kThinnest, kThickestLeast), diameter / scale);
}

std::string nameOfKind(const LayerKey& key) {
  std::string name(layerName(key.kind));
  if (key.repeated) {
    name.append("_").append(layerName(*key.repeated));
  }
  if (key.diameter > 0.0 && key.diameter < kLargestNamed) {
    name += '_' + rounded(key.diameter, key.diameter < kLargestWithDecimals ? 2 : 0);
  }
  for (char& letter : name) {
    letter = letter == '.'                    ? '_'
             : letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A')
                                              : letter;
  }
  return name + (key.isHidden ? "_HIDDEN" : "");
}

}  // namespace

const std::string& LayerTable::nameOf(const LayerKey& key) {
  const auto [known, isNew] = m_names.emplace(key, nullptr);
  if (isNew) {
    DxfLayer layer;
    layer.name = nameOfKind(key);
    layer.color = colorOfKind(key.repeated.value_or(key.kind));
    const bool isBar = key.diameter > 0.0 && key.kind != Layer::kEndOn && !key.isOutline;
    layer.weight = weightOf(isBar ? penOfBar(key.diameter, m_scale) : penOfKind(key.kind));
    layer.isDashed = key.isHidden && m_hasDashes;
    known->second = &m_layers.emplace(layer.name, layer).first->first;
  }
  return *known->second;
}

}  // namespace quorvan::tool
