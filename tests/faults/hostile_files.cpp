#include <tests/faults/hostile_files.h>

#include <tests/faults/stage.h>

namespace quorvan::test {

namespace {

using namespace std::string_literals;

void repeat(std::ofstream& file, const std::string& text, std::size_t times) {
  for (std::size_t i = 0; i < times; ++i) {
    file << text;
  }
}

// A file whose root element holds what is made.
template <class Make>
auto inRoot(const Make& make) {
  return [make](std::ofstream& file, std::size_t size) {
    file << "<D>";
    make(file, size);
    file << "</D>";
  };
}

// The same text so many times in an attribute's value.
auto inValue(const std::string& text) {
  return inRoot([text](std::ofstream& file, std::size_t size) {
    file << "<a string=\"";
    repeat(file, text, size);
    file << "\"/>";
  });
}

// Entities that each use the one before ten times.
std::string nestedEntities(std::size_t levels) {
  std::string file = "<!DOCTYPE D [<!ENTITY e0 \"0123456789\">";
  for (std::size_t i = 1; i <= levels; ++i) {
    file += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int k = 0; k < 10; ++k) {
      file += "&e" + std::to_string(i - 1) + ";";
    }
    file += "\">";
  }
  return file + "]><D>&e" + std::to_string(levels) + ";</D>";
}

std::vector<HostileFile> structures() {
  return {
      {"depth", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         repeat(file, "<a>", size);
         repeat(file, "</a>", size);
       }},
      {"attributes", 1'000'000, false, inRoot([](std::ofstream& file, std::size_t size) {
         file << "<a";
         for (std::size_t i = 0; i < size; ++i) {
           file << " a" << i << "=''";
         }
         file << "/>";
       })},
      {"many names", 300'000, true, inRoot([](std::ofstream& file, std::size_t size) {
         for (std::size_t i = 0; i < size; ++i) {
           file << "<n" << i << "/>";
         }
       })},
      {"many references", 1'000'000, true, inValue("&#38;")},
      {"many comments", 500'000, true,
       inRoot([](std::ofstream& file, std::size_t size) { repeat(file, "<!---->", size); })},
      {"unclosed start tags", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) { repeat(file, "<a ", size); }},
      {"unclosed comment", 5'000'000, false,
       [](std::ofstream& file, std::size_t size) { file << "<D><!--" << std::string(size, '-'); }},
  };
}

std::vector<HostileFile> longParts() {
  const std::size_t longest = wantsLongTests() ? 100'000'000 : 10'000'000;
  return {
      {"long element name", 10'000'000, true, inRoot([](std::ofstream& file, std::size_t size) {
         file << '<' << std::string(size, 'n') << "/>";
       })},
      {"long attribute name", 10'000'000, true, inRoot([](std::ofstream& file, std::size_t size) {
         file << "<a " << std::string(size, 'n') << "='1'/>";
       })},
      {"long value", longest, true, inValue("v")},
      {"long text", longest, true,
       inRoot([](std::ofstream& file, std::size_t size) { file << std::string(size, 't'); })},
      {"long instruction", longest, true, inRoot([](std::ofstream& file, std::size_t size) {
         file << "<?p " << std::string(size, 'v') << "?>";
       })},
  };
}

std::vector<HostileFile> entities() {
  return {
      {"nested entities", 64, false,
       [](std::ofstream& file, std::size_t size) { file << nestedEntities(size); }},
      {"one long entity", 100'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [<!ENTITY e '" << std::string(size, 'x') << "'>]><D>";
         repeat(file, "&e;", size);
         file << "</D>";
       }},
      {"a chain of entities", 50'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [<!ENTITY e0 ''>";
         for (std::size_t i = 1; i < size; ++i) {
           file << "<!ENTITY e" << i << " '&e" << i - 1 << ";'>";
         }
         file << "]><D a='&e" << size - 1 << ";'>&e" << size - 1 << ";</D>";
       }},
      {"many entities", 200'000, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [";
         for (std::size_t i = 0; i < size; ++i) {
           file << "<!ENTITY e" << i << " 'x'>";
         }
         file << "]><D></D>";
       }},
  };
}

