#include <tests/filer/model/random_script.h>

#include <tests/filer/model/performance.h>
#include <tests/filer/model/random_document.h>
#include <tests/filer/model/random_source.h>
#include <tests/support/known_differences.h>

namespace quorvan::test::model {

namespace {

constexpr Action kScopes[] = {Action::kBeginClass, Action::kBeginClass,  Action::kReadClass,
                              Action::kReadClass,  Action::kReadClass,   Action::kEndClass,
                              Action::kEndClass,   Action::kBeginVector, Action::kReadVector,
                              Action::kEndVector};
constexpr Action kWrites[] = {
    Action::kWriteDouble,    Action::kWriteLong,   Action::kWriteText,      Action::kWritePoint,
    Action::kWriteDirection, Action::kWritePoints, Action::kWriteDirections};
constexpr Action kReads[] = {Action::kReadDouble,    Action::kReadLong,      Action::kReadText,
                             Action::kReadPoint,     Action::kReadDirection, Action::kReadPoints,
                             Action::kReadDirections};
constexpr Action kOwners[] = {Action::kClose, Action::kRenew, Action::kAssign, Action::kCopy};
constexpr Action kPatterns[] = {Action::kClassName, Action::kFirstItem, Action::kNextItem};
constexpr Action kCallers[] = {Action::kHandOut, Action::kTurn, Action::kTurn};

constexpr double kNumbers[] = {0, 1, 1.5, -2.25, 1.00000004, 1e20, 0.1};
constexpr std::int32_t kIntegers[] = {0, 1, 2, 3, -1, 40000, 70000, 2147483647};

class Composer {
 public:
  explicit Composer(std::uint32_t seed) : m_random(seed) {}

  Script calls() {
    putDocuments();
    for (int left = 30 + m_random.below(90); left > 0; --left) {
      addAnyCall();
    }
    addEnd();
    return std::move(m_script);
  }

  Script searches() {
    putDocuments();
    add({Action::kOpen, 0, 0, kScriptFiles[0]});
    add({Action::kOpen, 1, 0, kScriptFiles[m_random.below(2)]});
    if (m_random.oneIn(2)) {
      add({Action::kAssign, 1, 0});
    }
    m_isHandedOut = m_random.oneIn(3);
    for (int left = 10 + m_random.below(40); left > 0; --left) {
      addSearchOrChange();
    }
    addEnd();
    return std::move(m_script);
  }

 private:
  void add(Call call) { m_script.push_back(std::move(call)); }

  int anyFiler() { return m_random.below(kFilers); }
  int anyPattern() { return kFirstPattern + m_random.below(kFilers - kFirstPattern); }

  void putDocuments() {
    for (int file = 0; file < 3; ++file) {
      if (m_random.oneIn(4)) {
        continue;
      }
      m_searched = randomDocument(m_random, file == 2 ? 3 : 14);
      add({Action::kPutFile, 0, 0, kScriptFiles[file], "", 0, 0, m_searched});
    }
    if (m_searched == nullptr) {
      m_searched = randomDocument(m_random, 14);
    }
  }

  std::string anyFile() {
    if (m_random.oneIn(20)) {
      return "";
    }
    return kScriptFiles[m_random.oneIn(20) ? 3 : m_random.below(3)];
  }

  std::string anyName(bool isItem) {
    static const std::string kRare[] = {"", "1x", "a b", "#comment", "#text", "\xC3\x89"};
    // Beyond ASCII, names make Wine's document service save files that it reads differently.
    const int rare = usesWinesDocuments() ? 5 : 6;
    if (m_random.oneIn(25)) {
      return kRare[m_random.below(rare)];
    }
    return isItem != m_random.oneIn(20) ? randomItemName(m_random) : randomClassName(m_random);
  }

  std::string anyText() {
    static const std::string kTexts[] = {"", "a", "b", "<&>\"", "a\tb"};
    return m_random.pick(kTexts);
  }

  void addCall(Action action, int filer) {
    const bool isItem = action >= Action::kBeginVector && action != Action::kEndVector;
    add({action, filer, anyFiler(), anyName(isItem), anyText(), m_random.pick(kNumbers),
         m_random.pick(kIntegers)});
  }

