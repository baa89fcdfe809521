#include <tools/drawing/drawing_file.h>

#include <algorithm>

#include <tools/console/console.h>
#include <tools/console/terminal.h>
#include <tools/drawing/element_lines.h>
#include <tools/files/input_file.h>
#include <tools/files/source_text.h>
#include <tools/model/control_members.h>

namespace quorvan::tool {

namespace {

// Takes the members of one object, and knows in the end whether there were others.
class Members {
 public:
  Members(const Json& object, std::string_view what) : m_object(object) {
    if (!object.is_object()) {
      throw WrongMember(std::string(what) + " must be an object");
    }
  }

  const Json& take(const std::string& name) {
    const auto found = m_object.find(name);
    if (found == m_object.end()) {
      throw WrongMember('"' + name + "\" is missing");
    }
    m_taken.push_back(name);
    return *found;
  }

  double number(const std::string& name) { return doubleFromJson(take(name), name); }
  std::int64_t whole(const std::string& name) {
    return longFromJson(take(name), name, kLargestLong);
  }
  bool flag(const std::string& name) { return flagFromJson(take(name), name); }
  std::string text(const std::string& name) { return textFromJson(take(name), name); }

  void refuseOthers(std::string_view what) const {
    for (const auto& [key, value] : m_object.items()) {
      if (std::ranges::find(m_taken, key) == m_taken.end()) {
        throw WrongMember('"' + key + "\" is not a member of " + std::string(what));
      }
    }
  }

 private:
  const Json& m_object;
  std::vector<std::string> m_taken;
};

ControlInput controlFromJson(const Json& object) {
  constexpr std::string_view kWhat = "\"drawing\"";
  Members members(object, kWhat);
  ControlInput control;
  control.name = members.text("name");
  control.version = members.text("version");
  control.servicePack = members.whole("servicePack");
  control.checkSum = members.whole("checkSum");
  members.refuseOthers(kWhat);
  return control;
}

FrameInput frameFromJson(const Json& object) {
  constexpr std::string_view kWhat = "a frame of a series";
  Members members(object, kWhat);
  FrameInput frame;
  for (std::size_t i = 0; i < std::size(frame.values); ++i) {
    frame.values[i] = members.number("value" + std::to_string(i + 1));
  }
  frame.className = members.text("className");
  frame.hookLength1 = members.number("hookLength1");
  frame.hookAngle1 = members.number("hookAngle1");
  frame.steelGrade = members.text("steelGrade");
  frame.adherence = members.text("adherence");
  frame.reference = members.whole("reference");
  frame.diameter = members.number("diameter");
  frame.hidden = members.flag("hidden");
  frame.keyC = members.whole("keyC");
  frame.viewPoint = members.whole("viewPoint");
  frame.lastInt = members.whole("lastInt");
  members.refuseOthers(kWhat);
  return frame;
}

DrawingEntry entryFromJson(const Json& object) {
  DrawingEntry entry;
  if (!object.is_object() || !object.contains("series")) {
    entry.element = elementFromJson(object);
    return entry;
  }
  const Json& series = object["series"];
  if (object.size() != 1 || !series.is_array()) {
    throw WrongMember("\"series\" must be an array and the only member");
  }
  for (const Json& frame : series) {
    try {
      entry.series.push_back(frameFromJson(frame));
    } catch (const WrongMember& wrong) {
      throw WrongMember("series[" + std::to_string(entry.series.size()) + "]: " + wrong.what());
    }
  }
  return entry;
}

std::string describe(std::size_t place, const Json& object) {
  std::string text = "elements[" + std::to_string(place) + ']';
  if (object.is_object() && object.contains("class") && object["class"].is_string()) {
    text += " (" + object["class"].get<std::string>() + ')';
  }
  return text + ": ";
}

// How many brackets are open at most; a drawing has seven.
std::size_t depthOf(std::string_view json) {
  std::size_t depth = 0;
  std::size_t deepest = 0;
  for (std::size_t at = 0; (at = json.find_first_of("\"{}[]", at)) < json.size(); ++at) {
    if (json[at] == '"') {
      at = endOfString(json, at) - 1;
    } else if (json[at] == '{' || json[at] == '[') {
      deepest = std::max(deepest, ++depth);
    } else {
      depth -= depth == 0 ? 0U : 1U;
    }
  }
  return deepest;
}

Json parseJson(const std::string& name, const std::string& text) {
  constexpr std::size_t kDeepest = 64;
  if (depthOf(text) > kDeepest) {
    throw Failure(name + ": no drawing: brackets within brackets, more than " +
                  std::to_string(kDeepest) + " deep");
  }
  try {
    return Json::parse(text);
  } catch (const Json::exception& error) {
    const std::string message = error.what();
    const std::size_t begin = message.find("] ");
    throw Failure(
        name + ": no JSON: " + (begin == std::string::npos ? message : message.substr(begin + 2)));
  }
}

void readElements(const std::string& name, const std::string& text, const Json& elements,
                  std::vector<DrawingEntry>& entries) {
  entries.reserve(elements.size());
  for (const Json& object : elements) {
    try {
      entries.push_back(entryFromJson(object));
    } catch (const WrongMember& wrong) {
      throw Failure(name + ':' + std::to_string(lineOfElement(text, entries.size())) + ": " +
                    describe(entries.size(), object) + wrong.what());
    }
  }
}

}  // namespace

DrawingInput readDrawing(const std::string& name) {
  const InputFile input(name);
  const std::string text = readBytes(input.path(), input.name());
  const Json root = parseJson(name, text);
  DrawingInput drawing;
  try {
    Members members(root, "a drawing");
    const Json& control = members.take("drawing");
    if (!control.is_null()) {
      drawing.control = controlFromJson(control);
    }
    if (!members.take("elements").is_array()) {
      throw WrongMember("\"elements\" must be an array");
    }
    members.refuseOthers("a drawing");
  } catch (const WrongMember& wrong) {
    throw Failure(name + ": " + wrong.what());
  }
  readElements(name, text, root["elements"], drawing.entries);
  return drawing;
}

}  // namespace quorvan::tool
