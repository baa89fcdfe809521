// What the elements look like, a function a kind.
#pragma once

#include <vector>

#include <tools/draw/shapes/shape_sink.h>
#include <tools/model/bar.h>
#include <tools/model/item_value.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// Lines, circles, texts, filled polygons, meshes and formwork. Nothing for other classes.
void drawGraphic(const Element& element, const std::vector<ItemValue>& items, ShapeSink& sink);

/// Bars, and bars seen end-on.
void drawBar(const Bar& bar, ShapeSink& sink);

/// Frames and stirrups.
void drawLink(const Bar& link, ShapeSink& sink);

/// A repartition with the bar that it repeats, which may be null: the bars where they lie, and a
/// dimension line across them with a stroke at each; with a label of number and spacing if wanted.
/// Gives what its label names: the bars, or nothing without one.
SheetBox drawRepartition(const Repartition& series, const Bar* bar, bool isLabelled,
                         ShapeSink& sink);

/// What the label of the repartition says; the mark is that of the bar, if it is known,
/// the lengths those of the bars of the series.
std::string seriesText(const Repartition& series, const Bar* bar, const ShapeSink& sink);

/// The width of the pen for a bar of that diameter: its own where the scale shows it, else one that
/// grows with the diameter, the same wherever the bar is drawn. Without paper, always its own.
double penOf(double diameter, const Sheet& sheet) noexcept;

}  // namespace quorvan::tool
