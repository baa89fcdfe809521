#include <charconv>
#include <cstdint>
#include <numbers>

#include <tools/schedule/list_tables.h>
#include <tools/schedule/list_writers.h>
#include <tools/schedule/row_texts.h>
#include <tools/text/json_text.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr int kBentDecimals = 1;

// Rounded to what the list shows.
Json number(double value, int decimals) {
  const std::string text = rounded(value, decimals);
  const char* const end = text.data() + text.size();
  std::int64_t whole = 0;
  if (std::from_chars(text.data(), end, whole).ptr == end) {
    return whole;
  }
  double shown = 0.0;
  std::from_chars(text.data(), end, shown);
  return shown;
}

std::string_view scheduleName(Schedule schedule) {
  switch (schedule) {
    case Schedule::kAxis:
      return "axis";
    case Schedule::kIso3766:
      return "iso3766";
    case Schedule::kBs8666:
      return "bs8666";
  }
  return {};
}

class ListJson {
 public:
  ListJson(const BarList& list, const ListWording& words)
      : m_list(list), m_words(words), m_unit(*list.options.unit) {}

  void write(std::ostream& out) const {
    JsonStream stream(out);
    stream.add("drawings", drawings());
    stream.add("schedule", scheduleName(m_list.options.cutting.schedule));
    stream.add("conventions", conventionsOf(m_list, m_words));
    stream.add("unit", m_unit.name);
    stream.add("density", kSteelDensity);
    stream.beginList("bars");
    for (const BarRow& row : m_list.rows) {
      stream.addEntry(bar(row));
    }
    stream.endList();
    stream.add("sums", sums());
    stream.add("mass", number(m_list.mass, kMassDecimals));
    stream.add("meshes", meshes());
    stream.beginList("notInSums");
    for (const LeftOut& one : m_list.leftOut) {
      stream.addEntry(leftOut(one));
    }
    stream.endList();
    stream.end();
  }

 private:
  static constexpr int kDiameterDecimals = 6;

  [[nodiscard]] const ListedDrawing& drawingOf(std::size_t place) const {
    return m_list.drawings[place];
  }

  static void addSum(Json& result, const BarSum& sum) {
    result["number"] = sum.number;
    result["totalLength"] = number(sum.length, kMetreDecimals);
    result["mass"] = number(sum.mass, kMassDecimals);
  }

  [[nodiscard]] Json sums() const {
    Json all = Json::array();
    for (const BarSum& sum : m_list.sums) {
      Json one = {{"diameter", number(sum.diameter, kDiameterDecimals)}, {"grade", sum.grade}};
      addSum(one, sum);
      all.push_back(std::move(one));
    }
    return all;
  }

  [[nodiscard]] Json drawings() const {
    Json all = Json::array();
    for (const ListedDrawing& drawing : m_list.drawings) {
      Json one = {{"file", drawing.file->name()}, {"drawing", drawing.name}};
      addSum(one, drawing.sum);
      all.push_back(std::move(one));
    }
    return all;
  }

  [[nodiscard]] Json reference(std::size_t drawing, const Element& element) const {
    return {{"class", element.className()}, {"index", drawingOf(drawing).file->indexOf(element)}};
  }

  void addOrigin(Json& result, std::size_t drawing) const {
    result["file"] = drawingOf(drawing).file->name();
    result["drawing"] = drawingOf(drawing).name;
  }

  [[nodiscard]] Json bar(const BarRow& row) const {
    Json result = Json::object();
    addOrigin(result, row.drawing);
    result["mark"] = row.mark;
    if (row.cutting.code && row.hasLength) {
      result["code"] = *row.cutting.code;
    }
    result["shape"] = shapeName(row.shape);
    result["grade"] = row.grade;
    result["adherence"] = row.adherence;
    result["diameter"] = number(row.diameter, kDiameterDecimals);
    result["number"] = row.number;
    for (const char* const name : {"length", "lengthTo", "totalLength", "mass"}) {
      result[name] = nullptr;
    }
    if (row.hasLength) {
      result["length"] = number(row.shortest, m_unit.decimals);
      result["lengthTo"] = number(row.longest, m_unit.decimals);
      result["totalLength"] = number(m_unit.metres(row.totalLength), kMetreDecimals);
      result["mass"] = number(massOf(row, m_unit), kMassDecimals);
      result["isLowerBound"] = row.isLowerBound;
      result["bent"] = bent(row);
    }
    addOrigins(result, row);
    return result;
  }

