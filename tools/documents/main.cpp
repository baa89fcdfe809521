// Writes the manual page and the completions of the shells into FOLDER, where they are installed
// from: the paths below it are those below share/.

#include <filesystem>
#include <fstream>
#include <iostream>

#include <tools/documents/documents.h>

namespace {

bool writeDocument(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  if (!out) {
    std::cerr << path.string() << ": cannot be written\n";
  }
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvan::tool;  // NOLINT(google-build-using-namespace)
  if (argc != 2) {
    std::cerr << "usage: quorvan_tool_documents FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const ProgramArguments program = collectArguments();
  const bool areWritten =
      writeDocument(folder / "man/man1/quorvan.1", manualPage(program)) &&
      writeDocument(folder / "bash-completion/completions/quorvan", bashCompletion(program)) &&
      writeDocument(folder / "zsh/site-functions/_quorvan", zshCompletion(program)) &&
      writeDocument(folder / "fish/vendor_completions.d/quorvan.fish", fishCompletion(program));
  return areWritten ? 0 : 1;
}
