// The filer's document: opening, saving, the class counts and the root element.
#include <quorvan/filer/filer.h>

#include <quorvan/filer/document_memory.h>
#include <quorvan/filer/item_access.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/geometry/module_prompts.h>
#include <quorvan/platform/com.h>
#include <quorvan/platform/message_box.h>
#include <quorvan/platform/prompts.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace dom = quorvan::dom;
using quorvan::filer::ClassCounts;

namespace {

constexpr int kMissingServicePrompt = 15501;
constexpr unsigned int kOkButton = 0;  // MB_OK
constexpr unsigned int kNoHelp = 0;

constexpr std::string_view kDeclaration = "version='1.0' encoding='ISO-8859-1'";

dom::Durability durabilityOf(int scratch) {
  if (scratch == 0) {
    return dom::Durability::kDisk;
  }
  return scratch == 1 ? dom::Durability::kScratch : dom::Durability::kPassing;
}

void showMissingServicePrompt(const CString& prompt) {
  quorvan::showMessageBox(prompt, kOkButton, kNoHelp);
}

// Adds the document's counts to the class map.
class MapFiller final : public dom::ChildNameCounts {
 public:
  explicit MapFiller(ClassCounts& counts) : m_counts(counts) {}

  void count(const dom::Name& name, int children) override { m_counts.add(name, children); }

 private:
  ClassCounts& m_counts;
};

void addCountsBelow(const IXMLDOMNodePtr& root, ClassCounts& counts) {
  MapFiller filler(counts);
  dom::countChildNames(root, filler);
}

}  // namespace

CKtFiler::CKtFiler() {
  quorvan::platform::initializeCom();
}

CKtFiler::CKtFiler(const CKtFiler& other)
    : m_document(other.m_document),
      m_fileName(other.m_fileName),
      m_classCounts(other.m_classCounts),
      m_writing(other.m_writing),
      m_mapLoaded(other.m_mapLoaded),
      m_currentClass(other.m_currentClass),
      m_currentVector(other.m_currentVector),
      m_scratch(other.m_scratch),
      m_classPlace(other.m_classPlace),
      m_vectorPlace(other.m_vectorPlace),
      m_memory(other.m_memory),
      m_missingLeft(other.m_missingLeft) {
  // The destructor of every filer uninitialises COM, so every constructor initialises it.
  quorvan::platform::initializeCom();
}

CKtFiler& CKtFiler::operator=(const CKtFiler& other) = default;

CKtFiler::~CKtFiler() {
  try {
    if (m_document != nullptr) {
      closeFiler();
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): a destructor has nobody to tell
  }
  quorvan::platform::uninitializeCom();
}

int CKtFiler::newFiler(CString path) {
  return quorvan::ItemAccess::open(*this, std::move(path), true);
}

int quorvan::ItemAccess::open(CKtFiler& filer, CString path, bool mayBeThere) {
  try {
    filer.m_fileName = std::move(path);
    filer.endDocumentMemory();
    const HRESULT created = dom::createDocument(filer.m_document);
    CString prompt;
    KtPrompts::getPrompt(prompt, kMissingServicePrompt, getModulePromptsProjectName(), 0);
    if (created < 0) {
      showMissingServicePrompt(prompt);
      return 0;
    }
    if (filer.m_document == nullptr) {
      return 0;
    }
    filer.m_memory = std::make_shared<quorvan::DocumentMemory>(filer.m_document);
    if (mayBeThere && dom::load(filer.m_document, filer.m_fileName)) {
      return filer.LoadMapFromXml();
    }
    return filer.prepareEmptyDocument();
  } catch (...) {
    quorvan::showMessageBox(L"Exception caught on CKtFiler::newFiler()!", kOkButton, kNoHelp);
    return 0;
  }
}

int CKtFiler::prepareEmptyDocument() {
  dom::append(m_document, dom::createProcessingInstruction(m_document, "xml", kDeclaration));
  dom::append(m_document, dom::createElement(m_document, quorvan::filer::kRootName));
  return 1;
}

int CKtFiler::closeFiler() {
  if (m_fileName.IsEmpty()) {
    return 0;
  }
  if (m_currentClass != nullptr) {
    endClass();
  }
  if (m_document == nullptr) {
    return 0;
  }
  dom::save(m_document, m_fileName, durabilityOf(m_scratch));
  if (m_memory != nullptr) {
    m_memory->forget();
  }
  m_document = nullptr;
  m_fileName.Empty();
  m_classCounts.clear();
  m_mapLoaded = 0;
  m_writing = 0;
  return 1;
}

// The counts are added to what the map holds; callers that want a fresh count empty it first.
int CKtFiler::LoadMapFromXml() {
  if (m_mapLoaded != 0) {
    return 1;
  }
  const IXMLDOMNodePtr root = rootElement();
  if (root == nullptr) {
    return 0;
  }
  // Into a copy: counts that an error left half added would be added again the next time, and the
  // elements written then would get wrong indexes.
  ClassCounts counts = m_classCounts;
  if (m_memory != nullptr && m_memory->keepsCounts()) {
    if (!m_memory->counts()) {
      ClassCounts kept;
      addCountsBelow(root, kept);
      m_memory->setCounts(std::move(kept));
    }
    counts.add(*m_memory->counts());
  } else {
    addCountsBelow(root, counts);
  }
  m_classCounts.swap(counts);
  m_mapLoaded = 1;
  return 1;
}

int CKtFiler::InsertClassNameInMap(const dom::Name& className) {
  return m_classCounts.add(className, 1);
}

// The root is known by its place, not by its name: a comment or DOCTYPE that stands where it is
// expected is taken for it.
IXMLDOMNodePtr CKtFiler::rootElement() {
  const bool isKept = m_document != nullptr && m_memory != nullptr && !m_memory->isHandedOut();
  if (isKept && m_memory->root() != nullptr) {
    return m_memory->root();
  }
  IXMLDOMNodePtr node = dom::firstChild(m_document);
  if (node != nullptr && dom::nodeNameIs(node, "xml")) {
    node = dom::nextSibling(node);
  }
  if (isKept) {
    m_memory->setRoot(node);
  }
  return node;
}

IXMLDOMNodePtr CKtFiler::GetDocumentRealNode() {
  handOut();
  return rootElement();
}

// A node of this filer's may be in a caller's hands from now on.
void CKtFiler::handOut() {
  if (m_memory != nullptr) {
    m_memory->handOut();
  }
}

// The current nodes stay current beyond their document, which may stay open in a copy.
void CKtFiler::endDocumentMemory() {
  if (m_currentClass != nullptr || m_currentVector != nullptr) {
    handOut();
    m_classPlace.becomeElsewhere();
    m_vectorPlace.becomeElsewhere();
  }
  m_memory.reset();
}

// A node at that place is about to change. One that is elsewhere belongs to a document of which
// nothing is remembered any more.
void CKtFiler::changeAt(const CursorPlace& place) {
  if (m_memory != nullptr && place.isInDocument()) {
    m_memory->change();
  }
}

// A node from that place is about to join the document.
void CKtFiler::joinFrom(const CursorPlace& place) {
  if (m_memory != nullptr && !place.isAlone()) {
    m_memory->change();
  }
  if (place.isElsewhere()) {
    // Who holds nodes of the other document holds them in this one now.
    handOut();
  }
}
