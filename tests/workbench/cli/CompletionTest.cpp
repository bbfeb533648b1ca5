#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/workbench/ShellCommand.h"

namespace {

class CompletionTest : public ShellCommand {
 protected:
  /// What bash offers for the last of the words, a line each.
  std::string Offered(const std::string& words) const {
    return Bash("source <(kd4410 completion bash)\ncomplete -p kd4410 > /dev/null || exit\nCOMP_WORDS=(" +
                words +
                ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_kd4410 kd4410\nprintf '%s\\n' "
                "\"${COMPREPLY[@]}\" | sort -u")
        .out;
  }
};

TEST_F(CompletionTest, BashOffersWhatAWordMayBe) {
  folder.Write("a b.json", "");
  const std::pair<const char*, const char*> cases[] = {
      {"kd4410 ch", "check\n"},
      {"kd4410 --json --answer yes co", "combo\ncompletion\nconform\nconvert\n"},
      {"kd4410 set --dr", "--dry-run\n"},
      {"kd4410 set --js", "--json\n"},
      {"kd4410 info 'a b'", "a b.json\n"},
      {"kd4410 set samples/mini", "samples/minimal.json\n"},
      {"kd4410 set f RxFr", "RxFreq_k6k\n"},
      {"kd4410 set --dry-run f --selcall 2 RxFr", "RxFreq_k6k\n"},
      {"kd4410 set f RxFreq_k6k ''", "\n"},
      {"kd4410 add f s", "scan-group\nselcall\n"},
      {"kd4410 show f chan", "channels\n"},
      {"kd4410 form f 'Key '", "Key\\ Settings\n"},
      {"kd4410 convert f --to KD4410.009", "KD4410.0090\nKD4410.0091\nKD4410.0093\nKD4410.0094\n"},
      {"kd4410 new n.json --version = KD4410.002", "KD4410.0029\n"},
      {"kd4410 --data sam", "samples\n"},
      {"kd4410 record x.trace che", "check\n"},
      {"kd4410 record x.trace show f --al", "--all\n"},
      {"kd4410 help vers", "versions\n"},
      {"kd4410 run --answer ca", "cancel\n"},
  };
  for (const auto& [words, offered] : cases) EXPECT_EQ(Offered(words), offered) << words;
}

TEST_F(CompletionTest, OtherShellsReadTheirScripts) {
  for (const char* shell : {"zsh", "fish"}) {
    const std::string name(shell);
    ASSERT_EQ(Bash("kd4410 completion " + name + " > script").code, 0);
    EXPECT_THAT(ContentOf(folder.PathOf("script")), testing::HasSubstr("control-status"));
    if (!Has(name)) continue;
    EXPECT_EQ(Bash(name + " -n script").code, 0) << shell;
  }
}

}  // namespace
