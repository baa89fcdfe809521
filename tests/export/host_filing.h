// A host at work: the flat functions, the files around them and the messages shown.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <quorvan/export/export.h>

namespace quorvan::test {

inline constexpr const char* kDrawing = "drawing.xml";
inline constexpr const wchar_t* kDrawingName = L"drawing.xml";
inline constexpr const char* kScratch = "TempFiler.xml";

/// Begins every test with no filing open, nothing pushed and no files, and ends it that way.
class HostFiling : public testing::Test {
 protected:
  HostFiling();
  ~HostFiling() override;

  /// Opens the drawing.
  static void start() { startFiling(kDrawingName); }

  /// Closes it without repartitions and control record, and gives its bytes.
  static std::string saveAlone();

  /// Closes it with a plain control record.
  static void end() { endFiling(L"1.0", 0, L"Drawing", 0); }

  /// The control record that `end` files, as the file has it.
  static std::string controlRecord(int index = 1);
};

/// The messages that are shown while it lives, instead of a box.
class MessageLog {
 public:
  MessageLog();
  ~MessageLog();
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;

  [[nodiscard]] static const std::vector<std::wstring>& messages();
};

/// The drawing's class elements and their indexes, as "CKtZantoLine 1, CKtZantoLine 2".
std::string indexes();

}  // namespace quorvan::test
