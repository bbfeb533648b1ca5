#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <tuple>

#include "tests/workbench/InProcessCommand.h"

namespace {

using testing::HasSubstr;
using WordList = std::vector<std::string>;

/// Sets the title of the terminal, clears it in C1, turns the line round, breaks it, and is no UTF-8 at last.
const std::string kHostile = "\x1b]0;x\a\xc2\x9bJ\xe2\x80\xae\nz\xff";
constexpr const char* kShown = "\\x1B]0;x\\x07\\u009BJ\\u202E\\nz\\xFF";

/// Where the text would move a cursor or turn a line.
bool IsSafe(const std::string& text) {
  const bool hasControl = std::ranges::any_of(text, [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return (code < 0x20 && c != '\n') || code == 0x7F || code == 0xFF;
  });
  return !hasControl && text.find("\xc2\x9b") == std::string::npos &&
         text.find("\xe2\x80\xae") == std::string::npos;
}

class SafeOutput : public InProcessCommand {
 protected:
  /// A personality with a text that no terminal should get, but for the byte that JSON does not take.
  std::string HostilePersonality() {
    auto content = nlohmann::ordered_json::parse(sample);
    content["tables"]["78"][0]["CWIDString"] = kHostile.substr(0, kHostile.size() - 1);
    return folder.Write("hostile.json", content.dump());
  }
};

TEST_F(SafeOutput, NamesThatAUserGivesAreShownByTheirCodes) {
  const std::string script = folder.Write("script-" + kHostile, "get nothing\n");
  const std::string answers = folder.Write("answers", kHostile + "\n");
  const WordList cases[] = {
      {kHostile},
      {"--" + kHostile},
      {"help", kHostile},
      {"info", kHostile},
      {"get", file, kHostile},
      {"get", file, "TxPower_k6k", kHostile},
      {"show", file, kHostile},
      {"add", file, kHostile},
      {"form", file, kHostile},
      {"convert", file, "--to", kHostile},
      {"new", kHostile, "--version", kHostile},
      {"new", folder.PathOf("n"), "--version", "KD4410.0094", "--band", kHostile},
      {"fields", kHostile},
      {"versions", "--model", kHostile},
      {"conform", "--check", kHostile},
      {"completion", kHostile},
      {"record", kHostile, "gibberish"},
      {"run", script},
      {"info", file, "--selcall", kHostile},
      {"preprogram", file, "--radio", kHostile},
      {"set", file, "TxPower_k6k", "1", "1", "--answer", kHostile},
  };
  for (const WordList& words : cases) {
    EXPECT_NE(Run(words), ExitCode::Done);
    EXPECT_TRUE(IsSafe(out.str() + messages)) << testing::PrintToString(words) << out.str() << messages;
    EXPECT_THAT(messages, HasSubstr("\\x1B]0;x\\x07")) << testing::PrintToString(words);
  }
  Run({"set", file, "CWIDString", "1", kHostile});
  EXPECT_THAT(out.str(), HasSubstr(kShown));
}

TEST_F(SafeOutput, ValuesOfAFileAreShownByTheirCodesAndStayExactInJSON) {
  const std::string hostile = HostilePersonality();
  const std::string shown = std::string(kShown).substr(0, std::string(kShown).size() - 4);
  const WordList cases[] = {{"get", hostile, "CWIDString"},
                            {"show", hostile, "78"},
                            {"diff", hostile, file},
                            {"set", hostile, "CWIDString", "1", "CALL", "--dry-run"}};
  for (const WordList& words : cases) {
    EXPECT_LE(Run(words), ExitCode::No) << messages;
    EXPECT_TRUE(IsSafe(out.str() + messages)) << testing::PrintToString(words);
    EXPECT_THAT(out.str(), HasSubstr(shown)) << testing::PrintToString(words);
  }
  EXPECT_EQ(nlohmann::json::parse(Told({"get", hostile, "CWIDString", "--json"}))["values"][0]["value"],
            kHostile.substr(0, kHostile.size() - 1));
}

TEST_F(SafeOutput, ALongWordIsCutInMessages) {
  const std::string word(1000, 'q');
  const WordList cases[] = {
      {word}, {"get", file, word}, {"add", file, word}, {"set", file, "TxPower_k6k", "1", word}};
  for (const WordList& words : cases) {
    EXPECT_NE(Run(words), ExitCode::Done);
    EXPECT_THAT(out.str() + messages, HasSubstr("qqq... (1000 characters)"));
    EXPECT_THAT(out.str() + messages, Not(HasSubstr(std::string(201, 'q'))));
  }
}

}  // namespace
