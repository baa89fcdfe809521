// The attributes that every bar and link ends with.
#pragma once

#include <quorvan/text/cstring.h>

namespace quorvan {

/// Steel, diameter, bar mark and visibility of a bar; the last five items of its class element.
struct BarAttributes {
  CString steelGrade;
  CString adherence;
  double diameter = 0.0;
  long reference = 0;
  bool hidden = false;
};

}  // namespace quorvan
