// Each script of this folder is a test of its own.

#include <filesystem>

#include "conversations/runner.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

const std::filesystem::path kFolder = ZELNOR_TEST_DATA "/conversations";

std::vector<std::string> Scripts() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".conv") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
}

class ConversationScript : public testing::TestWithParam<std::string> {};

TEST_P(ConversationScript, IsHeld) {
  const std::string path = (kFolder / (GetParam() + ".conv")).string();
  const Script script = ReadScript(path);
  Conversation conversation(script);
  conversation.Run();
  bool good = true;
  for (const ScriptLine& expected : script.expectations) {
    const std::string failure = conversation.Failure(expected.text);
    if (failure.empty()) continue;
    ADD_FAILURE_AT(path.c_str(), expected.line) << expected.text << ": " << failure;
    good = false;
  }
  if (!good) std::cout << "What happened:\n" << conversation.TraceText();
}

INSTANTIATE_TEST_SUITE_P(Scripts, ConversationScript, testing::ValuesIn(Scripts()), TestName);

}  // namespace
}  // namespace zelnor::test
