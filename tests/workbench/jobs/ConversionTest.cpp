#include "workbench/jobs/Conversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "tests/workbench/InProcessCommand.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/ValueText.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ConversionTest : public testing::Test {
 protected:
  static std::shared_ptr<Provider> Content(const std::string& sample) {
    return PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
  }
  static std::vector<std::string> Way(const std::string& from, const std::string& to) {
    std::vector<std::string> path;
    for (const VersionName& version : SchemaFiles::VersionsOf("KD4410")) path.push_back(version.Text());
    return WayBetween(path, "KD4410." + from, "KD4410." + to);
  }
  Conversion Convert(const std::shared_ptr<Provider>& content, const std::vector<std::string>& way,
                     const ConversionStep& step = StepOfTier) {
    return Converter(parts, messenger, step).Convert(content, way);
  }
  static std::vector<std::string> Told(const std::vector<Change>& changes) {
    std::vector<std::string> told;
    for (const Change& change : changes) {
      told.push_back((change.field == nullptr
                          ? "count of " + std::to_string(change.table->number)
                          : change.field->id + "[" + std::to_string(change.record) + "]") +
                     " " + ValueText::Of(change.before) + ">" + ValueText::Of(change.now));
    }
    return told;
  }

  const HostParts parts = ProjectParts();
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
};

TEST_F(ConversionTest, TheWayLeadsOverTheNeighboursInBothDirections) {
  EXPECT_THAT(Way("0091", "0094"), ElementsAre("KD4410.0091", "KD4410.0093", "KD4410.0094"));
  EXPECT_THAT(Way("0094", "0091"), ElementsAre("KD4410.0094", "KD4410.0093", "KD4410.0091"));
  EXPECT_THAT(Way("0094", "0095"), IsEmpty());
  EXPECT_EQ(VersionOfKey("0087.KE2210 Rx"), "KE2210 Rx.0087");
}

/// A step of no version: what the walk itself does, whatever the steps.
bool RenumberOnly(TierHost&, const ConversionPair& pair) {
  pair.destination->Set("39.Databaseversion", 1, CLng(pair.to.substr(pair.to.size() - 4)));
  return true;
}

TEST_F(ConversionTest, EverySampleGoesToTheOldestVersionAndBackAsAFile) {
  for (const char* sample : kSamples) {
    const auto content = Content(sample);
    const Conversion down = Convert(content, Way("0094", "0029"), RenumberOnly);
    ASSERT_NE(down.result, nullptr) << sample;
    const std::string oldest = PersonalityFile::Format(sample, *down.result);
    EXPECT_THAT(oldest, HasSubstr("\"version\": \"KD4410.0029\"")) << sample;
    const Conversion up =
        Convert(PersonalityFile::Parse(sample, oldest, *ProjectSchemas()), Way("0029", "0094"), RenumberOnly);
    ASSERT_NE(up.result, nullptr) << sample;
    // Old versions have one scan group at least.
    EXPECT_EQ(Told(down.hops[7].changes)[0] == "count of 16 0>1", content->Count(16) == 0);
    up.result->SetCount(16, content->Count(16));
    const std::string again = PersonalityFile::Format(sample, *up.result);
    const bool lostSomething =
        std::ranges::any_of(down.hops, [](const Hop& hop) { return !hop.losses.empty(); });
    EXPECT_EQ(again == ContentOf(Sample(sample)), !lostSomething) << sample;
    EXPECT_EQ(PersonalityFile::Format(sample, *content), ContentOf(Sample(sample)));
  }
}

