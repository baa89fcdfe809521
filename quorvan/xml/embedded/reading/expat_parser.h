// The XML parser of the embedded document: expat, strict and bounded.
//
// No external entity is ever opened; a reference to one makes the document not well-formed, as an
// undeclared entity does. What parameter entities of the document itself declare holds. Entities
// may make a document larger within limits.h only.
#pragma once

#include <expat.h>

#include <cstddef>
#include <exception>

#include <quorvan/xml/embedded/files/file_source.h>

namespace quorvan::embedded {

class ExpatParser {
 public:
  enum class Names { kAsTheyAre, kWithNamespaces };

  /// Raises std::bad_alloc.
  explicit ExpatParser(Names names);
  ExpatParser(const ExpatParser&) = delete;
  ExpatParser& operator=(const ExpatParser&) = delete;
  ~ExpatParser();

  /// To set handlers and their argument, and to ask within a handler.
  [[nodiscard]] XML_Parser raw() const noexcept { return m_parser; }

  /// Parses from where the file stands to its end, or to where finish() was called. False when it
  /// is not well-formed, or refuse() was called; `problem` then says what was met where. Raises
  /// what reading or a guarded handler raised, std::bad_alloc when memory runs out.
  bool parse(FileSource& file, dom::LoadProblem& problem);

  /// Stops parsing: the document is to count as not well-formed. The first reason stays.
  void refuse(const char* reason,
              dom::LoadFailure failure = dom::LoadFailure::kNotWellFormed) noexcept;

  /// Stops parsing: the rest of the document is not asked for.
  void finish() noexcept;

  /// Runs the body of a handler, through which nothing may be raised: it is raised by parse().
  /// Does nothing once parsing has been stopped.
  template <class Body>
  void guard(const Body& body) noexcept {
    if (m_isStopped) {
      return;
    }
    try {
      body();
    } catch (...) {
      m_raised = std::current_exception();
      finish();
    }
  }

 private:
  void explain(dom::LoadProblem& problem) const;

  XML_Parser m_parser;
  std::exception_ptr m_raised;
  bool m_isStopped = false;
  const char* m_reason = nullptr;
  dom::LoadFailure m_failure = dom::LoadFailure::kNotWellFormed;
};

}  // namespace quorvan::embedded
