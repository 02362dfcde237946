// The parts of saving a Full Payment Submission, each by itself: Google Benchmark over the repository's
// sample, repeated to many employees.

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsDZEncoder.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/regex.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <benchmark/benchmark.h>

namespace zelnor {
namespace {

constexpr int kCopies = 500;

const String& SampleText() {
  static const String text = ReadFile(ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml");
  return text;
}

// The sample with each of its employees many times.
const XmlDocument& LargeDocument() {
  static const XmlDocument large = [] {
    SetProgramFolder(ZELNOR_SOURCE_DIR "/build/bench-home");
    FurnishProgramFolder();
    const XmlDocument document;
    document.LoadXML(SampleText());
    const std::vector<XmlNode> employees = document.GetElementsByTagName("Employee");
    for (int i = 1; i < kCopies; ++i) {
      for (const XmlNode& employee : employees) {
        employee.ParentNode().InsertBefore(employee.CloneNode(true), employees.front());
      }
    }
    return document;
  }();
  return large;
}

Ref<clsGovTalkMessage> LargeMessage() {
  auto message = std::make_shared<clsGovTalkMessage>();
  message->CreateFromXML(LargeDocument().DocumentElement());
  message->SubmissionDocument()->OverrideCompression(true);
  message->SubmissionDocument()->Header()->DocIRMark()->value("");
  return message;
}

void Count(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * LargeMessage()->SubmissionDocument()->FPS()->EmployeeCount());
}

void ParseText(benchmark::State& state) {
  const String text = LargeDocument().Xml();
  for (auto _ : state) {
    const XmlDocument document;
    benchmark::DoNotOptimize(document.LoadXML(text));
  }
  Count(state);
}
BENCHMARK(ParseText)->Unit(benchmark::kMillisecond);

void ReadRecords(benchmark::State& state) {
  const XmlNode root = LargeDocument().DocumentElement();
  for (auto _ : state) {
    clsGovTalkMessage message;
    benchmark::DoNotOptimize(message.CreateFromXML(root));
  }
  Count(state);
}
BENCHMARK(ReadRecords)->Unit(benchmark::kMillisecond);

void WriteRecords(benchmark::State& state) {
  const Ref<clsGovTalkMessage> message = LargeMessage();
  for (auto _ : state) message->ForceRebuild();
  Count(state);
}
BENCHMARK(WriteRecords)->Unit(benchmark::kMillisecond);

void CloneDocument(benchmark::State& state) {
  const XmlNode root = LargeDocument().DocumentElement();
  for (auto _ : state) {
    const XmlDocument copy;
    copy.AppendChild(copy.ImportNode(root, true));
  }
  Count(state);
}
BENCHMARK(CloneDocument)->Unit(benchmark::kMillisecond);

void SerialiseDocument(benchmark::State& state) {
  for (auto _ : state) {
    std::size_t size = 0;
    LargeDocument().Node().WriteXml([&](std::string_view piece) { size += piece.size(); });
    benchmark::DoNotOptimize(size);
  }
  Count(state);
}
BENCHMARK(SerialiseDocument)->Unit(benchmark::kMillisecond);

void MarkDocument(benchmark::State& state) {
  const Ref<clsGovTalkMessage> message = LargeMessage();
  message->ForceRebuild();
  for (auto _ : state) clsSHA1().MarkSubmission(*message);
  Count(state);
}
BENCHMARK(MarkDocument)->Unit(benchmark::kMillisecond);

void PackText(benchmark::State& state) {
  const String text = LargeDocument().Xml();
  for (auto _ : state) benchmark::DoNotOptimize(clsDZEncoder().PackAndEncode(text));
  Count(state);
}
BENCHMARK(PackText)->Unit(benchmark::kMillisecond);

void UnpackText(benchmark::State& state) {
  const String packed = clsDZEncoder().PackAndEncode(LargeDocument().Xml());
  for (auto _ : state) benchmark::DoNotOptimize(clsDZEncoder().UncompressAndDecodeData(packed));
  Count(state);
}
BENCHMARK(UnpackText)->Unit(benchmark::kMillisecond);

// Reading and writing the employees of each kind of document: those of its sample, so many times as fit.
void ReadAndWrite(benchmark::State& state, const char* sample, int copies) {
  SetProgramFolder(ZELNOR_SOURCE_DIR "/build/bench-home");
  FurnishProgramFolder();
  const XmlDocument document;
  document.LoadXML(ReadFile(String(ZELNOR_SOURCE_DIR "/samples/") + sample + ".xml"));
  const std::vector<XmlNode> employees = document.GetElementsByTagName("Employee");
  for (int i = 1; i < copies; ++i) {
    for (const XmlNode& employee : employees) {
      employee.ParentNode().InsertBefore(employee.CloneNode(true), employees.front());
    }
  }
  for (auto _ : state) {
    clsGovTalkMessage message;
    message.CreateFromXML(document.DocumentElement());
    message.SubmissionDocument()->OverrideCompression(true);
    message.SubmissionDocument()->Header()->DocIRMark();
    message.ForceRebuild();
    benchmark::DoNotOptimize(message.Document());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(employees.size()) * copies);
}
BENCHMARK_CAPTURE(ReadAndWrite, FPS, "FPS-25-26", 9)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, EAS, "EAS", 49)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, EYU, "EYU-19-20", 99)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, NVR, "NVR", 49)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, ManyFPS, "FPS-25-26", 900)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, ManyEAS, "EAS", 4900)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndWrite, ManyEYU, "EYU-19-20", 9900)->Unit(benchmark::kMillisecond);

// The rules of the employees alone, of records that no rule has looked at yet.
void ValidateEmployees(benchmark::State& state) {
  Process().SystemDate = Date::FromParts(2025, 10, 1);
  for (auto _ : state) {
    state.PauseTiming();
    Ref<clsGovTalkMessage> message = LargeMessage();
    const CollectionRef<clsEmployee> employees = message->SubmissionDocument()->FPS()->Employees();
    vlsEmployeeValidator validator;
    state.ResumeTiming();
    if (!validator.ValidateEmployees(employees, eRTISUBMISSIONTYPE::IsFPS, "25-26")) {
      state.SkipWithError("the sample fails its rules");
    }
    state.PauseTiming();
    message = nullptr;
    state.ResumeTiming();
  }
  Process() = {};
  Count(state);
}
BENCHMARK(ValidateEmployees)->Unit(benchmark::kMillisecond);

void MatchPattern(benchmark::State& state) {
  const Regex pattern("^[A-Z]{2}[0-9]{6}[A-D ]$");
  for (auto _ : state) benchmark::DoNotOptimize(pattern.Test("AB123456C"));
}
BENCHMARK(MatchPattern);

void ConvertMoney(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(FormatMoney(ToCurrency("1234.56")));
}
BENCHMARK(ConvertMoney);

}  // namespace
}  // namespace zelnor

BENCHMARK_MAIN();
