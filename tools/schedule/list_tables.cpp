#include <tools/schedule/list_tables.h>

#include <algorithm>
#include <map>
#include <tuple>

#include <tools/model/class_names.h>
#include <tools/schedule/row_texts.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr int kAreaDecimals = 2;
constexpr int kDiameterDecimals = 2;
constexpr std::string_view kNothing = "-";

// As short as it goes.
Cell shortCell(double value, int most) {
  const std::string text = rounded(value, most);
  const std::size_t point = text.find('.');
  return numberCell(value,
                    point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1));
}

// Rows are told column by column, so that a column and its cells stand in one place.
class TableBuilder {
 public:
  TableBuilder(std::string_view title, std::size_t rows) {
    m_table.title = title;
    m_table.rows = ListRows(rows);
  }

  template <class CellOf>
  void add(std::string_view title, std::string_view unit, bool isNumeric, const CellOf& cellOf) {
    m_table.columns.push_back({title, unit, isNumeric});
    m_table.rows.addColumn(cellOf);
  }

  template <class CellOf>
  void addText(std::string_view title, const CellOf& textOf) {
    add(title, "", false, [textOf](std::size_t i) { return textCell(std::string(textOf(i))); });
  }

  [[nodiscard]] ListTable take() { return std::move(m_table); }

 private:
  ListTable m_table;
};

// The columns of the bars.
class BarColumns {
 public:
  BarColumns(const BarList& list, const ListWording& words, const TableOptions& options)
      : m_list(list),
        m_words(words),
        m_unit(*list.options.unit),
        m_options(options),
        m_builder(words.titles.bars, list.rows.size()) {}

  ListTable build() {
    addIdentity();
    addSteel();
    addLengths();
    addDimensions();
    addSources();
    return m_builder.take();
  }

 private:
  [[nodiscard]] bool isForPeople() const { return m_options.audience == Audience::kPeople; }
  [[nodiscard]] const BarRow& row(std::size_t i) const { return m_list.rows[i]; }
  [[nodiscard]] const TransferFile& fileOf(const BarRow& row) const {
    return *m_list.drawings[row.drawing].file;
  }
  [[nodiscard]] bool isBent() const { return m_list.options.cutting.schedule != Schedule::kAxis; }
  [[nodiscard]] Cell missing() const {
    return textCell(isForPeople() ? std::string(kNothing) : std::string());
  }

  void addIdentity() {
    if (!isForPeople() || m_list.drawings.size() > 1) {
      m_builder.addText(m_words.columns.drawing,
                        [this](std::size_t i) { return nameOf(m_list.drawings[row(i).drawing]); });
    }
    m_builder.add(m_words.columns.mark, "", true, [this](std::size_t i) {
      return numberCell(static_cast<double>(row(i).mark), 0);
    });
    if (m_list.options.cutting.schedule == Schedule::kBs8666) {
      m_builder.addText(m_words.columns.code, [this](std::size_t i) {
        const std::string code = std::to_string(row(i).cutting.code.value_or(0));
        return !row(i).hasLength ? std::string() : code.size() < 2 ? '0' + code : code;
      });
    }
    m_builder.addText(m_words.columns.shape,
                      [this](std::size_t i) { return shapeName(m_words, row(i).shape); });
  }

  void addSteel() {
    m_builder.addText(m_words.columns.grade, [this](std::size_t i) { return row(i).grade; });
    m_builder.addText(m_words.columns.adherence,
                      [this](std::size_t i) { return row(i).adherence; });
    m_builder.add(m_words.columns.diameter, "mm", true,
                  [this](std::size_t i) { return shortCell(row(i).diameter, kDiameterDecimals); });
    if (isBent()) {
      m_builder.add(m_words.columns.roller, "mm", true, [this](std::size_t i) {
        return row(i).bent.bends.empty() ? missing()
                                         : shortCell(row(i).bent.roller, kDiameterDecimals);
      });
    }
    m_builder.add(m_words.columns.number, "", true,
                  [this](std::size_t i) { return wholeCell(row(i).number); });
  }

