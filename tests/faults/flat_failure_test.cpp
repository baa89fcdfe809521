// Memory runs out at every allocation in turn, once and from there on, under the flat functions
// that return a result: nothing is let out, the result says so, and the next call works.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include <tests/faults/stage.h>
#include <tests/support/read_flat.h>
#include <tests/support/saved_elements.h>
#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/xml/embedded/allocation_faults.h>
#include <quorvan/export/checked.h>

namespace quorvan::test {
namespace {

// Memory that is only wished for may fail unnoticed: so many successes in a row mean that there was
// none to fail.
constexpr int kUnnoticedAtTheEnd = 12;

// Calls `act` with every allocation in turn failing; it says whether it noticed. Gives how often.
int failEverywhere(const std::function<bool(int allocation, bool lasts)>& act) {
  int noticed = 0;
  for (const bool lasts : {false, true}) {
    int unnoticed = 0;
    for (int allocation = 1; unnoticed < kUnnoticedAtTheEnd && !testing::Test::HasFailure();
         ++allocation) {
      SCOPED_TRACE(std::to_string(allocation) + (lasts ? " and on" : ""));
      const bool wasNoticed = act(allocation, lasts);
      unnoticed = wasNoticed ? 0 : unnoticed + 1;
      noticed += wasNoticed ? 1 : 0;
    }
  }
  return noticed;
}

// --- reading ------------------------------------------------------------------------------------

std::string everything() {
  return fileBytes(dataPath("export/golden/small_drawing.xml"));
}

std::uint64_t sumOf(const std::string& bytes) {
  QuorvanFile* file = nullptr;
  EXPECT_EQ(quorvanOpenMemory(bytes.data(), bytes.size(), &file), QUORVAN_DONE);
  FlatReading reading;
  readFlat(file, reading);
  EXPECT_GT(reading.elements, 10);
  quorvanCloseFile(file);
  return reading.sum;
}

TEST(NoMemoryForReading, AFileIsOpenedOrNotAndOpensNextTime) {
  const std::string bytes = everything();
  const std::uint64_t expected = sumOf(bytes);
  // Of the plain form, and of one that goes through the general parser.
  std::string general = bytes;
  general.insert(general.find("<Document"), "<?p d?>");
  for (const std::string& form : {bytes, general}) {
    sumOf(form);
    const int noticed = failEverywhere([&](int allocation, bool lasts) {
      QuorvanFile* file = nullptr;
      int result = QUORVAN_DONE;
      {
        const AllocationFault fault(allocation, lasts);
        result = quorvanOpenMemory(form.data(), form.size(), &file);
      }
      EXPECT_TRUE(result == QUORVAN_DONE || result == QUORVAN_OUT_OF_MEMORY) << result;
      EXPECT_EQ(file != nullptr, result == QUORVAN_DONE);
      quorvanCloseFile(file);
      return result != QUORVAN_DONE;
    });
    EXPECT_GT(noticed, 3);
  }
  EXPECT_EQ(sumOf(bytes), expected);
}

TEST(NoMemoryForReading, AnElementStaysWhereItIsAndIsReadNextTime) {
  const std::string bytes = everything();
  const std::uint64_t expected = sumOf(bytes);
  const int noticed = failEverywhere([&](int allocation, bool lasts) {
    QuorvanFile* file = nullptr;
    EXPECT_EQ(quorvanOpenMemory(bytes.data(), bytes.size(), &file), QUORVAN_DONE);
    FlatReading reading;
    {
      const AllocationFault fault(allocation, lasts);
      readFlat(file, reading);
    }
    EXPECT_TRUE(reading.isAsPromised);
    FlatReading again;
    readFlat(file, again);
    EXPECT_EQ(again.sum, expected);
    EXPECT_EQ(again.outOfMemory, 0);
    quorvanCloseFile(file);
    return reading.sum != expected || reading.outOfMemory != 0;
  });
  EXPECT_GT(noticed, 10);
}

TEST(NoMemoryForReading, ANameThatCannotBeKeptIsEmptyAndThereNextTime) {
  const std::string bytes = "<Document><Foreign><Strange long=\"1\"/></Foreign></Document>";
  failEverywhere([&](int allocation, bool lasts) {
    QuorvanFile* file = nullptr;
    QuorvanElement* element = nullptr;
    EXPECT_EQ(quorvanOpenMemory(bytes.data(), bytes.size(), &file), QUORVAN_DONE);
    EXPECT_EQ(quorvanNextElement(file, nullptr, &element), QUORVAN_DONE);
    const QuorvanItem* const item = quorvanItem(element, "Strange");
    bool wasThere = false;
    {
      const AllocationFault fault(allocation, lasts);
      const char* const className = quorvanElementClass(element);
      const char* const itemName = quorvanItemName(item);
      wasThere = *className != '\0' && *itemName != '\0';
    }
    EXPECT_STREQ(quorvanElementClass(element), "Foreign");
    EXPECT_STREQ(quorvanItemName(item), "Strange");
    quorvanCloseFile(file);
    return !wasThere;
  });
}

// --- twins --------------------------------------------------------------------------------------

// A value for a parameter of each type.
// NOLINTBEGIN(google-explicit-constructor): it stands for any of them.
struct Any {
  operator double() const { return 1.5; }
  operator long() const { return 3; }
  operator unsigned long() const { return 4; }
  operator int() const { return 2; }
  operator unsigned char() const { return 1; }
  operator const wchar_t*() const { return L"CKtZantoStirrup"; }
  operator double*() const { return kNumbers; }
  operator const double*() const { return kNumbers; }
  operator const wchar_t**() const { return &kName; }

