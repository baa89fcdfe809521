#include <tests/filer/model/filer_model.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace quorvan::test::model {

namespace {

// Names in scripts are ASCII but for letters with accents.
bool isName(const std::string& name) {
  const auto isLetter = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
  };
  if (name.empty() || !isLetter(name.front())) {
    return false;
  }
  for (const char c : name) {
    if (!isLetter(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.') {
      return false;
    }
  }
  return true;
}

void append(Node* parent, Node* child) {
  if (parent == nullptr) {
    throw Raised::kPointer;
  }
  if (parent->kind != Kind::kElement || isSelfOrAbove(*child, *parent)) {
    throw Raised::kFail;
  }
  link(*parent, *child);
}

Node* childNamed(const Node* node, const std::string& name) {
  if (node == nullptr) {
    return nullptr;
  }
  for (Node* child : node->children) {
    if (child->name == name) {
      return child;
    }
  }
  return nullptr;
}

std::string fixed7(double value) {
  if (std::isnan(value)) {
    return "nan";  // without the sign that the C library would give it
  }
  char text[400];
  const int length = std::snprintf(text, sizeof text, "%.7f", value);
  return {text, static_cast<std::size_t>(length)};
}

std::string shortest(double value) {
  if (std::isnan(value)) {
    return "nan";
  }
  char text[64];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

// Numbers have digits: "inf", which the C library reads, is none.
double toDouble(const std::string& text) {
  const bool isNumber = text.find_first_of("0123456789") != std::string::npos;
  return isNumber ? std::strtod(text.c_str(), nullptr) : 0.0;
}

std::int32_t toLong(const std::string& text) {
  const long long value = std::strtoll(text.c_str(), nullptr, 10);
  using Limits = std::numeric_limits<std::int32_t>;
  return value < Limits::min()   ? Limits::min()
         : value > Limits::max() ? Limits::max()
                                 : static_cast<std::int32_t>(value);
}

std::string int16Text(int value) {
  return std::to_string(static_cast<std::int16_t>(static_cast<std::uint16_t>(value)));
}

void setCoordinates(Node& node, const std::string& x, const std::string& y, const std::string& z) {
  node.attributes = {{"X", x}, {"Y", y}, {"Z", z}};
}

}  // namespace

// --- the document ----------------------------------------------------------------------------

int FilerModel::newFiler(const std::string& path) {
  m_fileName = path;
  const auto file = m_disk->files.find(path);
  if (file != m_disk->files.end()) {
    m_document = m_disk->forest.reread(*file->second);
    return LoadMapFromXml();
  }
  m_document = m_disk->forest.make(Kind::kDocument, "#document");
  Node* const declaration = m_disk->forest.make(Kind::kDeclaration, "xml");
  declaration->attributes = {{"version", "1.0"}, {"encoding", "ISO-8859-1"}};
  link(*m_document, *declaration);
  link(*m_document, *m_disk->forest.make(Kind::kElement, "Document"));
  return 1;
}

int FilerModel::closeFiler() {
  if (m_fileName.empty()) {
    return 0;
  }
  if (m_currentClass != nullptr) {
    endClass();
  }
  if (m_document == nullptr) {
    return 0;
  }
  if (m_fileName.find('/') != std::string::npos) {
    throw Raised::kNotSaved;
  }
  m_disk->files[m_fileName] = m_disk->forest.copy(*m_document);
  m_document = nullptr;
  m_fileName.clear();
  m_classCounts.clear();
  m_mapLoaded = 0;
  m_writing = 0;
  return 1;
}

void FilerModel::destroy() {
  try {
    if (m_document != nullptr) {
      closeFiler();
    }
  } catch (Raised) {  // NOLINT(bugprone-empty-catch): a destructor keeps it to itself
  }
}

int FilerModel::LoadMapFromXml() {
  if (m_mapLoaded != 0) {
    return 1;
  }
  const Node* const root = GetDocumentRealNode();
  if (root == nullptr) {
    return 0;
  }
  for (const Node* child : root->children) {
    InsertClassNameInMap(child->name);
  }
  m_mapLoaded = 1;
  return 1;
}

int FilerModel::InsertClassNameInMap(const std::string& className) {
  return ++m_classCounts[className];
}

Node* FilerModel::GetDocumentRealNode() const {
  if (m_document == nullptr) {
    throw Raised::kPointer;
  }
  Node* node = m_document->firstChild();
  if (node != nullptr && node->name == "xml") {
    node = node->nextSibling();
  }
  return node;
}

// --- class scopes ----------------------------------------------------------------------------

int FilerModel::beginClass(const std::string& className, int version) {
  if (m_document == nullptr) {
    return 0;
  }
  if (m_currentClass != nullptr) {
    endClass();
  }
  m_writing = 1;
  if (m_mapLoaded == 0) {
    m_classCounts.clear();
    LoadMapFromXml();
  }
  CreateClass(className, version);
  return 1;
}

void FilerModel::CreateClass(const std::string& className, int version) {
  m_currentClass = createElement(className);
  m_currentClass->attributes.emplace_back("version", int16Text(version));
  m_currentClass->attributes.emplace_back("index", int16Text(InsertClassNameInMap(className)));
}

int FilerModel::endClass() {
  if (m_currentClass == nullptr) {
    return -1;
  }
  int result = -1;
  if (m_writing != 0) {
    Node* const root = GetDocumentRealNode();
    if (root == nullptr) {
      return -1;
    }
    append(root, m_currentClass);
    const auto counted = m_classCounts.find(m_currentClass->name);
    if (counted != m_classCounts.end()) {
      result = counted->second;
    }
    m_currentClass = nullptr;
  }
  return m_mapLoaded == 0 ? result + 1 : result;
}

int FilerModel::beginClass(const std::string& className) {
  m_writing = 0;
  const auto counted = m_classCounts.find(className);
  if (counted == m_classCounts.end() || counted->second == 0) {
    return 0;
  }
  --counted->second;
  m_mapLoaded = 0;
  return FindClass(className);
}

int FilerModel::FindClass(const std::string& className) {
  Node* node = nullptr;
  if (m_currentClass == nullptr || m_currentClass->name != className) {
    const Node* const root = GetDocumentRealNode();
    if (root == nullptr) {
      return 0;
    }
    node = root->firstChild();
  } else {
    node = m_currentClass->nextSibling();
  }
  for (; node != nullptr; node = node->nextSibling()) {
    if (node->name == className) {
      m_currentClass = node;
      return 1;
    }
  }
  return 0;
}

int FilerModel::getLastUsedIndex() const {
  if (m_currentClass == nullptr) {
    return -1;
  }
  const auto counted = m_classCounts.find(m_currentClass->name);
  return counted == m_classCounts.end() ? 0 : counted->second + 1;
}

// --- writing items ---------------------------------------------------------------------------

Node* FilerModel::createElement(const std::string& name) {
  if (m_document == nullptr) {
    throw Raised::kPointer;
  }
  if (!isName(name)) {
    throw Raised::kFail;
  }
  return m_disk->forest.make(Kind::kElement, name);
}

int FilerModel::appendToScope(Node* item) {
  Node* const scope = m_currentVector != nullptr ? m_currentVector : m_currentClass;
  if (scope == nullptr) {
    return 0;
  }
  append(scope, item);
  return 1;
}

int FilerModel::writeItem(const std::string& name, double value) {
  Node* const item = createElement(name);
  item->attributes.emplace_back("double", fixed7(value));
  return appendToScope(item);
}

int FilerModel::writeItem(const std::string& name, std::int32_t value) {
  Node* const item = createElement(name);
  item->attributes.emplace_back("long", std::to_string(value));
  return appendToScope(item);
}

int FilerModel::writeItem(const std::string& name, const std::string& value) {
  Node* const item = createElement(name);
  item->attributes.emplace_back("string", value);
  return appendToScope(item);
}

int FilerModel::writePoint(const std::string& name, const Point& point) {
  Node* const item = createElement(name);
  setCoordinates(*item, fixed7(point.x), fixed7(point.y), fixed7(point.z));
  return appendToScope(item);
}

int FilerModel::writeVector(const std::string& name, const Point& vector) {
  Node* const item = createElement(name);
  setCoordinates(*item, shortest(vector.x), shortest(vector.y), shortest(vector.z));
  return appendToScope(item);
}

int FilerModel::writeList(const std::string& name, const std::string& entryName,
                          const std::vector<Point>& entries, std::int32_t count) {
  Node* const list = createElement(name);
  list->attributes.emplace_back("size", std::to_string(count));
  for (const Point& point : entries) {
    Node* const entry = createElement(entryName);
    setCoordinates(*entry, fixed7(point.x), fixed7(point.y), fixed7(point.z));
    append(list, entry);
  }
  append(m_currentClass, list);
  return 1;
}

// --- reading items ---------------------------------------------------------------------------

const Node* FilerModel::findItem(const std::string& name) const {
  return childNamed(m_currentVector != nullptr ? m_currentVector : m_currentClass, name);
}

int FilerModel::readItem(const std::string& name, double* value) const {
  const Node* const item = findItem(name);
  const std::string* const text = item == nullptr ? nullptr : item->attribute("double");
  if (text == nullptr) {
    return 0;
  }
  *value = toDouble(*text);
  return 1;
}

int FilerModel::readItem(const std::string& name, std::int32_t* value) const {
  const Node* const item = findItem(name);
  const std::string* const text = item == nullptr ? nullptr : item->attribute("long");
  if (text == nullptr) {
    return 0;
  }
  *value = toLong(*text);
  return 1;
}

int FilerModel::readItem(const std::string& name, std::string* value) const {
  const Node* const item = findItem(name);
  const std::string* const text = item == nullptr ? nullptr : item->attribute("string");
  if (text == nullptr) {
    return 0;
  }
  *value = *text;
  return 1;
}

int FilerModel::readPoint(const std::string& name, Point* point) const {
  const Node* const item = findItem(name);
  if (item == nullptr) {
    return 0;
  }
  for (const auto& [attribute, member] :
       {std::pair{"X", &Point::x}, std::pair{"Y", &Point::y}, std::pair{"Z", &Point::z}}) {
    const std::string* const text = item->attribute(attribute);
    if (text == nullptr) {
      return 0;
    }
    point->*member = toDouble(*text);
  }
  return 1;
}

int FilerModel::readList(const std::string& name, std::vector<Point>* entries,
                         std::int32_t* count) const {
  const Node* const list = childNamed(m_currentClass, name);
  const std::string* const size = list == nullptr ? nullptr : list->attribute("size");
  if (size == nullptr) {
    return 0;
  }
  *count = toLong(*size);
  const Node* child = list->firstChild();
  if (child == nullptr) {
    return 0;
  }
  for (std::int32_t done = 0; done < *count && child != nullptr; ++done) {
    while (child != nullptr && child->name != "point") {
      child = child->nextSibling();
    }
    if (child == nullptr) {
      throw Raised::kPointer;
    }
    const std::string* const x = child->attribute("X");
    const std::string* const y = child->attribute("Y");
    const std::string* const z = child->attribute("Z");
    if (x == nullptr || y == nullptr || z == nullptr) {
      entries->clear();
      return 0;
    }
    entries->push_back({toDouble(*x), toDouble(*y), toDouble(*z)});
    child = child->nextSibling();
  }
  return 1;
}

// --- vector scopes ---------------------------------------------------------------------------

int FilerModel::beginVector(const std::string& name, std::int32_t count) {
  if (m_currentClass == nullptr) {
    return 0;
  }
  if (m_currentVector != nullptr) {
    endVector();
  }
  m_writing = 1;
  m_currentVector = createElement(name);
  m_currentVector->attributes.emplace_back("size", int16Text(count));
  return 1;
}

int FilerModel::beginVector(const std::string& name, std::int32_t* count) {
  if (m_currentClass == nullptr) {
    return 0;
  }
  if (m_currentVector != nullptr) {
    endVector();
  }
  m_currentVector = childNamed(m_currentClass, name);
  if (m_currentVector == nullptr) {
    return 0;
  }
  m_writing = 0;
  const std::string* const size = m_currentVector->attribute("size");
  if (size == nullptr) {
    endVector();
    return 0;
  }
  *count = toLong(*size);
  return 1;
}

int FilerModel::endVector() {
  if (m_currentVector == nullptr) {
    return 0;
  }
  if (m_writing != 0) {
    append(m_currentClass, m_currentVector);
  }
  m_currentVector = nullptr;
  return 1;
}

// --- pattern search --------------------------------------------------------------------------

int FilerModel::getClassName(std::string* name) {
  const Node* const root = GetDocumentRealNode();
  if (root == nullptr || root->firstChild() == nullptr) {
    return 0;
  }
  m_currentClass = root->firstChild();
  *name = m_currentClass->name;
  m_currentVector = m_currentClass->firstChild();
  return 1;
}

int FilerModel::getFirstChildNode(const Node** node) {
  *node = nullptr;
  if (m_currentClass == nullptr) {
    return 0;
  }
  m_currentVector = m_currentClass->firstChild();
  *node = m_currentVector;
  return m_currentVector != nullptr ? 1 : 0;
}

int FilerModel::getNextChildNode(const Node** node) {
  if (m_currentClass == nullptr || m_currentVector == nullptr) {
    return 0;
  }
  m_currentVector = m_currentVector->nextSibling();
  if (m_currentVector == nullptr) {
    return 0;
  }
  *node = m_currentVector;
  return 1;
}

int FilerModel::seek(FilerModel& pattern) {
  m_currentClass = nullptr;
  m_mapLoaded = 0;
  LoadMapFromXml();
  std::string className;
  if (pattern.getClassName(&className) == 0) {
    return -1;
  }
  for (;;) {
    if (beginClass(className) == 0) {
      return -1;
    }
    int match = 1;
    const Node* item = nullptr;
    for (int more = pattern.getFirstChildNode(&item); more != 0;
         more = pattern.getNextChildNode(&item)) {
      match &= findChildMatch(item);
      if (match == 0) {
        break;
      }
    }
    if (match != 0) {
      break;
    }
    endClass();
  }
  int index = -1;
  if (currentIndex(&index) == 0) {
    index = -1;
  }
  endClass();
  return index;
}

int FilerModel::currentIndex(int* index) const {
  const std::string* const text = m_currentClass->attribute("index");
  if (!m_currentClass->takesAttributes() || text == nullptr) {
    return 0;
  }
  *index = toLong(*text);
  return 1;
}

int FilerModel::findChildMatch(const Node* item) const {
  const Node* const child = childNamed(m_currentClass, item->name);
  return child == nullptr ? 0 : CompareNodes(*item, *child);
}

int FilerModel::CompareNodes(const Node& pattern, const Node& document) {
  if (!pattern.takesAttributes() || !document.takesAttributes()) {
    return 0;
  }
  for (const auto& [name, value] : pattern.attributes) {
    const std::string* const other = document.attribute(name);
    if (other == nullptr) {
      throw Raised::kPointer;
    }
    if (*other != value) {
      return 0;
    }
  }
  int result = 1;
  const Node* child = pattern.firstChild();
  // The pattern's children are compared with themselves.
  const Node* same = child == nullptr ? nullptr : childNamed(&pattern, child->name);
  while (child != nullptr && same != nullptr && result == 1) {
    result = CompareNodes(*child, *same);
    child = child->nextSibling();
    same = same->nextSibling();
  }
  return result;
}

}  // namespace quorvan::test::model
