#include <quorvan/xml/embedded/tree/name_table.h>

#include <algorithm>
#include <limits>
#include <new>

#include <quorvan/xml/name_rules.h>

namespace quorvan::embedded {

namespace {

constexpr std::size_t kFirstSlots = 256;
constexpr std::size_t kFirstEntries = 48;
constexpr std::size_t kFirstBlock = 1024;
constexpr std::size_t kBlock = std::size_t{16} * 1024;
// Lets a short name be copied in one piece of 16 bytes.
constexpr std::size_t kPadding = 16;
constexpr std::string_view kBefore = " ";
constexpr std::string_view kAfter = "=\"";

constexpr dom::Name kFirstNames[] = {"",          "xml",       "#text",   "#cdata-section",
                                     "#comment",  "#document", "version", "encoding",
                                     "standalone"};

bool isAscii(std::string_view text) noexcept {
  return std::all_of(text.begin(), text.end(),
                     [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

}  // namespace

NameTable::NameTable() : m_slots(kFirstSlots), m_mask(kFirstSlots - 1) {
  m_entries.reserve(kFirstEntries);
  m_entries.push_back({store(""), 0, 0, 0, 0, 0, false, true});
  for (const dom::Name& name : kFirstNames) {
    if (!name.text().empty()) {
      add(name);
    }
  }
}

NameId NameTable::search(const dom::Name& name) noexcept {
  std::size_t slot = name.hash() & m_mask;
  for (std::size_t probe = 0; probe < kMaxProbes; ++probe) {
    Slot& candidate = m_slots[slot];
    if (candidate.id == kNoName) {
      return kNoName;
    }
    if (candidate.hash == name.hash() && m_entries[candidate.id].view() == name.text()) {
      if (name.isLiteral()) {
        candidate.literal = name.text().data();
      }
      return candidate.id;
    }
    slot = (slot + 1) & m_mask;
  }
  const auto found = m_overflow.find(name.text());
  return found != m_overflow.end() ? found->second : kNoName;
}

NameId NameTable::add(const dom::Name& name) {
  if (m_entries.size() >= kMaxNames ||
      name.text().size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::bad_alloc();
  }
  if (m_entries.size() * 2 > m_slots.size()) {
    grow();
  }
  const auto id = static_cast<NameId>(m_entries.size());
  m_entries.push_back({store(name.text()), static_cast<std::uint32_t>(name.text().size()),
                       name.hash(), 0, 0, 0, dom::isXmlName(name.text()), isAscii(name.text())});
  try {
    place(id);
  } catch (...) {
    m_entries.pop_back();
    throw;
  }
  return id;
}

const char* NameTable::store(std::string_view text) {
  const std::size_t needed = kBefore.size() + text.size() + kAfter.size() + kPadding;
  if (needed > m_room) {
    const std::size_t size = std::max(needed, m_blocks.empty() ? kFirstBlock : kBlock);
    m_blocks.push_back(std::make_unique<char[]>(size));
    m_free = m_blocks.back().get();
    m_room = size;
  }
  char* const stored = std::copy(kBefore.begin(), kBefore.end(), m_free);
  char* const end = std::copy(text.begin(), text.end(), stored);
  char* const next = std::copy(kAfter.begin(), kAfter.end(), end);
  m_room -= static_cast<std::size_t>(next - m_free);
  m_free = next;
  return stored;
}

// Puts the name where find() looks for it.
void NameTable::place(NameId id) {
  const NameEntry& entry = m_entries[id];
  std::size_t slot = entry.hash & m_mask;
  for (std::size_t probe = 0; probe < kMaxProbes; ++probe) {
    if (m_slots[slot].id == kNoName) {
      m_slots[slot] = {nullptr, entry.hash, id};
      return;
    }
    slot = (slot + 1) & m_mask;
  }
  m_overflow.emplace(entry.view(), id);
}

void NameTable::grow() {
  std::vector<Slot> larger(m_slots.size() * 2);
  std::map<std::string_view, NameId> overflow;
  larger.swap(m_slots);
  overflow.swap(m_overflow);
  const std::size_t mask = m_mask;
  m_mask = m_slots.size() - 1;
  try {
    for (NameId id = 1; id < m_entries.size(); ++id) {
      place(id);
    }
  } catch (...) {
    larger.swap(m_slots);
    overflow.swap(m_overflow);
    m_mask = mask;
    throw;
  }
}

}  // namespace quorvan::embedded
