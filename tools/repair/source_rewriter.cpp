#include <tools/repair/source_rewriter.h>

#include <quorvan/elements/element_classes.h>
#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>

#include <tools/files/source_markup.h>
#include <tools/repair/start_tag.h>

namespace quorvan::tool {

namespace {

std::string attribute(const dom::Name& name, const std::string& value) {
  return ' ' + std::string(name.text()) + "=\"" + value + '"';
}

// An empty drawing control record, as the library files it.
std::string controlElement() {
  const items::ElementSchema& schema = items::schemaOf(items::ElementClass::kDrawingControl);
  std::string element = '<' + std::string(schema.className) +
                        attribute(filer::kVersionName, std::to_string(items::kElementVersion)) +
                        attribute(filer::kIndexName, "1") + '>';
  for (const items::ItemSchema& item : schema.items) {
    element += '<' + std::string(item.name) +
               (item.kind == items::Kind::kLong ? attribute(filer::kLongKind, "0")
                                                : attribute(filer::kStringKind, "")) +
               "/>";
  }
  return element + "</" + std::string(schema.className) + '>';
}

class Rewriter {
 public:
  Rewriter(std::string_view text, bool isSingleByte, const SourceEdits& edits)
      : m_text(text), m_markup(text, isSingleByte), m_edits(edits) {}

  std::string write() {
    m_out.reserve(m_text.size());
    while (m_markup.next()) {
      const SourcePiece piece = m_markup.piece();
      if (m_removedDepth != 0) {
        passOver(piece);
      } else if (piece.opensElement()) {
        openElement(piece);
      } else if (piece.kind == SourcePiece::Kind::kEndTag) {
        closeElement(piece);
      } else if (const SourceEdit* const edit = m_edits.at(m_markup.position());
                 edit != nullptr && edit->isRemoved) {
        replace(piece, {});
      }
    }
    m_out.append(m_text.substr(m_copied));
    return std::move(m_out);
  }

 private:
  // Writes what stands before the piece, and the new text in its place.
  void replace(const SourcePiece& piece, std::string_view text) {
    m_out.append(m_text.substr(m_copied, piece.begin - m_copied)).append(text);
    m_copied = piece.end;
  }

  void passOver(const SourcePiece& piece) {
    if (piece.kind == SourcePiece::Kind::kStartTag) {
      ++m_removedDepth;
    } else if (piece.kind == SourcePiece::Kind::kEndTag) {
      --m_removedDepth;
    }
    m_copied = piece.end;
  }

  void openElement(const SourcePiece& piece) {
    const bool isEmpty = piece.kind == SourcePiece::Kind::kEmptyTag;
    const SourceEdit* const edit = m_edits.at(m_markup.position());
    if (edit != nullptr && edit->isRemoved) {
      m_removedDepth = isEmpty ? 0 : 1;
      return replace(piece, {});
    }
    const bool isRoot = m_depth == 0;
    m_depth += isEmpty ? 0U : 1U;
    if (edit == nullptr && !isRoot) {
      return;
    }
    StartTag tag(m_markup.text());
    if (edit != nullptr) {
      for (const AttributeMend& mend : edit->attributes) {
        tag.mend(mend);
      }
    }
    if (!isRoot) {
      return replace(piece, tag.source());
    }
    replace(piece, rootTag(tag, isEmpty));
  }

  std::string rootTag(StartTag& tag, bool isEmpty) const {
    if (m_edits.renamesRoot()) {
      tag.rename(filer::kRootName.text());
    }
    if (!isEmpty || !m_edits.addsControl()) {
      return tag.source();
    }
    const std::string name(m_edits.renamesRoot() ? filer::kRootName.text() : m_markup.name());
    tag.open();
    return tag.source() + controlElement() + "</" + name + '>';
  }

  void closeElement(const SourcePiece& piece) {
    if (--m_depth != 0 || (!m_edits.addsControl() && !m_edits.renamesRoot())) {
      return;
    }
    const std::string end = m_edits.renamesRoot()
                                ? "</" + std::string(filer::kRootName.text()) + '>'
                                : std::string(m_markup.text());
    replace(piece, (m_edits.addsControl() ? controlElement() : std::string()) + end);
  }

  std::string_view m_text;
  SourceMarkup m_markup;
  const SourceEdits& m_edits;
  std::string m_out;
  std::size_t m_copied = 0;        // of the source
  std::size_t m_depth = 0;         // of elements
  std::size_t m_removedDepth = 0;  // of elements, within one that is removed
};

}  // namespace

std::string rewritten(std::string_view text, bool isSingleByte, const SourceEdits& edits) {
  return Rewriter(text, isSingleByte, edits).write();
}

}  // namespace quorvan::tool
