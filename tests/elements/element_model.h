// A second description of the element classes beside the library's own tables: what each item is
// called, how it stands in the file, where its value lives and what becomes of the field when the
// item is missing. The tests of all classes follow these tables.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/text/cstring.h>

namespace quorvan::test {

/// How an item stands in the file.
enum class Form {
  kPoint,
  kVector,
  kDouble,
  kLong,
  kColor,  // an unsigned 32-bit number as a signed one
  kText,
  kAdherence,       // a text that older files hold as a number
  kFlag,            // "True" or "False"
  kSide,            // a flag as the number 1 or 0
  kPoints,          // a list of Point1, Point2 ...
  kSegments,        // a list of Point1, Point2, Bulge1, Point3 ...
  kDoubles,         // a list of doubles
  kNumberedPoints,  // a number and Point1, Point2 ... beside it
};

/// What reading does to a field whose item is missing.
enum class WhenMissing {
  kFails,           // the field keeps its value, the result is 0
  kKeeps,           // the field keeps its value, the result stays
  kRepeatsNumber,   // the number read before it through the common buffer, 0 at first; result 0
  kRepeatsFlag,     // the same for texts of flags
  kEmpties,         // the list is empty, the result stays
  kEmptiesAndFails  // the list is empty, the result is 0
};

struct Segments {
  std::vector<CKtPnt3D> points;  // two a segment
  std::vector<CKtVect3D> bulges;
};

using Value = std::variant<CKtPnt3D, CKtVect3D, double, long, unsigned long, bool, CString,
                           std::vector<CKtPnt3D>, Segments, std::vector<double>>;

/// The item as it stands in the file. `stem` names the entries of a list of doubles.
std::string itemText(Form form, const std::string& name, const std::string& stem,
                     const Value& value);

/// A value for an item of that form; another one for each number.
Value sampleValue(Form form, int number);

/// What a field holds that nothing was ever set in.
Value defaultValue(Form form);

/// The number that a value leaves in the buffer through which it is read.
long bufferedNumber(const Value& value);

/// One item of the class `Element` and the field it belongs to.
template <class Element>
struct Field {
  std::string name;
  Form form;
  WhenMissing whenMissing;
  std::function<Value(const Element&)> get;
  std::function<void(Element&, const Value&)> set;
  std::string stem = "Point";

  [[nodiscard]] std::string text(const Value& value) const {
    return itemText(form, name, stem, value);
  }
};

/// A field with a getter and a setter of its own type.
template <class Element, class Type>
Field<Element> field(const char* name, Form form, Type (Element::*get)() const,
                     void (Element::*set)(Type), WhenMissing whenMissing = WhenMissing::kFails) {
  return {name, form, whenMissing,
          [get](const Element& element) { return Value((element.*get)()); },
          [set](Element& element, const Value& value) { (element.*set)(std::get<Type>(value)); }};
}

/// A flag whose getter gives 1.0 or 0.0.
template <class Element>
Field<Element> doubleFlag(const char* name, Form form, double (Element::*get)() const,
                          void (Element::*set)(bool), WhenMissing whenMissing) {
  return {name, form, whenMissing,
          [get](const Element& element) { return Value((element.*get)() == 1.0); },
          [set](Element& element, const Value& value) { (element.*set)(std::get<bool>(value)); }};
}

/// A number that the class holds as an enumeration or an int.
template <class Element, class Type>
Field<Element> numberField(const char* name, Type (Element::*get)() const,
                           void (Element::*set)(Type), WhenMissing whenMissing) {
  return {name, Form::kLong, whenMissing,
          [get](const Element& element) { return Value(static_cast<long>((element.*get)())); },
          [set](Element& element, const Value& value) {
            (element.*set)(static_cast<Type>(std::get<long>(value)));
          }};
}

/// The description of a class: its name and its items in the order of the file.
template <class Element>
struct ElementModel;

/// What each item of the element is, as it would stand in the file: one text a field, to be
/// compared as a whole.
template <class Element>
std::vector<std::string> describe(const Element& element) {
  std::vector<std::string> texts;
  for (const Field<Element>& field : ElementModel<Element>::fields()) {
    texts.push_back(field.text(field.get(element)));
  }
  return texts;
}

/// Sample values for all fields; another set for each number.
template <class Element>
std::vector<Value> sampleValues(int set) {
  std::vector<Value> values;
  const auto fields = ElementModel<Element>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    values.push_back(sampleValue(fields[i].form, static_cast<int>(2 * i) + set));
  }
  return values;
}

template <class Element>
Element made(const std::vector<Value>& values) {
  Element element;
  const auto fields = ElementModel<Element>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i].set(element, values[i]);
  }
  return element;
}

/// The items as texts, in the order of the file.
template <class Element>
std::vector<std::string> itemTexts(const std::vector<Value>& values) {
  std::vector<std::string> texts;
  const auto fields = ElementModel<Element>::fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    texts.push_back(fields[i].text(values[i]));
  }
  return texts;
}

std::string joined(const std::vector<std::string>& texts);

}  // namespace quorvan::test
