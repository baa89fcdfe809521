// The contract of dom.h by the backend of this system, except for the calls that are to fail.
//
// The backend's own operations are compiled in here under another namespace. All that they include
// has to be included before, because the name is changed for the rest of the file.
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <new>

#include <tests/support/fault_backend/dom_faults.h>
#include <quorvan/text/numbers.h>
#include <quorvan/xml/embedded/document.h>
#include <quorvan/xml/embedded/tree/instruction.h>
#include <quorvan/xml/embedded/tree/value_text.h>

namespace quorvan::genuine {
using namespace dom;  // NOLINT(google-build-using-namespace): the types of the contract
}

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-declarations"
#pragma GCC diagnostic ignored "-Wunknown-pragmas"
#endif
#define dom genuine
#include <quorvan/xml/embedded/dom.cpp>  // NOLINT(bugprone-suspicious-include)
#undef dom
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace quorvan::test {

namespace {

struct Plan {
  bool isOn = false;
  bool lasts = false;
  int call = 0;
  int calls = 0;
  DomFault fault = DomFault::kFail;
  std::string failed;
};

Plan plan;

bool keepsNoRevisions = false;

// Whether this call is to fail.
bool isDue(const char* operation, std::string_view name) {
  if (!plan.isOn) {
    return false;
  }
  ++plan.calls;
  if (plan.calls < plan.call || (plan.calls > plan.call && !plan.lasts)) {
    return false;
  }
  if (plan.failed.empty()) {
    plan.failed.append(operation).append(" ").append(name);
  }
  return true;
}

[[noreturn]] void raise() {
  if (plan.fault == DomFault::kBadAlloc) {
    throw std::bad_alloc();
  }
  platform::raiseComError(plan.fault == DomFault::kFail ? E_FAIL : E_OUTOFMEMORY);
}

// For an operation that fails by raising alone.
void meet(const char* operation, std::string_view name = {}) {
  if (plan.fault != DomFault::kNothing && isDue(operation, name)) {
    raise();
  }
}

// For one that may also return nothing: whether it is to do that.
bool returnsNothing(const char* operation, std::string_view name) {
  if (!isDue(operation, name)) {
    return false;
  }
  if (plan.fault != DomFault::kNothing) {
    raise();
  }
  return true;
}

}  // namespace

DomFaults::DomFaults(int call, DomFault fault, bool lasts) noexcept {
  plan = {true, lasts, call, 0, fault, {}};
}

DomFaults::~DomFaults() {
  plan.isOn = false;
}

NoRevisions::NoRevisions() noexcept {
  keepsNoRevisions = true;
}

NoRevisions::~NoRevisions() {
  keepsNoRevisions = false;
}

bool DomFaults::hasFailed() const noexcept {
  return !plan.failed.empty();
}

const std::string& DomFaults::failed() const noexcept {
  return plan.failed;
}

}  // namespace quorvan::test

