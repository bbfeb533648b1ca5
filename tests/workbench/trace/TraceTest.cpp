#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "tests/workbench/InProcessCommand.h"
#include "workbench/host/Replayer.h"
#include "workbench/host/TierHost.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/Provider.h"
#include "workbench/trace/Recorder.h"

namespace {
using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

class TraceCommands : public InProcessCommand {
 protected:
  /// A library of its own: no other test keeps it loaded with its state.
  TraceCommands() { std::filesystem::copy_file(kTierLibrary, tier); }

  ExitCode Run(Words words) {
    words.insert(words.begin(), {"--tier", tier});
    return InProcessCommand::Run(std::move(words));
  }
  void FreshFiles() {
    folder.Write("p.json", sample);
    std::filesystem::remove(folder.PathOf("converted.json"));
  }
  ExitCode Record(const Words& words) {
    FreshFiles();
    Words all = {"record", "--force", trace};
    all.insert(all.end(), words.begin(), words.end());
    return Run(all);
  }
  ExitCode Replay() { return Run({"replay", trace}); }
  ExitCode Replay(const std::string& content) {
    folder.Write("t.jsonl", content);
    return Replay();
  }

  const std::string tier = folder.PathOf("tier.so");
  const std::string trace = folder.PathOf("t.jsonl");
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, text.npos) << from;
  return at == text.npos ? text : text.replace(at, from.size(), to);
}

int LineOf(const std::string& text, const std::string& part) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(part));
  return 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
}

TEST_F(TraceCommands, ARecordedCommandActsAsUsualAndIsReplayedWithoutDifference) {
  const std::string fleet = Sample("city-fleet");
  const std::string faulty = folder.Write("faulty.json", Replaced(sample, "\"Band\": 5", "\"Band\": 9"));
  const std::string script =
      folder.Write("s", "set " + file + " TxFreq_k6k 1 440.5\ncheck " + file + "\nbands\n");
  const std::pair<Words, ExitCode> cases[] = {
      {{"check", file}, ExitCode::Done},
      {{"set", file, "TxFreq_k6k", "1", "440.5"}, ExitCode::Done},
      {{"set", file, "TxFreq_k6k", "1", "--", "-5"}, ExitCode::No},
      {{"set", Sample("marine-harbour"), "TxFreq_k6k", "2", "157.5001", "--dry-run", "--answer", "yes"},
       ExitCode::Done},
      {{"add", file, "networks"}, ExitCode::Done},
      {{"convert", file, "--to", "0090", "--out", folder.PathOf("converted.json")}, ExitCode::Done},
      {{"enabled", fleet, "TxPower_k6k", "1", "--why", "--json"}, ExitCode::Done},
      {{"combo", fleet, "TxPower_k6k", "1"}, ExitCode::Done},
      {{"versions"}, ExitCode::Done},
      {{"run", script}, ExitCode::Done},
      {{"check", faulty}, ExitCode::CouldNot},
      {{"--data", SCHEMA_FOLDER "/..", "bands"}, ExitCode::Fault},  // no data files of the tier there
      {{"get", file, "Nonsense"}, ExitCode::CouldNot},
      {{"check", folder.PathOf("missing")}, ExitCode::CouldNot},
  };
  for (const auto& [words, code] : cases) {
    SCOPED_TRACE(testing::PrintToString(words));
    FreshFiles();
    EXPECT_EQ(Run(words), code) << messages;
    const std::string usual = out.str() + messages;
    const std::string left = ContentOf(file);

    EXPECT_EQ(Record(words), code);
    EXPECT_EQ(out.str() + messages, usual);
    EXPECT_EQ(ContentOf(file), left);
    const std::string recorded = ContentOf(trace);
    EXPECT_TRUE(recorded.ends_with("\n{\"end\":" + std::to_string(static_cast<int>(code)) + "}\n"));
    EXPECT_EQ(recorded.find(std::filesystem::path(kTierLibrary).parent_path()), recorded.npos);
    EXPECT_EQ(recorded.find("DllCanUnloadNow\",\"out\":[1]"), recorded.npos) << "an object was kept";

    Words replay = {"replay", trace};
    if (words.front() == "--data") replay.insert(replay.begin(), words.begin(), words.begin() + 2);
    EXPECT_EQ(Run(replay), ExitCode::Done) << out.str() << messages;
    EXPECT_THAT(out.str(), HasSubstr("no difference\n"));
    EXPECT_EQ(out.str().find("breaks off"), std::string::npos);
  }
}