  void addLengths() {
    m_builder.add(m_words.columns.length, m_unit.name, true,
                  [this](std::size_t i) { return lengthCell(row(i)); });
    if (!isForPeople()) {
      m_builder.add(m_words.columns.longest, m_unit.name, true, [this](std::size_t i) {
        return row(i).varies() ? numberCell(row(i).longest, m_unit.decimals) : missing();
      });
    }
    m_builder.add(isForPeople() ? m_words.columns.total : m_words.columns.totalLength, "m", true,
                  [this](std::size_t i) {
                    return row(i).hasLength
                               ? numberCell(m_unit.metres(row(i).totalLength), kMetreDecimals)
                               : missing();
                  });
    m_builder.add(m_words.columns.mass, "kg", true, [this](std::size_t i) {
      return row(i).hasLength ? numberCell(massOf(row(i), m_unit), kMassDecimals) : missing();
    });
  }

  [[nodiscard]] Cell lengthCell(const BarRow& row) const {
    if (!row.hasLength) {
      return missing();
    }
    if (!isForPeople() || !row.varies()) {
      Cell cell = numberCell(row.shortest, m_unit.decimals);
      cell.before = isForPeople() && row.isLowerBound ? "\u2265 " : "";
      return cell;
    }
    return textCell(filled(m_words.range, {lengthText(row.shortest), lengthText(row.longest)}));
  }

  [[nodiscard]] std::string lengthText(double length) const {
    return cellText(numberCell(length, m_unit.decimals), m_words.decimalMark);
  }

  void addDimensions() {
    if (m_list.options.cutting.schedule == Schedule::kIso3766) {
      m_builder.addText(m_words.columns.dimensions,
                        [this](std::size_t i) { return dimensionText(row(i).cutting.dimensions); });
    } else if (m_list.options.cutting.schedule == Schedule::kBs8666) {
      for (const std::string_view letter : {"A", "B", "C", "D", "E", "F", "R"}) {
        if (isForPeople() && !isUsed(letter.front())) {
          continue;
        }
        m_builder.add(letter, "mm", true, [this, letter](std::size_t i) {
          return letterCell(row(i).cutting, letter.front());
        });
      }
      // What fits no code is bent by its legs.
      const auto isSketched = [](const BarRow& one) {
        return one.cutting.code == ShapeCode::kSketch;
      };
      if (!isForPeople() || std::ranges::any_of(m_list.rows, isSketched)) {
        m_builder.addText(m_words.columns.dimensions, [this, isSketched](std::size_t i) {
          return isSketched(row(i)) ? dimensionText(row(i).cutting.dimensions) : std::string();
        });
      }
    }
  }

  // Whether a row has a dimension of the letter.
  [[nodiscard]] bool isUsed(char letter) const {
    return std::ranges::any_of(m_list.rows, [letter](const BarRow& one) {
      return std::ranges::find(one.cutting.dimensions, letter, &Dimension::letter) !=
             one.cutting.dimensions.end();
    });
  }

  [[nodiscard]] std::string dimensionText(const std::vector<Dimension>& dimensions) const {
    std::string text;
    for (const Dimension& dimension : dimensions) {
      text += text.empty() ? "" : " / ";
      text += dimension.isUnknown ? "?" : valueText(dimension.value);
    }
    return text;
  }

  [[nodiscard]] std::string valueText(double value) const {
    return cellText(shortCell(value, 1), m_words.decimalMark);
  }

  [[nodiscard]] Cell letterCell(const Cutting& cutting, char letter) const {
    for (const Dimension& dimension : cutting.dimensions) {
      if (dimension.letter != letter) {
        continue;
      }
      if (dimension.isUnknown) {
        return textCell("?");
      }
      Cell cell = shortCell(dimension.value, 1);
      cell.before = isForPeople() && dimension.isFree ? "(" : "";
      cell.after = isForPeople() && dimension.isFree ? ")" : "";
      return cell;
    }
    return textCell("");
  }

  [[nodiscard]] std::string remarkText(const BarRow& row) const {
    std::string text;
    for (const std::string& remark : remarksOn(fileOf(row), row, m_words)) {
      text += (text.empty() ? "" : "; ") + remark;
    }
    return text;
  }

