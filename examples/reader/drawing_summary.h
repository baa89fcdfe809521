// What a transfer file holds, gathered through the element classes.
#pragma once

#include <quorvan/text/cstring.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// How many bar elements there are of a kind, and how many of those are hidden.
struct BarCount {
  int all = 0;
  int hidden = 0;
};

/// The bars of one reference number.
struct Mark {
  std::set<std::string> shapes;  // class names
  std::set<double> diameters;
  BarCount count;
};

/// A series of bars along a line.
struct Series {
  CString barClass;
  int barIndex = 0;  // "index" of the repeated bar; -1 when it is not in the file
  int viewPoint = 0;
  bool hidden = false;
  std::size_t bars = 0;
  std::vector<double> spacings;
};

struct DrawingSummary {
  bool hasControlRecord = false;
  CString name;
  CString version;
  long servicePack = 0;
  long checkSum = 0;
  std::map<std::string, int> elements;                        // by class
  std::map<std::string, int> incomplete;                      // those that lack an item, by class
  std::map<std::pair<CString, double>, BarCount> barsByKind;  // by steel grade and diameter
  std::map<long, Mark> marks;                                 // by reference
  std::vector<Series> series;
  std::vector<CString> texts;  // each once, in the order of the file
};

/// Reads the file at `path`. It is let go of without saving it back; all the same see ScratchCopy.
/// A file that cannot be parsed has no elements.
DrawingSummary summarize(const std::filesystem::path& path);
