// What callers compile against: the types of the filer's operations, who may call them, and that a
// derived filer replaces none of them but the destructor.

#include <tests/filer/filer_test.h>

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include <quorvan/filer/pattern_filer.h>

namespace quorvan::test {
namespace {

using Points = std::vector<CKtPnt3D>;
using Vectors = std::vector<CKtVect3D>;

// Names and values go in by value, what is read comes out through pointers, results are ints.
template <class... Arguments>
using Operation = int (CKtFiler::*)(Arguments...);

static_assert(std::is_same_v<decltype(&CKtFiler::newFiler), Operation<CString>>);
static_assert(std::is_same_v<decltype(&CKtFiler::closeFiler), Operation<>>);
static_assert(std::is_same_v<decltype(&CKtFiler::endClass), Operation<>>);
static_assert(std::is_same_v<decltype(&CKtFiler::getLastUsedIndex), Operation<>>);
static_assert(std::is_same_v<decltype(&CKtFiler::endVector), Operation<>>);
static_assert(std::is_same_v<decltype(&CKtFiler::seek), Operation<CKtPatternFiler*>>);
static_assert(requires {
  static_cast<Operation<CString, int>>(&CKtFiler::beginClass);
  static_cast<Operation<CString>>(&CKtFiler::beginClass);
  static_cast<Operation<CString, long>>(&CKtFiler::beginVector);
  static_cast<Operation<CString, long*>>(&CKtFiler::beginVector);
});
static_assert(requires {
  static_cast<Operation<CString, double>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, long>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, CString>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, CKtPnt3D>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, CKtVect3D>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, Points, long>>(&CKtFiler::writeItem);
  static_cast<Operation<CString, Vectors, long>>(&CKtFiler::writeItem);
});
static_assert(requires {
  static_cast<Operation<CString, double*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, long*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, CString*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, CKtPnt3D*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, CKtVect3D*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, Points*, long*>>(&CKtFiler::readItem);
  static_cast<Operation<CString, Vectors*, long*>>(&CKtFiler::readItem);
});

template <class... Arguments>
using PatternOperation = int (CKtPatternFiler::*)(Arguments...);

static_assert(std::is_same_v<decltype(&CKtPatternFiler::getClassName), PatternOperation<CString&>>);
static_assert(std::is_same_v<decltype(&CKtPatternFiler::getFirstChildNode),
                             PatternOperation<IXMLDOMNodePtr*>>);
static_assert(std::is_same_v<decltype(&CKtPatternFiler::getNextChildNode),
                             PatternOperation<IXMLDOMNodePtr*>>);

static_assert(std::is_copy_constructible_v<CKtFiler> && std::is_copy_assignable_v<CKtFiler>);
static_assert(std::is_copy_constructible_v<CKtPatternFiler> &&
              std::is_copy_assignable_v<CKtPatternFiler>);
static_assert(std::is_convertible_v<CKtPatternFiler*, CKtFiler*>, "derives publicly");

// What only derived filers reach.
template <class Filer>
concept ShowsItsRoot = requires(Filer& filer) { filer.GetDocumentRealNode(); };
template <class Filer>
concept ComparesItems = requires(Filer& filer, IXMLDOMNodePtr item) { filer.findChildMatch(item); };

class Derived : public CKtFiler {
 public:
  using CKtFiler::findChildMatch;
  using CKtFiler::GetDocumentRealNode;
};

static_assert(ShowsItsRoot<Derived> && !ShowsItsRoot<CKtFiler>);
static_assert(ComparesItems<Derived> && !ComparesItems<CKtFiler>);
static_assert(
    std::is_same_v<decltype(&Derived::GetDocumentRealNode), IXMLDOMNodePtr (CKtFiler::*)()>);
static_assert(std::is_same_v<decltype(&Derived::findChildMatch), Operation<IXMLDOMNodePtr>>);

constexpr int kOwn = 4711;

// Has operations of the same names and types as the filer's.
class Namesake : public CKtPatternFiler {
 public:
  explicit Namesake(bool& isDestroyed) : m_isDestroyed(isDestroyed) {}
  Namesake(const Namesake&) = delete;
  Namesake& operator=(const Namesake&) = delete;
  ~Namesake() override { m_isDestroyed = true; }

