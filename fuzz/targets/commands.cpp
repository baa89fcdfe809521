// Any bytes as a file, given to every command of the program.
#include <string>

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
  require(callTool({"diff", "file.xml", "file.xml"}).status == 0, "a file differs from itself");
  repair();
  listAndWrite();
  return 0;
}
