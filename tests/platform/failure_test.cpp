#include "zelnor/platform/failure.h"

#include "zelnor/platform/host.h"

#include <new>
#include <stdexcept>

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

/// Keeps what it was asked to show, and fails on demand.
class RecordingHost : public DefaultHost {
 public:
  Long MessageBox(const String& text, Long style, const String& title) override {
    if (fails) throw std::runtime_error("no screen");
    shown.push_back({text, style, title});
    return 1;
  }

  std::vector<ShownMessage> shown;
  bool fails = false;
};

class StandardHandler : public testing::Test {
 protected:
  void SetUp() override { SetHost(host_); }
  void TearDown() override { SetHost(nullptr); }

  /// The text that the standard handler shows for an error that `body` raises.
  template <class Body>
  String ShownFor(Body body) {
    host_->shown.clear();
    EXPECT_FALSE(Handled("clsStarter", "Function CreateFromXML", body));
    if (host_->shown.size() != 1) return "shown " + std::to_string(host_->shown.size()) + " times";
    EXPECT_EQ(host_->shown[0].title, "ZELNOR");
    EXPECT_EQ(host_->shown[0].style, kOkOnly);
    return host_->shown[0].text;
  }

  std::shared_ptr<RecordingHost> host_ = std::make_shared<RecordingHost>();
};

struct DescriptionCase {
  Long number;
  const char* description;
};

TEST(RuntimeError, HasThePlatformsDescription) {
  const DescriptionCase cases[] = {{5, "Invalid procedure call or argument"},
                                   {6, "Overflow"},
                                   {7, "Out of memory"},
                                   {9, "Subscript out of range"},
                                   {13, "Type mismatch"},
                                   {53, "File not found"},
                                   {58, "File already exists"},
                                   {61, "Disk full"},
                                   {70, "Permission denied"},
                                   {75, "Path/File access error"},
                                   {76, "Path not found"},
                                   {91, "Object variable or With block variable not set"},
                                   {440, "Automation error"},
                                   {457, "This key is already associated with an element of this collection"},
                                   {0, "Application-defined or object-defined error"},
                                   {6001, "Application-defined or object-defined error"},
                                   {-99999, "Application-defined or object-defined error"}};
  for (const DescriptionCase& each : cases) {
    EXPECT_EQ(DescriptionOf(each.number), each.description);
    const RuntimeError error(each.number);
    EXPECT_EQ(error.Number(), each.number);
    EXPECT_EQ(error.Source(), "ZELNOR");
    EXPECT_EQ(error.Description(), each.description);
    EXPECT_STREQ(error.what(), each.description);
  }
}

TEST(RuntimeError, IsThrownByNumber) {
  EXPECT_EQ(ErrorNumberOf([] { ThrowInvalidArgument(); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { ThrowOverflow(); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ThrowOutOfSubscript(); }), 9);
  EXPECT_EQ(ErrorNumberOf([] { ThrowTypeMismatch(); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ThrowFileNotFound(); }), 53);
  EXPECT_EQ(ErrorNumberOf([] { ThrowObjectNotSet(); }), 91);
  EXPECT_EQ(ErrorNumberOf([] { ThrowDuplicateKey(); }), 457);
}

TEST(Required, RefusesAnObjectThatIsNotThere) {
  const Ref<int> seven = std::make_shared<int>(7);
  const Ref<int> nothing;
  EXPECT_EQ(Required(seven), 7);
  EXPECT_EQ(ErrorNumberOf([&] { (void)Required(nothing); }), 91);
}

TEST_F(StandardHandler, SaysNothingWhenTheBodyRunsToItsEnd) {
  bool ran = false;
  EXPECT_TRUE(Handled("clsStarter", "Function CreateFromXML", [&] { ran = true; }));
  EXPECT_TRUE(ran);
  EXPECT_TRUE(host_->shown.empty());
}

TEST_F(StandardHandler, NamesClassMemberNumberAndDescription) {
  EXPECT_EQ(ShownFor([] { ThrowTypeMismatch(); }),
            "Error in ZELNOR.dll::clsStarter: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(ShownFor([] { throw RuntimeError(-99999, "anything", "Own words"); }),
            "Error in ZELNOR.dll::clsStarter: Function CreateFromXML: Error -99999 - Own words");
}

TEST_F(StandardHandler, ShowsSourceAndDescriptionOfAFormattedError) {
  EXPECT_EQ(ShownFor([] { throw RuntimeError(kFormattedError, "clsSHA1", "No mark"); }), "clsSHA1 : No mark");
  EXPECT_EQ(ShownFor([] { throw RuntimeError(-2147220992, "a", "b"); }), "a : b");
  EXPECT_EQ(ShownFor([] { throw RuntimeError(-2147220991, "a", "b"); }),
            "Error in ZELNOR.dll::clsStarter: Function CreateFromXML: Error -2147220991 - b");
}

TEST_F(StandardHandler, TranslatesForeignExceptions) {
  const String front = "Error in ZELNOR.dll::clsStarter: Function CreateFromXML: Error ";
  EXPECT_EQ(ShownFor([] { throw std::bad_alloc(); }), front + "7 - Out of memory");
  EXPECT_EQ(ShownFor([] { throw std::runtime_error("it broke"); }),
            front + "440 - Automation error: it broke");
  EXPECT_EQ(ShownFor([] { throw 42; }), front + "440 - Automation error");
}

TEST_F(StandardHandler, KeepsWhatTheResultHeldWhenTheFailureStruck) {
  Long result = 0;
  Handled("clsStarter", "Get Sum", [&] {
    result = 3;
    ThrowOverflow();
    result = 4;
  });
  EXPECT_EQ(result, 3);
}

TEST_F(StandardHandler, LetsNothingOutWhenTheHostFails) {
  host_->fails = true;
  bool ended = true;
  EXPECT_NO_THROW(ended = Handled("clsStarter", "Sub Create", [] { ThrowOverflow(); }));
  EXPECT_FALSE(ended);
}

TEST_F(StandardHandler, AddsMoreTextBehindTheError) {
  ReportError(RuntimeError(6), "clsRTIController", "Function SendSubmission", "\r\nMore");
  ASSERT_EQ(host_->shown.size(), 1U);
  EXPECT_EQ(host_->shown[0].text,
            "Error in ZELNOR.dll::clsRTIController: Function SendSubmission: Error 6 - Overflow\r\nMore");
}

TEST(PassedOn, PutsABracketedSourceUnlessThereIsOne) {
  const auto source_of = [](String source) {
    try {
      PassedOn("[ZELNOR.dll::clsEmployee]: Employment",
               [&] { throw RuntimeError(6001, source, "Own words"); });
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 6001);
      EXPECT_EQ(error.Description(), "Own words");
      return error.Source();
    }
    return String("nothing was raised");
  };
  EXPECT_EQ(source_of("ZELNOR"), "[ZELNOR.dll::clsEmployee]: Employment");
  EXPECT_EQ(source_of("[ZELNOR.dll::clsLower]: Other"), "[ZELNOR.dll::clsLower]: Other");
}

TEST(PassedOn, LetsASuccessPass) {
  int calls = 0;
  PassedOn("[ZELNOR.dll::clsEmployee]: Employment", [&] { ++calls; });
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace zelnor
