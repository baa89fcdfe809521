#include <tests/filer/model/performance.h>

#include <array>
#include <vector>

#include <tests/filer/model/description.h>

namespace quorvan::test::model {

namespace {

class ModelPerformance final : public Performance {
 public:
  std::string perform(const Call& call) override {
    std::string seen;
    try {
      seen = describedCall(call);
    } catch (const Raised raised) {
      seen = describedError(call.action, raised == Raised::kPointer, raised == Raised::kFail);
    }
    for (const FilerModel& filer : m_filers) {
      seen += ' ' + std::to_string(filer.getLastUsedIndex());
    }
    return seen;
  }

  std::string file(const std::string& path) override {
    const auto found = m_disk.files.find(path);
    return found == m_disk.files.end() ? "(none)" : fileText(*found->second);
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

  std::string callersCall(const Call& call) {
    Node*& root = m_roots[static_cast<std::size_t>(call.filer)];
    if (call.action == Action::kHandOut) {
      root = nullptr;
      root = at(call.filer).handOut();
      return root == nullptr ? "" : root->name;
    }
    Node* const first = root == nullptr ? nullptr : root->firstChild();
    if (first == nullptr || !first->takesAttributes()) {
      return "nothing to turn";
    }
    link(*root, *first);
    return first->name;
  }

  std::string fileCall(const Call& call) {
    FilerModel& filer = at(call.filer);
    switch (call.action) {
      case Action::kPutFile:
        m_disk.files[call.name] = m_disk.forest.reread(*call.sample->document);
        return "put";
      case Action::kOpen:
        return std::to_string(filer.newFiler(call.name));
      case Action::kClose:
        return std::to_string(filer.closeFiler());
      case Action::kRenew:
        filer.destroy();
        filer = FilerModel(m_disk);
        return "renewed";
      case Action::kAssign:
        filer = FilerModel(at(call.other));
        return "assigned";
      default: {
        const FilerModel copy(at(call.other));
        filer.destroy();
        filer = copy;
        return "copied";
      }
    }
  }

  std::string scopeCall(const Call& call) {
    FilerModel& filer = at(call.filer);
    switch (call.action) {
      case Action::kBeginClass:
        return std::to_string(filer.beginClass(call.name, call.number));
      case Action::kReadClass:
        return std::to_string(filer.beginClass(call.name));
      case Action::kEndClass:
        return std::to_string(filer.endClass());
      case Action::kBeginVector:
        return std::to_string(filer.beginVector(call.name, call.number));
      case Action::kReadVector: {
        std::int32_t count = kUntouched;
        const int result = filer.beginVector(call.name, &count);
        return describedCount(result, count);
      }
      default:
        return std::to_string(filer.endVector());
    }
  }

  int writeCall(const Call& call) {
    FilerModel& filer = at(call.filer);
    const Point point{call.value, call.value + 1, -call.value};
    const std::vector<Point> entries(listLength(call), point);
    switch (call.action) {
      case Action::kWriteDouble:
        return filer.writeItem(call.name, call.value);
      case Action::kWriteLong:
        return filer.writeItem(call.name, call.number);
      case Action::kWriteText:
        return filer.writeItem(call.name, call.text);
      case Action::kWritePoint:
        return filer.writePoint(call.name, point);
      case Action::kWriteDirection:
        return filer.writeVector(call.name, point);
      case Action::kWritePoints:
        return filer.writeList(call.name, "point", entries, call.number);
      default:
        return filer.writeList(call.name, "vectorPoints", entries, call.number);
    }
  }

  std::string readCall(const Call& call) {
    FilerModel& filer = at(call.filer);
    switch (call.action) {
      case Action::kReadDouble: {
        double value = kUntouched;
        const int result = filer.readItem(call.name, &value);
        return describedNumber(result, value);
      }
      case Action::kReadLong: {
        std::int32_t value = kUntouched;
        const int result = filer.readItem(call.name, &value);
        return describedCount(result, value);
      }
      case Action::kReadText: {
        std::string value = "untouched";
        const int result = filer.readItem(call.name, &value);
        return std::to_string(result) + " \"" + value + '"';
      }
      case Action::kReadPoint:
      case Action::kReadDirection: {
        Point point{kUntouched, kUntouched, kUntouched};
        const int result = filer.readPoint(call.name, &point);
        return describedPoint(result, point);
      }
      default: {
        std::vector<Point> list = {{kUntouched, 0, 0}};
        std::int32_t count = kUntouched;
        const int result = filer.readList(call.name, &list, &count);
        return describedList(result, list, count);
      }
    }
  }

  std::string patternCall(const Call& call) {
    FilerModel& filer = at(call.filer);
    if (call.action == Action::kSeek) {
      return std::to_string(filer.seek(at(call.other)));
    }
    if (call.action == Action::kClassName) {
      std::string name = "untouched";
      const int result = filer.getClassName(&name);
      return std::to_string(result) + ' ' + name;
    }
    const Node* node = nullptr;
    const int result = call.action == Action::kFirstItem ? filer.getFirstChildNode(&node)
                                                         : filer.getNextChildNode(&node);
    return std::to_string(result) + ' ' + (node == nullptr ? "" : node->name);
  }

  FilerModel& at(int filer) { return m_filers[static_cast<std::size_t>(filer)]; }

  Disk m_disk;
  std::array<FilerModel, kFilers> m_filers = {FilerModel(m_disk), FilerModel(m_disk),
                                              FilerModel(m_disk), FilerModel(m_disk)};
  std::array<Node*, kFilers> m_roots = {};
};

}  // namespace

std::unique_ptr<Performance> modelPerformance() {
  return std::make_unique<ModelPerformance>();
}

}  // namespace quorvan::test::model
