// Files as Windows sees them: names that the document service would take for addresses, files that
// others hold.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <tests/support/com_initialization.h>
#include <tests/support/saved_file.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::dom {
namespace {

namespace fs = std::filesystem;

class DocumentFile : public testing::Test {
 private:
  test::ComInitialization m_com;  // outlives the document

 protected:
  DocumentFile() { createDocument(m_document); }

  void addRoot(const Name& name) { append(m_document, createElement(m_document, name)); }

  static bool loads(const CString& path) {
    IXMLDOMDocumentPtr document;
    createDocument(document);
    return load(document, path);
  }

  IXMLDOMDocumentPtr m_document;
};

void writeFile(const fs::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

// A file that nobody else may open as long as this lives.
class HeldFile {
 public:
  explicit HeldFile(const wchar_t* path)
      : m_file(::CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
  ~HeldFile() { ::CloseHandle(m_file); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

 private:
  HANDLE m_file;
};

TEST_F(DocumentFile, NamesMeanTheSameFileWhenLoadedAndSaved) {
  addRoot("R");
  for (const wchar_t* name : {L"a%41b.xml", L"a%zz.xml", L"a%.xml", L"a#b c.xml", L"x;y=z&q+@!.xml",
                              L"\u00E9\u20AC.xml"}) {
    const CString path(name);
    save(m_document, path);
    EXPECT_TRUE(fs::exists(name)) << fs::path(name);
    EXPECT_TRUE(loads(path)) << fs::path(name);
    fs::remove(name);
    EXPECT_FALSE(loads(path)) << fs::path(name);
  }
}

TEST_F(DocumentFile, AnAddressIsNoFile) {
  EXPECT_FALSE(loads(CString(L"http://localhost:9/a.xml")));
  addRoot("R");
  EXPECT_THROW(save(m_document, CString(L"http://localhost:9/a.xml")), _com_error);
}

TEST_F(DocumentFile, AnOuterDtdIsNotRead) {
  writeFile("outer.dtd", "<!ENTITY e \"leaked\">");
  writeFile("a.xml", "<!DOCTYPE R SYSTEM \"outer.dtd\"><R/>");
  const HeldFile held(L"outer.dtd");  // reading it would fail, and the loading with it
  EXPECT_TRUE(loads(CString(L"a.xml")));
}

TEST_F(DocumentFile, AFileInUseIsKeptWhenItCannotBeReplaced) {
  writeFile("used.xml", "<Old/>");
  addRoot("New");
  {
    const HeldFile held(L"used.xml");
    try {
      save(m_document, CString(L"used.xml"));
      FAIL() << "nothing raised";
    } catch (const _com_error& error) {
      EXPECT_LT(error.Error(), 0);
    }
  }
  EXPECT_EQ(test::fileBytes("used.xml"), "<Old/>");
  EXPECT_FALSE(fs::exists("used.xml.new"));
  save(m_document, CString(L"used.xml"));
  EXPECT_EQ(test::savedBytes("used.xml"), "<New/>\r\n");
}

TEST_F(DocumentFile, AFolderIsNotReplaced) {
  fs::create_directory("folder.xml");
  addRoot("R");
  EXPECT_THROW(save(m_document, CString(L"folder.xml")), _com_error);
  EXPECT_TRUE(fs::is_directory("folder.xml"));
}

TEST_F(DocumentFile, AShorterDocumentLeavesNoTail) {
  writeFile("long.xml", "<Long>" + std::string(10000, 'x') + "</Long>");
  addRoot("R");
  save(m_document, CString(L"long.xml"));
  EXPECT_EQ(test::savedBytes("long.xml"), "<R/>\r\n");
}

// --- the file that is gone once it is complete --------------------------------------------------

TEST_F(DocumentFile, APassingFileLeavesNothing) {
  addRoot("R");
  save(m_document, CString(L"passing.xml"), Durability::kPassing);
  EXPECT_FALSE(fs::exists("passing.xml"));
  EXPECT_FALSE(fs::exists("passing.xml.quorvan-new"));
}

TEST_F(DocumentFile, APassingFileTakesAwayWhatIsInItsPlace) {
  writeFile("passing.xml", "<Old/>");
  addRoot("R");
  save(m_document, CString(L"passing.xml"), Durability::kPassing);
  EXPECT_FALSE(fs::exists("passing.xml"));
}

TEST_F(DocumentFile, APassingFileThatCannotBeMadeIsAnError) {
  addRoot("R");
  EXPECT_THROW(save(m_document, CString(L"missing\\passing.xml"), Durability::kPassing),
               _com_error);
  fs::create_directory("passing-folder.xml");
  EXPECT_THROW(save(m_document, CString(L"passing-folder.xml"), Durability::kPassing), _com_error);
  EXPECT_TRUE(fs::is_directory("passing-folder.xml"));
}

}  // namespace
}  // namespace quorvan::dom
