#include <quorvan/xml/embedded/reading/entity_graph.h>

#include <algorithm>
#include <utility>

#include <quorvan/xml/embedded/reading/character_reference.h>
#include <quorvan/xml/embedded/reading/limits.h>

namespace quorvan::embedded {

std::uint32_t EntityGraph::numberOf(char mark, std::string_view name) {
  std::string key(1, mark);
  key += name;
  const auto [found, isNew] =
      m_numbers.emplace(std::move(key), static_cast<std::uint32_t>(m_entities.size()));
  if (isNew) {
    m_entities.emplace_back();
  }
  return found->second;
}

bool EntityGraph::declare(char mark, std::string_view name, std::string_view text) {
  const std::uint32_t entity = numberOf(mark, name);
  if (m_entities[entity].nesting != 0) {
    return true;  // the first declaration holds
  }
  unsigned nesting = 1;
  const char ends[] = {mark, ';'};
  for (std::size_t at = text.find(mark); at != std::string_view::npos;) {
    const std::size_t begin = at + 1;
    const std::size_t end = text.find_first_of({ends, sizeof ends}, begin);
    if (end == std::string_view::npos) {
      break;
    }
    const std::string_view reference = text.substr(begin, end - begin);
    if (text[end] == ';' && !referredCharacter(reference)) {
      const std::uint32_t used = numberOf(mark, reference);
      std::vector<std::uint32_t>& users = m_entities[used].users;
      if (users.empty() || users.back() != entity) {
        users.push_back(entity);
      }
      nesting = std::max(nesting, m_entities[used].nesting + 1);
    }
    at = text[end] == mark ? end : text.find(mark, end);
  }
  return raiseNesting(entity, nesting);
}

// Each entity gets deeper at most as often as the limit says, which bounds all calls together.
bool EntityGraph::raiseNesting(std::uint32_t first, unsigned nesting) {
  std::vector<std::pair<std::uint32_t, unsigned>> raised = {{first, nesting}};
  while (!raised.empty()) {
    const auto [number, depth] = raised.back();
    raised.pop_back();
    Entity& entity = m_entities[number];
    if (depth > kMaxEntityNesting) {
      return false;
    }
    if (depth <= entity.nesting) {
      continue;
    }
    entity.nesting = depth;
    for (const std::uint32_t user : entity.users) {
      if (m_entities[user].nesting != 0) {
        raised.emplace_back(user, depth + 1);
      }
    }
  }
  return true;
}

void EntityGraph::finish() {
  std::vector<std::uint32_t> broken;
  for (std::uint32_t number = 0; number < m_entities.size(); ++number) {
    if (m_entities[number].nesting == 0) {
      m_entities[number].isWhole = false;
      broken.push_back(number);
    }
  }
  while (!broken.empty()) {
    const std::uint32_t number = broken.back();
    broken.pop_back();
    for (const std::uint32_t user : m_entities[number].users) {
      if (m_entities[user].isWhole) {
        m_entities[user].isWhole = false;
        broken.push_back(user);
      }
    }
  }
}

bool EntityGraph::isWhole(std::string_view name) const {
  std::string key("&");
  key += name;
  const auto found = m_numbers.find(key);
  return found != m_numbers.end() && m_entities[found->second].isWhole;
}

}  // namespace quorvan::embedded
