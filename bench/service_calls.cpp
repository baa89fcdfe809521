#include <bench/service_calls.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include <intrin.h>
#include <windows.h>

#include <msxml.h>

namespace bench {

namespace {

// A function of an interface, called with its object and as many arguments as any of them has.
using Function = HRESULT(STDMETHODCALLTYPE*)(void*, void*, void*, void*, void*);

constexpr std::size_t kFirstOfInterface = 7;  // after IUnknown's and IDispatch's
constexpr std::size_t kMostFunctions = 80;
constexpr std::size_t kMostTables = 8;

constexpr std::string_view kOfUnknown[] = {"QueryInterface", "AddRef", "Release"};
constexpr std::string_view kOfNode[] = {"get_nodeName",
                                        "get_nodeValue",
                                        "put_nodeValue",
                                        "get_nodeType",
                                        "get_parentNode",
                                        "get_childNodes",
                                        "get_firstChild",
                                        "get_lastChild",
                                        "get_previousSibling",
                                        "get_nextSibling",
                                        "get_attributes",
                                        "insertBefore",
                                        "replaceChild",
                                        "removeChild",
                                        "appendChild",
                                        "hasChildNodes",
                                        "get_ownerDocument",
                                        "cloneNode",
                                        "get_nodeTypeString",
                                        "get_text",
                                        "put_text",
                                        "get_specified",
                                        "get_definition",
                                        "get_nodeTypedValue",
                                        "put_nodeTypedValue",
                                        "get_dataType",
                                        "put_dataType",
                                        "get_xml",
                                        "transformNode",
                                        "selectNodes",
                                        "selectSingleNode",
                                        "get_parsed",
                                        "get_namespaceURI",
                                        "get_prefix",
                                        "get_baseName",
                                        "transformNodeToObject"};
constexpr std::string_view kOfDocument[] = {"get_doctype",
                                            "get_implementation",
                                            "get_documentElement",
                                            "putref_documentElement",
                                            "createElement",
                                            "createDocumentFragment",
                                            "createTextNode",
                                            "createComment",
                                            "createCDATASection",
                                            "createProcessingInstruction",
                                            "createAttribute",
                                            "createEntityReference",
                                            "getElementsByTagName",
                                            "createNode",
                                            "nodeFromID",
                                            "load",
                                            "get_readyState",
                                            "get_parseError",
                                            "get_url",
                                            "get_async",
                                            "put_async",
                                            "abort",
                                            "loadXML",
                                            "save",
                                            "get_validateOnParse",
                                            "put_validateOnParse",
                                            "get_resolveExternals",
                                            "put_resolveExternals"};
constexpr std::string_view kOfElement[] = {
    "get_tagName",         "getAttribute",         "setAttribute",
    "removeAttribute",     "getAttributeNode",     "setAttributeNode",
    "removeAttributeNode", "getElementsByTagName", "normalize"};
constexpr std::string_view kOfAttribute[] = {"get_name", "get_value", "put_value"};
constexpr std::string_view kOfInstruction[] = {"get_target", "get_data", "put_data"};
constexpr std::string_view kOfMap[] = {"getNamedItem", "setNamedItem", "removeNamedItem",
                                       "get_item", "get_length"};
constexpr std::string_view kOfParseError[] = {"get_errorCode", "get_url",  "get_reason",
                                              "get_srcText",   "get_line", "get_linepos",
                                              "get_filepos"};

// The functions of one interface of the service, and what was counted of each.
struct Table {
  Function* functions = nullptr;
  std::size_t size = 0;
  std::array<Function, kMostFunctions> service = {};
  std::array<int, kMostFunctions> calls = {};
  std::array<std::uint64_t, kMostFunctions> ticks = {};
  std::vector<std::string_view> names;
};

std::array<Table, kMostTables> theTables;
std::size_t theTableCount = 0;
std::uint64_t theTicksInside = 0;
bool isInside = false;

template <std::size_t kTable, std::size_t kFunction>
HRESULT STDMETHODCALLTYPE counted(void* self, void* a, void* b, void* c, void* d) {
  Table& table = theTables[kTable];
  if (isInside) {
    return table.service[kFunction](self, a, b, c, d);
  }
  ++table.calls[kFunction];
  isInside = true;
  const std::uint64_t begin = __rdtsc();
  const HRESULT result = table.service[kFunction](self, a, b, c, d);
  const std::uint64_t taken = __rdtsc() - begin;
  table.ticks[kFunction] += taken;
  theTicksInside += taken;
  isInside = false;
  return result;
}

template <std::size_t kTable, std::size_t... kFunctions>
constexpr std::array<Function, kMostFunctions> countersOf(std::index_sequence<kFunctions...>) {
  return {&counted<kTable, kFunctions>...};
}

template <std::size_t... kTables>
constexpr auto allCounters(std::index_sequence<kTables...>) {
  return std::array<std::array<Function, kMostFunctions>, kMostTables>{
      countersOf<kTables>(std::make_index_sequence<kMostFunctions>())...};
}

constexpr auto kCounters = allCounters(std::make_index_sequence<kMostTables>());

void put(Function* place, Function function) {
  DWORD protection = 0;
  if (::VirtualProtect(place, sizeof(Function), PAGE_READWRITE, &protection) == 0) {
    throw std::runtime_error("the service's functions cannot be replaced");
  }
  *place = function;
  ::VirtualProtect(place, sizeof(Function), protection, &protection);
}

// Whether the function is one to count: the arguments of IDispatch are more than are handed on.
bool isCounted(std::size_t function) {
  return function < std::size(kOfUnknown) || function >= kFirstOfInterface;
}

template <std::size_t kCount>
void addNames(Table& table, const std::string_view (&names)[kCount]) {
  table.names.insert(table.names.end(), std::begin(names), std::end(names));
}

// Leads the functions of the object's interface through counters, those that have a name.
template <class... Names>
void count(IUnknown* object, const Names&... names) {
  if (object == nullptr) {
    throw std::runtime_error("the document service does not answer");
  }
  auto* const functions = *reinterpret_cast<Function**>(object);
  for (std::size_t i = 0; i < theTableCount; ++i) {
    if (theTables[i].functions == functions) {
      return;
    }
  }
  Table& table = theTables.at(theTableCount);
  table = Table();
  table.functions = functions;
  addNames(table, kOfUnknown);
  table.names.resize(kFirstOfInterface);
  (addNames(table, names), ...);
  for (std::size_t i = 0; i < table.names.size(); ++i) {
    table.service[i] = functions[i];
    if (isCounted(i)) {
      put(functions + i, kCounters[theTableCount][i]);
    }
  }
  ++theTableCount;
}

// Owns a reference.
template <class Interface>
class Held {
 public:
  Held() = default;
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() {
    if (m_object != nullptr) {
      m_object->Release();
    }
  }
  Interface** out() { return &m_object; }
  Interface* operator->() const { return m_object; }
  Interface* get() const { return m_object; }

