// What is seen of a call: its result or error, what it handed out, and afterwards the last used
// index of every filer.
#pragma once

#include <memory>
#include <string>

#include <tests/filer/model/script.h>

namespace quorvan::test::model {

/// Performs calls one after the other and describes each.
class Performance {
 public:
  virtual ~Performance() = default;
  virtual std::string perform(const Call& call) = 0;

  /// The content of a file, "(none)" when there is none.
  virtual std::string file(const std::string& path) = 0;
};

/// By the library, on files of the working folder, which are removed first.
std::unique_ptr<Performance> libraryPerformance();

/// By the model.
std::unique_ptr<Performance> modelPerformance();

/// The files that scripts use. The last cannot be written.
extern const char* const kScriptFiles[4];

}  // namespace quorvan::test::model
