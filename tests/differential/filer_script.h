// Random calls of CKtFiler's public operations: two filers over three files, and searches.
#pragma once

#include <array>
#include <memory>

#include <tests/differential/random.h>
#include <tests/differential/transcript.h>
#include <quorvan/filer/filer.h>

namespace quorvan::test {

class FilerScript {
 public:
  FilerScript(Random& random, Transcript& transcript);

  /// One call with its arguments.
  void step();

  /// Closes what is open and writes down all files.
  void finish();

 private:
  CKtFiler& filer() { return *m_filers[m_current]; }
  void open();
  void close();
  void beginWriting();
  void beginReading();
  void beginVector();
  void writeItem();
  void readItem();
  void search();
  void copyOrReplace();
  void writeDownFiles();
  static void writePatternItem(CKtFiler& pattern, Random& random);

  Random& m_random;
  Transcript& m_transcript;
  std::array<std::unique_ptr<CKtFiler>, 2> m_filers;
  std::size_t m_current = 0;
};

}  // namespace quorvan::test
