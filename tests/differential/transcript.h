// What a script of calls did: every call with its result, every value read, every file saved.
#pragma once

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/text/cstring.h>

namespace quorvan::test {

class Transcript {
 public:
  void line(std::string_view text);

  /// Makes the call and writes its result, or what it raised, after `name`.
  template <class Call>
  int attempt(std::string_view name, Call call) {
    int result = 0;
    std::string outcome;
    try {
      result = call();
      outcome = std::to_string(result);
    } catch (const _com_error& error) {
      outcome = describe(error);
    } catch (const std::out_of_range&) {
      outcome = "raised out_of_range";
    }
    line(std::string(name) + " -> " + outcome);
    return result;
  }

  void value(double number);
  void value(long number);
  void value(const CString& text);
  void value(const CKtPnt3D& point);
  void value(const CKtVect3D& vector);

  /// Writes down the file as the library saved it. Where the document service is known to differ,
  /// the file is put right as well, so that what is read from it later is the same everywhere.
  void savedFile(const char* path);

  [[nodiscard]] const std::string& text() const { return m_text; }

 private:
  static std::string describe(const _com_error& error);

  std::string m_text;
};

}  // namespace quorvan::test