  void addSources() {
    m_builder.addText(m_words.columns.elements, [this](std::size_t i) {
      const BarRow& one = row(i);
      std::string text = sourceText(fileOf(one), one, m_words);
      if (isForPeople() && one.hidden != 0) {
        text += " (" + filled(m_words.remarks.hidden, {std::to_string(one.hidden)}) + ')';
      }
      return text;
    });
    const bool isAny = std::ranges::any_of(m_list.rows, [this](const BarRow& one) {
      return !remarksOn(fileOf(one), one, m_words).empty();
    });
    if (isAny || !isForPeople()) {
      m_builder.addText(m_words.columns.remarks,
                        [this](std::size_t i) { return remarkText(row(i)); });
    }
    if (m_options.explain && !isForPeople()) {
      m_builder.addText(m_words.columns.explanation, [this](std::size_t i) {
        return explanationOf(fileOf(row(i)), row(i), m_words);
      });
    }
  }

  const BarList& m_list;
  const ListWording& m_words;
  const LengthUnit& m_unit;
  TableOptions m_options;
  TableBuilder m_builder;
};

}  // namespace

Cell textCell(std::string text) {
  return {std::move(text)};
}

Cell numberCell(double number, int decimals) {
  return {{}, number, decimals};
}

Cell wholeCell(std::uint64_t number) {
  return {{}, static_cast<double>(number), 0};
}

std::vector<Cell> ListRows::operator[](std::size_t row) const {
  std::vector<Cell> cells;
  cells.reserve(m_columns.size());
  for (const CellOf& cellOf : m_columns) {
    cells.push_back(cellOf(row));
  }
  return cells;
}

std::string cellText(const Cell& cell, char decimalMark) {
  if (!cell.isNumber()) {
    return cell.text;
  }
  std::string text = fixed(cell.number, cell.decimals);
  std::ranges::replace(text, '.', decimalMark);
  return cell.before + text + cell.after;
}

const std::string& nameOf(const ListedDrawing& drawing) noexcept {
  return drawing.name.empty() ? drawing.file->name() : drawing.name;
}

ListTable barTable(const BarList& list, const ListWording& words, const TableOptions& options) {
  const auto columns = std::make_shared<BarColumns>(list, words, options);
  ListTable table = columns->build();
  table.rows.keep(columns);
  return table;
}

ListTable explanationTable(const BarList& list, const ListWording& words) {
  TableBuilder builder(words.titles.explanations, list.rows.size());
  const auto row = [&list](std::size_t i) -> const BarRow& { return list.rows[i]; };
  if (list.drawings.size() > 1) {
    builder.addText(words.columns.drawing,
                    [&list, row](std::size_t i) { return nameOf(list.drawings[row(i).drawing]); });
  }
  builder.add(words.columns.mark, "", true,
              [row](std::size_t i) { return numberCell(static_cast<double>(row(i).mark), 0); });
  builder.addText(words.columns.shape,
                  [&words, row](std::size_t i) { return shapeName(words, row(i).shape); });
  builder.addText(words.columns.explanation, [&list, &words, row](std::size_t i) {
    return explanationOf(*list.drawings[row(i).drawing].file, row(i), words);
  });
  return builder.take();
}

ListTable sumTable(const BarList& list, const ListWording& words) {
  TableBuilder builder(words.titles.sums, list.sums.size());
  builder.add(words.columns.diameter, "mm", true, [&list](std::size_t i) {
    return shortCell(list.sums[i].diameter, kDiameterDecimals);
  });
  builder.addText(words.columns.grade, [&list](std::size_t i) { return list.sums[i].grade; });
  builder.add(words.columns.number, "", true,
              [&list](std::size_t i) { return wholeCell(list.sums[i].number); });
  builder.add(words.columns.total, "m", true,
              [&list](std::size_t i) { return numberCell(list.sums[i].length, kMetreDecimals); });
  builder.add(words.columns.mass, "kg", true,
              [&list](std::size_t i) { return numberCell(list.sums[i].mass, kMassDecimals); });
  return builder.take();
}

