// Any bytes as a drawing in JSON.
#include <string>

#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <fuzz/tool_calls.h>

using quorvan::fuzz::callTool;
using quorvan::fuzz::readBytes;
using quorvan::fuzz::require;
using quorvan::fuzz::writeBytes;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeBytes("drawing.json", std::string(data, data + size));
  if (callTool({"write", "drawing.json", "-o", "written.xml"}).status != 0) {
    return 0;
  }
  writeBytes("listing.json", callTool({"list", "--json", "written.xml"}).out);
  require(callTool({"write", "listing.json", "-o", "again.xml"}).status == 0, "no drawing");
  require(readBytes("written.xml") == readBytes("again.xml"), "a listing gives another file");
  return 0;
}