TEST_F(TraceCommands, TheFirstDifferenceIsReportedAtItsLine) {
  ASSERT_EQ(Record({"set", file, "TxFreq_k6k", "1", "150"}), ExitCode::No);
  const std::string recorded = ContentOf(trace);
  const std::string value = R"({"ask":"Ifield.SetValue","in":[1,1],"on":6,"out":[]})";
  const std::string box = "outside the allowable range for this band";
  const struct {
    std::string from, to;  // in the trace
    std::string line;      // in which the difference comes to light
    const char* now;
  } cases[] = {
      {value, Replaced(value, "[1,1]", "[1,-1]"), "[1,-1]", "\"in\":[1,1]"},
      {value, Replaced(value, "\"on\":6", "\"on\":7"), "\"in\":[1,1],\"on\":7", "\"on\":6"},
      {value, Replaced(value, "SetValue", "Value"), R"("Ifield.Value","in":[1,1])", "Ifield.SetValue"},
      {value + "\n", "", R"({"ask":"Iprovider.Field","in":["36.DCSRxPolarity"])", "Ifield.SetValue"},
      {value, value + "\n" + value, value + "\n{\"ask\":\"Iprovider.Field\"", "36.DCSRxPolarity"},
      {box, "INSIDE", "INSIDE", box.c_str()},
      {R"({"answer":"ItierValidator.ValidateByUIID","out":["150",0]})",
       R"({"answer":"ItierValidator.ValidateByUIID","out":["150",-1]})",
       R"(ValidateByUIID","out":["150",-1])", R"(["150",0])"},
      // The tier decides otherwise when the host does not answer as it did.
      {"{application folder}", "elsewhere", R"({"answer":"Itier.Initialize")", "elsewhere/KD4410_UI_U.dat"},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.to);
    const std::string changed = Replaced(recorded, one.from, one.to);
    EXPECT_EQ(Replay(changed), ExitCode::No) << messages;
    EXPECT_THAT(out.str(), StartsWith(trace + ":" + std::to_string(LineOf(changed, one.line)) + ": "));
    EXPECT_THAT(out.str(), HasSubstr(one.now));
    EXPECT_EQ(messages, "") << "a box of the tier that is let go";
    EXPECT_EQ(Replay(recorded), ExitCode::Done) << "the tier was not let go: " << out.str();
  }
}

TEST_F(TraceCommands, ATraceOfAKilledSessionIsReplayedUpToItsEnd) {
  ASSERT_EQ(Record({"check", file}), ExitCode::Done);
  const std::string recorded = ContentOf(trace);
  const std::size_t header = recorded.find('\n') + 1;
  for (std::size_t end = header; end < recorded.size() - 2; end += recorded.size() / 13) {
    EXPECT_EQ(Replay(recorded.substr(0, end)), ExitCode::Done) << end << out.str() << messages;
    EXPECT_THAT(out.str(), HasSubstr("no difference\nThe trace breaks off behind line ")) << end;
  }
  const std::string inside = "{\"ask\":\"IprovInfo.BaseKey\"";
  EXPECT_EQ(Replay(recorded.substr(0, recorded.find(inside))), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("inside Itier.Initialize.\n"));
}

