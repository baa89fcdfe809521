// Any bytes as a file: a document that loads can be saved, loads again, and is then saved the same.
#include <string>

#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;
using quorvan::fuzz::require;

namespace {

// False for a document that cannot be saved: without a root element, or in an encoding that can
// only be read.
bool isSaved(const IXMLDOMDocumentPtr& document, const wchar_t* path) {
  try {
    dom::save(document, path);
  } catch (const _com_error&) {
    return false;
  }
  return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvan::fuzz::MemoryFiles files;
  files.put("file.xml", std::string(data, data + size));
  IXMLDOMDocumentPtr document;
  require(dom::createDocument(document) == S_OK, "a document can be created");
  if (!dom::load(document, L"file.xml") || !isSaved(document, L"once.xml")) {
    return 0;
  }
  require(dom::load(document, L"once.xml"), "what was saved loads");
  require(isSaved(document, L"twice.xml"), "what was saved can be saved again");
  require(files.content("once.xml") == files.content("twice.xml"), "saving again changes nothing");
  return 0;
}
