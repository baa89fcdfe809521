// Where a fault is let loose: a filer open on a file of known content, and the checks that nothing
// was lost afterwards.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <quorvan/filer/filer.h>
#include <quorvan/filer/pattern_filer.h>
#include <quorvan/platform/message_box.h>

namespace quorvan::test {

inline constexpr const char* kStageFile = "stage.xml";
inline constexpr const wchar_t* kStagePath = L"stage.xml";

/// Whether the environment asks for the long form of the tests.
bool wantsLongTests();

class Stage {
 public:
  /// Puts the file there and opens it.
  Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  ~Stage();

  /// Messages shown since the stage was made.
  [[nodiscard]] static int messages();

  /// What the file held in the beginning.
  static std::string formerFile();

  /// Whatever happened before: another class element can be written with all of its items, the
  /// file can be saved, and then holds all former elements and the new one. Reports what is not so.
  void expectUsable();

  CKtFiler filer;
  std::unique_ptr<CKtPatternFiler> pattern;
  std::vector<CKtPnt3D> points;
  std::vector<CKtVect3D> vectors;
  CString text;
  CKtPnt3D point;
  CKtVect3D vector;
  double number = 0;
  long count = 0;

 private:
  MessageBoxHook m_formerHook;
};

/// Hands over a hidden straight bar, which is searched for before it is filed.
void exportHiddenBar();

}  // namespace quorvan::test