TEST_F(TraceCommands, ATraceThatCanNotBeUsedIsRefusedWithItsLine) {
  ASSERT_EQ(Record({"bands"}), ExitCode::Done);
  const std::string recorded = ContentOf(trace);
  const std::string bands = R"({"call":"IproviderOwner.GetBands")";
  const std::tuple<std::string, std::string, const char*> cases[] = {
      {recorded, "", ":1: format: this is no trace"},
      {recorded, "{}\n", ":1: format: this is no trace"},
      {"\"format\":1", "\"format\":2", ":1: trace: traces of format 2 are not known"},
      {"\"decimalSymbol\":\".\"", "\"decimalSymbol\":\",\"", ":1: trace: recorded with the decimal symbol"},
      {"{\"load\":{\"tier\":1}}\n", "{\"load\":\n", ":2: trace: the line is no JSON object"},
      {"{\"load\":{\"tier\":1}}", "{\"load\":{\"tier\":3}}",
       ":2: trace: the library is numbered out of turn"},
      {"{\"load\":{\"tier\":1}}", "{\"answer\":\"Itier.Activate\"}", ":2: trace: the line is out of place"},
      {"[\"clsKD4410Tier\",null,0]", "[\"clsKD4410Tier\",null]",
       ":3: trace: 2 values where there should be 3"},
      {"[\"clsKD4410Tier\",null,0]", "[5,null,0]", ":3: trace: no text: 5"},
      {"[\"clsKD4410Tier\",null,0]", "[\"clsKD4410Tier\",null,3000000000]", "no whole number of 32 bits"},
      {"\"IclassFactory.CreateTier\"", "\"IclassFactory.CreateRadio\"",
       "no operation IclassFactory.CreateRadio"},
      {"{\"release\":2}", "{\"release\":77}", "the tier has no object 77"},
      // What the tier asked for is missing: the fault is found while the tier runs.
      {R"("IprovInfo.ShowInMenu","in":[],"on":4,"out":[-1])",
       R"("IprovInfo.ShowInMenu","in":[],"on":4,"out":[])", "0 values where there should be 1"},
      {R"("IhostServices.CreateProvInfo","in":[],"on":1,"out":[{"host":4}])",
       R"("IhostServices.CreateProvInfo","in":[],"on":1,"out":[{"host":1}])",
       "object 1 of the host is no IprovInfo"},
  };
  for (const auto& [from, to, reason] : cases) {
    EXPECT_EQ(Replay(Replaced(recorded, from, to)), ExitCode::CouldNot) << reason << out.str();
    EXPECT_THAT(messages, StartsWith(trace + ":"));
    EXPECT_THAT(messages, HasSubstr(reason));
  }
  std::filesystem::remove(trace);
  EXPECT_EQ(Replay(), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("No such file"));
}

TEST_F(TraceCommands, AFileThatCanNotBecomeATraceIsRefused) {
  EXPECT_EQ(Run({"record", file, "check", file}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("is there already"));
  EXPECT_EQ(ContentOf(file), sample);
  EXPECT_EQ(Run({"record", trace}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"record", trace, "frobnicate"}), ExitCode::CouldNot);
  EXPECT_FALSE(std::filesystem::exists(trace));
  EXPECT_EQ(Record({"record", folder.PathOf("u"), "check", file}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"record", folder.PathOf("no/such/folder"), "check", file}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"record", "--force", "/dev/full", "check", file}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("/dev/full: write: not a regular file"));
  Trace::Recorder full("/dev/full", "check");
  EXPECT_THAT(RefusalOf([&] { full.End(0); }), HasSubstr("/dev/full: trace: is not complete"));
}

/// A host that calls the tier while the tier calls it.
class CuriousMessenger final : public RecordingMessenger {
 public:
  const TierHost* host = nullptr;
  std::string label;

 protected:
  Button Answer(const Shown&) override { return Button::No; }
  void Tell(const Shown&) override {
    Boolean known = kFalse;
    host->Require(host->UserInterface().GetLabelByUIID("TxFreq_k6k", label, known));
  }
};