 private:
  Interface* m_object = nullptr;
};

// The class of documents that the library uses, and the interface, whose identifiers not all
// headers give.
constexpr GUID kDocumentClass = {
    0x2933BF90, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
constexpr GUID kDocument = {
    0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

void countAll() {
  Held<IXMLDOMDocument> document;
  void* created = nullptr;
  if (FAILED(::CoCreateInstance(kDocumentClass, nullptr, CLSCTX_ALL, kDocument, &created))) {
    throw std::runtime_error("there is no document service");
  }
  *document.out() = static_cast<IXMLDOMDocument*>(created);
  const std::wstring name = L"a";
  const BSTR text = ::SysAllocString(name.c_str());
  Held<IXMLDOMElement> element;
  Held<IXMLDOMAttribute> attribute;
  Held<IXMLDOMProcessingInstruction> instruction;
  Held<IXMLDOMNamedNodeMap> map;
  Held<IXMLDOMParseError> error;
  document->createElement(text, element.out());
  document->createAttribute(text, attribute.out());
  document->createProcessingInstruction(text, text, instruction.out());
  document->get_parseError(error.out());
  ::SysFreeString(text);
  if (element.get() != nullptr) {
    element->get_attributes(map.out());
  }
  count(document.get(), kOfNode, kOfDocument);
  count(element.get(), kOfNode, kOfElement);
  count(attribute.get(), kOfNode, kOfAttribute);
  count(instruction.get(), kOfNode, kOfInstruction);
  count(map.get(), kOfMap);
  count(error.get(), kOfParseError);
}

}  // namespace

ServiceCalls::ServiceCalls() {
  // The service stays loaded as long as its functions are replaced.
  ::CoInitialize(nullptr);
  countAll();
  clear();
}

ServiceCalls::~ServiceCalls() {
  for (std::size_t i = 0; i < theTableCount; ++i) {
    const Table& table = theTables[i];
    for (std::size_t function = 0; function < table.names.size(); ++function) {
      if (isCounted(function)) {
        put(table.functions + function, table.service[function]);
      }
    }
  }
  theTableCount = 0;
  ::CoUninitialize();
}

void ServiceCalls::clear() noexcept {
  for (Table& table : theTables) {
    table.calls = {};
    table.ticks = {};
  }
  theTicksInside = 0;
  m_begin = __rdtsc();
}

std::map<std::string, ServiceCalls::Cost> ServiceCalls::costs(double seconds) const {
  std::map<std::string, Cost> costs;
  const double tick = seconds / static_cast<double>(__rdtsc() - m_begin);
  for (std::size_t i = 0; i < theTableCount; ++i) {
    const Table& table = theTables[i];
    for (std::size_t function = 0; function < table.names.size(); ++function) {
      if (table.calls[function] != 0) {
        Cost& cost = costs[std::string(table.names[function])];
        cost.calls += table.calls[function];
        cost.seconds += static_cast<double>(table.ticks[function]) * tick;
      }
    }
  }
  return costs;
}

std::map<std::string, int> ServiceCalls::counts() const {
  std::map<std::string, int> counts;
  for (const auto& [name, cost] : costs(0)) {
    if (name != "AddRef" && name != "Release") {
      counts[name] = cost.calls;
    }
  }
  return counts;
}

int ServiceCalls::total() const {
  int total = 0;
  for (const auto& [name, calls] : counts()) {
    total += calls;
  }
  return total;
}

double ServiceCalls::share() const noexcept {
  return static_cast<double>(theTicksInside) / static_cast<double>(__rdtsc() - m_begin);
}

}  // namespace bench
