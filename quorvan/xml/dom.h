// The XML document service as the library sees it: the contract that every backend keeps.
//
// Nothing above this folder knows which backend it runs on. The handles
// IXMLDOMDocumentPtr and IXMLDOMNodePtr are small reference-counted values; a held node keeps the
// tree that it belongs to alive after the document was let go. Handles to one document belong to
// one thread at a time.
//
// Errors: an operation that cannot be carried out raises _com_error with a negative HRESULT. A
// null handle given where a node or document is used raises E_POINTER. Running out of memory
// raises std::bad_alloc (or _com_error with E_OUTOFMEMORY) and leaves the tree as it was.
//
// Names and values are checked here and nowhere else: an element or attribute name that XML
// cannot carry raises E_FAIL; a character of a value that XML cannot carry becomes U+FFFD, so
// that a file that was saved can always be opened again.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <quorvan/platform/com_error.h>
#include <quorvan/text/cstring.h>
#include <quorvan/xml/handles.h>
#include <quorvan/xml/load_problem.h>
#include <quorvan/xml/name.h>

namespace quorvan::dom {

// What the operations hand out. The layouts are the backend's own (values.h), the members the same
// everywhere:
//
//   class AttributeValue: the value of an attribute; valid while its node lives and is not changed
//     double toDouble() const            parseDouble of the text (see numbers.h)
//     std::int32_t toLong() const        parseLong of the text (see numbers.h)
//     CString toText() const             the exact text
//     void appendTo(std::string&) const  appends the text as UTF-8
//     operator==                         exact comparison of the texts
//
//   class AttributeCursor: walks the attributes of a node in their order
//     explicit AttributeCursor(const IXMLDOMNodePtr&)
//     bool next()                        goes to the first, then to each next one; false at the end
//     Name name() const                  of the attribute arrived at; valid until next()
//     AttributeValue value() const       of the attribute arrived at
//
//   class NodeName: a node's name; valid while the node handle that it came from lives
//     Name view() const, operator Name() const
class AttributeValue;
class AttributeCursor;
class NodeName;

/// Text that is plain ASCII with nothing to escape in XML (numbers, "True"): copied as it stands.
struct AsciiText {
  std::string_view text;
};

// --- documents -----------------------------------------------------------------------------

/// Creates an empty document into `document` (releasing what it held). Returns the HRESULT of the
/// creation: negative when the service is missing or cannot be started, and `document` is null.
HRESULT createDocument(IXMLDOMDocumentPtr& document);

/// Replaces the document's content by that of the file. True on success. False when there is no
/// such file or it is not a well-formed document; the document is then empty and usable. Raises
/// when the file is there and reading it failed half-way: that says nothing about its content.
bool load(const IXMLDOMDocumentPtr& document, const CString& path);

/// The same, and on false `problem` says why.
bool load(const IXMLDOMDocumentPtr& document, const CString& path, LoadProblem& problem);

/// The same with the bytes of a file that are in memory already, and need not stay there.
bool loadBytes(const IXMLDOMDocumentPtr& document, std::string_view bytes, LoadProblem& problem);

/// How long a saved file must last.
enum class Durability {
  kDisk,     // it survives a power failure once it is saved
  kScratch,  // it is soon deleted: nobody waits for the disk, and no link is followed; where there
             // is no file it is written in its place, and an end of the process leaves part of it
  kPassing,  // the same, and deleted as soon as it is complete, which a system may do in one
};

/// Writes the document to the file in the encoding that its declaration names (UTF-8 without
/// one). An old file stays whole until the new one is complete; on failure it raises, and the
/// document and the old file are as they were. A document without a root element is not saved:
/// E_FAIL, so that a failed open can never empty a file.
void save(const IXMLDOMDocumentPtr& document, const CString& path,
          Durability durability = Durability::kDisk);

/// Takes away what a process that was killed while it saved left beside that path. What cannot be
/// taken away stays, and so does what a process is writing just now.
void clearLeftOver(const CString& path) noexcept;

// --- building ------------------------------------------------------------------------------

/// A new element of that name, belonging to the document but not yet in its tree. Null when the
/// service could not make it without raising.
IXMLDOMNodePtr createElement(const IXMLDOMDocumentPtr& document, const Name& name);

/// A new processing instruction; target "xml" makes the XML declaration.
IXMLDOMNodePtr createProcessingInstruction(const IXMLDOMDocumentPtr& document, const Name& target,
                                           std::string_view data);

/// Creates an attribute through the document, sets its value and puts it into the element's map,
/// where it replaces one of the same name. False when the attribute could not be made without
/// raising. The element must have an attribute map.
bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int16_t value);
bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::int32_t value);
bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, AsciiText value);
bool addAttribute(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& element,
                  const Name& name, std::wstring_view value);