  static inline double kNumbers[4] = {1, 2, 3, 4};
  static inline const wchar_t* kName = nullptr;
};
// NOLINTEND(google-explicit-constructor)

template <class... Parameters>
int call(int (*function)(Parameters...)) {
  return function(static_cast<Parameters>(Any())...);
}

int endChecked() {
  return endFilingChecked(L"1.0", 0, L"Drawing", 0);
}

// One filing in which this call meets the fault; whatever it says, the drawing can be ended.
bool meetsFault(int (*act)(), int allocation, bool lasts) {
  const Stage stage;  // takes the messages over
  std::filesystem::remove("checked.xml");
  EXPECT_EQ(startFilingChecked(L"checked.xml"), QUORVAN_DONE);
  EXPECT_EQ(exportLineChecked(1, 2, 3, 4, 5, 6, 7), QUORVAN_DONE);
  int result = QUORVAN_DONE;
  {
    const AllocationFault fault(allocation, lasts);
    result = act();
  }
  // A scratch file that could not be opened has no document to look in.
  EXPECT_TRUE(result == QUORVAN_DONE || result == QUORVAN_OUT_OF_MEMORY ||
              (result == QUORVAN_FAILED && Stage::messages() > 0))
      << result << ": " << quorvanLastErrorText();
  if (stopFilingChecked() == QUORVAN_DONE && endChecked() != QUORVAN_NO_FILING) {
    EXPECT_EQ(savedElements("checked.xml", "CKtZantoLine").size(), 1U);
  }
  return result != QUORVAN_DONE;
}

TEST(NoMemoryForTwins, WhatFilesIsToldAndTheDrawingCanBeEnded) {
  std::set<std::string> unnoticed;
#define QUORVAN_TWIN(name, when, parameters, arguments)                          \
  if (std::string(#when) == "IN_FILING" && std::string(#name) != "exportLine") { \
    const int noticed = failEverywhere([](int allocation, bool lasts) {          \
      return meetsFault([] { return call(name##Checked); }, allocation, lasts);  \
    });                                                                          \
    if (noticed == 0) {                                                          \
      unnoticed.insert(#name);                                                   \
    }                                                                            \
  }
  QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN
  // Elements that fit into what the document holds in reserve ask for no memory.
  EXPECT_LE(unnoticed.size(), 6U);
}

TEST(NoMemoryForTwins, AFilingIsOpenedOrNotAndOpensNextTime) {
  const int noticed = failEverywhere([](int allocation, bool lasts) {
    const Stage stage;
    std::filesystem::remove("checked.xml");
    int result = QUORVAN_DONE;
    {
      const AllocationFault fault(allocation, lasts);
      result = startFilingChecked(L"checked.xml");
    }
    EXPECT_TRUE(result == QUORVAN_DONE || result == QUORVAN_NOT_OPENED ||
                result == QUORVAN_OUT_OF_MEMORY)
        << result;
    if (result != QUORVAN_DONE) {
      EXPECT_EQ(call(exportLineChecked), QUORVAN_NO_FILING);
    }
    EXPECT_EQ(startFilingChecked(L"checked.xml"), QUORVAN_DONE);
    EXPECT_EQ(call(exportLineChecked), QUORVAN_DONE);
    EXPECT_EQ(endChecked(), QUORVAN_DONE);
    EXPECT_EQ(savedElements("checked.xml", "CKtZantoLine").size(), 1U);
    return result != QUORVAN_DONE;
  });
  EXPECT_GT(noticed, 3);
}

}  // namespace
}  // namespace quorvan::test
