#include <tools/readers/reader_sources.h>

#include <tools/readers/languages.h>

namespace quorvan::tool {

namespace {

constexpr ReaderSource kSources[] = {
    {"quorvan/reading/drawing_elements.h", cppParts},
    {"bindings/python/quorvan/elements.py", pythonParts},
    {"examples/csharp/Elements.cs", csharpParts},
    {"examples/pascal/quorvanelements.pas", pascalParts},
};

}  // namespace

std::span<const ReaderSource> readerSources() {
  return kSources;
}

}  // namespace quorvan::tool
