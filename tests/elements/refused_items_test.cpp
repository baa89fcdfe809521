// Elements and attributes that the document service does not make: the item is left out, the
// others are written, and the result says so, but for a list that could not be opened.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <tests/elements/element_file.h>
#include <tests/support/fault_backend/dom_faults.h>

namespace quorvan::test {
namespace {

/// What is left of an element without one item or entry of a list.
struct Rest {
  std::string items;
  int result;
};

/// The rest of a class's sample element by the name of what it lacks.
template <class Element>
std::map<std::string, Rest> restsWithout(const std::vector<Value>& values) {
  std::map<std::string, Rest> rests;
  const auto fields = ElementModel<Element>::fields();
  const auto items = itemTexts<Element>(values);
  const auto add = [&](std::size_t i, const std::string& name, const std::string& instead,
                       int result) {
    auto left = items;
    left[i] = instead;
    rests[name] = {joined(left), result};
  };
  for (std::size_t i = 0; i < fields.size(); ++i) {
    // The number of a polygon bar's points is an item like any other, and so are the points.
    const bool numbered = fields[i].form == Form::kNumberedPoints;
    const bool isList = fields[i].form >= Form::kPoints && !numbered;
    const std::string& text = items[i];
    const std::size_t first = text.find('>') + 1;
    add(i, fields[i].name, numbered ? text.substr(first) : "", isList ? 1 : 0);
    for (std::size_t begin = first; text.substr(begin, 1) == "<" && text[begin + 1] != '/';) {
      const std::size_t next = text.find("/>", begin) + 2;
      const std::string name = text.substr(begin + 1, text.find(' ', begin) - begin - 1);
      add(i, name, text.substr(0, begin) + text.substr(next), 0);
      begin = next;
    }
  }
  return rests;
}

template <class Element>
class RefusedItems : public testing::Test {
 protected:
  static constexpr const char* kClassName = ElementModel<Element>::kClassName;

  struct Outcome {
    int result;
    std::string refused;  // the operation and the name it was given; empty for none
  };

  // Writes the element while the service does not make what it is asked for in that call.
  Outcome writeRefusing(int call) {
    std::filesystem::remove(kFile);
    CKtFiler filer;
    filer.newFiler(kFileName);
    Outcome outcome{};
    {
      const DomFaults faults(call, DomFault::kNothing, false);
      outcome.result = m_element.fileOut(&filer);
      outcome.refused = faults.failed();
    }
    filer.closeFiler();
    return outcome;
  }

  const std::vector<Value> m_values = sampleValues<Element>(0);
  Element m_element = made<Element>(m_values);
};

TYPED_TEST_SUITE(RefusedItems, ElementClasses, ClassNames);

// The class element and its two attributes.
TYPED_TEST(RefusedItems, WithoutTheClassElementNothingIsWritten) {
  for (int call = 1; call <= 3; ++call) {
    EXPECT_EQ(this->writeRefusing(call).result, 0) << call;
    EXPECT_EQ(savedBytes(kFile), transferFile("")) << call;
  }
}

TYPED_TEST(RefusedItems, EachInTurn) {
  const auto rests = restsWithout<TypeParam>(this->m_values);
  std::set<std::string> seen;
  std::string name;
  for (int call = 4;; ++call) {
    const auto outcome = this->writeRefusing(call);
    if (outcome.refused.empty()) {
      break;
    }
    if (!outcome.refused.starts_with("addAttribute ")) {  // which is one of the element before
      name = outcome.refused.substr(outcome.refused.find(' ') + 1);
    }
    ASSERT_EQ(rests.count(name), 1U) << outcome.refused;
    seen.insert(name);
    const Rest& rest = rests.at(name);
    EXPECT_EQ(outcome.result, rest.result) << outcome.refused;
    EXPECT_EQ(savedBytes(kFile), transferFile(classElement(this->kClassName, 1, rest.items)))
        << outcome.refused;
  }
  EXPECT_EQ(seen.size(), rests.size());
}

TYPED_TEST(RefusedItems, TheNextElementIsWrittenAsIfNothingHadBeen) {
  for (int call = 1; call <= 3; ++call) {
    std::filesystem::remove(kFile);
    CKtFiler filer;
    filer.newFiler(kFileName);
    {
      const DomFaults faults(call, DomFault::kNothing, false);
      EXPECT_EQ(this->m_element.fileOut(&filer), 0);
    }
    EXPECT_EQ(this->m_element.fileOut(&filer), 1);
    filer.closeFiler();
    EXPECT_EQ(savedBytes(kFile),
              transferFile(
                  classElement(this->kClassName, 1, joined(itemTexts<TypeParam>(this->m_values)))))
        << call;
  }
}

TEST(RefusedList, AFormworkReportsSuccess) {
  std::filesystem::remove(kFile);
  CKtZantoFormwork formwork;
  formwork.addElement(CKtPnt3D(), CKtPnt3D(1, 0, 0), CKtVect3D());
  CKtFiler filer;
  filer.newFiler(kFileName);
  const DomFaults faults(4, DomFault::kNothing, false);
  EXPECT_EQ(formwork.fileOut(&filer), 1);
  EXPECT_EQ(faults.failed(), "createElement Vector");
}

}  // namespace
}  // namespace quorvan::test
