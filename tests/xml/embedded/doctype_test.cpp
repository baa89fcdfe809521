// What a DOCTYPE declares: what of it a document is made with, and what it may not ask of the
// parser.
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>

#include <tests/xml/embedded/embedded_dom.h>
#include <quorvan/xml/embedded/reading/limits.h>

namespace quorvan::test {
namespace {

using embedded::kMaxEntityNesting;

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kStack = std::size_t{1024} * 1024;  // its frames are larger
#else
constexpr std::size_t kStack = std::size_t{64} * 1024;
#endif

// On some processors no thread has less than 128 KiB.
std::size_t leastStack() {
#ifdef _SC_THREAD_STACK_MIN
  return static_cast<std::size_t>(std::max(::sysconf(_SC_THREAD_STACK_MIN), 0L));
#else
  return 0;
#endif
}

void* run(void* action) {
  (*static_cast<const std::function<void()>*>(action))();
  return nullptr;
}

// Runs the action on a thread with little stack.
void onSmallStack(const std::function<void()>& action) {
  pthread_attr_t attributes;
  ASSERT_EQ(::pthread_attr_init(&attributes), 0);
  ASSERT_EQ(::pthread_attr_setstacksize(&attributes, std::max(kStack, leastStack())), 0);
  pthread_t thread = {};
  ASSERT_EQ(::pthread_create(&thread, &attributes, run,
                             const_cast<void*>(static_cast<const void*>(&action))),
            0);
  ::pthread_join(thread, nullptr);
  ::pthread_attr_destroy(&attributes);
}

class Doctypes : public EmbeddedDom {
 protected:
  // Loads on a small stack; whether the document was taken. One that was is saved too.
  [[nodiscard]] bool loadsOnSmallStack(const std::string& bytes) {
    writeFile("general.xml", bytes);
    bool isTaken = false;
    onSmallStack([&] {
      isTaken = dom::load(m_document, wide(file("general.xml")));
      if (isTaken) {
        dom::save(m_document, wide(file("saved.xml")), dom::Durability::kScratch);
      }
    });
    return isTaken;
  }
  // Why the file of the last call is refused.
  [[nodiscard]] std::string reason() const {
    dom::LoadProblem problem;
    dom::load(newDocument(), wide(file("general.xml")), problem);
    return problem.reason;
  }
};

// Entities of which each stands in the text of the next: "e1" in "e2" and so on, `mark` before a
// reference. `keyword` stands between ENTITY and the name, `innermost` in the first.
std::string chain(unsigned length, const std::string& keyword, const std::string& mark,
                  const std::string& innermost = {}) {
  std::string declarations = "<!ENTITY " + keyword + "e1 \"" + innermost + "\">";
  for (unsigned i = 2; i <= length; ++i) {
    declarations += "<!ENTITY " + keyword + 'e' + std::to_string(i) + " \"" + mark + 'e' +
                    std::to_string(i - 1) + ";\">";
  }
  return declarations;
}

// A document for each way in which the parser calls itself for an entity.
std::vector<std::string> nestedDocuments(unsigned length) {
  const std::string last = 'e' + std::to_string(length);
  const std::string general = "<!DOCTYPE a [" + chain(length, "", "&");
  const std::string parameter = "<!DOCTYPE a [" + chain(length, "% ", "&#37;");
  return {
      general + "]><a>&" + last + ";</a>",
      general + "]><a b=\"&" + last + ";\"/>",
      general + "<!ATTLIST a b CDATA \"&" + last + ";\">]><a/>",
      parameter + "%" + last + ";]><a/>",
      "<!DOCTYPE a [" + chain(length, "", "&") + "<!ENTITY % e0 \"<!ATTLIST a b CDATA '&" + last +
          ";'>\">" + chain(length, "% ", "&#37;", "&#37;e0;") + "%" + last + ";]><a/>",
      parameter + "<!ENTITY % d \"<!ENTITY f '&#37;" + last + ";'>\">%d;]><a/>",
  };
}

TEST_F(Doctypes, EntitiesAreTakenUpToTheirLimitOfNestingOn64KilobytesOfStack) {
  std::size_t kind = 0;
  for (const std::string& document : nestedDocuments(kMaxEntityNesting - 1)) {
    EXPECT_TRUE(loadsOnSmallStack(document)) << kind++ << ' ' << reason();
  }
  for (const std::string& document : nestedDocuments(kMaxEntityNesting + 1)) {
    EXPECT_FALSE(loadsOnSmallStack(document)) << kind++;
    EXPECT_EQ(reason(), "entities nested too deep");
  }
}

TEST_F(Doctypes, AnyNestingOfEntitiesIsRefusedOn64KilobytesOfStack) {
  for (const unsigned length : {1000U, 50'000U}) {
    for (const std::string& document : nestedDocuments(length)) {
      EXPECT_FALSE(loadsOnSmallStack(document)) << length;
    }
  }
}

// Declared from the outermost to the innermost, so that none is deep when it is declared.
TEST_F(Doctypes, NestingIsKnownInWhateverOrderEntitiesAreDeclared) {
  for (const unsigned length : {kMaxEntityNesting, kMaxEntityNesting + 1}) {
    std::string declarations;
    for (unsigned i = length; i > 1; --i) {
      declarations += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";&lt;'>";
    }
    declarations += "<!ENTITY e1 ''>";
    EXPECT_EQ(loadsOnSmallStack("<!DOCTYPE a [" + declarations + "]><a/>"),
              length == kMaxEntityNesting);
  }
}

TEST_F(Doctypes, DeepAndWideDocumentsNeedNoMoreStack) {
  std::string deep = "<!DOCTYPE a [<!ENTITY e '<b/>'>]>";
  for (std::size_t i = 0; i < embedded::kMaxDepth - 1; ++i) {
    deep += "<a>";
  }
  deep += "&e;";
  for (std::size_t i = 0; i < embedded::kMaxDepth - 1; ++i) {
    deep += "</a>";
  }
  EXPECT_TRUE(loadsOnSmallStack(deep));
  std::string wide = "<x:a xmlns:x='y'";
  for (std::size_t i = 0; i < embedded::kMaxAttributes - 1; ++i) {
    wide += " x:b" + std::to_string(i) + "=''";
  }
  EXPECT_TRUE(loadsOnSmallStack(wide + "/>"));
  std::string groups = "<!DOCTYPE a [<!ELEMENT a ";
  groups += std::string(100'000, '(') + "b" + std::string(100'000, ')') + ">]><a/>";
  EXPECT_TRUE(loadsOnSmallStack(groups));
}

// --- parameter entities -------------------------------------------------------------------------

TEST_F(Doctypes, WhatParameterEntitiesOfTheDocumentDeclareHolds) {
  const std::string doctype =
      "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'x&#38;f;'>\"> %p;<!ENTITY f 'y'><?i j?><!--c-->]>";
  ASSERT_TRUE(loads(doctype + "<a b='&e;&#9;'>&e;</a>")) << reason();
  EXPECT_EQ(saved(), doctype + "\r\n<a b=\"xy&#9;\">xy</a>\r\n");
}

TEST_F(Doctypes, AnEmptyParameterEntityDoesNotHideWhatStandsBehindIt) {
  EXPECT_EQ(resaved("<!DOCTYPE a [<!ENTITY % p ''>%p;%p;<!ENTITY e 'x'>]><a b='&e;'>&e;</a>"),
            "<!DOCTYPE a [<!ENTITY % p ''>%p;%p;<!ENTITY e 'x'>]>\r\n<a b=\"x\">x</a>\r\n");
}

TEST_F(Doctypes, AnEntityIsRefusedOnlyWhereItIsUsedAndUnknown) {
  const std::string doctype =
      "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'x'>\">%p;<!ENTITY u '&v;'><!ENTITY w '&u;&e;'>]>";
  EXPECT_TRUE(loads(doctype + "<a/>"));
  for (const char* name : {"u", "v", "w"}) {
    const std::string use = std::string("&") + name + ';';
    EXPECT_FALSE(loads(doctype + "<a>" + use + "</a>")) << name;
    EXPECT_FALSE(loads(doctype + "<a b='" + use + "'/>")) << name;
  }
}

TEST_F(Doctypes, ParameterEntitiesElsewhereAreNotOpened) {
  writeFile("other.dtd", "<!ENTITY e 'x'>");
  const std::string other = path("other.dtd");
  for (const std::string& doctype :
       {"<!DOCTYPE a [<!ENTITY % p SYSTEM '" + other + "'>%p;]>",
        "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY &#37; q SYSTEM '" + other + "'>&#37;q;\">%p;]>",
        "<!DOCTYPE a SYSTEM '" + other + "'>"}) {
    EXPECT_TRUE(loads(doctype + "<a/>")) << doctype;
    EXPECT_FALSE(loads(doctype + "<a>&e;</a>")) << doctype;
    EXPECT_FALSE(loads(doctype + "<a b='&e;'/>")) << doctype;
  }
}

TEST_F(Doctypes, ALongDeclarationInLatin1IsKeptAsItStands) {
  const std::string doctype = "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'x'>\">%p;<!ENTITY l '" +
                              std::string(5000, '\xB5') + "'>]>";
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
  EXPECT_EQ(resaved(declaration + doctype + "<a>&e;</a>"),
            declaration + "\r\n" + doctype + "\r\n<a>x</a>\r\n");
}

// --- names --------------------------------------------------------------------------------------

TEST_F(Doctypes, NamesFollowOneRuleInEveryEncoding) {
  for (const char sign : {'\xAA', '\xB5', '\xBA'}) {
    for (const char* form :
         {"<#/>", "<x#/>", "<a #='1'/>", "<p:# xmlns:p='p'/>", "<#:a xmlns:#='p'/>",
          "<a xmlns:p='p' p:#='1'/>", "<?#?><a/>", "<?a# b?><a/>", "<!DOCTYPE #><a/>",
          "<!DOCTYPE a [<!ELEMENT # ANY>]><a/>", "<!DOCTYPE a [<!ELEMENT a (b|#)>]><a/>",
          "<!DOCTYPE a [<!ATTLIST a # CDATA '1'>]><a/>", "<!DOCTYPE a [<!ENTITY # '1'>]><a/>",
          "<!DOCTYPE a [<!ENTITY % # '1'>]><a/>", "<!DOCTYPE a [<!NOTATION # SYSTEM '1'>]><a/>",
          "<!DOCTYPE a [<?# b?>]><a/>"}) {
      std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
      std::string utf8 = "<?xml version='1.0'?>";
      for (const char* at = form; *at != '\0'; ++at) {
        latin1 += *at == '#' ? sign : *at;
        utf8 += *at == '#' ? std::string("\xC2") + sign : std::string(1, *at);
      }
      EXPECT_FALSE(loads(latin1)) << form;
      EXPECT_FALSE(loads(utf8)) << form;
    }
  }
  const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
  EXPECT_TRUE(loads(latin1 + "<\xE9 \xE9\xB7='\xB5'>\xB5<?\xE9 \xB5?></\xE9>"));
  EXPECT_TRUE(loads(latin1 + "<!DOCTYPE \xE9 [<!ENTITY \xE9 '\xB5'><!--\xB5--><?p \xB5?>"
                             "<!ATTLIST \xE9 b CDATA \"\xB5\">]><\xE9/>"));
  EXPECT_TRUE(loads(latin1 + "<\xE9:a xmlns:\xE9='p'/>"));
}

TEST_F(Doctypes, AColonHasNoPlaceInTheNamesOfInstructionsEntitiesAndNotations) {
  for (const char* document :
       {"<?a:b?><a/>", "<?a:b c?><a/>", "<a><?:b?></a>", "<a/><?b:?>",
        "<!DOCTYPE a [<!ENTITY a:b '1'>]><a/>", "<!DOCTYPE a [<!ENTITY % a:b '1'>]><a/>",
        "<!DOCTYPE a [<!NOTATION a:b SYSTEM '1'>]><a/>", "<!DOCTYPE a [<?a:b?>]><a/>"}) {
    EXPECT_FALSE(loads(document)) << document;
  }
  EXPECT_TRUE(loads("<!DOCTYPE a:b [<?a b:c?>]><a><?a b:c?></a>"));
}

// --- what declarations may ask of the parser ----------------------------------------------------

std::string declaredAttributes(std::size_t count, const char* type) {
  std::string declarations;
  for (std::size_t i = 0; i < count; ++i) {
    declarations += "<!ATTLIST a b" + std::to_string(i) + ' ' + type + '>';
  }
  return declarations;
}

TEST_F(Doctypes, UsualDeclarationsAreNotRefused) {
  std::string document = "<!DOCTYPE a [" + declaredAttributes(150, "CDATA 'v'") +
                         "<!ATTLIST a id ID #IMPLIED><!ATTLIST a xmlns:p CDATA "
                         "#FIXED 'http://www.example.com/a/namespace/of/usual/length'>]><a>";
  for (int i = 0; i < 20'000; ++i) {
    document += "<a b1='1' b2='2' p:c='3' b3='4'>text of some length</a>";
  }
  EXPECT_TRUE(loads(document + "</a>")) << reason();
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

TEST_F(Doctypes, DeclarationsThatCostMoreThanTheirFileMayAreRefusedWithTheReason) {
  const auto reasonOf = [this](const std::string& document) {
    EXPECT_FALSE(loadsOnSmallStack(document));
    return reason();
  };
  const std::string defaults = declaredAttributes(1500, "CDATA 'v'");
  EXPECT_EQ(reasonOf("<!DOCTYPE a [" + defaults + "]><a>" + repeated("<a/>", 20'000) + "</a>"),
            "too many attributes declared for a file of this size");
  EXPECT_EQ(reasonOf("<!DOCTYPE a [" + declaredAttributes(20'000, "ID #IMPLIED") + "]><a/>"),
            "too many attributes declared for one element");
  std::string prefixed = "<a xmlns:p='" + std::string(160'000, 'n') + "'>";
  prefixed += repeated("<a p:b='1'/>", 10'000) + "</a>";
  EXPECT_EQ(reasonOf(prefixed), "namespace addresses too long for a file of this size");
  const std::string address = "<!ATTLIST a xmlns:p CDATA '" + std::string(160'000, 'n') + "'>";
  EXPECT_EQ(reasonOf("<!DOCTYPE a [" + address + "]><a>" + repeated("<a/>", 40'000) + "</a>"),
            "namespace addresses too long for a file of this size");
}

}  // namespace
}  // namespace quorvan::test
