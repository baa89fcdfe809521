// Reading a drawing as typed values, in C++17: a view of the flat reading functions. All of it is
// inline, so that it does not matter which compiler built the library.
//
//   quorvan::Reader reader("beam.xml");                        // throws quorvan::ReadError
//   for (const auto& bar : reader.elements<quorvan::drawing::StraightBar>()) { use(bar.diameter); }
//   quorvan::visit(reader, [](const quorvan::drawing::Text& text) { ... },
//                          [](const auto& other) { ... });
//
// The file is never written. A reader belongs to one thread at a time, on Windows to the one that
// opened it.
#pragma once

#include <cstring>
#include <filesystem>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include <quorvan/reading/drawing_elements.h>
#include <quorvan/reading/read.h>

namespace quorvan {

/// Why a drawing could not be opened or read on, and where.
struct ReadFailure {
  QuorvanResult result = QUORVAN_DONE;
  int line = 0;    // from 1; 0 where it is not known
  int column = 0;  // from 1; 0 where it is not known
  std::string text;

  /// The last failure of the calling thread.
  static ReadFailure last() {
    return {static_cast<QuorvanResult>(quorvanLastError()), quorvanLastErrorLine(),
            quorvanLastErrorColumn(), quorvanLastErrorText()};
  }
};

/// The same as an exception.
class ReadError : public std::runtime_error {
 public:
  explicit ReadError(ReadFailure failure)
      : std::runtime_error(failure.text), m_failure(std::move(failure)) {}
  const ReadFailure& failure() const noexcept { return m_failure; }

 private:
  ReadFailure m_failure;
};

namespace drawing {
namespace detail {

/// Reads the items of one element into its members.
class ItemReader {
 public:
  ItemReader(const QuorvanElement* element, ElementBase& base) noexcept
      : m_element(element), m_base(base), m_class(quorvanElementClassNumber(element)) {}

  template <class... Members>
  void operator()(const char* name, Members&... members) {
    const QuorvanItem* const item = quorvanItem(m_element, name);
    const int result = read(item, members...);
    if (result == QUORVAN_OUT_OF_MEMORY) {
      throw std::bad_alloc();
    }
    if (result != QUORVAN_DONE && !(result == QUORVAN_NO_ITEM && mayBeMissing(name))) {
      m_base.problems.push_back({name, static_cast<QuorvanResult>(result)});
    }
  }

 private:
  // By its name: a library that is newer than this header may have items between those known here.
  bool mayBeMissing(const char* name) const noexcept {
    for (int number = 0; number < quorvanClassItemCount(m_class); ++number) {
      if (std::strcmp(quorvanClassItemName(m_class, number), name) == 0) {
        return quorvanClassItemIsOptional(m_class, number) != 0;
      }
    }
    return false;
  }

  static int read(const QuorvanItem* item, double& value) {
    return quorvanReadDouble(item, &value);
  }
  static int read(const QuorvanItem* item, std::int32_t& value) {
    return quorvanReadLong(item, &value);
  }
  static int read(const QuorvanItem* item, std::uint32_t& value) {
    return quorvanReadColor(item, &value);
  }
  static int read(const QuorvanItem* item, bool& value) {
    int flag = value ? 1 : 0;
    const int result = quorvanReadFlag(item, &flag);
    value = flag != 0;
    return result;
  }
  static int read(const QuorvanItem* item, std::string& value) {
    const char* text = nullptr;
    std::size_t length = 0;
    const int result = quorvanReadText(item, &text, &length);
    if (result == QUORVAN_DONE) {
      value.assign(text, length);
    }
    return result;
  }
  template <class Geometry>
  static int readGeometry(const QuorvanItem* item, Geometry& value) {
    double xyz[3] = {value.x, value.y, value.z};
    const int result = quorvanReadPoint(item, xyz);
    value = {xyz[0], xyz[1], xyz[2]};
    return result;
  }
  static int read(const QuorvanItem* item, Point& value) { return readGeometry(item, value); }
  static int read(const QuorvanItem* item, Vector& value) { return readGeometry(item, value); }

  // What gives the number of entries for a null array, and their values otherwise.
  using ReadList = int (*)(const QuorvanItem*, double*, std::size_t, std::size_t*);