TEST_F(ConversionTest, WhatAVersionCanNotHoldIsTold) {
  const auto content = Content("full");
  content->Set("69.GPSSDMCompatibility", 1, 0);
  const Conversion conversion = Convert(content, Way("0094", "0029"), RenumberOnly);
  std::vector<std::string> lost;
  for (const Hop& hop : conversion.hops) {
    for (const Loss& loss : hop.losses) {
      lost.push_back(hop.to.substr(7) + " " +
                     (loss.field ? loss.field->id : std::to_string(loss.table->number)) + " " +
                     std::to_string(loss.record) + "-" + std::to_string(loss.last));
      if (loss.field == nullptr && loss.table->number == 5) {
        EXPECT_EQ(loss.identities.front() + "-" + loss.identities.back(), "247-897");
        EXPECT_THAT(loss.identities, SizeIs(66));
      }
    }
  }
  EXPECT_THAT(lost, testing::IsSupersetOf(
                        {"0085 5 25-90", "0085 7 25-90", "0085 16 2-10", "0029 69.GPSSDMCompatibility 1-1"}));
  EXPECT_EQ(conversion.result->Count(5), 24);
  ASSERT_THAT(conversion.hops[0].outside, SizeIs(1));
  EXPECT_EQ(conversion.hops[0].outside[0].field->id, "9.DataVHSDLayer2Enabled");
}

TEST_F(ConversionTest, AStepWorksOnCopiesAndAllThatItWritesIsKept) {
  const auto content = Content("city-fleet");
  content->Set("36.DCSTxPolarity", 1, 1);
  const auto step = [](TierHost&, const ConversionPair& pair) {
    // The forms have the polarity in the opposite sense; what was copied is what the radio stores.
    EXPECT_EQ(CLng(pair.source->Get("36.DCSTxPolarity", 1)), 0);
    EXPECT_EQ(CLng(pair.destination->Get("36.DCSTxPolarity", 1)), 1);
    EXPECT_EQ(CStr(pair.source->Get("TxFreq_k6k", 2)), "450.037500");
    pair.source->Set("TxPower_k6k", 1, 0);
    pair.destination->Set("TxPower_k6k", 3, 1);
    pair.destination->Set("TxFreq_k6k", 2, "450.1");  // a form field
    pair.destination->SetCount(78, 5);
    pair.destination->Set("78.CWIDInterval", 5, 40);
    return true;
  };
  const Conversion conversion = Convert(content, Way("0094", "0093"), step);
  ASSERT_THAT(conversion.hops, SizeIs(1));
  EXPECT_THAT(Told(conversion.hops[0].changes),
              ElementsAre("5.ChannelTxFreq[2] 450037500>450100000", "5.TxPower_k6k[3] 4>1", "count of 78 4>5",
                          "78.CWIDInterval[5] 15>40"));
  EXPECT_EQ(CLng(conversion.result->Get("36.DCSTxPolarity", 1)), 1);
  EXPECT_EQ(CLng(content->Get("TxPower_k6k", 1)), 4);
  EXPECT_EQ(CLng(content->Get("TxPower_k6k", 3)), 4);
}

TEST_F(ConversionTest, ARefusalStopsTheConversion) {
  const auto step = [&](TierHost& host, const ConversionPair& pair) {
    std::int32_t button = 0;
    RaiseIfFailed(messenger->ShowMessage("At " + pair.to, MessageStyle::kExclamation, "Error", "", button));
    return pair.to != "KD4410.0091" && StepOfTier(host, pair);
  };
  const auto content = Content("minimal");
  const Conversion conversion = Convert(content, Way("0094", "0089"), step);
  EXPECT_EQ(conversion.result, nullptr);
  ASSERT_THAT(conversion.hops, SizeIs(2));
  EXPECT_TRUE(conversion.hops[0].accepted);
  EXPECT_FALSE(conversion.hops[1].accepted);
  ASSERT_THAT(conversion.hops[1].messages, SizeIs(1));
  EXPECT_EQ(conversion.hops[1].messages[0].text, "At KD4410.0091");
  EXPECT_EQ(PersonalityFile::Format("minimal", *content), ContentOf(Sample("minimal")));
}

TEST_F(ConversionTest, AFaultOfTheTierIsNoRefusal) {
  const auto step = [](TierHost& host, const ConversionPair& pair) {
    pair.destination->Monitor().FailOnce(1);
    return StepOfTier(host, pair);
  };
  EXPECT_THROW(Convert(Content("minimal"), Way("0094", "0093"), step), TierFault);
}

