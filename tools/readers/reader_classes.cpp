#include <tools/readers/reader_classes.h>

#include <fstream>
#include <span>

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/element_classes.h>
#include <quorvan/reading/kinds.h>

#include <tools/console/console.h>
#include <tools/model/bar.h>
#include <tools/model/class_names.h>
#include <tools/readers/spelling.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kBarItems = items::kBarAttributeSchemas.size();

// Lists of points bear the name of what they hold, and not of how the file keeps them. Every
// element has an index of its own: an item of that name is the index of a bar.
std::string_view memberName(const items::ItemSchema& item, QuorvanKind kind) {
  if (kind == QUORVAN_KIND_POINTS || kind == QUORVAN_KIND_SEGMENTS) {
    return "Points";
  }
  return item.name == "Index" ? "BarIndex" : item.name;
}

std::vector<ReaderMember> membersOf(std::span<const items::ItemSchema> items) {
  std::vector<ReaderMember> members;
  for (const items::ItemSchema& item : items) {
    const QuorvanKind kind = reading::kindOf(item.kind);
    members.push_back({item.name, memberName(item, kind), kind});
    if (kind == QUORVAN_KIND_SEGMENTS) {
      members.push_back({{}, "Bulges", kind});
    }
  }
  return members;
}

// What the first line of the class's header says behind its name, as a sentence.
std::string headerSentence(const std::filesystem::path& sources, const ReaderClass& element) {
  const std::filesystem::path path =
      sources / "quorvan/elements" / (snakeCase(element.name) + ".h");
  std::ifstream header(path);
  std::string line;
  std::getline(header, line);
  const std::string start = "// " + std::string(element.className) + ": ";
  if (!line.starts_with(start)) {
    throw Failure(path.string() + " does not begin with \"" + start + "...\"");
  }
  return capitalized(line.substr(start.size()));
}

std::string descriptionOf(const std::filesystem::path& sources, const ReaderClass& element) {
  std::string description = headerSentence(sources, element);
  for (const ReaderMember& member : element.members) {
    if (member.name == "Bulges") {
      description += " Two points and one bulge a segment.";
    } else if (member.name == "BarIndex") {
      description += " It has an index of its own and that of the bar.";
    }
  }
  return description;
}

}  // namespace

ReaderClasses readerClasses(const std::filesystem::path& sources) {
  ReaderClasses classes;
  classes.ofBars = membersOf(items::kBarAttributeSchemas);
  for (const items::ElementSchema& schema : items::allElements()) {
    ReaderClass element;
    element.className = schema.className;
    element.name = shortClassName(schema.className);
    element.isBar = barShapeOf(schema.id).has_value();
    element.members = membersOf(element.isBar ? schema.items.first(schema.items.size() - kBarItems)
                                              : schema.items);
    element.description = descriptionOf(sources, element);
    classes.all.push_back(std::move(element));
  }
  return classes;
}

}  // namespace quorvan::tool
