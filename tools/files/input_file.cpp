#include <tools/files/input_file.h>

#include <iostream>
#include <iterator>

#include <quorvan/text/utf8.h>

#include <tools/console/terminal.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

namespace {

constexpr const char* kInputName = "input.xml";

std::string standardInput() {
  return {std::istreambuf_iterator<char>(std::cin), {}};
}

bool isUtf8Text(const std::string& text) {
  return quorvan::toUtf8(fromUtf8(text).GetString()) == text;
}

}  // namespace

InputFile::InputFile(const std::string& name) : m_name(name), m_path(toPath(name)) {
  const bool isStream = name == kStandardStream;
  if (isStream) {
    m_name = "standard input";
  } else if (isUtf8Text(name)) {
    return;
  }
  m_folder.emplace(std::filesystem::temp_directory_path());
  const std::filesystem::path file = m_folder->path() / kInputName;
  writeBytes(file, isStream ? standardInput() : readBytes(m_path, m_name));
  m_path = file;
}

}  // namespace quorvan::tool