  static int readNumbers(const QuorvanItem* item, ReadList readList, std::size_t width,
                         std::vector<double>& numbers) {
    std::size_t count = 0;
    const int counted = readList(item, nullptr, 0, &count);
    if (counted != QUORVAN_DONE && counted != QUORVAN_INCOMPLETE) {
      return counted;
    }
    numbers.resize(width * count);
    return count == 0 ? counted : readList(item, numbers.data(), count, &count);
  }
  template <class Geometry>
  static int readGeometries(const QuorvanItem* item, ReadList readList,
                            std::vector<Geometry>& values) {
    std::vector<double> numbers;
    const int result = readNumbers(item, readList, 3, numbers);
    values.clear();
    values.reserve(numbers.size() / 3);
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3) {
      values.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
    }
    return result;
  }
  static int read(const QuorvanItem* item, std::vector<double>& values) {
    return readNumbers(item, quorvanReadDoubles, 1, values);
  }
  static int read(const QuorvanItem* item, std::vector<Point>& values) {
    return readGeometries(item, quorvanReadPoints, values);
  }
  static int read(const QuorvanItem* item, std::vector<Point>& points,
                  std::vector<Vector>& bulges) {
    const int result = readGeometries(item, quorvanReadPoints, points);
    const int ofBulges = readGeometries(item, quorvanReadBulges, bulges);
    return result != QUORVAN_DONE ? result : ofBulges;
  }

  const QuorvanElement* m_element;
  ElementBase& m_base;
  int m_class;
};

template <class Class>
void readInto(const QuorvanElement* element, Class& value) {
  value.version = quorvanElementVersion(element);
  value.index = quorvanElementIndex(element);
  value.place = quorvanElementPlace(element);
  if constexpr (std::is_same_v<Class, Other>) {
    value.className = quorvanElementClass(element);
  } else {
    eachItem(value, ItemReader(element, value));
  }
}

template <std::size_t Number>
Element readAs(const QuorvanElement* element) {
  std::variant_alternative_t<Number, Element> value;
  readInto(element, value);
  return Element(std::move(value));
}

template <std::size_t... Numbers>
Element readAny(const QuorvanElement* element, std::index_sequence<Numbers...> /*classes*/) {
  using Read = Element (*)(const QuorvanElement*);
  static constexpr Read kReads[] = {readAs<Numbers>...};
  constexpr std::size_t kOther = sizeof...(Numbers) - 1;
  const int number = quorvanElementClassNumber(element);
  const bool isKnown = number >= 0 && static_cast<std::size_t>(number) < kOther;
  return kReads[isKnown ? static_cast<std::size_t>(number) : kOther](element);
}

}  // namespace detail
}  // namespace drawing

/// A drawing open for reading.
class Reader {
 public:
  /// Opens the file. Throws ReadError.
  explicit Reader(const std::filesystem::path& path) : m_throws(true) {
    QuorvanFile* file = nullptr;
    quorvanOpenFile(path.wstring().c_str(), &file);
    m_file.reset(file);
    if (file == nullptr) {
      throw ReadError(ReadFailure::last());
    }
  }

  /// Opens the bytes of a file, which are not needed afterwards. Throws ReadError.
  static Reader ofBytes(std::string_view bytes) {
    QuorvanFile* file = nullptr;
    quorvanOpenMemory(bytes.data(), bytes.size(), &file);
    if (file == nullptr) {
      throw ReadError(ReadFailure::last());
    }
    return Reader(file, true);
  }

  /// The same with errors as values: nothing, and the failure, where it cannot be opened. Walking
  /// such a reader's elements ends early where it cannot go on, and failure() then says why.
  static std::optional<Reader> open(const std::filesystem::path& path, ReadFailure& failure) {
    QuorvanFile* file = nullptr;
    quorvanOpenFile(path.wstring().c_str(), &file);
    return checked(file, failure);
  }
  static std::optional<Reader> openBytes(std::string_view bytes, ReadFailure& failure) {
    QuorvanFile* file = nullptr;
    quorvanOpenMemory(bytes.data(), bytes.size(), &file);
    return checked(file, failure);
  }