  void addSearch() {
    const int pattern = anyPattern();
    if (!m_random.oneIn(5)) {
      const auto sample = randomPattern(m_random, *m_searched->document);
      add({Action::kPutFile, 0, 0, kScriptFiles[2], "", 0, 0, sample});
      add({Action::kOpen, pattern, 0, kScriptFiles[2]});
    }
    for (int times = m_random.oneIn(6) ? 3 : 1; times > 0; --times) {
      add({Action::kSeek, m_random.oneIn(10) ? anyFiler() : m_random.below(2), pattern});
    }
    if (m_random.oneIn(3)) {
      addCall(Action::kNextItem, pattern);
    }
  }

  // The element that is current becomes the last of its document.
  void addMove() {
    const int filer = m_random.below(2);
    addCall(Action::kReadClass, filer);
    add({Action::kBeginVector, filer, 0, "V", "", 0, 1});
    add({Action::kEndClass, filer});
    if (m_random.oneIn(2)) {
      add({Action::kEndVector, filer});
    }
  }

  // A filer that opens another document goes on with the element that it read in the first: items
  // and vectors made in the one document join the other, or the element changes documents.
  void addStray() {
    addSearch();
    add({Action::kAssign, 1, 0});
    add({Action::kOpen, 1, 0, m_random.oneIn(2) ? kScriptFiles[1] : ""});
    if (m_random.oneIn(2)) {
      addCall(m_random.pick(kWrites), 1);
    }
    if (m_random.oneIn(2)) {
      add({Action::kBeginVector, 1, 0, randomItemName(m_random), "", 0, 1});
      add({m_random.oneIn(2) ? Action::kEndVector : Action::kEndClass, 1});
    }
    addSearch();
  }

  void addClass(int filer) {
    add({Action::kBeginClass, filer, 0, randomClassName(m_random), "", 0, 1});
    for (int items = m_random.below(4); items > 0; --items) {
      addCall(m_random.pick(kWrites), filer);
    }
    if (!m_random.oneIn(6)) {
      add({Action::kEndClass, filer});
    }
  }

  void addAnyCall() {
    const int filer = anyFiler();
    const int kind = m_random.below(100);
    if (kind < 6) {
      add({Action::kOpen, filer, 0, anyFile()});
    } else if (kind < 14) {
      addCall(m_random.pick(kOwners), filer);
    } else if (kind < 45) {
      addCall(m_random.pick(kScopes), filer);
    } else if (kind < 65) {
      addCall(m_random.pick(kWrites), filer);
    } else if (kind < 85) {
      addCall(m_random.pick(kReads), filer);
    } else if (kind < 90) {
      addCall(m_random.pick(kPatterns), anyPattern());
    } else if (kind < 93) {
      add({Action::kSeek, filer, anyPattern()});
    } else {
      addClass(filer);
    }
  }

  void addSearchOrChange() {
    const int filer = m_random.below(2);
    if (m_isHandedOut && m_random.oneIn(6)) {
      addCall(m_random.pick(kCallers), m_random.oneIn(4) ? anyFiler() : filer);
    }
    const int kind = m_random.below(100);
    if (kind < 45) {
      addSearch();
    } else if (kind < 60) {
      addClass(filer);
    } else if (kind < 65) {
      addMove();
    } else if (kind < 68) {
      addStray();
    } else if (kind < 77) {
      addCall(m_random.pick(kScopes), filer);
    } else if (kind < 83) {
      addCall(m_random.pick(kWrites), filer);
    } else if (kind < 92) {
      addCall(m_random.pick(kReads), filer);
    } else {
      addAnyCall();
    }
  }

  // Every filer reads and writes an element of each class, which shows its counts. The first two
  // save; the others open nothing, so that they do not, which keeps scripts short.
  void addEnd() {
    for (int filer = 0; filer < kFilers; ++filer) {
      for (const char* name : {"A", "B", "C", "D"}) {
        add({Action::kBeginClass, filer, 0, name, "", 0, 1});
        add({Action::kEndClass, filer});
      }
      for (const char* name : {"A", "B", "A"}) {
        add({Action::kReadClass, filer, 0, name});
        add({Action::kReadLong, filer, 0, "P"});
      }
    }
    for (int filer = 0; filer < kFirstPattern; ++filer) {
      add({Action::kClose, filer});
    }
    for (int filer = 0; filer < kFilers; ++filer) {
      add({Action::kOpen, filer});
    }
  }

  RandomSource m_random;
  Script m_script;
  std::shared_ptr<const Sample> m_searched;
  bool m_isHandedOut = false;  // whether nodes come into a caller's hands
};

}  // namespace

Script randomCalls(std::uint32_t seed) {
  return Composer(seed).calls();
}

Script randomSearches(std::uint32_t seed) {
  return Composer(seed).searches();
}

}  // namespace quorvan::test::model