TEST_F(TraceCommands, CallsInsideACallOfTheTierAreReplayedInTheirPlace) {
  const std::string data = std::filesystem::path(kTierLibrary).parent_path();
  const auto schemas = SchemaFiles::Read(SCHEMA_FOLDER);
  const auto messenger = std::make_shared<CuriousMessenger>();
  {
    const auto recorder = std::make_shared<Trace::Recorder>(trace, "");
    Session session({schemas, tier, data, recorder}, PersonalityFile::Parse("p", sample, *schemas),
                    messenger);
    messenger->host = &session.Host();
    session.ConvertToForms();
    const SchemaField& field = session.Content().FieldOf("TxFreq_k6k");
    EXPECT_FALSE(session.Edit(field, "TxFreq_k6k", 1, "150").accepted);
  }
  EXPECT_NE(messenger->label, "");
  EXPECT_EQ(Replay(), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), HasSubstr("no difference"));
  const std::string label = R"({"answer":"ItierUserInterface.GetLabelByUIID","out":[)";
  const std::string recorded = ContentOf(trace);
  EXPECT_LT(recorded.find(label), recorded.find(R"({"answer":"Imessenger.ShowMessage")"));
  EXPECT_EQ(Replay(Replaced(recorded, label, label + "1,")), ExitCode::No);
}

/// The value as it comes back from a line of a trace.
template <typename Value>
Value ThereAndBack(const Value& value) {
  Value back;
  Trace::FromJson(Trace::Json::parse(Trace::LineOf(Trace::ToJson(value))), back);
  return back;
}

TEST(TraceValues, ComeBackAsTheyWere) {
  const auto array = std::make_shared<XArrayDBObject>();
  array->Redim(-2, 1, 3, 4);
  array->SetValue(-2, 3, "\xff");
  array->SetValue(1, 4, std::int16_t{-7});
  const double numbers[] = {0.0,
                            -0.0,
                            0.1,
                            1e300,
                            5e-324,
                            3.0,
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity(),
                            std::nan("")};
  for (const double number : numbers) {
    const Variant back = ThereAndBack(Variant(number));
    ASSERT_TRUE(std::holds_alternative<double>(back)) << number;
    if (std::isnan(number)) {
      EXPECT_TRUE(std::isnan(std::get<double>(back)));
    } else {
      EXPECT_EQ(std::bit_cast<std::uint64_t>(std::get<double>(back)), std::bit_cast<std::uint64_t>(number));
    }
    EXPECT_EQ(Trace::LineOf(Trace::ToJson(Variant(Date{number}))),
              Trace::LineOf(Trace::ToJson(ThereAndBack(Variant(Date{number})))));
  }
  const Variant values[] = {Variant(),
                            true,
                            std::int16_t{3},
                            std::int32_t{-2147483647 - 1},
                            0.1F,
                            Currency{std::numeric_limits<std::int64_t>::min()},
                            "",
                            "\xc3",
                            "a\xff\"b",
                            std::string("a\0b", 3),
                            "{\"short\"",
                            ArrayObject(array),
                            ArrayObject()};
  for (const Variant& value : values) {
    const Variant back = ThereAndBack(value);
    const std::string line = Trace::LineOf(Trace::ToJson(value));
    EXPECT_EQ(back.index(), value.index()) << line;
    EXPECT_EQ(Trace::LineOf(Trace::ToJson(back)), line);
    if (value.IsText()) {
      EXPECT_EQ(std::get<std::string>(back), std::get<std::string>(value));
    }
  }
  const XArrayDBObject back = ThereAndBack(*array);
  EXPECT_EQ(back.LowerBound(2), 3);
  EXPECT_EQ(std::get<std::string>(back.GetValue(-2, 3)), "\xff");
  EXPECT_EQ(std::get<std::int16_t>(back.GetValue(1, 4)), -7);
}

}  // namespace
