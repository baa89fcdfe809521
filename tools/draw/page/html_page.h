// A scene as one page that needs nothing else: to move about in, with layers, a search by
// reference, the items of each element and the bar list.
#pragma once

#include <future>
#include <ostream>
#include <string>

#include <tools/draw/page/element_rows.h>
#include <tools/draw/scene/scene.h>
#include <tools/files/transfer_file.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// Well-formed XHTML that is HTML as well. It loads nothing from anywhere, and forbids itself to.
class HtmlPage {
 public:
  /// What stands beside the drawing is made from now on, while that is drawn. The file outlives the
  /// page; the options have the drawing's unit.
  HtmlPage(const TransferFile& file, const ListOptions& options);

  /// The bar list of the file.
  [[nodiscard]] std::shared_future<BarList> list() const { return m_list; }

  /// Writes the page of the drawing, once. `unitsPerMillimetre` is what a millimetre of the sheet
  /// is in the drawing's unit.
  void write(const Scene& scene, double unitsPerMillimetre, std::ostream& out);

 private:
  struct Rows {
    ElementHead head;
    std::string text;
  };

  [[nodiscard]] std::future<Rows> beginRows(bool areDescribed) const;

  const TransferFile& m_file;
  bool m_hasManyElements;
  std::shared_future<BarList> m_list;
  std::future<std::string> m_data;
  std::future<Rows> m_rows;
};

}  // namespace quorvan::tool
