// SearchIndex: finds the class elements that a pattern search has to look at, without walking over
// the others. Not installed.
//
// The index stands beside one document. For each class name that was searched it keeps the class
// elements in document order, and for each form of pattern (the names of its items and of their
// attributes, in order) a table from the values to the first element that carries them. An element
// that is appended to the document has to be taken in; any other change below the root ends the
// index.
//
// A search ends at the first element that matches, or that raises because it lacks an attribute
// which the comparison reaches. Both are kept in the table: the first under all of its values, the
// second under the values in front of the missing attribute. The index may name an element too
// many (two values of one hash), never one too few; the caller compares each in full.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan {

class SearchIndex {
 public:
  class Search;

  /// `findsChildren`: whether the backend finds a child by its name without looking at the others.
  SearchIndex(std::uint64_t revision, bool findsChildren)
      : m_revision(revision), m_findsChildren(findsChildren) {}

  /// The revision of the document that the index was made for.
  [[nodiscard]] std::uint64_t revision() const noexcept { return m_revision; }

  /// Starts a search among the children of `root` named `className` for the values of the
  /// children of `patternClass`. The index must outlive the search and not be searched meanwhile.
  /// After an error it has revision 0 and must be replaced.
  Search search(const IXMLDOMNodePtr& root, const dom::Name& className,
                const IXMLDOMNodePtr& patternClass);

  /// Takes in an element that has become the last child of the root. Raises std::bad_alloc; the
  /// index then lacks it.
  void take(const dom::Name& name, const IXMLDOMNodePtr& classElement);

 private:
  // A name with its hash, which is wanted for every element.
  class KnownName {
   public:
    explicit KnownName(const dom::Name& name) : m_text(name.text()), m_hash(name.hash()) {}
    [[nodiscard]] dom::Name name() const noexcept { return {m_text, m_hash}; }

   private:
    std::string m_text;
    std::uint32_t m_hash;
  };

  struct Item {
    KnownName name;
    std::vector<KnownName> attributes;
  };

  // What of a pattern can take part in a match: its items up to the first that never matches.
  struct Pattern {
    std::string form;               // the names of the items and their attributes
    std::string values;             // of all attributes of all items, in order
    std::vector<std::size_t> ends;  // of each value in `values`
    bool canMatch = true;
  };

  // The elements that share a key, linked in document order.
  struct Chain {
    std::size_t first;
    std::size_t last;
  };

  // For the patterns of one form.
  struct Table {
    std::string form;
    std::vector<Item> items;
    bool canMatch;
    std::unordered_map<std::uint64_t, Chain> chains;  // by key
    std::vector<std::size_t> nextInChain;             // by element; kNone at the end
    std::vector<std::size_t> gaps;                    // positions of missing attributes, ascending
  };

  struct ClassEntry {
    std::vector<IXMLDOMNodePtr> elements;  // in document order
    bool isListed = false;                 // all of them
    std::vector<Table> tables;             // a form of pattern each
  };

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  void readPattern(const IXMLDOMNodePtr& patternClass);
  bool appendItem(const IXMLDOMNodePtr& item);
  ClassEntry& entryFor(const dom::Name& className);
  static void listElements(ClassEntry& entry, const IXMLDOMNodePtr& root,
                           const dom::Name& className);
  Table& tableFor(ClassEntry& entry, const IXMLDOMNodePtr& patternClass);
  void indexElement(Table& table, const IXMLDOMNodePtr& element);
  static void link(Table& table, std::uint64_t key, std::size_t element);

  std::uint64_t m_revision;
  bool m_findsChildren;
  std::map<std::string, ClassEntry, std::less<>> m_classes;
  // Of one search or element; kept from one to the next for the memory that they hold.
  Pattern m_pattern;
  std::string m_values;
};

/// One search: the elements to compare, in document order. The last element of the class name is
/// always among them, so that the search ends where a walk over all of them would.
class SearchIndex::Search {
 public:
  /// Goes on to the next element to compare; false when there is none left.
  bool next();

  /// How many class elements of the name there are.
  [[nodiscard]] int size() const noexcept { return static_cast<int>(m_entry->elements.size()); }

  /// The element arrived at, and its place (from 1) among those of the class name.
  [[nodiscard]] const IXMLDOMNodePtr& element() const { return m_entry->elements[m_passed - 1]; }
  [[nodiscard]] int ordinal() const noexcept { return static_cast<int>(m_passed); }

 private:
  friend class SearchIndex;

  Search(const ClassEntry& entry, const Table& table, const Pattern& pattern);
  void addCandidates(std::uint64_t key);

  const ClassEntry* m_entry;
  const Table* m_table;
  std::vector<std::size_t> m_heads;  // next candidate of each chain that the pattern meets
  std::size_t m_passed = 0;
};

}  // namespace quorvan