  int newFiler(CString /*path*/) { return kOwn; }
  int closeFiler() { return kOwn; }
  int beginClass(CString /*name*/, int /*version*/) { return kOwn; }
  int beginClass(CString /*name*/) { return kOwn; }
  int endClass() { return kOwn; }
  int getLastUsedIndex() { return kOwn; }
  int beginVector(CString /*name*/, long /*count*/) { return kOwn; }
  int beginVector(CString /*name*/, long* /*count*/) { return kOwn; }
  int endVector() { return kOwn; }
  int writeItem(CString /*name*/, double /*value*/) { return kOwn; }
  int writeItem(CString /*name*/, long /*value*/) { return kOwn; }
  int writeItem(CString /*name*/, CString /*value*/) { return kOwn; }
  int writeItem(CString /*name*/, CKtPnt3D /*point*/) { return kOwn; }
  int writeItem(CString /*name*/, CKtVect3D /*vector*/) { return kOwn; }
  int writeItem(CString /*name*/, Points /*points*/, long /*count*/) { return kOwn; }
  int writeItem(CString /*name*/, Vectors /*vectors*/, long /*count*/) { return kOwn; }
  int readItem(CString /*name*/, double* /*value*/) { return kOwn; }
  int readItem(CString /*name*/, long* /*value*/) { return kOwn; }
  int readItem(CString /*name*/, CString* /*value*/) { return kOwn; }
  int readItem(CString /*name*/, CKtPnt3D* /*point*/) { return kOwn; }
  int readItem(CString /*name*/, CKtVect3D* /*vector*/) { return kOwn; }
  int readItem(CString /*name*/, Points* /*points*/, long* /*count*/) { return kOwn; }
  int readItem(CString /*name*/, Vectors* /*vectors*/, long* /*count*/) { return kOwn; }
  int seek(CKtPatternFiler* /*pattern*/) { return kOwn; }
  int getClassName(CString& /*name*/) { return kOwn; }
  int getFirstChildNode(IXMLDOMNodePtr* /*node*/) { return kOwn; }
  int getNextChildNode(IXMLDOMNodePtr* /*node*/) { return kOwn; }

 private:
  bool& m_isDestroyed;
};

class FilerInterface : public FilerTest {
 protected:
  FilerInterface() {
    auto namesake = std::make_unique<Namesake>(m_isDestroyed);
    m_filer = namesake.get();
    m_pattern = namesake.get();
    m_owned = std::move(namesake);
    m_filer->newFiler(kPath);
  }

  bool m_isDestroyed = false;
  CKtFiler* m_filer = nullptr;
  CKtPatternFiler* m_pattern = nullptr;
  std::unique_ptr<CKtFiler> m_owned;
};

TEST_F(FilerInterface, ScopesAreNotReplacedByADerivedFilers) {
  long count = 0;
  EXPECT_EQ(m_filer->beginClass(L"A"), 0);
  EXPECT_EQ(m_filer->beginClass(L"A", 1), 1);
  EXPECT_EQ(m_filer->getLastUsedIndex(), 2);
  EXPECT_EQ(m_filer->beginVector(L"V", 1L), 1);
  EXPECT_EQ(m_filer->beginVector(L"V", &count), 1);
  EXPECT_EQ(m_filer->endVector(), 1);
  EXPECT_EQ(m_filer->endClass(), -1);
  EXPECT_EQ(m_filer->closeFiler(), 1);
}

TEST_F(FilerInterface, ItemsAreNotReplacedByADerivedFilers) {
  double number = 0;
  long integer = 0;
  CString text;
  CKtPnt3D point;
  CKtVect3D vector;
  Points points;
  Vectors vectors;
  ASSERT_EQ(m_filer->beginClass(L"A", 1), 1);
  EXPECT_EQ(m_filer->writeItem(L"D", 1.5), 1);
  EXPECT_EQ(m_filer->writeItem(L"L", 2L), 1);
  EXPECT_EQ(m_filer->writeItem(L"T", CString(L"3")), 1);
  EXPECT_EQ(m_filer->writeItem(L"P", CKtPnt3D(4, 5, 6)), 1);
  EXPECT_EQ(m_filer->writeItem(L"V", CKtVect3D(7, 8, 9)), 1);
  EXPECT_EQ(m_filer->writeItem(L"PL", Points{{1, 2, 3}}, 1), 1);
  EXPECT_EQ(m_filer->writeItem(L"VL", Vectors{{1, 2, 3}}, 0), 1);
  EXPECT_EQ(m_filer->readItem(L"D", &number), 1);
  EXPECT_EQ(m_filer->readItem(L"L", &integer), 1);
  EXPECT_EQ(m_filer->readItem(L"T", &text), 1);
  EXPECT_EQ(m_filer->readItem(L"P", &point), 1);
  EXPECT_EQ(m_filer->readItem(L"V", &vector), 1);
  EXPECT_EQ(m_filer->readItem(L"PL", &points, &integer), 1);
  EXPECT_EQ(m_filer->readItem(L"VL", &vectors, &integer), 1);
}

TEST_F(FilerInterface, SearchingIsNotReplacedByADerivedFilers) {
  CString name;
  IXMLDOMNodePtr node;
  EXPECT_EQ(m_filer->seek(m_pattern), -1);
  EXPECT_EQ(m_pattern->getClassName(name), 0);
  EXPECT_EQ(m_pattern->getFirstChildNode(std::addressof(node)), 0);
  EXPECT_EQ(m_pattern->getNextChildNode(std::addressof(node)), 0);
}

TEST_F(FilerInterface, TheDestructorIsTheDerivedFilers) {
  m_owned.reset();
  EXPECT_TRUE(m_isDestroyed);
  EXPECT_EQ(savedText(kPath), documentText(""));
}

}  // namespace
}  // namespace quorvan::test
