#include <tests/differential/filer_script.h>

#include <filesystem>
#include <fstream>

#include <tests/differential/script_values.h>
#include <quorvan/filer/pattern_filer.h>

namespace quorvan::test {

namespace {

constexpr std::array<const char*, 3> kFiles = {"a.xml", "b.xml", "foreign.xml"};

// What other programs may leave in a file: comments, repeated, incomplete and mistyped items.
constexpr std::string_view kForeign =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
    "<Other><!--made elsewhere--><A version=\"1\" index=\"1\"><Radius long=\"3\"/>"
    "<Radius double=\"4.5\"/><Color long=\"12abc\"/><Text string=\"&lt;\xE9&#8364;\"/>"
    "<Point X=\"1\" Z=\"3\"/><Points size=\"3\"><point X=\"1\" Y=\"2\" Z=\"3\"/>"
    "<x/><point X=\"4\" Y=\"5\" Z=\"6\"/></Points></A><B/><A index=\"9\"/>"
    "<CKtZantoLine version=\"70000\" index=\"-1\"><Vector size=\"2\"><Radius double=\"1.5\"/>"
    "</Vector></CKtZantoLine></Other>\r\n";

}  // namespace

FilerScript::FilerScript(Random& random, Transcript& transcript)
    : m_random(random), m_transcript(transcript) {
  for (const char* file : kFiles) {
    std::filesystem::remove(file);
  }
  std::ofstream("foreign.xml", std::ios::binary) << kForeign;
  for (auto& filer : m_filers) {
    filer = std::make_unique<CKtFiler>();
  }
}

void FilerScript::step() {
  const int kind = m_random.below(100);
  if (m_random.oneIn(12)) {
    m_current = 1 - m_current;
  }
  if (kind < 6) {
    open();
  } else if (kind < 10) {
    close();
  } else if (kind < 22) {
    beginWriting();
  } else if (kind < 32) {
    beginReading();
  } else if (kind < 42) {
    m_transcript.attempt("endClass", [this] { return filer().endClass(); });
  } else if (kind < 62) {
    writeItem();
  } else if (kind < 78) {
    readItem();
  } else if (kind < 84) {
    beginVector();
  } else if (kind < 90) {
    m_transcript.attempt("endVector", [this] { return filer().endVector(); });
  } else if (kind < 93) {
    m_transcript.attempt("getLastUsedIndex", [this] { return filer().getLastUsedIndex(); });
  } else if (kind < 98) {
    search();
  } else {
    copyOrReplace();
  }
}

void FilerScript::open() {
  const bool nowhere = m_random.oneIn(20);
  const CString path(nowhere ? "nowhere/a.xml" : m_random.of(kFiles));
  m_transcript.attempt("newFiler", [&] { return filer().newFiler(path); });
}

void FilerScript::close() {
  m_transcript.attempt("closeFiler", [this] { return filer().closeFiler(); });
  writeDownFiles();
}

void FilerScript::beginWriting() {
  const CString name = randomClassName(m_random);
  const auto version = static_cast<int>(randomLong(m_random));
  m_transcript.attempt("beginClass writing", [&] { return filer().beginClass(name, version); });
}

void FilerScript::beginReading() {
  const CString name = randomClassName(m_random);
  m_transcript.attempt("beginClass reading", [&] { return filer().beginClass(name); });
}

void FilerScript::beginVector() {
  const CString name = randomItemName(m_random);
  long count = randomLong(m_random);
  if (m_random.oneIn(2)) {
    m_transcript.attempt("beginVector writing", [&] { return filer().beginVector(name, count); });
  } else {
    m_transcript.attempt("beginVector reading", [&] { return filer().beginVector(name, &count); });
    m_transcript.value(count);
  }
}

void FilerScript::writeItem() {
  const CString name = randomItemName(m_random);
  const int kind = m_random.below(7);
  const double number = randomDouble(m_random);
  const long whole = randomLong(m_random);
  const CString text = randomText(m_random);
  const CKtPnt3D point = randomPoint(m_random);
  const CKtVect3D vector = randomVector(m_random);
  const std::vector<CKtPnt3D> points = randomPoints(m_random);
  const std::vector<CKtVect3D> vectors(points.size(), vector);
  const long count = m_random.oneIn(5) ? whole : static_cast<long>(points.size());
  m_transcript.attempt("writeItem " + std::to_string(kind), [&] {
    switch (kind) {
      case 0:
        return filer().writeItem(name, number);
      case 1:
        return filer().writeItem(name, whole);
      case 2:
        return filer().writeItem(name, text);
      case 3:
        return filer().writeItem(name, point);
      case 4:
        return filer().writeItem(name, vector);
      case 5:
        return filer().writeItem(name, points, count);
      default:
        return filer().writeItem(name, vectors, count);
    }
  });
}

void FilerScript::readItem() {
  const CString name = randomItemName(m_random);
  const int kind = m_random.below(7);
  double number = -77;
  long whole = -77;
  CString text(L"untouched");
  CKtPnt3D point(-7, -7, -7);
  CKtVect3D vector(-7, -7, -7);
  std::vector<CKtPnt3D> points(1, point);
  std::vector<CKtVect3D> vectors(1, vector);
  m_transcript.attempt("readItem " + std::to_string(kind), [&] {
    switch (kind) {
      case 0:
        return filer().readItem(name, &number);
      case 1:
        return filer().readItem(name, &whole);
      case 2:
        return filer().readItem(name, &text);
      case 3:
        return filer().readItem(name, &point);
      case 4:
        return filer().readItem(name, &vector);
      case 5:
        return filer().readItem(name, &points, &whole);
      default:
        return filer().readItem(name, &vectors, &whole);
    }
  });
  m_transcript.value(number);
  m_transcript.value(whole);
  m_transcript.value(text);
  m_transcript.value(point);
  m_transcript.value(vector);
  for (const CKtPnt3D& entry : points) {
    m_transcript.value(entry);
  }
  for (const CKtVect3D& entry : vectors) {
    m_transcript.value(entry);
  }
}

void FilerScript::writePatternItem(CKtFiler& pattern, Random& random) {
  const CString name = randomItemName(random);
  if (random.oneIn(3)) {
    pattern.writeItem(name, randomDouble(random));
  } else if (random.oneIn(2)) {
    pattern.writeItem(name, randomPoint(random));
  } else {
    const std::vector<CKtPnt3D> points = randomPoints(random);
    pattern.writeItem(name, points, static_cast<long>(points.size()));
  }
}

void FilerScript::search() {
  CKtPatternFiler pattern;
  m_transcript.attempt("seek", [&] {
    pattern.newFiler(CString(L"pattern.xml"));
    pattern.beginClass(randomClassName(m_random), 1);
    for (int items = m_random.below(3); items > 0; --items) {
      writePatternItem(pattern, m_random);
    }
    pattern.endClass();
    return filer().seek(&pattern);
  });
  m_transcript.attempt("close pattern", [&] { return pattern.closeFiler(); });
  std::filesystem::remove("pattern.xml");
}

void FilerScript::copyOrReplace() {
  if (m_random.oneIn(2)) {
    *m_filers[m_current] = *m_filers[1 - m_current];
    m_transcript.line("copied");
  } else {
    m_filers[m_current] = std::make_unique<CKtFiler>();
    m_transcript.line("replaced");
    writeDownFiles();
  }
}

void FilerScript::writeDownFiles() {
  for (const char* file : kFiles) {
    m_transcript.savedFile(file);
  }
}

void FilerScript::finish() {
  for (auto& filer : m_filers) {
    filer.reset();
    writeDownFiles();
  }
}

}  // namespace quorvan::test