TEST_F(ConversionTest, ABurstThatMovesIsNoChangeAndOneThatIsDroppedIsNamed) {
  const auto content = Content("city-fleet");
  const Conversion refused = Convert(content, Way("0094", "0029"));
  ASSERT_EQ(refused.result, nullptr);
  const auto& obstacles = refused.hops.back().obstacles;
  ASSERT_THAT(obstacles, SizeIs(2));  // vehicles 11 and 12
  EXPECT_EQ(obstacles[0].field->id + CStr(obstacles[0].record) + CStr(obstacles[0].value),
            "5.TXCallBurstSeq1121021");

  for (const RecordNr channel : {11, 12}) content->Set("5.TXCallBurst", channel, 8);
  const Conversion down = Convert(content, Way("0094", "0089"));
  const Hop& hop = down.hops.back();
  EXPECT_THAT(Told(hop.changes), ElementsAre("count of 30 283>103", "39.Databaseversion[1] 90>89"));
  ASSERT_THAT(hop.losses, SizeIs(27));
  EXPECT_EQ(hop.losses[0].place, "Selcall system 1, Tx call burst 11");
  EXPECT_EQ(CLng(down.result->Get("5.StatusBurst", 13)), 69);

  const Conversion stopped = Convert(content, Way("0094", "0085"));
  EXPECT_EQ(stopped.result, nullptr);
  EXPECT_THAT(stopped.hops.back().obstacles, SizeIs(2));  // its groups
}

TEST_F(ConversionTest, APinThatHidesItsActionIsNamedWithTheWayOut) {
  const auto content = Content("full");
  for (RecordNr pin = 1; pin <= 15; ++pin) {
    content->Set("55.DigitalIOInputActivationAction", pin, 0);
    content->Set("55.DigitalIOInputDeactivationAction", pin, 0);
  }
  content->Set("55.DigitalIOInputActivationAction", 7, 43);
  content->Set("55.DigitalIOInputDirection", 7, 2);
  const Conversion refused = Convert(content, Way("0094", "0089"));
  ASSERT_EQ(refused.result, nullptr);
  ASSERT_THAT(refused.hops.back().obstacles, SizeIs(1));
  EXPECT_EQ(refused.hops.back().obstacles[0].where, "AUX_GPIO7");
  EXPECT_THAT(refused.hops.back().obstacles[0].way, HasSubstr("make it an input, save"));
}

TEST_F(ConversionTest, AnOldSampleIsWhatItsVersionSavesAndComesUp) {
  for (const std::string sample : kOldSamples) {
    const auto content = Content(sample);
    Session session(parts, content->Copy(), messenger);
    session.ConvertToForms();
    EXPECT_EQ(PersonalityFile::Format(sample, *session.ConvertedToRaw()), ContentOf(Sample(sample)));
  }
  for (const std::string sample : kOldSamples) {
    const Conversion up = Convert(Content(sample), Way(sample.substr(sample.size() - 4), "0094"));
    ASSERT_NE(up.result, nullptr) << sample;
    EXPECT_EQ(CLng(up.result->Get("39.Databaseversion")), 94);
    EXPECT_EQ(CLng(up.result->Get("21.NetworkPointer", 3)), 3) << "counted from 1 again";
    EXPECT_EQ(CLng(up.result->Get("75.SIBTFrequency")), 20000);
  }
}

using ConvertCommand = InProcessCommand;