  void addOrigins(Json& result, const BarRow& row) const {
    const TransferFile& file = *drawingOf(row.drawing).file;
    result["explanation"] = explanationOf(file, row, m_words);
    result["remarks"] = remarksOn(file, row, m_words);
    result["hidden"] = row.hidden;
    result["elements"] = Json::array();
    for (const SourceElements& source : row.sources) {
      for (const Element* const element : source.elements) {
        result["elements"].push_back(reference(row.drawing, *element));
      }
    }
    result["endOn"] = Json::array();
    for (const Element* const element : row.endOn) {
      result["endOn"].push_back(reference(row.drawing, *element));
    }
  }

  // The longest bar of the row, in mm and degrees.
  static Json bent(const BarRow& row) {
    const BentBar& bent = row.bent;
    Json result = {{"roller", number(bent.roller, kBentDecimals)},
                   {"axis", number(bent.axisLength(), kBentDecimals)},
                   {"centreLine", number(bent.centreLine(), kBentDecimals)},
                   {"fits", bent.fits}};
    result["legs"] = Json::array();
    for (const Leg& leg : bent.legs) {
      result["legs"].push_back({{"axis", number(leg.axis, kBentDecimals)},
                                {"outside", number(leg.outside, kBentDecimals)},
                                {"straight", number(leg.straight, kBentDecimals)},
                                {"isArc", leg.isArc},
                                {"isUnknown", leg.isUnknown}});
    }
    result["bends"] = Json::array();
    for (const Bend& bend : bent.bends) {
      const double degrees = bend.angle * 180.0 / std::numbers::pi;
      result["bends"].push_back({{"angle", number(bend.isLeft ? degrees : -degrees, 2)},
                                 {"radius", number(bend.radius, kBentDecimals)},
                                 {"isHook", bend.isHook}});
    }
    result["dimensions"] = Json::array();
    for (const Dimension& dimension : row.cutting.dimensions) {
      Json one = {{"letter", nullptr}, {"value", nullptr}, {"isFree", dimension.isFree}};
      if (dimension.letter != 0) {
        one["letter"] = std::string(1, dimension.letter);
      }
      if (!dimension.isUnknown) {
        one["value"] = number(dimension.value, kBentDecimals);
      }
      result["dimensions"].push_back(std::move(one));
    }
    return result;
  }

  [[nodiscard]] Json meshes() const {
    Json all = Json::array();
    for (const MeshRow& mesh : m_list.meshes) {
      Json one = Json::object();
      addOrigin(one, mesh.drawing);
      one["reference"] = mesh.reference;
      one["type"] = mesh.type;
      one["pieces"] = mesh.number;
      one["x"] = number(mesh.width, m_unit.decimals);
      one["y"] = number(mesh.height, m_unit.decimals);
      one["area"] = number(areaOf(mesh, m_unit), kMetreDecimals);
      one["elements"] = Json::array();
      for (const Element* const element : mesh.elements) {
        one["elements"].push_back(reference(mesh.drawing, *element));
      }
      all.push_back(std::move(one));
    }
    return all;
  }

  [[nodiscard]] Json leftOut(const LeftOut& one) const {
    Json json = Json::object();
    addOrigin(json, one.drawing);
    json.update(reference(one.drawing, *one.element));
    json["number"] = one.number;
    json["reason"] = reasonText(m_words, one);
    return json;
  }

  const BarList& m_list;
  const ListWording& m_words;
  const LengthUnit& m_unit;
};

}  // namespace

void writeListJson(const BarList& list, const ListWriting& writing, std::ostream& out) {
  ListJson(list, *writing.words).write(out);
}

}  // namespace quorvan::tool
