// A host program: writes a drawing that is described in JSON to a transfer file.
//
//   json_host DRAWING.json FILE.xml
//
// A file that is there already is replaced. docs/drawing-json.md describes the JSON.

#include <nlohmann/json.hpp>
#include <quorvan/platform/com_error.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "drawing.h"
#include "json_element.h"

namespace {

nlohmann::json parseFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw DrawingError("cannot be opened");
  }
  return nlohmann::json::parse(file);
}

int transfer(const std::filesystem::path& from, const std::filesystem::path& to) {
  Drawing drawing;
  try {
    drawing = readDrawing(parseFile(from));
  } catch (const std::exception& error) {
    std::cerr << from.string() << ": " << error.what() << '\n';
    return 1;
  }
  try {
    writeDrawing(drawing, to);
  } catch (const _com_error& error) {
    std::cerr << to.string() << ": cannot be written (error 0x" << std::hex
              << static_cast<unsigned long>(error.Error()) << ")\n";
    return 1;
  } catch (const std::exception& error) {
    std::cerr << to.string() << ": cannot be written: " << error.what() << '\n';
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: json_host DRAWING.json FILE.xml\n";
    return 2;
  }
  return transfer(argv[1], argv[2]);
}
