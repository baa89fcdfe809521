// The indexes that class elements get. A search loads the class counts again on top of those there
// are; what the searches for hidden bars leave behind shows in the indexes of later elements.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <tests/export/host_filing.h>
#include <tests/support/saved_elements.h>

namespace quorvan::test {
namespace {

class ClassIndexes : public HostFiling {
 protected:
  ClassIndexes() { start(); }

  static void line() { exportLine(0, 0, 0, 1, 0, 0, 1); }
  static void pin(long reference, bool hidden) {
    exportPin(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, L"S", L"A", reference, 12, hidden);
  }
  static void stirrup(long reference, bool hidden) {
    exportStirrup(1, 2, 3, 4, 5, 6, 7, 8, L"S", L"A", reference, 12, hidden);
  }

  static std::string saved() {
    saveAlone();
    return indexes();
  }
};

// Two lines are counted, and counted again by the search that finds no pin; the pin is written with
// those counts still standing.
TEST_F(ClassIndexes, AfterASearchForAClassThatIsNotThereCountTheOthersTwice) {
  line();
  line();
  pin(1, true);
  line();
  EXPECT_EQ(saved(), "CKtZantoLine 1, CKtZantoLine 2, CKtZantoPin 1, CKtZantoLine 5");
}

// A search that reads an element of its class makes the next element count afresh.
TEST_F(ClassIndexes, AfterASearchForAClassThatIsThereAreCountedAfresh) {
  line();
  line();
  pin(1, true);
  line();        // 5
  pin(2, true);  // the search reads pin 1
  line();
  EXPECT_EQ(saved(),
            "CKtZantoLine 1, CKtZantoLine 2, CKtZantoPin 1, CKtZantoLine 5, CKtZantoPin 2, "
            "CKtZantoLine 4");
}

TEST_F(ClassIndexes, AfterAnEqualBarWasFoundAreCountedAfresh) {
  line();
  pin(1, true);
  line();        // 3
  pin(1, true);  // found
  line();
  EXPECT_EQ(saved(), "CKtZantoLine 1, CKtZantoPin 1, CKtZantoLine 3, CKtZantoLine 3");
}

// Each search adds the elements there are: 1, 2, then 2 + 2 ...
TEST_F(ClassIndexes, SearchesForSeveralClassesThatAreNotThereAddUp) {
  line();
  pin(1, true);      // lines 2
  stirrup(1, true);  // lines 3, pins 2
  line();
  pin(1, false);
  EXPECT_EQ(saved(),
            "CKtZantoLine 1, CKtZantoPin 1, CKtZantoStirrup 1, CKtZantoLine 4, CKtZantoPin 3");
}

TEST_F(ClassIndexes, OfTheControlRecordAreCountedLikeAnyOther) {
  exportDrawingControl(L"", 0, 0, L"");
  pin(1, true);
  end();
  EXPECT_EQ(indexes(), "CKtDrawingControl 1, CKtZantoPin 1, CKtDrawingControl 3");
}

TEST_F(ClassIndexes, InADrawingThatIsContinuedAreDoubledAtOnce) {
  line();
  line();
  saveAlone();
  start();
  pin(1, true);
  line();
  EXPECT_EQ(saved(), "CKtZantoLine 1, CKtZantoLine 2, CKtZantoPin 1, CKtZantoLine 5");
}

// --- any sequence --------------------------------------------------------------------------------

/// The counting as it is stated, on a plain list of elements.
class CountModel {
 public:
  void write(const std::string& name, long key) {
    if (!m_loaded) {
      m_counts.clear();
      load();
    }
    m_elements.push_back({name, key, ++m_counts[name]});
  }

  void writeUnlessFound(const std::string& name, long key) {
    if (!find(name, key)) {
      write(name, key);
    }
  }

  [[nodiscard]] std::string indexes() const {
    std::string all;
    for (const Element& element : m_elements) {
      all += (all.empty() ? "" : ", ") + element.name + ' ' + std::to_string(element.index);
    }
    return all;
  }

 private:
  struct Element {
    std::string name;
    long key;
    int index;
  };

  void load() {
    for (const Element& element : m_elements) {
      ++m_counts[element.name];
    }
    m_loaded = true;
  }

  bool find(const std::string& name, long key) {
    load();
    for (std::size_t place = 0;; ++place) {
      const auto count = m_counts.find(name);
      if (count == m_counts.end() || count->second == 0) {
        return false;
      }
      --count->second;
      m_loaded = false;
      while (place < m_elements.size() && m_elements[place].name != name) {
        ++place;
      }
      if (place == m_elements.size()) {
        return false;
      }
      if (m_elements[place].key == key) {
        return true;
      }
    }
  }

  std::vector<Element> m_elements;
  std::map<std::string, int> m_counts;
  bool m_loaded = false;
};

TEST_F(ClassIndexes, AreThoseOfTheCountingWhateverIsExported) {
  std::mt19937 random(7);
  for (int drawing = 0; drawing < 40; ++drawing) {
    std::filesystem::remove(kDrawing);
    start();
    CountModel model;
    for (int i = 0; i < 60; ++i) {
      const long key = static_cast<long>(random() % 6);
      const bool hidden = random() % 3 != 0;
      // A visible bar differs from a hidden one by its flag.
      const long modelKey = hidden ? key : -1 - key;
      switch (random() % 4) {
        case 0:
          line();
          model.write("CKtZantoLine", 0);
          break;
        case 1:
          pin(key, hidden);
          hidden ? model.writeUnlessFound("CKtZantoPin", modelKey)
                 : model.write("CKtZantoPin", modelKey);
          break;
        case 2:
          stirrup(key, hidden);
          hidden ? model.writeUnlessFound("CKtZantoStirrup", modelKey)
                 : model.write("CKtZantoStirrup", modelKey);
          break;
        default:
          exportDrawingControl(L"", 0, 0, L"");
          model.write("CKtDrawingControl", 0);
      }
    }
    ASSERT_EQ(saved(), model.indexes()) << "drawing " << drawing;
  }
}

}  // namespace
}  // namespace quorvan::test
