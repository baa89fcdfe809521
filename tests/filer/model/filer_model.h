// The filer as its operations are stated, step by step, over a plain tree: no index, no counts
// kept up to date, every look-up a walk. What the library does is held against it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <tests/filer/model/tree.h>

namespace quorvan::test::model {

/// What a filer raises.
enum class Raised { kPointer, kFail, kNotSaved };

struct Point {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// The files that the filers of one script see, and the nodes of their documents.
struct Disk {
  Forest forest;
  std::map<std::string, Node*> files;  // by path; a path with a slash cannot be saved to
};

/// One filer. Names and texts are UTF-8.
class FilerModel {
 public:
  explicit FilerModel(Disk& disk) : m_disk(&disk) {}

  int newFiler(const std::string& path);
  int closeFiler();

  /// What the destructor does: saves, and lets nothing out.
  void destroy();

  int beginClass(const std::string& className, int version);
  int beginClass(const std::string& className);
  int endClass();
  [[nodiscard]] int getLastUsedIndex() const;

  int writeItem(const std::string& name, double value);
  int writeItem(const std::string& name, std::int32_t value);
  int writeItem(const std::string& name, const std::string& value);
  int writePoint(const std::string& name, const Point& point);
  int writeVector(const std::string& name, const Point& vector);
  int writeList(const std::string& name, const std::string& entryName,
                const std::vector<Point>& entries, std::int32_t count);

  int readItem(const std::string& name, double* value) const;
  int readItem(const std::string& name, std::int32_t* value) const;
  int readItem(const std::string& name, std::string* value) const;
  int readPoint(const std::string& name, Point* point) const;
  int readList(const std::string& name, std::vector<Point>* entries, std::int32_t* count) const;

  int beginVector(const std::string& name, std::int32_t count);
  int beginVector(const std::string& name, std::int32_t* count);
  int endVector();

  /// As a pattern filer: the class name, and the names of the items.
  int getClassName(std::string* name);
  int getFirstChildNode(const Node** node);
  int getNextChildNode(const Node** node);

  int seek(FilerModel& pattern);

  /// What GetDocumentRealNode gives a caller.
  [[nodiscard]] Node* handOut() const { return GetDocumentRealNode(); }

  /// The class name of some element of the open document, "" without one; for making scripts.
  [[nodiscard]] const Node* document() const { return m_document; }

 private:
  int LoadMapFromXml();
  int InsertClassNameInMap(const std::string& className);
  [[nodiscard]] Node* GetDocumentRealNode() const;
  void CreateClass(const std::string& className, int version);
  int FindClass(const std::string& className);
  int currentIndex(int* index) const;
  [[nodiscard]] int findChildMatch(const Node* item) const;
  static int CompareNodes(const Node& pattern, const Node& document);

  Node* createElement(const std::string& name);
  int appendToScope(Node* item);
  [[nodiscard]] const Node* findItem(const std::string& name) const;

  Disk* m_disk;
  Node* m_document = nullptr;
  std::string m_fileName;
  std::map<std::string, int> m_classCounts;
  int m_writing = 1;
  int m_mapLoaded = 0;
  Node* m_currentClass = nullptr;
  Node* m_currentVector = nullptr;
};

}  // namespace quorvan::test::model
