#include <fuzz/dxf_check.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include <fuzz/memory_files.h>

namespace quorvan::fuzz {

namespace {

constexpr std::size_t kLongestLine = 2049;

struct Group {
  int code = 0;
  std::string_view value;
};

template <typename Number, typename... Base>
Number numberOf(std::string_view text, Base... base) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number, base...);
  require(read.ec == std::errc() && read.ptr == end, "a group whose value is no number");
  return number;
}

bool isReal(int code) {
  return (code >= 10 && code < 60) || (code >= 140 && code < 150) || (code >= 210 && code < 240);
}

bool isWhole(int code) {
  return (code >= 60 && code < 100) || (code >= 270 && code < 300) || code == 370 || code == 1071;
}

class Structure {
 public:
  void take(const Group& group) {
    require(!m_isOver, "groups behind the end");
    if (isReal(group.code)) {
      require(std::isfinite(numberOf<double>(group.value)), "a number that is not finite");
    } else if (isWhole(group.code)) {
      numberOf<std::int64_t>(group.value);
    }
    if (group.code == 0) {
      begin(group.value);
    } else if (group.code == 2) {
      name(group.value);
    } else if (group.code == 8) {
      m_layersUsed.insert(group.value);
    } else if (group.code == 5 || group.code == 105) {
      takeHandle(group.value);
    } else if (group.code == 9) {
      m_variable = group.value;
    }
  }

  void finish() const {
    require(m_isOver && m_open.empty(), "something is not closed");
    for (const std::string_view layer : m_layersUsed) {
      require(m_layers.contains(layer), "a layer that is not there");
    }
    for (const std::string_view block : m_inserted) {
      require(m_blocks.contains(block), "a block that is not there");
    }
    require(m_handles.empty() || *m_handles.rbegin() < m_seed, "a handle that is not yet given");
  }

 private:
  void begin(std::string_view type) {
    constexpr std::pair<std::string_view, std::string_view> kPairs[] = {
        {"SECTION", "ENDSEC"}, {"TABLE", "ENDTAB"}, {"BLOCK", "ENDBLK"}, {"POLYLINE", "SEQEND"}};
    m_type = type;
    m_isOver = type == "EOF";
    for (const auto& [opens, closes] : kPairs) {
      if (type == opens) {
        m_open.push_back(closes);
      } else if (type == closes) {
        require(!m_open.empty() && m_open.back() == closes, "closed what is not open");
        m_open.pop_back();
      }
    }
    require((type == "VERTEX") <= (!m_open.empty() && m_open.back() == "SEQEND"), "a lone vertex");
  }

  void name(std::string_view value) {
    if (m_type == "LAYER") {
      require(m_layers.insert(value).second, "a layer twice");
    } else if (m_type == "BLOCK") {
      require(m_blocks.insert(value).second, "a block twice");
    } else if (m_type == "INSERT") {
      m_inserted.insert(value);
    }
  }

  void takeHandle(std::string_view value) {
    constexpr int kHexadecimal = 16;
    const auto handle = numberOf<std::uint64_t>(value, kHexadecimal);
    if (std::exchange(m_variable, {}) == "$HANDSEED") {
      m_seed = handle;
    } else {
      require(m_handles.insert(handle).second, "a handle twice");
    }
  }

  std::vector<std::string_view> m_open;
  std::set<std::string_view> m_layers;
  std::set<std::string_view> m_layersUsed;
  std::set<std::string_view> m_blocks;
  std::set<std::string_view> m_inserted;
  std::set<std::uint64_t> m_handles;
  std::uint64_t m_seed = 0;
  std::string_view m_type;
  std::string_view m_variable;
  bool m_isOver = false;
};

std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = rest.find("\r\n");
  require(end != std::string_view::npos, "a line without an end");
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end + 2);
  require(line.size() <= kLongestLine && line.find_first_of("\r\n") == std::string_view::npos,
          "a line that is none");
  return line;
}

}  // namespace

void checkDxf(const std::string& bytes) {
  Structure structure;
  for (std::string_view rest = bytes; !rest.empty();) {
    std::string_view code = takeLine(rest);
    code.remove_prefix(std::min(code.find_first_not_of(' '), code.size()));
    structure.take({numberOf<int>(code), takeLine(rest)});
  }
  structure.finish();
}

}  // namespace quorvan::fuzz
