// Running out of memory at every allocation: what was asked for happens, or nothing does.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/xml/embedded/allocation_faults.h>
#include <tests/xml/embedded/embedded_dom.h>
#include <quorvan/platform/default_message_box.h>
#include <quorvan/platform/file_deletion.h>
#include <quorvan/xml/embedded/tree/name_table.h>

namespace quorvan::test {
namespace {

class OutOfMemory : public EmbeddedDom {
 protected:
  // Whether the action ran out of memory when the allocation of that number failed.
  static bool failsAt(int allocation, bool lasts, const std::function<void()>& action) {
    const AllocationFault fault(allocation, lasts);
    try {
      action();
    } catch (const std::bad_alloc&) {
      return true;
    }
    return false;
  }

  // Lets the action fail at each allocation in turn until it succeeds, and looks at the state
  // after each failure.
  static void failEverywhere(const std::function<void()>& action,
                             const std::function<std::string()>& state) {
    const std::string before = state();
    int allocation = 1;
    while (failsAt(allocation, allocation % 2 == 0, action)) {
      ASSERT_EQ(state(), before) << "allocation " << allocation;
      ++allocation;
    }
    EXPECT_NE(state(), before);
  }
};

TEST_F(OutOfMemory, BuildingLeavesTheTreeAsItWas) {
  for (int i = 0; i < 100; ++i) {
    // New names, and now and then more memory for nodes and values.
    const std::string name = "n" + std::to_string(i);
    const std::string value(static_cast<std::size_t>(i) * 100, 'v');
    const auto state = [&] { return outline(m_document); };
    IXMLDOMNodePtr child;
    failEverywhere(
        [&] {
          child = dom::createElement(m_document, dom::Name(name));
          dom::addAttribute(m_document, child, dom::Name(name), dom::AsciiText{value});
          dom::append(m_root, child);
        },
        state);
    failEverywhere(
        [&] { dom::addAttribute(m_document, m_root, dom::Name(name), dom::AsciiText{value}); },
        state);
  }
}

TEST_F(OutOfMemory, LongValuesLeaveTheTreeAsItWas) {
  const std::wstring value(100000, L'\u00e9');
  const auto state = [&] { return outline(m_document); };
  for (const char* name : {"a", "b"}) {
    failEverywhere(
        [&] { dom::addAttribute(m_document, m_root, dom::Name(std::string_view(name)), value); },
        state);
  }
  failEverywhere([&] { dom::addAttribute(m_document, m_root, "a", L"short"); }, state);
}

TEST_F(OutOfMemory, MakingARootLeavesTheTreeAsItWas) {
  ASSERT_TRUE(loads("<!--c--><a/>"));
  const IXMLDOMNodePtr root = element("Root");
  for (int i = 0; i < 200; ++i) {
    appended(root, ("n" + std::to_string(i)).c_str());
  }
  dom::append(element("Elsewhere"), dom::nextSibling(dom::firstChild(m_document)));
  failEverywhere([&] { dom::append(m_document, root); }, [&] { return outline(m_document); });
}

TEST_F(OutOfMemory, MovingBetweenDocumentsLeavesBothAsTheyWere) {
  const IXMLDOMDocumentPtr other = newDocument();
  const IXMLDOMNodePtr otherRoot = dom::nextSibling(dom::firstChild(other));
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  for (int i = 0; i < 60; ++i) {
    const IXMLDOMNodePtr item = appended(line, ("n" + std::to_string(i)).c_str());
    dom::addAttribute(m_document, item, "string", std::wstring(i == 30 ? 70000 : 300, L'x'));
  }
  failEverywhere([&] { dom::append(otherRoot, line); },
                 [&] { return outline(m_document) + outline(other); });
  EXPECT_EQ(outline(m_root), "Document");
}

TEST_F(OutOfMemory, SavingLeavesTheOldFile) {
  appended(m_root, "Line");
  writeFile("output.xml", "old");
  const CString target = wide(file("output.xml"));
  failEverywhere([&] { dom::save(m_document, target, dom::Durability::kScratch); },
                 [&] {
                   const auto files = std::filesystem::directory_iterator(file(""));
                   EXPECT_EQ(std::distance(files, {}), 1);
                   return fileBytes(file("output.xml"));
                 });
}

TEST_F(OutOfMemory, LoadingLeavesADocumentThatCanBeUsed) {
  std::string items;
  for (int i = 0; i < 300; ++i) {
    items += "<n" + std::to_string(i) + " a=\"&lt;" + std::string(100, 'x') + "\"/>\r\n";
  }
  // So many that the general parser needs more room for them.
  std::string attributes;
  for (int i = 0; i < 40; ++i) {
    attributes += " a" + std::to_string(i) + "=''";
  }
  writeFile("plain.xml", "<a>" + items + "</a>");
  writeFile("general.xml", "<!DOCTYPE a [<!ENTITY e 'x'>]><a xml:b='1'>" + items + "<many" +
                               attributes + "/>&e;<![CDATA[x]]><?p d?></a>");
  for (const char* name : {"plain.xml", "general.xml"}) {
    const CString source = wide(file(name));
    int allocation = 1;
    bool loaded = false;
    while (failsAt(allocation, false, [&] { loaded = dom::load(m_document, source); })) {
      const std::string left = outline(m_document);
      ASSERT_TRUE(left.empty() || allocation < 10) << allocation;
      m_document = newDocument();
      ++allocation;
    }
    EXPECT_TRUE(loaded) << name;
    EXPECT_GT(allocation, 30);
  }
}

// Only names of one hash are kept where taking one in, or making more room, may fail half-way.
TEST_F(OutOfMemory, ANameThatIsNotTakenInLeavesTheOthers) {
  constexpr std::uint32_t kHash = 0xFFFF'FFFFU;  // the last slot, however many there are
  embedded::NameTable names;
  const auto nameOf = [](int i) { return "n" + std::to_string(i); };
  int failures = 0;
  for (int i = 0; i < 200; ++i) {
    const std::string text = nameOf(i);
    const dom::Name name(text, kHash);
    embedded::NameId id = embedded::kNoName;
    for (int allocation = 1; failsAt(allocation, false, [&] { id = names.intern(name); });
         ++allocation) {
      ++failures;
      ASSERT_EQ(names.find(name), embedded::kNoName);
      for (int k = 0; k < i; ++k) {
        ASSERT_EQ(names[names.find(dom::Name(nameOf(k), kHash))].view(), nameOf(k));
      }
    }
    ASSERT_EQ(names.find(name), id);
    ASSERT_EQ(names[id].view(), text);
  }
  EXPECT_GT(failures, 150);
}

// Windows takes paths and texts as they are.
#ifndef _WIN32
TEST_F(OutOfMemory, AFileWhosePathTakesTooMuchMemoryStaysWhereItIs) {
  writeFile("drawing.xml", "old");
  const CString target = wide(file("drawing.xml"));
  {
    const AllocationFault fault(1, true);
    platform::deleteFile(target);
  }
  EXPECT_EQ(fileBytes(file("drawing.xml")), "old");
  platform::deleteFile(target);
  EXPECT_FALSE(std::filesystem::exists(file("drawing.xml")));
}

TEST_F(OutOfMemory, AMessageThatTakesTooMuchMemoryIsNotShown) {
  const CString message(L'm', 1000);
  int button = 0;
  testing::internal::CaptureStderr();
  {
    const AllocationFault fault(1, true);
    button = platform::showDefaultMessageBox(message, 0);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(button, 1);
}
#endif

TEST_F(OutOfMemory, ADocumentThatCannotBeCreatedIsReported) {
  IXMLDOMDocumentPtr document = m_document;
  HRESULT result = S_OK;
  for (int allocation = 1; allocation == 1 || result != S_OK; ++allocation) {
    const AllocationFault fault(allocation, true);
    result = dom::createDocument(document);
    EXPECT_EQ(document == nullptr, result != S_OK);
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY);
  }
}

}  // namespace
}  // namespace quorvan::test