TEST_F(ConvertCommand, TellsWhatAWayDoesWithoutAFileAndTriesItWithoutWriting) {
  EXPECT_EQ(Run({"convert", "--explain", "90", "kd4410.0088"}), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), testing::AllOf(HasSubstr("KD4410.0090 -> KD4410.0089\n  Refused with a VHSD"),
                                        HasSubstr("  - VHSDLeadInDelay is 20..250, was 5..250"),
                                        HasSubstr("KD4410.0089 -> KD4410.0088\n  Internal power sense")));
  EXPECT_EQ(Run({"convert", "--explain", "0029", "0094", "--json"}), ExitCode::Done);
  EXPECT_THAT(nlohmann::json::parse(out.str())["steps"], SizeIs(17));
  EXPECT_EQ(Run({"convert", file, "--to", "0091", "--dry-run"}), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), HasSubstr("Dry run: nothing is written."));
  EXPECT_FALSE(std::filesystem::exists(folder.PathOf("p-0091.json")));
  EXPECT_EQ(Run({"convert", file, "--to", "0029", "--dry-run"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("The step from KD4410.0086 to KD4410.0085 refuses"));
  const std::pair<std::vector<std::string>, const char*> wrong[] = {
      {{"--explain", "0090", "0092"}, "is none of KD4410.0029"},
      {{"--explain", "0090"}, "is none of"},
      {{"--explain", "KE2210 Rx.0090", "KD4410.0091"}, "no conversion leads from KE2210 Rx.0090"},
      {{file, "0090", "--to", "0091"}, "goes with --explain alone"}};
  for (auto [words, message] : wrong) {
    words.insert(words.begin(), "convert");
    EXPECT_EQ(Run(words), ExitCode::CouldNot) << message;
    EXPECT_THAT(messages, HasSubstr(message));
  }
}

TEST_F(ConvertCommand, WritesANewFileAndNeverOverAnotherUnasked) {
  const std::string written = folder.PathOf("p-0093.json");
  EXPECT_EQ(Run({"convert", file, "--to", "0093"}), ExitCode::Done) << messages;
  EXPECT_EQ(ContentOf(file), sample);
  EXPECT_EQ(Run({"show", written, "channels"}), ExitCode::Done) << messages;
  const std::string first = ContentOf(written);
  const std::pair<std::vector<std::string>, const char*> refused[] = {
      {{file, "--to", "0093"}, "p-0093.json is there already"},
      {{file, "--to", "kd4410.0091", "--out", file}, "p.json is there already"},
      {{file, "--to", "0094"}, "nothing to convert"},
      {{file, "--to", "0095", "--force"}, "the versions of KD4410 are KD4410.0029, "},
      {{file, "--to", "KE2210 Rx.0093", "--force"}, "no conversion leads from KD4410.0094"},
      {{folder.PathOf("none.json"), "--to", "0093", "--force"}, "none.json"},
      {{folder.Write("damaged.json", "{\n]"), "--to", "0093"}, "damaged.json:2"},
      {{file}, "--to is required"},
      {{file, "--to", "0093", "--out", folder.PathOf("no/such/p.json")}, "no/such/p.json"},
  };
  for (auto [words, message] : refused) {
    words.insert(words.begin(), "convert");
    EXPECT_EQ(Run(words), ExitCode::CouldNot) << message;
    EXPECT_THAT(messages, HasSubstr(message));
  }
  EXPECT_EQ(ContentOf(written), first);
  EXPECT_EQ(ContentOf(file), sample);
  EXPECT_EQ(Run({"convert", file, "--to", "0091", "--out", file, "--force", "--json"}), ExitCode::Done);
  EXPECT_THAT(ContentOf(file), HasSubstr("\"version\": \"KD4410.0091\""));
  EXPECT_THAT(nlohmann::json::parse(out.str())["hops"], SizeIs(2));
}

TEST_F(ConvertCommand, TheVersionsOfAModelAreListedOldestFirst) {
  ASSERT_EQ(Run({"versions", "--model", "ke2210 rx", "--json"}), ExitCode::Done) << messages;
  const auto list = nlohmann::json::parse(out.str())["models"];
  ASSERT_THAT(list, SizeIs(1));
  const auto& versions = list[0]["versions"];
  EXPECT_EQ(versions.front()["version"], "KE2210 Rx.0087");
  EXPECT_TRUE(versions.front()["base"].is_null());
  EXPECT_EQ(versions.back()["base"], "KE2210 Rx.0093");
  EXPECT_TRUE(versions.back()["latest"]);
  EXPECT_EQ(Run({"versions", "--model", "KD4411"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("the models are KD4410, KE2210 Rx, KE2210 Tx"));
}
}  // namespace
