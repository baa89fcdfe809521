// One element of a JSON drawing, read item by item. Whatever does not fit is reported with the
// element's place in the file, its class and the item.
#pragma once

#include <nlohmann/json.hpp>
#include <quorvan/text/cstring.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

/// A drawing that cannot be written as it stands; what() says where and why.
class DrawingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A point or a vector.
struct Point {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

/// A list of points as the flat functions take it.
struct Points {
  std::vector<double> xs;
  std::vector<double> ys;
  std::vector<double> zs;

  void add(const Point& point);
  [[nodiscard]] int count() const { return static_cast<int>(xs.size()); }
};

/// An element's items by name. Every operation raises DrawingError when the item is missing or of
/// another kind.
class JsonElement {
 public:
  /// `place` names the element in messages, as in "element 12"; the file itself has none. The JSON
  /// value must outlive this object.
  explicit JsonElement(const nlohmann::json& value, std::string place = {});

  /// Adds the class name to the place, as in "element 12 (CKtZantoLine)".
  void setClassName(const std::string& className) { m_place += " (" + className + ")"; }

  [[nodiscard]] bool has(const char* item) const { return m_value->contains(item); }

  double number(const char* item);
  /// A whole number of 32 bits.
  int whole(const char* item);
  /// A whole number of 32 bits without sign.
  unsigned long color(const char* item);
  bool flag(const char* item);
  CString text(const char* item);
  std::string utf8(const char* item);
  /// Three numbers.
  Point point(const char* item);
  /// A list of points.
  Points points(const char* item);
  JsonElement object(const char* item);
  /// A list of objects; `entryName` and a number from 1 name the place of each.
  std::vector<JsonElement> list(const char* item, const char* entryName);

  /// Call it after the last item: an item that nobody asked for is most likely misspelt.
  void expectNoOtherItem() const;

  [[noreturn]] void fail(const std::string& what) const;

 private:
  const nlohmann::json& take(const char* item);
  [[noreturn]] void failItem(const char* item, const char* expected) const;
  Point pointOf(const nlohmann::json& value, const char* item) const;

  const nlohmann::json* m_value;
  std::string m_place;
  std::set<std::string> m_taken;
};