namespace quorvan::dom {

using test::meet;
using test::returnsNothing;

HRESULT createDocument(IXMLDOMDocumentPtr& document) {
  document = nullptr;
  try {
    if (returnsNothing("createDocument", {})) {
      return S_OK;
    }
  } catch (const _com_error& error) {
    return error.Error();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
  return genuine::createDocument(document);
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path) {
  meet("load");
  return genuine::load(document, path);
}

bool load(const IXMLDOMDocumentPtr& document, const CString& path, LoadProblem& problem) {
  meet("load");
  return genuine::load(document, path, problem);
}

bool loadBytes(const IXMLDOMDocumentPtr& document, std::string_view bytes, LoadProblem& problem) {
  meet("loadBytes");
  return genuine::loadBytes(document, bytes, problem);
}

void save(const IXMLDOMDocumentPtr& document, const CString& path, Durability durability) {
  meet("save");
  genuine::save(document, path, durability);
}

void clearLeftOver(const CString& path) noexcept {
  genuine::clearLeftOver(path);
}

IXMLDOMNodePtr createElement(const IXMLDOMDocumentPtr& document, const Name& name) {
  if (returnsNothing("createElement", name.text())) {
    return nullptr;
  }
  return genuine::createElement(document, name);
}

IXMLDOMNodePtr createProcessingInstruction(const IXMLDOMDocumentPtr& document, const Name& target,
                                           std::string_view data) {
  meet("createProcessingInstruction", target.text());
  return genuine::createProcessingInstruction(document, target, data);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int16_t value) {
  return !returnsNothing("addAttribute", name.text()) &&
         genuine::addAttribute(document, element, name, value);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int32_t value) {
  return !returnsNothing("addAttribute", name.text()) &&
         genuine::addAttribute(document, element, name, value);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, AsciiText value) {
  return !returnsNothing("addAttribute", name.text()) &&
         genuine::addAttribute(document, element, name, value);
}

bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::wstring_view value) {
  return !returnsNothing("addAttribute", name.text()) &&
         genuine::addAttribute(document, element, name, value);
}

void append(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& child) {
  meet("append");
  genuine::append(document, child);
}

void append(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child) {
  meet("append");
  genuine::append(parent, child);
}

void appendNew(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& element) {
  meet("append");
  genuine::appendNew(parent, element);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const NewAttribute> attributes) {
  return !returnsNothing("appendElement", name.text()) &&
         genuine::appendElement(document, parent, name, attributes);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::wstring_view value) {
  return !returnsNothing("appendElement", name.text()) &&
         genuine::appendElement(document, parent, name, attribute, value);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const Name> attributes, const double* numbers) {
  return !returnsNothing("appendElement", name.text()) &&
         genuine::appendElement(document, parent, name, attributes, numbers);
}

bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::int32_t number) {
  return !returnsNothing("appendElement", name.text()) &&
         genuine::appendElement(document, parent, name, attribute, number);
}

IXMLDOMNodePtr firstChild(const IXMLDOMDocumentPtr& document) {
  meet("firstChild");
  return genuine::firstChild(document);
}

IXMLDOMNodePtr firstChild(const IXMLDOMNodePtr& node) {
  meet("firstChild");
  return genuine::firstChild(node);
}

IXMLDOMNodePtr nextSibling(const IXMLDOMNodePtr& node) {
  meet("nextSibling");
  return genuine::nextSibling(node);
}

IXMLDOMNodePtr firstChildNamed(const IXMLDOMNodePtr& node, const Name& name) {
  meet("firstChildNamed", name.text());
  return genuine::firstChildNamed(node, name);
}

IXMLDOMNodePtr nextSiblingNamed(const IXMLDOMNodePtr& node, const Name& name) {
  meet("nextSiblingNamed", name.text());
  return genuine::nextSiblingNamed(node, name);
}

NodeName nodeName(const IXMLDOMNodePtr& node) {
  meet("nodeName");
  return genuine::nodeName(node);
}

bool nodeNameIs(const IXMLDOMNodePtr& node, const Name& name) {
  meet("nodeNameIs", name.text());
  return genuine::nodeNameIs(node, name);
}

bool isCopy(const IXMLDOMNodePtr& a, const IXMLDOMNodePtr& b) noexcept {
  return genuine::isCopy(a, b);
}

bool hasAttributes(const IXMLDOMNodePtr& node) {
  meet("hasAttributes");
  return genuine::hasAttributes(node);
}

bool attribute(const IXMLDOMNodePtr& node, const Name& name, AttributeValue& value) {
  meet("attribute", name.text());
  return genuine::attribute(node, name, value);
}

void countChildNames(const IXMLDOMNodePtr& node, ChildNameCounts& counts) {
  meet("countChildNames");
  genuine::countChildNames(node, counts);
}

std::uint64_t revision(const IXMLDOMDocumentPtr& document) {
  meet("revision");
  const std::uint64_t kept = genuine::revision(document);
  return test::keepsNoRevisions ? 0 : kept;
}

}  // namespace quorvan::dom