ListTable drawingTable(const BarList& list, const ListWording& words) {
  TableBuilder builder(words.titles.drawings, list.drawings.size());
  builder.addText(words.columns.drawing,
                  [&list](std::size_t i) { return nameOf(list.drawings[i]); });
  builder.addText(words.columns.file,
                  [&list](std::size_t i) { return list.drawings[i].file->name(); });
  builder.add(words.columns.number, "", true,
              [&list](std::size_t i) { return wholeCell(list.drawings[i].sum.number); });
  builder.add(words.columns.total, "m", true, [&list](std::size_t i) {
    return numberCell(list.drawings[i].sum.length, kMetreDecimals);
  });
  builder.add(words.columns.mass, "kg", true, [&list](std::size_t i) {
    return numberCell(list.drawings[i].sum.mass, kMassDecimals);
  });
  return builder.take();
}

ListTable meshTable(const BarList& list, const ListWording& words, Audience audience) {
  const LengthUnit& unit = *list.options.unit;
  TableBuilder builder(words.titles.meshes, list.meshes.size());
  const auto mesh = [&list](std::size_t i) -> const MeshRow& { return list.meshes[i]; };
  if (audience == Audience::kPrograms || list.drawings.size() > 1) {
    builder.addText(words.columns.drawing, [&list, mesh](std::size_t i) {
      return nameOf(list.drawings[mesh(i).drawing]);
    });
  }
  builder.addText(words.columns.reference, [mesh](std::size_t i) { return mesh(i).reference; });
  builder.addText(words.columns.type, [mesh](std::size_t i) { return mesh(i).type; });
  builder.add(words.columns.pieces, "", true,
              [mesh](std::size_t i) { return wholeCell(mesh(i).number); });
  builder.add(words.columns.width, unit.name, true,
              [mesh, &unit](std::size_t i) { return numberCell(mesh(i).width, unit.decimals); });
  builder.add(words.columns.height, unit.name, true,
              [mesh, &unit](std::size_t i) { return numberCell(mesh(i).height, unit.decimals); });
  builder.add(words.columns.area, "m2", true, [mesh, &unit](std::size_t i) {
    return numberCell(areaOf(mesh(i), unit), kAreaDecimals);
  });
  builder.add(words.columns.totalArea, "m2", true, [mesh, &unit](std::size_t i) {
    return numberCell(areaOf(mesh(i), unit) * static_cast<double>(mesh(i).number), kAreaDecimals);
  });
  return builder.take();
}

ListTable leftOutTable(const BarList& list, const ListWording& words, Audience audience) {
  struct Group {
    std::vector<const Element*> elements;
    std::uint64_t number = 0;
    const LeftOut* first = nullptr;
  };
  using Key = std::tuple<std::size_t, std::string_view, LeftOutReason, std::string_view>;
  struct Groups {
    std::map<Key, Group> byKey;
    std::vector<const Group*> inOrder;
  };
  const auto groups = std::make_shared<Groups>();
  for (const LeftOut& one : list.leftOut) {
    Group& group = groups->byKey[{one.drawing, one.element->className(), one.reason, one.item}];
    if (group.first == nullptr) {
      group.first = &one;
      groups->inOrder.push_back(&group);
    }
    group.elements.push_back(one.element);
    group.number += one.number;
  }
  const std::vector<const Group*>& inOrder = groups->inOrder;
  TableBuilder builder(words.titles.leftOut, inOrder.size());
  const auto drawing = [&list, &inOrder](std::size_t i) -> const ListedDrawing& {
    return list.drawings[inOrder[i]->first->drawing];
  };
  if (audience == Audience::kPrograms || list.drawings.size() > 1) {
    builder.addText(words.columns.drawing, [drawing](std::size_t i) { return nameOf(drawing(i)); });
  }
  builder.addText(words.columns.className, [&inOrder](std::size_t i) {
    return shortClassName(inOrder[i]->first->element->className());
  });
  builder.addText(words.columns.index, [drawing, &inOrder](std::size_t i) {
    return indexesOf(*drawing(i).file, inOrder[i]->elements);
  });
  builder.add(words.columns.number, "", true,
              [&inOrder](std::size_t i) { return wholeCell(inOrder[i]->number); });
  builder.addText(words.columns.reason, [&words, &inOrder](std::size_t i) {
    return reasonText(words, *inOrder[i]->first);
  });
  ListTable table = builder.take();
  table.rows.keep(groups);
  return table;
}

}  // namespace quorvan::tool
