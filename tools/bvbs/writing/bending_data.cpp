#include <tools/bvbs/writing/bending_data.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include <tools/bvbs/record_kind.h>
#include <tools/bvbs/record_text.h>
#include <tools/bvbs/writing/ascii_text.h>
#include <tools/bvbs/writing/series_groups.h>
#include <tools/model/class_names.h>
#include <tools/schedule/list_wording.h>
#include <tools/schedule/row_texts.h>
#include <tools/text/number_text.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr double kMillimetresInMetre = 1000.0;
constexpr int kMassPlaces = 3;
constexpr std::string_view kRibbed = "Ha";

// The header of a bar or a sheet, as far as it is known.
struct Header {
  std::string mark;
  std::optional<std::int64_t> length;  // mm
  std::uint64_t number = 0;
  std::string mass;  // kg
  double diameter = 0.0;
  std::string grade;
  double roller = 0.0;
  std::string type;    // of a mesh
  double width = 0.0;  // of a mesh
  int group = 0;
  std::string note;  // for a private block
};

std::string textOf(std::optional<std::int64_t> length) {
  return length ? std::to_string(*length) : std::string();
}

class DataWriter {
 public:
  DataWriter(const BarList& list, const BendingDataOptions& options)
      : m_list(list), m_options(options) {}

  BendingData write() {
    const std::vector<SeriesPlace> places = seriesPlaces(m_list.rows);
    for (std::size_t drawing = 0; drawing < m_list.drawings.size(); ++drawing) {
      m_drawing = drawing;
      for (std::size_t i = 0; i < m_list.rows.size(); ++i) {
        if (m_list.rows[i].drawing == drawing && m_list.rows[i].hasLength) {
          addBar(m_list.rows[i], places[i]);
        }
      }
      for (const MeshRow& mesh : m_list.meshes) {
        if (mesh.drawing == drawing) {
          addMesh(mesh);
        }
      }
      finishRecords();
    }
    addLeftOut();
    addGeneral();
    return std::move(m_data);
  }

 private:
  // A record under way: bars that are alike add to its number.
  struct Pending {
    const RecordKind* kind;
    Header header;
    std::string geometry;
    std::string subject;
  };

  static const RecordKind& kindOf(const BarRow& row) {
    return *recordKindNamed(row.bent.isPlane() ? "BF2D" : "BF3D");
  }

  void addBar(const BarRow& row, const SeriesPlace& place) {
    const TransferFile& file = *m_list.drawings[m_drawing].file;
    Pending record{&kindOf(row), {}, {}, subjectOf(row)};
    Header& header = record.header;
    header.mark = std::to_string(row.mark);
    if (place.group != 0) {
      header.mark += '.' + std::to_string(place.member);
      header.group = place.group;
    }
    header.number = row.number;
    header.diameter = row.diameter;
    header.grade = row.grade;
    header.roller = row.bent.roller;
    header.note = row.adherence == kRibbed || row.adherence.empty() ? std::string()
                                                                    : "adherence " + row.adherence;
    if (!row.isLowerBound) {
      setShape(row, record);
      for (std::string& remark : remarksOn(file, row, kEnglishList)) {
        m_data.remarks.push_back({!row.bent.fits, m_drawing, record.subject, std::move(remark)});
      }
    }
    if (row.number != 0) {
      addOrMerge(std::move(record));
    }
  }

  void setShape(const BarRow& row, Pending& record) {
    ShapeGeometry geometry = geometryOf(row.bent, m_options.obtuse);
    Header& header = record.header;
    header.length = std::llround(m_options.cutLength == CutLength::kLegs ? geometry.legSum
                                                                         : row.bent.centreLine());
    header.mass =
        fixed(massOf(row.diameter, static_cast<double>(*header.length) / kMillimetresInMetre),
              kMassPlaces);
    record.geometry = std::move(geometry.block);
    m_obtuse += geometry.hasObtuse ? 1U : 0U;
  }

  void addMesh(const MeshRow& mesh) {
    const TransferFile& file = *m_list.drawings[m_drawing].file;
    Pending record{recordKindNamed("BFMA"), {}, {}, {}};
    record.subject = "mesh " + mesh.reference + ", " +
                     std::string(shortClassName(mesh.elements.front()->className())) + ' ' +
                     indexesOf(file, mesh.elements);
    Header& header = record.header;
    header.mark = mesh.reference;
    header.length = std::llround(m_list.options.unit->millimetres(mesh.width));
    header.width = m_list.options.unit->millimetres(mesh.height);
    header.number = mesh.number;
    header.type = mesh.type;
    addOrMerge(std::move(record));
  }

  [[nodiscard]] std::string subjectOf(const BarRow& row) const {
    return "mark " + std::to_string(row.mark) + ", " +
           sourceText(*m_list.drawings[m_drawing].file, row, kEnglishList);
  }

  // Drawn bars of one shape may be filed in several classes.
  void addOrMerge(Pending record) {
    Pending alike = record;
    alike.header.number = 0;
    const auto [known, isNew] = m_places.emplace(recordOf(alike), m_pending.size());
    if (isNew) {
      m_pending.push_back(std::move(record));
    } else {
      m_pending[known->second].header.number += record.header.number;
    }
  }

