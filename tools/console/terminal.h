// What differs between systems about the program's arguments, streams and folders.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::tool {

/// The program's arguments as UTF-8, without the program's name.
std::vector<std::string> utf8Arguments(int count, char** arguments);

/// Makes the standard streams carry UTF-8 bytes unchanged.
void prepareStandardStreams();

/// Whether standard error and standard output are terminals.
bool errorIsTerminal();
bool outputIsTerminal();

/// Whether standard input comes from the file of that path.
bool inputIsFile(const std::filesystem::path& path);

/// The path that the UTF-8 text names, and back.
std::filesystem::path toPath(std::string_view utf8);
std::string toUtf8(const std::filesystem::path& path);

}  // namespace quorvan::tool
