#include <tests/differential/transcript.h>

#include <bit>
#include <filesystem>
#include <fstream>

#include <tests/support/known_differences.h>
#include <tests/support/saved_file.h>
#include <quorvan/text/utf8.h>

namespace quorvan::test {

namespace {

std::string hexadecimal(std::uint64_t number) {
  std::string digits;
  do {
    digits.insert(digits.begin(), "0123456789abcdef"[number % 16]);
    number /= 16;
  } while (number != 0);
  return digits;
}

// One line of plain ASCII, whatever the bytes.
std::string escape(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (byte >= ' ' && byte <= '~' && byte != '\\') {
      text += byte;
    } else {
      text += '\\' + hexadecimal(static_cast<unsigned char>(byte)) + ';';
    }
  }
  return text;
}

}  // namespace

void Transcript::line(std::string_view text) {
  m_text += text;
  m_text += '\n';
}

void Transcript::value(double number) {
  line("  double " + hexadecimal(std::bit_cast<std::uint64_t>(number)));
}

void Transcript::value(long number) {
  line("  long " + std::to_string(number));
}

void Transcript::value(const CString& text) {
  line("  text " + escape(toUtf8(text.view())));
}

void Transcript::value(const CKtPnt3D& point) {
  value(point.X());
  value(point.Y());
  value(point.Z());
}

void Transcript::value(const CKtVect3D& vector) {
  value(vector.X());
  value(vector.Y());
  value(vector.Z());
}

void Transcript::savedFile(const char* path) {
  if (!std::filesystem::exists(path)) {
    line(std::string("no file ") + path);
    return;
  }
  const std::string bytes = savedBytes(path);
  if (usesWinesDocuments()) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  line(std::string("file ") + path + ' ' + escape(bytes));
}

// The codes that a file system gives are the system's own.
std::string Transcript::describe(const _com_error& error) {
  const HRESULT code = error.Error();
  if (code == E_POINTER) {
    return "raised E_POINTER";
  }
  return code < 0 ? "raised a COM error" : "raised a COM error with a code of success";
}

}  // namespace quorvan::test
