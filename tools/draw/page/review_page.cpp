#include <tools/draw/page/review_page.h>

#include <tools/draw/page/page_parts.h>
#include <tools/draw/page/page_template.h>
#include <tools/draw/writers/svg_writer.h>

namespace quorvan::tool {

namespace {

void writeLines(const std::vector<std::string>& lines, std::ostream& out) {
  if (lines.empty()) {
    out << "<p>The bar list is the same.</p>\n";
  }
  for (const std::string& line : lines) {
    out << "<p>" << xmlText(line) << "</p>\n";
  }
}

void writeNotes(const std::vector<PageNote>& notes, std::ostream& out) {
  if (notes.empty()) {
    out << "<p>Nothing that is drawn differs.</p>\n";
  }
  for (const PageNote& note : notes) {
    out << "<button type=\"button\"><b>" << xmlText(note.heading) << "</b>";
    for (const std::string& line : note.lines) {
      out << (line.starts_with(' ') ? "<span class=\"item\">" : "<span>") << xmlText(line)
          << "</span>";
    }
    out << "</button>\n";
  }
}

}  // namespace

void writeReviewPage(const Scene& scene, const std::vector<std::string>& lines,
                     const std::vector<PageNote>& notes, std::ostream& out) {
  fillTemplate(kReviewTemplate, out, [&](std::string_view part) {
    if (part == "title") {
      out << xmlText(scene.title);
    } else if (part == "style") {
      out << kPageStyle;
    } else if (part == "script") {
      out << kMovingScript << kPanelScript << kReviewScript;
    } else if (part == "drawing") {
      writeSvg(scene, {true}, out);
    } else if (part == "lines") {
      writeLines(lines, out);
    } else if (part == "notes") {
      writeNotes(notes, out);
    }
  });
}

}  // namespace quorvan::tool
