#include <tools/draw/labels/title_block.h>

#include <algorithm>

#include <tools/console/terminal.h>
#include <tools/draw/scene/text_width.h>
#include <tools/model/item_reader.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kHeading = 1.5;         // mm, height of capitals
constexpr double kTitleLettering = 2.4;  // mm
constexpr double kNarrow = 110.0;        // mm, of the strip

struct Field {
  std::string heading;
  std::string text;
  double share;  // of the width
};

std::string textOf(const std::vector<ItemValue>& items, std::string_view name) {
  const ItemValue* const item = findItem(items, name);
  return item->schema->kind == items::Kind::kLong ? std::to_string(item->integer) : item->text;
}

std::vector<Field> fieldsOf(const TransferFile& file, const DrawOptions& options,
                            const Sheet& sheet, const Wording& words) {
  std::string name(words.noRecord);
  std::string version = "\u2013";
  std::string checkSum = "\u2013";
  if (const Element* const record = controlRecord(file)) {
    ItemReader reader(file);
    const std::vector<ItemValue>& items = reader.read(*record);
    name = textOf(items, "DrawingName");
    version = textOf(items, "ZantoVersion") + " SP" + textOf(items, "ServicePack");
    checkSum = textOf(items, "CheckSum");
  }
  std::vector<Field> fields = {
      {std::string(words.drawing), name, 0.34},
      {std::string(words.file), toUtf8(toPath(file.name()).filename()), 0.24},
      {std::string(words.producedBy), version, 0.14},
      {std::string(words.checkSum), checkSum, 0.12},
      {std::string(words.scale),
       "1:" + rounded(sheet.scale(), 2) + ", " + std::string(options.unit->name), 0.16}};
  // On a narrow sheet only what it is and how large.
  if (sheet.width() - 2 * kMargin < kNarrow) {
    fields.erase(fields.begin() + 1, fields.end() - 1);
    fields.front().share = 0.6;
    fields.back().share = 0.4;
  }
  return fields;
}

// A long text is written smaller, so that it stays in its field.
double fitted(const std::string& text, double height, double room) {
  return std::min(height, height * (room - 3.0) / std::max(1.0, textWidth(text, height)));
}

}  // namespace

std::string titleOf(const TransferFile& file) {
  if (const Element* const record = controlRecord(file)) {
    std::string name = textOf(ItemReader(file).read(*record), "DrawingName");
    if (!name.empty()) {
      return name;
    }
  }
  return toUtf8(toPath(file.name()).filename());
}

void drawTitleBlock(const TransferFile& file, const DrawOptions& options, ShapeSink& sink) {
  const Sheet& sheet = sink.sheet();
  if (!sheet.hasTitle()) {
    return;
  }
  sink.begin(kNoElement);
  const double width = sheet.width() - 2 * kMargin;
  const double top = kMargin + kTitleHeight;
  Path frame;
  frame.moveTo({kMargin, kMargin});
  for (const PlanePoint corner : {PlanePoint{kMargin + width, kMargin},
                                  PlanePoint{kMargin + width, top}, PlanePoint{kMargin, top}}) {
    frame.lineTo(corner);
  }
  frame.close();
  double x = kMargin;
  for (const Field& field : fieldsOf(file, options, sheet, wordingOf(sink.context().language))) {
    const double room = field.share * width;
    const double height = fitted(field.text, kTitleLettering, room);
    sink.addText(Layer::kTitle, ink::kTitle,
                 {field.heading, {x + 1.5, top - 3.4}, fitted(field.heading, kHeading, room), 0.0});
    sink.addText(Layer::kTitle, ink::kTitle, {field.text, {x + 1.5, kMargin + 2.6}, height, 0.0});
    if (x > kMargin) {
      frame.moveTo({x, kMargin});
      frame.lineTo({x, top});
    }
    x += room;
  }
  sink.addPath(Layer::kTitle, {ink::kTitle, pen::kMedium}, std::move(frame));
}

}  // namespace quorvan::tool
