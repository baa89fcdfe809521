// What is possible without a tree, for this form of file and nothing else.
#include <quorvan/text/numbers.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include <bench/number_text.h>
#include <bench/peers.h>

namespace bench {

namespace {

class LimitSink {
 public:
  explicit LimitSink(std::size_t capacity)
      : m_buffer(std::make_unique_for_overwrite<char[]>(capacity)) {
    m_at = m_buffer.get();
  }

  void raw(std::string_view text) {
    std::memcpy(m_at, text.data(), text.size());
    m_at += text.size();
  }
  void open(const char* name, std::string_view kind) {
    raw("<");
    raw(name);
    raw(kind);
  }
  void number(const char* name, double value) {
    open(name, " double=\"");
    m_at = quorvan::formatFixed7(m_at, value);
    raw("\"/>");
  }
  void integer(const char* name, long value) {
    open(name, " long=\"");
    m_at = quorvan::formatLong(m_at, static_cast<std::int32_t>(value));
    raw("\"/>");
  }
  void flag(const char* name, bool value) {
    open(name, " string=\"");
    raw(value ? "True\"/>" : "False\"/>");
  }
  void text(const char* name, const std::wstring& value) {
    open(name, " string=\"");
    for (const wchar_t unit : value) {
      if (unit < 0x100) {
        *m_at++ = static_cast<char>(unit);
      } else {
        raw("&#");
        m_at = quorvan::formatLong(m_at, static_cast<std::int32_t>(unit));
        raw(";");
      }
    }
    raw("\"/>");
  }
  void point(const char* name, const Point& point) {
    open(name, " X=\"");
    m_at = quorvan::formatFixed7(m_at, point.x);
    raw("\" Y=\"");
    m_at = quorvan::formatFixed7(m_at, point.y);
    raw("\" Z=\"");
    m_at = quorvan::formatFixed7(m_at, point.z);
    raw("\"/>");
  }
  void points(const char* name, const std::vector<Point>& points) {
    open(name, " size=\"");
    m_at = quorvan::formatLong(m_at, static_cast<std::int32_t>(points.size()));
    raw("\">");
    for (std::size_t i = 0; i < points.size(); ++i) {
      point(PointName(i + 1).c_str(), points[i]);
    }
    raw("</");
    raw(name);
    raw(">");
  }
  template <class E>
  void element(const E& e, long index) {
    raw("<");
    raw(E::kClass);
    raw(" version=\"1\" index=\"");
    m_at = quorvan::formatLong(m_at, static_cast<std::int32_t>(index));
    raw("\">");
    visitItems(e, *this);
    raw("</");
    raw(E::kClass);
    raw(">");
  }
  void save(const std::string& path) const {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
      throw std::runtime_error("cannot write " + path);
    }
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::fwrite(m_buffer.get(), 1, static_cast<std::size_t>(m_at - m_buffer.get()), file);
    std::fclose(file);
  }

 private:
  std::unique_ptr<char[]> m_buffer;
  char* m_at;
};

// Takes the values between quotes one after the other; what stands before them is not looked at.
class LimitSource {
 public:
  explicit LimitSource(const char* at) : m_at(at) {}

  const char* skipTo(char c) {
    m_at = static_cast<const char*>(std::memchr(m_at, c, 1U << 20U)) + 1;
    return m_at;
  }
  std::string_view value() {
    const char* begin = skipTo('"');
    const char* end = skipTo('"') - 1;
    return {begin, static_cast<std::size_t>(end - begin)};
  }
  void number(const char*, double& out) { out = quorvan::parseDouble(value()); }
  void integer(const char*, long& out) { out = quorvan::parseLong(value()); }
  void flag(const char*, bool& out) { out = value() == "True"; }
  void text(const char*, std::wstring& out) {
    const std::string_view text = value();
    out.clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '&') {
        const std::size_t end = text.find(';', i);
        out.push_back(static_cast<wchar_t>(quorvan::parseLong(text.substr(i + 2, end - i - 2))));
        i = end;
      } else {
        out.push_back(static_cast<wchar_t>(static_cast<unsigned char>(text[i])));
      }
    }
  }
  void point(const char*, Point& out) {
    number("", out.x);
    number("", out.y);
    number("", out.z);
  }
  void points(const char*, std::vector<Point>& out) {
    out.resize(static_cast<std::size_t>(quorvan::parseLong(value())));
    for (Point& p : out) {
      point("", p);
    }
  }
  // The name of the next class element; empty at the end of the root.
  std::string_view nextElement() {
    for (;;) {
      const char* name = skipTo('<');
      if (name[0] == '/' && name[1] == 'D') {
        return {};
      }
      if (name[0] == 'C' && name[1] == 'K') {
        const char* end = skipTo(' ') - 1;
        value();
        value();
        return {name, static_cast<std::size_t>(end - name)};
      }
    }
  }

 private:
  const char* m_at;
};

template <class E>
bool readIf(LimitSource& source, std::string_view name, std::uint64_t& sum) {
  if (name != E::kClass) {
    return false;
  }
  E e;
  visitItems(e, source);
  sum += checksum(Element(std::move(e)));
  return true;
}

}  // namespace

void writeLimit(const Drawing& drawing, const std::string& path) {
  LimitSink sink(drawing.elements.size() * 1024 + 4096);
  std::array<std::int16_t, std::variant_size_v<Element>> indexes{};
  sink.raw("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document>");
  for (const Element& element : drawing.elements) {
    auto& index = indexes[element.index()];
    index = static_cast<std::int16_t>(index + 1);
    std::visit([&](const auto& e) { sink.element(e, index); }, element);
  }
  sink.element(drawing.control, 1);
  sink.raw("</Document>\r\n");
  sink.save(path);
}

std::uint64_t readLimit(const std::string& path) {
  const std::size_t size = std::filesystem::file_size(path);
  const auto buffer = std::make_unique_for_overwrite<char[]>(size + 1);
  buffer[size] = '\0';
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr || std::fread(buffer.get(), 1, size, file) != size) {
    throw std::runtime_error("cannot read " + path);
  }
  std::fclose(file);
  LimitSource source(buffer.get());
  std::uint64_t sum = 0;
  for (std::string_view name = source.nextElement(); !name.empty(); name = source.nextElement()) {
    [&]<class... E>(std::tuple<E...>*) {
      static_cast<void>((readIf<E>(source, name, sum) || ...));
    }(static_cast<Kinds*>(nullptr));
  }
  return sum;
}

}  // namespace bench
