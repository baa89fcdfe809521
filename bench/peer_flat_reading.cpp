// The library read through its flat functions: every item looked up by name, elements in the order
// of the file.
#include <quorvan/reading/read.h>

#include <array>
#include <stdexcept>
#include <string_view>

#include <bench/number_text.h>
#include <bench/peers.h>

namespace bench {

namespace {

class FlatSource {
 public:
  explicit FlatSource(const QuorvanElement* element) : m_element(element) {}

  void number(const char* name, double& value) { quorvanReadDouble(item(name), &value); }
  void integer(const char* name, long& value) {
    std::int32_t number = 0;
    quorvanReadLong(item(name), &number);
    value = number;
  }
  void flag(const char* name, bool& value) {
    int flag = 0;
    quorvanReadFlag(item(name), &flag);
    value = flag != 0;
  }
  void text(const char* name, std::wstring& value) {
    const wchar_t* text = L"";
    std::size_t length = 0;
    quorvanReadWideText(item(name), &text, &length);
    value.assign(text, length);
  }
  void point(const char* name, Point& point) {
    std::array<double, 3> xyz{};
    quorvanReadPoint(item(name), xyz.data());
    point = {xyz[0], xyz[1], xyz[2]};
  }
  void points(const char* name, std::vector<Point>& points) {
    static_assert(sizeof(Point) == 3 * sizeof(double));
    const QuorvanItem* const list = item(name);
    std::size_t count = 0;
    quorvanReadPoints(list, nullptr, 0, &count);
    points.resize(count);
    quorvanReadPoints(list, count == 0 ? nullptr : &points[0].x, count, &count);
  }

 private:
  const QuorvanItem* item(const char* name) { return quorvanItem(m_element, name); }

  const QuorvanElement* m_element;
};

template <class E>
std::uint64_t readAs(const QuorvanElement* element) {
  E e;
  FlatSource source(element);
  visitItems(e, source);
  return checksum(Element(std::move(e)));
}

struct Kind {
  int classNumber;
  std::uint64_t (*read)(const QuorvanElement* element);
};

int numberOf(std::string_view className) {
  for (int number = 0; number < quorvanClassCount(); ++number) {
    if (quorvanClassName(number) == className) {
      return number;
    }
  }
  throw std::logic_error("a class that the library does not know");
}

template <class... E>
auto kindsOf(std::tuple<E...>*) {
  return std::array{Kind{numberOf(E::kClass), readAs<E>}...};
}

}  // namespace

std::uint64_t readFlat(const std::string& path) {
  QuorvanFile* file = nullptr;
  if (quorvanOpenFileUtf8(path.c_str(), &file) != QUORVAN_DONE) {
    throw std::runtime_error(quorvanLastErrorText());
  }
  const auto kinds = kindsOf(static_cast<Kinds*>(nullptr));
  std::uint64_t sum = 0;
  QuorvanElement* element = nullptr;
  while (quorvanNextElement(file, nullptr, &element) == QUORVAN_DONE) {
    const int number = quorvanElementClassNumber(element);
    for (const Kind& kind : kinds) {
      if (kind.classNumber == number) {
        sum += kind.read(element);
      }
    }
  }
  quorvanCloseFile(file);
  return sum;
}

}  // namespace bench
