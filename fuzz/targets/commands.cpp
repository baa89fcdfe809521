// Any bytes as a file, given to every command of the program.
#include <iterator>
#include <string>

#include <fuzz/dxf_check.h>
#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <fuzz/tool_calls.h>

namespace {

using quorvan::fuzz::callTool;
using quorvan::fuzz::readBytes;
using quorvan::fuzz::require;
using quorvan::fuzz::writeBytes;

constexpr int kUnreadable = 2;

bool saysRepairable(const std::string& report) {
  return report.find("[--repair]") != std::string::npos;
}

// A mended file has nothing left to be mended, and is mended to itself.
void repair() {
  callTool({"check", "file.xml", "--repair", "-o", "mended.xml"});
  require(!saysRepairable(callTool({"check", "mended.xml"}).out), "left to be mended");
  callTool({"check", "mended.xml", "--repair", "-o", "again.xml"});
  require(readBytes("mended.xml") == readBytes("again.xml"), "a mended file is mended again");
}

// The file of a listing is listed, and written, as itself.
void listAndWrite() {
  writeBytes("listing.json", callTool({"list", "--json", "file.xml"}).out);
  if (callTool({"write", "listing.json", "-o", "written.xml"}).status != 0) {
    return;  // items are missing, or no class of the format
  }
  writeBytes("listing.json", callTool({"list", "--json", "written.xml"}).out);
  require(callTool({"write", "listing.json", "-o", "again.xml"}).status == 0, "no drawing");
  require(readBytes("written.xml") == readBytes("again.xml"), "a listing gives another file");
}

// One form a file: which one follows from its size.
void drawForCad(std::size_t size) {
  constexpr const char* kVersions[] = {"R12", "2000"};
  constexpr const char* kBars[] = {"width", "axis", "outline"};
  const char* const version = kVersions[size % std::size(kVersions)];
  const char* const bars = kBars[size / std::size(kVersions) % std::size(kBars)];
  const int status =
      callTool({"draw", "file.xml", "-o", "file.dxf", "--dxf", version, "--bars", bars}).status;
  require(status == 0, "no DXF");
  quorvan::fuzz::checkDxf(readBytes("file.dxf"));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeBytes("file.xml", std::string(data, data + size));
  callTool({"check", "--json", "file.xml"});
  if (callTool({"info", "--json", "file.xml"}).status == kUnreadable) {
    return 0;
  }
  callTool({"info", "file.xml"});
  callTool({"list", "file.xml"});
  callTool({"list", "file.xml", "--csv"});
  callTool({"bars", "file.xml"});
  callTool({"bars", "file.xml", "--json"});
  require(callTool({"draw", "file.xml", "-o", "file.svg"}).status == 0, "no picture");
  require(callTool({"draw", "file.xml", "-o", "file.html"}).status == 0, "no page");
  drawForCad(size);
  require(callTool({"diff", "file.xml", "file.xml"}).status == 0, "a file differs from itself");
  repair();
  listAndWrite();
  return 0;
}
