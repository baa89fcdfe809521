#include <tests/faults/scenarios.h>

#include <filesystem>

namespace quorvan::test {

namespace {

void nothing(Stage& /*stage*/) {}

void openForWriting(Stage& stage) {
  stage.filer.beginClass(L"Class", 1);
}

void openForReading(Stage& stage) {
  stage.filer.beginClass(L"Former");
}

void openScope(Stage& stage) {
  openForWriting(stage);
  stage.filer.beginVector(L"Open", 1);
}

void openScopeForReading(Stage& stage) {
  openForReading(stage);
  stage.filer.beginVector(L"Scope", &stage.count);
}

void makePattern(Stage& stage) {
  std::filesystem::remove("pattern.xml");
  stage.pattern = std::make_unique<CKtPatternFiler>();
  stage.pattern->newFiler(L"pattern.xml");
  stage.pattern->beginClass(L"Former", 1);
  stage.pattern->writeItem(L"Long", 2);
  stage.pattern->endClass();
}

void openPattern(Stage& stage) {
  makePattern(stage);
  CString name;
  stage.pattern->getClassName(name);
}

std::vector<Scenario> documentScenarios() {
  return {
      {"newFiler on a file", nothing, [](Stage& s) { return s.filer.newFiler(kStagePath); }, 1,
       true},
      {"newFiler on none", [](Stage&) { std::filesystem::remove("none.xml"); },
       [](Stage&) {
         CKtFiler other;
         return other.newFiler(L"none.xml");
       },
       1, true},
      {"closeFiler", openForWriting, [](Stage& s) { return s.filer.closeFiler(); }},
      {"copying", openForWriting,
       [](Stage& s) {
         const CKtFiler copy(s.filer);
         return 1;
       },
       1, false, true},
      {"assigning", openForWriting,
       [](Stage& s) {
         CKtFiler other;
         other = s.filer;
         return other.getLastUsedIndex() == 2 ? 1 : 0;
       },
       1, false, true},
  };
}

std::vector<Scenario> scopeScenarios() {
  return {
      {"beginClass", nothing, [](Stage& s) { return s.filer.beginClass(L"Class", 1); }},
      {"beginClass again", openForWriting,
       [](Stage& s) { return s.filer.beginClass(L"Former", 1); }},
      {"beginClass for reading", nothing, [](Stage& s) { return s.filer.beginClass(L"Former"); }},
      {"beginClass for reading on", openForReading,
       [](Stage& s) { return s.filer.beginClass(L"Former"); }},
      {"endClass", openForWriting, [](Stage& s) { return s.filer.endClass(); }},
      {"endClass after reading", openForReading, [](Stage& s) { return s.filer.endClass(); }, 0},
      {"getLastUsedIndex", openForWriting, [](Stage& s) { return s.filer.getLastUsedIndex(); }, 2},
      {"beginVector", openForWriting, [](Stage& s) { return s.filer.beginVector(L"New", 2); }},
      {"beginVector again", openScope, [](Stage& s) { return s.filer.beginVector(L"New", 2); }},
      {"beginVector for reading", openForReading,
       [](Stage& s) { return s.filer.beginVector(L"Scope", &s.count); }},
      {"endVector", openScope, [](Stage& s) { return s.filer.endVector(); }},
  };
}

std::vector<Scenario> writingScenarios() {
  return {
      {"writeItem double", openForWriting, [](Stage& s) { return s.filer.writeItem(L"I", 1.5); }},
      {"writeItem long", openForWriting, [](Stage& s) { return s.filer.writeItem(L"I", 7L); }},
      {"writeItem text", openForWriting, [](Stage& s) { return s.filer.writeItem(L"I", L"t"); }},
      {"writeItem point", openForWriting,
       [](Stage& s) { return s.filer.writeItem(L"I", CKtPnt3D(1, 2, 3)); }},
      {"writeItem vector", openForWriting,
       [](Stage& s) { return s.filer.writeItem(L"I", CKtVect3D(1, 2, 3)); }},
      {"writeItem points", openForWriting,
       [](Stage& s) {
         return s.filer.writeItem(L"I", std::vector<CKtPnt3D>{{1, 2, 3}, {4, 5, 6}}, 2);
       }},
      {"writeItem vectors", openForWriting,
       [](Stage& s) {
         return s.filer.writeItem(L"I", std::vector<CKtVect3D>{{1, 2, 3}, {4, 5, 6}}, 2);
       }},
      {"writeItem in a scope", openScope, [](Stage& s) { return s.filer.writeItem(L"I", 7L); }},
  };
}

std::vector<Scenario> readingScenarios() {
  return {
      {"readItem double", openForReading,
       [](Stage& s) { return s.filer.readItem(L"Double", &s.number); }},
      {"readItem long", openForReading,
       [](Stage& s) { return s.filer.readItem(L"Long", &s.count); }},
      {"readItem text", openForReading,
       [](Stage& s) { return s.filer.readItem(L"Text", &s.text); }},
      {"readItem point", openForReading,
       [](Stage& s) { return s.filer.readItem(L"Point", &s.point); }},
      {"readItem vector", openForReading,
       [](Stage& s) { return s.filer.readItem(L"Vector", &s.vector); }},
      {"readItem points", openForReading,
       [](Stage& s) { return s.filer.readItem(L"List", &s.points, &s.count); }},
      {"readItem vectors", openForReading,
       [](Stage& s) { return s.filer.readItem(L"List", &s.vectors, &s.count); }},
      {"readItem in a scope", openScopeForReading,
       [](Stage& s) { return s.filer.readItem(L"Inner", &s.count); }},
  };
}

std::vector<Scenario> searchScenarios() {
  return {
      {"seek", makePattern, [](Stage& s) { return s.filer.seek(s.pattern.get()); }, 2},
      {"seek again",
       [](Stage& s) {
         makePattern(s);
         s.filer.seek(s.pattern.get());
       },
       [](Stage& s) { return s.filer.seek(s.pattern.get()); }, 2},
      {"getClassName", makePattern, [](Stage& s) { return s.pattern->getClassName(s.text); }},
      {"getFirstChildNode", openPattern,
       [](Stage& s) {
         IXMLDOMNodePtr node;
         return s.pattern->getFirstChildNode(std::addressof(node));
       }},
      {"getNextChildNode", openPattern,
       [](Stage& s) {
         IXMLDOMNodePtr node;
         return s.pattern->getNextChildNode(std::addressof(node));
       },
       0},
  };
}

}  // namespace

std::vector<Scenario> filerScenarios() {
  std::vector<Scenario> all;
  for (const auto& kind : {documentScenarios(), scopeScenarios(), writingScenarios(),
                           readingScenarios(), searchScenarios()}) {
    all.insert(all.end(), kind.begin(), kind.end());
  }
  return all;
}

}  // namespace quorvan::test
