#include <tests/filer/model/performance.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>

#include <tests/filer/model/description.h>
#include <tests/support/saved_file.h>
#include <quorvan/filer/filer.h>
#include <quorvan/filer/pattern_filer.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::test::model {

namespace fs = std::filesystem;

namespace {

CString wide(const std::string& utf8) {
  return CString(utf8.c_str(), static_cast<int>(utf8.size()));
}

// Back to UTF-8; the texts of scripts lie in the first plane.
std::string narrow(const CString& text) {
  std::string utf8;
  for (const wchar_t unit : text.view()) {
    const auto code = static_cast<std::uint32_t>(unit);
    if (code < 0x80) {
      utf8 += static_cast<char>(code);
    } else if (code < 0x800) {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | (code >> 12));
      utf8 += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

template <class Entry>
Point plain(const Entry& entry) {
  return {entry.X(), entry.Y(), entry.Z()};
}

// A caller's own filer, which can reach the nodes.
template <class Filer>
class HandingOut final : public Filer {
 public:
  HandingOut() = default;
  explicit HandingOut(const Filer& other) : Filer(other) {}

  using Filer::GetDocumentRealNode;
};

class LibraryPerformance final : public Performance {
 public:
  LibraryPerformance() {
    for (const char* path : kScriptFiles) {
      fs::remove(path);
    }
    for (int filer = 0; filer < kFilers; ++filer) {
      at(filer) = made(filer);
    }
  }

  std::string perform(const Call& call) override {
    std::string seen;
    try {
      seen = describedCall(call);
    } catch (const _com_error& error) {
      seen = describedError(call.action, error.Error() == E_POINTER, error.Error() == E_FAIL);
    }
    for (const auto& filer : m_filers) {
      seen += ' ' + std::to_string(filer->getLastUsedIndex());
    }
    return seen;
  }

  std::string file(const std::string& path) override {
    return fs::exists(path) ? savedBytes(path) : "(none)";
  }

 private:
  std::string describedCall(const Call& call) {
    if (call.action <= Action::kCopy) {
      return fileCall(call);
    }
    if (call.action <= Action::kEndVector) {
      return scopeCall(call);
    }
    if (call.action <= Action::kWriteDirections) {
      return std::to_string(writeCall(call));
    }
    if (call.action <= Action::kReadDirections) {
      return readCall(call);
    }
    if (call.action <= Action::kNextItem) {
      return patternCall(call);
    }
    return callersCall(call);
  }

  // What a caller does with nodes that came into its hands.
  std::string callersCall(const Call& call) {
    IXMLDOMNodePtr& root = m_roots[static_cast<std::size_t>(call.filer)];
    if (call.action == Action::kHandOut) {
      root = nullptr;
      root = handedOut(call.filer);
      return narrow(quorvan::nodeName(root));
    }
    const IXMLDOMNodePtr first = root == nullptr ? IXMLDOMNodePtr() : dom::firstChild(root);
    if (first == nullptr || !dom::hasAttributes(first)) {
      return "nothing to turn";
    }
    dom::append(root, first);
    return narrow(quorvan::nodeName(first));
  }

  IXMLDOMNodePtr handedOut(int filer) {
    if (filer >= kFirstPattern) {
      return static_cast<HandingOut<CKtPatternFiler>&>(*at(filer)).GetDocumentRealNode();
    }
    return static_cast<HandingOut<CKtFiler>&>(*at(filer)).GetDocumentRealNode();
  }

  std::string fileCall(const Call& call) {
    CKtFiler& filer = *at(call.filer);
    switch (call.action) {
      case Action::kPutFile:
        std::ofstream(call.name, std::ios::binary | std::ios::trunc)
            << fileText(*call.sample->document);
        return "put";
      case Action::kOpen:
        return std::to_string(filer.newFiler(wide(call.name)));
      case Action::kClose:
        return std::to_string(filer.closeFiler());
      case Action::kRenew:
        // The old one saves first.
        at(call.filer).reset();
        at(call.filer) = made(call.filer);
        return "renewed";
      case Action::kAssign:
        filer = *at(call.other);
        return "assigned";
      default:
        at(call.filer) = copied(call.filer, *at(call.other));
        return "copied";
    }
  }

  std::string scopeCall(const Call& call) {
    CKtFiler& filer = *at(call.filer);
    const CString name = wide(call.name);
    switch (call.action) {
      case Action::kBeginClass:
        return std::to_string(filer.beginClass(name, call.number));
      case Action::kReadClass:
        return std::to_string(filer.beginClass(name));
      case Action::kEndClass:
        return std::to_string(filer.endClass());
      case Action::kBeginVector:
        return std::to_string(filer.beginVector(name, static_cast<long>(call.number)));
      case Action::kReadVector: {
        long count = kUntouched;
        const int result = filer.beginVector(name, &count);
        return describedCount(result, count);
      }
      default:
        return std::to_string(filer.endVector());
    }
  }

  int writeCall(const Call& call) {
    CKtFiler& filer = *at(call.filer);
    const CString name = wide(call.name);
    const long number = call.number;
    const CKtPnt3D point(call.value, call.value + 1, -call.value);
    const CKtVect3D direction(point, 0);
    switch (call.action) {
      case Action::kWriteDouble:
        return filer.writeItem(name, call.value);
      case Action::kWriteLong:
        return filer.writeItem(name, number);
      case Action::kWriteText:
        return filer.writeItem(name, wide(call.text));
      case Action::kWritePoint:
        return filer.writeItem(name, point);
      case Action::kWriteDirection:
        return filer.writeItem(name, direction);
      case Action::kWritePoints:
        return filer.writeItem(name, std::vector<CKtPnt3D>(listLength(call), point), number);
      default:
        return filer.writeItem(name, std::vector<CKtVect3D>(listLength(call), direction), number);
    }
  }

  std::string readCall(const Call& call) {
    CKtFiler& filer = *at(call.filer);
    const CString name = wide(call.name);
    switch (call.action) {
      case Action::kReadDouble: {
        double value = kUntouched;
        const int result = filer.readItem(name, &value);
        return describedNumber(result, value);
      }
      case Action::kReadLong: {
        long value = kUntouched;
        const int result = filer.readItem(name, &value);
        return describedCount(result, value);
      }
      case Action::kReadText: {
        CString value = L"untouched";
        const int result = filer.readItem(name, &value);
        return std::to_string(result) + " \"" + narrow(value) + '"';
      }
      case Action::kReadPoint:
        return readOne<CKtPnt3D>(filer, name);
      case Action::kReadDirection:
        return readOne<CKtVect3D>(filer, name);
      case Action::kReadPoints:
        return readSeveral<CKtPnt3D>(filer, name);
      default:
        return readSeveral<CKtVect3D>(filer, name);
    }
  }

  template <class Value>
  static std::string readOne(CKtFiler& filer, const CString& name) {
    Value value(kUntouched, kUntouched, kUntouched);
    const int result = filer.readItem(name, &value);
    return describedPoint(result, plain(value));
  }

  template <class Entry>
  static std::string readSeveral(CKtFiler& filer, const CString& name) {
    std::vector<Entry> entries = {Entry(kUntouched, 0, 0)};
    long count = kUntouched;
    const int result = filer.readItem(name, &entries, &count);
    std::vector<Point> points;
    points.reserve(entries.size());
    for (const Entry& entry : entries) {
      points.push_back(plain(entry));
    }
    return describedList(result, points, count);
  }

  std::string patternCall(const Call& call) {
    if (call.action == Action::kSeek) {
      return std::to_string(at(call.filer)->seek(&pattern(call.other)));
    }
    CKtPatternFiler& filer = pattern(call.filer);
    if (call.action == Action::kClassName) {
      CString name = L"untouched";
      const int result = filer.getClassName(name);
      return std::to_string(result) + ' ' + narrow(name);
    }
    IXMLDOMNodePtr node;
    const int result = call.action == Action::kFirstItem
                           ? filer.getFirstChildNode(std::addressof(node))
                           : filer.getNextChildNode(std::addressof(node));
    return std::to_string(result) + ' ' + narrow(quorvan::nodeName(node));
  }

  static std::unique_ptr<CKtFiler> made(int filer) {
    if (filer >= kFirstPattern) {
      return std::make_unique<HandingOut<CKtPatternFiler>>();
    }
    return std::make_unique<HandingOut<CKtFiler>>();
  }

  static std::unique_ptr<CKtFiler> copied(int filer, const CKtFiler& other) {
    if (filer < kFirstPattern) {
      return std::make_unique<HandingOut<CKtFiler>>(other);
    }
    if (const auto* const pattern = dynamic_cast<const CKtPatternFiler*>(&other)) {
      return std::make_unique<HandingOut<CKtPatternFiler>>(*pattern);
    }
    std::unique_ptr<CKtFiler> copy = std::make_unique<HandingOut<CKtPatternFiler>>();
    *copy = other;
    return copy;
  }

  std::unique_ptr<CKtFiler>& at(int filer) { return m_filers[static_cast<std::size_t>(filer)]; }

  CKtPatternFiler& pattern(int filer) { return static_cast<CKtPatternFiler&>(*at(filer)); }

  std::array<std::unique_ptr<CKtFiler>, kFilers> m_filers;
  std::array<IXMLDOMNodePtr, kFilers> m_roots;  // in the caller's hands
};

}  // namespace

std::unique_ptr<Performance> libraryPerformance() {
  return std::make_unique<LibraryPerformance>();
}

}  // namespace quorvan::test::model