// What the parser does for a declaration or a name, times what it does that for.
std::vector<HostileFile> declarations() {
  return {
      {"declared attributes times elements", 20'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [";
         for (std::size_t i = 0; i < size; ++i) {
           file << "<!ATTLIST a a" << i << " CDATA ''>";
         }
         file << "]><D>";
         repeat(file, "<a/>", size);
         file << "</D>";
       }},
      {"declared attributes times attributes", 1'400, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [<!ATTLIST a";
         for (std::size_t i = 0; i < size; ++i) {
           file << " a" << i << " NMTOKEN ''";
         }
         file << ">]><D><a";
         for (std::size_t i = 0; i < size; ++i) {
           file << " a" << i << "=''";
         }
         file << "/><a/></D>";
       }},
      {"attributes of type ID", 200'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [";
         for (std::size_t i = 0; i < size; ++i) {
           file << "<!ATTLIST a a" << i << " ID #IMPLIED>";
         }
         file << "]><D/>";
       }},
      {"a long namespace address times names", 40'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<D xmlns:p='" << std::string(4 * size, 'n') << "'>";
         repeat(file, "<a p:b='1'/>", size);
         file << "</D>";
       }},
  };
}

std::vector<HostileFile> encodings() {
  return {
      {"NUL", 1'000'000, false, inValue("\0"s)},
      {"overlong UTF-8", 1'000'000, false, inValue("\xC0\xAF")},
      {"surrogates in UTF-8", 1'000'000, false, inValue("\xED\xA0\x80")},
      {"surrogates by number", 1'000'000, false, inValue("&#xD800;")},
      {"lone surrogates in UTF-16", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "\xFF\xFE<\0D\0>\0"s;
         repeat(file, "\x00\xD8"s, size);
         file << "<\0/\0D\0>\0"s;
       }},
      {"Latin-1 that says it is UTF-8", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<?xml version='1.0' encoding='UTF-8'?><D><a string='" << std::string(size, '\xE9')
              << "'/></D>";
       }},
      {"ASCII that says it is UTF-16", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<?xml version='1.0' encoding='UTF-16'?><D>" << std::string(size, ' ') << "</D>";
       }},
      {"an encoding of that name there is not", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<?xml version='1.0' encoding='" << std::string(size, 'x') << "'?><D></D>";
       }},
  };
}

}  // namespace

void HostileFile::write(const std::string& path, std::size_t wanted) const {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  make(file, wanted);
}

const std::vector<HostileFile>& hostileFiles() {
  static const std::vector<HostileFile> all = [] {
    std::vector<HostileFile> files;
    for (const auto& kind : {structures(), longParts(), entities(), declarations(), encodings()}) {
      files.insert(files.end(), kind.begin(), kind.end());
    }
    return files;
  }();
  return all;
}

std::vector<std::string> filesThatName(const std::string& where) {
  const std::string quoted = '"' + where + '"';
  return {
      "<!DOCTYPE D [<!ENTITY e SYSTEM " + quoted + ">]><D>&e;</D>",
      "<!DOCTYPE D [<!ENTITY e PUBLIC \"p\" " + quoted + ">]><D>&e;</D>",
      "<!DOCTYPE D [<!ENTITY e SYSTEM " + quoted + " NDATA n>]><D></D>",
      "<!DOCTYPE D [<!ENTITY % e SYSTEM " + quoted + ">%e;]><D></D>",
      "<!DOCTYPE D [<!NOTATION n SYSTEM " + quoted + ">]><D></D>",
      "<!DOCTYPE D SYSTEM " + quoted + "><D></D>",
      "<!DOCTYPE D PUBLIC \"p\" " + quoted + "><D></D>",
      "<?xml-stylesheet href=" + quoted +
          "?><D xmlns:xi=\"http://www.w3.org/2001/XInclude\"><xi:include href=" + quoted + "/></D>",
      "<D xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:noNamespaceSchemaLocation=" +
          quoted + "/>",
      "<D xml:base=" + quoted + " xmlns=" + quoted + "/>",
  };
}

}  // namespace quorvan::test