  void finishRecords() {
    const std::string* const ofJob =
        strangeText({&m_options.project, &m_options.index, &m_list.drawings[m_drawing].name});
    if (ofJob != nullptr) {
      warn("all marks", "no record" + whyStrange(*ofJob));
      m_refused.insert(m_drawing);
    } else {
      for (const Pending& record : m_pending) {
        finish(record);
      }
    }
    m_pending.clear();
    m_places.clear();
  }

  void finish(const Pending& record) {
    const Header& header = record.header;
    const std::string* const strange =
        strangeText({&header.mark, &header.grade, &header.type, &header.note});
    if (strange != nullptr) {
      return warn(record.subject, "no record" + whyStrange(*strange));
    }
    std::string text = recordOf(record);
    if (text.size() > kLongestRecord) {
      m_data.remarks.push_back({false, m_drawing, record.subject,
                                "the record has " + std::to_string(text.size()) +
                                    " characters; machines may take " +
                                    std::to_string(kLongestRecord)});
    }
    m_data.records.push_back(std::move(text));
  }

  void warn(std::string subject, std::string text) {
    m_data.remarks.push_back({true, m_drawing, std::move(subject), std::move(text)});
  }

  // The first text that a record cannot hold; null where all can be held or are to be spelt.
  [[nodiscard]] const std::string* strangeText(
      std::initializer_list<const std::string*> texts) const {
    if (m_options.transliterates) {
      return nullptr;
    }
    for (const std::string* const text : texts) {
      if (!asciiText(*text)) {
        return text;
      }
    }
    return nullptr;
  }

  static std::string whyStrange(const std::string& text) {
    return ": \"" + text + "\" is not of ASCII, or has an @; --ascii spells it in it";
  }

  [[nodiscard]] std::string spelt(const std::string& text) const {
    return m_options.transliterates ? transliterated(text) : text;
  }

  // The value of a header field by its letter.
  [[nodiscard]] std::string valueOf(const Header& header, char letter) const {
    switch (letter) {
      case 'j':
        return spelt(m_options.project);
      case 'r':
        return spelt(m_list.drawings[m_drawing].name);
      case 'i':
        return spelt(m_options.index);
      case 'p':
        return spelt(header.mark);
      case 'l':
        return textOf(header.length);
      case 'n':
        return std::to_string(header.number);
      case 'e':
        return header.mass;
      case 'd':
        return rounded(header.diameter, 1);
      case 'g':
        return spelt(header.grade);
      case 's':
        return header.roller > 0.0 ? rounded(header.roller, 0) : std::string();
      case 'm':
        return spelt(header.type);
      case 'b':
        return rounded(header.width, 0);
      default:
        return {};
    }
  }

  [[nodiscard]] std::string recordOf(const Pending& record) const {
    RecordText text(record.kind->name);
    text.open('H');
    for (const char letter : record.kind->header) {
      text.field(letter, valueOf(record.header, letter));
    }
    if (record.header.group != 0) {
      text.field('c', std::to_string(record.header.group));
    }
    text.append(record.geometry);
    if (!record.header.note.empty()) {
      text.note(spelt(record.header.note));
    }
    return text.finished();
  }

  void addLeftOut() {
    for (const LeftOut& one : m_list.leftOut) {
      if (one.reason == LeftOutReason::kMesh || m_refused.contains(one.drawing)) {
        continue;
      }
      const TransferFile& file = *m_list.drawings[one.drawing].file;
      const bool hasHeader = one.reason == LeftOutReason::kWidthUnknown;
      m_data.remarks.push_back(
          {true, one.drawing, markText(file, one) + nameOf(file, *one.element),
           hasHeader ? "its width is not in the file: header alone, without shape, length and mass"
                     : "no record: " + reasonText(kEnglishList, one)});
    }
    std::ranges::stable_sort(m_data.remarks, {}, &BendingRemark::drawing);
  }

  // "mark 8, ", for an element that has one.
  static std::string markText(const TransferFile& file, const LeftOut& one) {
    for (const Node* item = file.tree().firstChild(*one.element->node); item != nullptr;
         item = file.tree().nextSibling(*item)) {
      const auto mark = file.tree().attribute(*item, "long");
      if (mark && file.tree().name(*item) == "Reference") {
        return "mark " + std::string(*mark) + ", ";
      }
    }
    return {};
  }

  static std::string nameOf(const TransferFile& file, const Element& element) {
    return std::string(shortClassName(element.className())) + ' ' +
           std::string(file.indexOf(element));
  }

  void addGeneral() {
    if (m_obtuse != 0 && !m_data.records.empty() && m_options.obtuse == ObtuseLegs::kOutermost) {
      m_data.remarks.push_back(
          {false,
           0,
           {},
           "shapes with bends beyond a right angle: " + std::to_string(m_obtuse) +
               "; their legs go to the outermost point of the bend (--obtuse-legs axis: to the "
               "corner of the axis)"});
    }
  }

  const BarList& m_list;
  const BendingDataOptions& m_options;
  std::size_t m_drawing = 0;
  std::size_t m_obtuse = 0;
  std::vector<Pending> m_pending;
  std::map<std::string, std::size_t> m_places;
  std::set<std::size_t> m_refused;  // drawings without any record
  BendingData m_data;
};

}  // namespace

ListOptions listOptionsForBending(ListOptions options) {
  options.byLength = true;
  options.cutting = usualRules(Schedule::kIso3766);
  options.cutting.lengthStep = 0.0;
  return options;
}

BendingData makeBendingData(const BarList& list, const BendingDataOptions& options) {
  return DataWriter(list, options).write();
}

}  // namespace quorvan::tool::bvbs
