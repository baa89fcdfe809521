#include <tools/draw/page/element_rows.h>

#include <map>
#include <optional>
#include <unordered_map>

#include <tools/draw/page/script_json.h>
#include <tools/listing/item_cells.h>
#include <tools/model/class_names.h>
#include <tools/model/description.h>
#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>
#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

namespace {

class RowWriter {
 public:
  RowWriter(const TransferFile& file, bool isDescribed, std::ostream& out)
      : m_file(file), m_reader(file), m_bars(file), m_isDescribed(isDescribed), m_out(out) {}

  ElementHead write() {
    const std::vector<ItemValue> none;
    for (const Element& element : m_file.elements()) {
      const std::vector<ItemValue>& items =
          element.schema == nullptr ? none : m_reader.read(element);
      noteMark(element, items);
      writeRow(element, items);
    }
    for (const auto& [mark, places] : m_marks) {
      m_head.marks.push_back(Json::array({mark, places.ways}));
    }
    return std::move(m_head);
  }

 private:
  struct ClassRows {
    std::size_t number = 0;
    std::uint32_t rows = 0;
    std::vector<std::string> last;
  };
  struct Places {
    Json ways = Json::array();
    std::uint32_t last = 0;
  };

  // The mark of a bar, and of a repartition that of its bar.
  std::optional<std::int64_t> markOf(const Element& element, const std::vector<ItemValue>& items) {
    if (barShapeOf(element)) {
      const ItemValue* const mark = findItem(items, "Reference");
      return mark == nullptr ? 0 : mark->integer;
    }
    if (element.is(items::ElementClass::kRepartition)) {
      const Bar* const bar = m_bars.find(toRepartition(items));
      return bar == nullptr ? std::nullopt : std::optional(bar->reference);
    }
    return std::nullopt;
  }

  void noteMark(const Element& element, const std::vector<ItemValue>& items) {
    if (const auto mark = markOf(element, items)) {
      Places& places = m_marks[*mark];
      places.ways.push_back(element.place - places.last);
      places.last = element.place;
    }
  }

  ClassRows& rowsOf(const Element& element, const std::vector<ItemValue>& items) {
    ClassRows& rows = m_classes[std::string(element.className())];
    if (rows.rows == 0) {
      rows.number = m_head.classes.size();
      Json names = Json::array();
      for (const ItemValue& item : items) {
        names.push_back(displayName(*item.schema));
      }
      m_head.classes.push_back(
          Json::array({element.className(), shortClassName(element.className()), names}));
    }
    return rows;
  }

  void writeRow(const Element& element, const std::vector<ItemValue>& items) {
    ClassRows& rows = rowsOf(element, items);
    m_line = std::to_string(rows.number);
    const bool isKey = rows.rows++ % kKeyRows == 0;
    std::size_t tabs = 0;
    const auto addText = [&](const std::string& text, bool isKnown) {
      ++tabs;
      if (!isKnown) {
        m_line.append(tabs, '\t').append(text.empty() ? "\"" : inScript(text));
        tabs = 0;
      }
    };
    const std::string index(m_file.indexOf(element));
    addText(index, index == std::to_string(rows.rows));
    rows.last.resize(items.size() + 1);
    for (std::size_t i = 0; i <= items.size(); ++i) {
      std::string text = i > 0           ? itemCell(items[i - 1])
                         : m_isDescribed ? descriptionOf(element, items)
                                         : std::string();
      const bool isSame = !isKey && text == rows.last[i];
      addText(text, isSame);
      rows.last[i] = std::move(text);
    }
    m_line += '\n';
    m_out << m_line;
  }

  // As in JSON, without the quotes around it.
  static std::string inScript(const std::string& text) {
    std::string quoted;
    appendScriptText(quoted, text);
    return quoted.substr(1, quoted.size() - 2);
  }

  static std::string descriptionOf(const Element& element, const std::vector<ItemValue>& items) {
    return element.schema == nullptr ? std::string(element.className()) : describe(element, items);
  }

  const TransferFile& m_file;
  ItemReader m_reader;
  RepeatedBars m_bars;
  bool m_isDescribed;
  std::ostream& m_out;
  std::string m_line;
  ElementHead m_head;
  std::unordered_map<std::string, ClassRows> m_classes;
  std::map<std::int64_t, Places> m_marks;
};

}  // namespace

ElementHead writeElementRows(const TransferFile& file, bool isDescribed, std::ostream& out) {
  return RowWriter(file, isDescribed, out).write();
}

}  // namespace quorvan::tool