/// Appends `child` as the last child. A child that has a parent is moved from there; one of
/// another document changes hands, and every handle to it stays valid. Raises E_FAIL where the
/// parent cannot hold it (no element or document, itself or its own descendant, a second root
/// element), E_POINTER for null.
void append(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& child);
void append(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child);

/// What append does, for less, with an element that was made for the parent's document and never
/// was in a tree, and that holds no node which the parent is or is below.
void appendNew(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& element);

/// An attribute of an element that is about to be made.
struct NewAttribute {
  Name name;
  AsciiText value;
};

/// Creates an element with these attributes, of which no two have one name, and appends it to
/// `parent`: what createElement, addAttribute and append do one after the other, for less. False,
/// with nothing appended, when the element or an attribute could not be made without raising.
bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const NewAttribute> attributes);

/// The same with numbers, which are filed to seven decimals.
bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, std::span<const Name> attributes, const double* numbers);

/// The same with one attribute: a whole number, any text.
bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::int32_t number);
bool appendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const Name& name, const Name& attribute, std::wstring_view value);

// --- walking -------------------------------------------------------------------------------

/// First child, null without one.
IXMLDOMNodePtr firstChild(const IXMLDOMDocumentPtr& document);
IXMLDOMNodePtr firstChild(const IXMLDOMNodePtr& node);

/// Next sibling, null at the end and for a node without parent.
IXMLDOMNodePtr nextSibling(const IXMLDOMNodePtr& node);

/// First child whose node name equals `name` exactly, whatever its type; null without one.
IXMLDOMNodePtr firstChildNamed(const IXMLDOMNodePtr& node, const Name& name);

/// The first of the following siblings whose node name equals `name` exactly; null without one.
IXMLDOMNodePtr nextSiblingNamed(const IXMLDOMNodePtr& node, const Name& name);

/// The node's name: the tag name of an element, the target of an instruction ("xml" for the
/// declaration), the name given in a DOCTYPE, "#text", "#comment", "#cdata-section".
NodeName nodeName(const IXMLDOMNodePtr& node);

/// Whether the node's name equals `name` exactly.
bool nodeNameIs(const IXMLDOMNodePtr& node, const Name& name);

/// Whether the two handles are copies of one. Copies refer to one node; of two handles that were
/// handed out for one node, a backend may say that they are none.
bool isCopy(const IXMLDOMNodePtr& a, const IXMLDOMNodePtr& b) noexcept;

/// Whether the node has an attribute map (elements and the XML declaration), empty or not.
bool hasAttributes(const IXMLDOMNodePtr& node);

/// Finds the attribute by name. False, leaving `value` alone, when the node has none of that name.
bool attribute(const IXMLDOMNodePtr& node, const Name& name, AttributeValue& value);

/// Calls `count` once for each distinct name among the node's children with the number of
/// children of that name, whatever their types.
class ChildNameCounts {
 public:
  virtual void count(const Name& name, int children) = 0;

 protected:
  ~ChildNameCounts() = default;
};
void countChildNames(const IXMLDOMNodePtr& node, ChildNameCounts& counts);

/// A number that changes whenever anything below the document's root element changes in any way
/// other than by appending a node without parent to the root element as its last child. 0 when
/// the backend keeps no such number: then nothing about the tree may be remembered.
std::uint64_t revision(const IXMLDOMDocumentPtr& document);

}  // namespace quorvan::dom
