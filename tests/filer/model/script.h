// Scripts of filer calls, performed by the library and by the model. Each call gives a line of
// text with all that can be seen of it; the two must say the same.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <tests/filer/model/filer_model.h>
#include <tests/filer/model/tree.h>

namespace quorvan::test::model {

/// The filers of a script by number; those from kFirstPattern on are pattern filers.
inline constexpr int kFilers = 4;
inline constexpr int kFirstPattern = 2;

enum class Action {
  kPutFile,      // replaces the file `name` by `sample`
  kOpen,         // newFiler(name)
  kClose,        // closeFiler
  kRenew,        // destroys the filer and makes another
  kAssign,       // filer = other
  kCopy,         // destroys the filer and makes a copy of the other
  kBeginClass,   // beginClass(name, number)
  kReadClass,    // beginClass(name)
  kEndClass,     //
  kBeginVector,  // beginVector(name, number)
  kReadVector,   // beginVector(name, &count)
  kEndVector,    //
  kWriteDouble,
  kWriteLong,
  kWriteText,
  kWritePoint,
  kWriteDirection,
  kWritePoints,
  kWriteDirections,
  kReadDouble,
  kReadLong,
  kReadText,
  kReadPoint,
  kReadDirection,
  kReadPoints,
  kReadDirections,
  kSeek,       // filer.seek(other)
  kClassName,  // getClassName, of pattern filers only, as the two below
  kFirstItem,
  kNextItem,
  kHandOut,  // the root comes into a caller's hands and stays there
  kTurn,     // the caller moves the first child of that root to the end, past the filer
};

/// A document that a script puts on disk.
struct Sample {
  Forest forest;
  Node* document = nullptr;
};

struct Call {
  Action action;
  int filer = 0;
  int other = 0;
  std::string name = {};  // of a file, class or item, UTF-8
  std::string text = {};
  double value = 0;
  std::int32_t number = 0;
  std::shared_ptr<const Sample> sample = {};
};

using Script = std::vector<Call>;

/// Where both performances say the same: empty. Else the number of the first call at which they
/// differ and what each saw of it.
std::string difference(const Script& script);

/// The fewest calls found that still make a difference, one a line with the documents they put on
/// disk, and the difference.
std::string shrunk(Script script);

}  // namespace quorvan::test::model