  /// Why the last walk ended early; the result is QUORVAN_DONE when it did not.
  const ReadFailure& failure() const noexcept { return m_failure; }

  template <class Value>
  class Range;

  /// All elements, in the order of the file, as drawing::Element.
  Range<drawing::Element> elements();

  /// Those of one class, as values of it: elements<drawing::StraightBar>().
  template <class Class>
  Range<Class> elements();

  /// The file for the flat functions; it stays the reader's.
  QuorvanFile* file() const noexcept { return m_file.get(); }

 private:
  struct Close {
    void operator()(QuorvanFile* file) const noexcept { quorvanCloseFile(file); }
  };

  Reader(QuorvanFile* file, bool throws) : m_file(file), m_throws(throws) {}

  static std::optional<Reader> checked(QuorvanFile* file, ReadFailure& failure) {
    failure = file == nullptr ? ReadFailure::last() : ReadFailure();
    return file == nullptr ? std::nullopt : std::optional<Reader>(Reader(file, false));
  }

  std::unique_ptr<QuorvanFile, Close> m_file;
  bool m_throws;
  ReadFailure m_failure;
};

/// Elements one after the other; may be walked once. The reader has to outlive it and stay in
/// place.
template <class Value>
class Reader::Range {
 public:
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Value;
    using difference_type = std::ptrdiff_t;
    using pointer = const Value*;
    using reference = const Value&;

    Iterator() noexcept = default;
    explicit Iterator(Range* range) noexcept : m_range(range) {}

    reference operator*() const noexcept { return m_range->m_value; }
    pointer operator->() const noexcept { return &m_range->m_value; }
    Iterator& operator++() {
      m_range = m_range->goOn() ? m_range : nullptr;
      return *this;
    }
    void operator++(int) { ++*this; }

    friend bool operator==(const Iterator& a, const Iterator& b) noexcept {
      return a.m_range == b.m_range;
    }
    friend bool operator!=(const Iterator& a, const Iterator& b) noexcept { return !(a == b); }

   private:
    Range* m_range = nullptr;
  };

  explicit Range(Reader& reader) noexcept : m_reader(reader) {}
  Range(const Range&) = delete;
  Range& operator=(const Range&) = delete;
  ~Range() { quorvanCloseElement(m_element); }

  Iterator begin() { return goOn() ? Iterator(this) : end(); }
  Iterator end() noexcept { return Iterator(); }

 private:
  static const char* className() noexcept {
    if constexpr (std::is_same_v<Value, drawing::Element>) {
      return nullptr;
    } else {
      return Value::kClassName;
    }
  }

  bool goOn() {
    const int result = quorvanNextElement(m_reader.file(), className(), &m_element);
    if (result == QUORVAN_NO_MORE) {
      return false;
    }
    if (result != QUORVAN_DONE) {
      m_reader.m_failure = ReadFailure::last();
      if (m_reader.m_throws) {
        throw ReadError(m_reader.m_failure);
      }
      return false;
    }
    if constexpr (std::is_same_v<Value, drawing::Element>) {
      m_value = drawing::detail::readAny(
          m_element, std::make_index_sequence<std::variant_size_v<drawing::Element>>());
    } else {
      m_value = Value();
      drawing::detail::readInto(m_element, m_value);
    }
    return true;
  }

  Reader& m_reader;
  QuorvanElement* m_element = nullptr;
  Value m_value;
};

inline Reader::Range<drawing::Element> Reader::elements() {
  m_failure = {};
  return Range<drawing::Element>(*this);
}

template <class Class>
Reader::Range<Class> Reader::elements() {
  m_failure = {};
  return Range<Class>(*this);
}

/// Calls for every element, in the order of the file, the function that takes its class best.
template <class... Functions>
void visit(Reader& reader, Functions&&... functions) {
  struct Overloaded : std::decay_t<Functions>... {
    using std::decay_t<Functions>::operator()...;
  };
  Overloaded overloaded{std::forward<Functions>(functions)...};
  for (const drawing::Element& element : reader.elements()) {
    std::visit(overloaded, element);
  }
}

}  // namespace quorvan
