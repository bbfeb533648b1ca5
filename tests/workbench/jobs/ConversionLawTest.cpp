#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/TierFixture.h"
#include "workbench/host/Messengers.h"
#include "workbench/jobs/BurstPlaces.h"
#include "workbench/jobs/BurstSlots.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/RecordKeys.h"

namespace {

/// So many random personalities a pair; the long proofs ask for more.
int Count() {
  constexpr int kFew = 5;
  const char* told = std::getenv("KD4410_LAW_COUNT");
  return told == nullptr ? kFew : std::atoi(told);
}

/// Sound content of a version: counts and values within their limits or at them, numbers that differ,
/// companions of all, pointers to what is there.
class RandomPersonality {
 public:
  RandomPersonality(std::string_view version, unsigned seed) : random_(seed), version_(version) {}

  std::shared_ptr<Provider> Make() {
    content_ = NewPersonality(*ProjectSchemas(), version_);
    const RecordNr networks = 1 + Below(4), systems = Below(3);
    for (const std::int32_t table : {21, 36, 53, 67, 72, 75, 77, 78}) content_->SetCount(table, networks);
    for (const std::int32_t table : {29, 31, 48}) content_->SetCount(table, systems);
    content_->SetCount(49, 7 * systems);
    content_->SetCount(80, version_.ends_with("0089") && Below(2) == 0 ? 1 : 0);
    content_->SetCount(64, Below(3));
    content_->SetCount(5, Below(6));
    content_->SetCount(16, 1);
    content_->Set("16.GroupIdentity", 1, 5);
    isTame_ = Below(3) > 0;
    FillLimits();
    Number("21.NetworkPointer");
    Number("29.SelcallID");
    Number("64.DTMFNetworkSigSystemID");
    GiveBursts(systems);
    GiveLines();
    return content_;
  }

 private:
  std::int32_t Below(std::int32_t count) { return std::uniform_int_distribution(0, count - 1)(random_); }
  std::int32_t Between(std::int32_t low, std::int32_t high) {
    return std::uniform_int_distribution(low, high)(random_);
  }

  /// Fields that stand for themselves: no pointers, nothing that a conversion makes from others.
  static bool IsPlain(const SchemaField& field) {
    constexpr std::int32_t kOthers[] = {0,  3,  4,  7,  10, 15, 18, 24, 25, 30, 31, 32, 39, 44, 48, 50,
                                        51, 55, 56, 57, 60, 61, 63, 65, 66, 67, 68, 74, 76, 80, 81};
    if (std::ranges::find(kOthers, field.table) != std::end(kOthers)) return false;
    if (!field.IsRaw() || field.type != FieldType::Integer || field.transform != 0) return false;
    for (const std::int32_t table :
         {5, 16, 18, 21, 24, 29, 30, 37, 48, 50, 51, 53, 61, 63, 64, 65, 72, 75, 80}) {
      if (field.PointsInto(table)) return false;
    }
    return field.minimum < field.maximum && !field.isIdentity;
  }

  /// What the field may hold: in this version, or, of a tame personality, in every one.
  std::pair<std::int32_t, std::int32_t> RangeOf(const SchemaField& field) const {
    std::pair range{field.minimum, field.maximum};
    for (const VersionName& version : SchemaFiles::VersionsOf("KD4410")) {
      const SchemaField* other = isTame_ ? ProjectSchemas()->At(version.Text())->Find(field.id) : nullptr;
      if (other == nullptr) continue;
      range = {std::max(range.first, other->minimum), std::min(range.second, other->maximum)};
    }
    return range.first < range.second ? range : std::pair{field.minimum, field.maximum};
  }

  void FillLimits() {
    for (const SchemaField& field : content_->GetSchema().Fields()) {
      if (!IsPlain(field)) continue;
      const double scale = CDbl(field.scale);
      const auto [lowest, highest] = RangeOf(field);
      for (RecordNr record = 1; record <= content_->Count(field.table); ++record) {
        const std::int32_t at = Below(3);
        const std::int32_t shown = at == 0 ? lowest : at == 1 ? highest : Between(lowest, highest);
        const bool isNoBand = field.id == "34.Band" && shown == 9;  // the numbers have a gap
        content_->Set(field, record, RoundToLong((isNoBand ? lowest : shown) * scale));
      }
    }
  }

  void Number(std::string_view fieldId) {
    const SchemaField& field = content_->FieldOf(fieldId);
    for (RecordNr record = 1; record <= content_->Count(field.table); ++record) {
      const std::int32_t number = std::min(field.minimum + 3 * record, field.maximum);
      content_->Set(field, record, number);
      if (fieldId == "21.NetworkPointer" && content_->GetSchema().Find("21.NetworkID") != nullptr)
        content_->Set("21.NetworkID", record, number);
    }
  }

  void GiveBursts(RecordNr systems) {
    const BurstPlaces places(content_->GetSchema());
    const RecordNr last = systems == 0 ? 1 : places.RecordOf({systems + 1, 0, 1}) - 1;
    content_->SetCount(30, last);
    for (RecordNr record = 2; record <= last; ++record) {
      const BurstPlace place = *places.Of(record);
      content_->Set("30.FixedFormatSigSystemID", record, content_->Get("29.SelcallID", place.system));
      content_->Set("30.FixedFormatBurstType", record, static_cast<std::int32_t>(place.kind));
      content_->Set("30.FixedFormatBurstID", record, (record - 2) % (last / systems) + 1);
      if (Below(3) == 0) continue;
      auto tones = std::make_shared<XArrayDBObject>();
      tones->Redim(0, 3, 0, 0);
      for (std::int32_t row = 1; row <= 3; ++row) tones->SetValue(row, 0, Below(10));
      content_->Set("30.FixedFormatBurstSeq", record, ArrayObject(std::move(tones)));
    }
    for (RecordNr channel = 1; channel <= content_->Count(5) && systems > 0; ++channel) {
      for (std::size_t kind = 0; kind < BurstSlots::kKinds.size(); ++kind) {
        const BurstPlace place{1 + Below(systems), kind, 1 + Below(2)};
        const bool isNone = Below(4) == 0;
        content_->Set(BurstSlots::kKinds[kind].pointer, channel, isNone ? 0 : places.RecordOf(place) - 1);
      }
    }
  }

  void GiveLines() {
    constexpr std::int32_t kFirstPin = 22;
    constexpr std::int32_t kActions[] = {0, 1, 2, 4, 5, 18, 35, 38, 41, 42, 43, 47, 48, 49};
    for (RecordNr record = 1; record <= content_->Count(55); ++record) {
      const std::int32_t action = kActions[static_cast<std::size_t>(Below(std::ssize(kActions)))];
      content_->Set("55.DigitalIOInputPinID", record, kFirstPin + record - 1);
      content_->Set("55.DigitalIOInputDirection", record, 1);
      content_->Set("55.DigitalIOInputActiveState", record, Below(2));
      content_->Set("55.DigitalIOInputActivationAction", record, Below(3) == 0 ? action : 0);
    }
  }

  std::mt19937 random_;
  bool isTame_ = false;
  std::string version_;
  std::shared_ptr<Provider> content_;
};

/// What a report names: cells, and tables whose number of records it tells.
class Named {
 public:
  void Add(const Hop& hop) {
    for (const Change& change : hop.changes) {
      if (change.field == nullptr)
        tables_.insert(change.table->number);
      else
        cells_.insert({change.field->id, change.record});
    }
    for (const Loss& loss : hop.losses) {
      if (loss.field != nullptr)
        cells_.insert({loss.field->id, loss.record});
      else
        tables_.insert(loss.table->number);
    }
  }
  bool Has(const SchemaField& field, RecordNr record) const {
    return cells_.contains({field.id, record}) || field.id == "39.Databaseversion";
  }
  bool HasTable(std::int32_t table) const { return tables_.contains(table); }
  bool HasField(std::string_view fieldId) const {
    return std::ranges::any_of(cells_, [&](const auto& cell) { return cell.first == fieldId; });
  }

 private:
  std::set<std::pair<std::string, RecordNr>> cells_;
  std::set<std::int32_t> tables_;
};

/// What a warning speaks of, by a part of its text.
std::string_view FieldOfWarning(std::string_view text) {
  constexpr std::pair<std::string_view, std::string_view> kFields[] = {
      {"Emergency Mic", "34.CovertMicFitted"},
      {"GPS auto-ack", "69.GPSSDMWaitForAck"},
      {"GPS NMEA", "69.GPSNMEAStringType"},
      {"Tone Blanking", "21.ToneBlankingDeactivationTimer"},
      {"Active State", "55.DigitalIOInputActiveState"},
      {"Selcall Fixed Format", "30.FixedFormatBurstSeq"},
      {"Selection Lockout", "34.FrontPanelChannelSelectionLockout"},
      {"VHSD Lead In", "9.VHSDLeadInDelay"},
      {"", "55.DigitalIOInputActivationAction"}};
  return std::ranges::find_if(kFields, [&](const auto& row) { return text.find(row.first) != text.npos; })
      ->second;
}

/// The stored cells in which two personalities of one version differ though no report names them.
std::string Unnamed(const Provider& a, const Provider& b, const Named& named) {
  std::string told;
  for (const SchemaTable& table : a.GetSchema().Tables()) {
    if (!table.IsRaw()) continue;
    if (a.Count(table) != b.Count(table) && !named.HasTable(table.number))
      told += "count of " + CStr(table.number) + "; ";
    for (const SchemaField& field : a.GetSchema().FieldsOf(table)) {
      const RecordNr count = std::min(a.Count(table), b.Count(table));
      for (RecordNr record = 1; field.IsRaw() && record <= count; ++record) {
        if (!SameCell(a.Get(field, record), b.Get(field, record)) && !named.Has(field, record))
          told += field.id + "[" + CStr(record) + "]; ";
      }
    }
  }
  return told;
}

std::vector<std::pair<std::string, std::string>> Pairs() {
  std::vector<std::pair<std::string, std::string>> pairs;
  const auto versions = SchemaFiles::VersionsOf("KD4410");
  for (std::size_t i = 1; i < versions.size(); ++i) {
    pairs.emplace_back(versions[i - 1].Text(), versions[i].Text());
    pairs.emplace_back(versions[i].Text(), versions[i - 1].Text());
  }
  return pairs;
}

class ConversionLaws : public testing::Test {
 protected:
  Conversion Convert(const std::shared_ptr<Provider>& content, const std::string& from,
                     const std::string& to) {
    return Converter(ProjectParts(), std::make_shared<CheckedMessenger>()).Convert(content, {from, to});
  }
  /// Says Yes.
  class CheckedMessenger final : public RecordingMessenger {
    Button Answer(const Shown&) override { return Button::Yes; }
  };
};

TEST_F(ConversionLaws, ThereAndBackGivesAllThatNoReportNames) {
  for (const auto& [from, to] : Pairs()) {
    int judged = 0;
    for (int seed = 1; seed <= Count(); ++seed) {
      SCOPED_TRACE(from + " to " + to + ", personality " + CStr(seed));
      const auto content = RandomPersonality(from, static_cast<unsigned>(seed)).Make();
      const std::string before = PersonalityFile::Format("law", *content);
      const Conversion there = Convert(content, from, to);
      ASSERT_EQ(PersonalityFile::Format("law", *content), before) << "the source stays";
      ASSERT_EQ(there.hops.size(), 1U);
      Named named;
      named.Add(there.hops[0]);
      for (const Shown& box : there.hops[0].messages) {
        const bool isRefusal = !there.hops[0].accepted && &box == &there.hops[0].messages.back();
        ASSERT_EQ(box.title, isRefusal ? "Error" : "Warning");
        if (there.hops[0].accepted) {
          ASSERT_TRUE(named.HasField(FieldOfWarning(box.text))) << box.text;
        }
      }
      const Conversion back = there.result == nullptr ? Conversion{} : Convert(there.result, to, from);
      if (back.result == nullptr) continue;
      ++judged;
      named.Add(back.hops[0]);
      ASSERT_EQ(Unnamed(*content, *back.result, named), "");
    }
    EXPECT_GT(judged, 0) << from << " to " << to << ": every one was refused";
  }
}

/// The four pairs that the tier walks by itself, beside their steps one by one: the first from the source,
/// the others in the destination, refused ones among them.
TEST_F(ConversionLaws, AWalkOfTheTierIsItsSteps) {
  const std::vector<std::string> ways[] = {{"0029", "0051", "0052", "0053", "0054"},
                                           {"0054", "0053", "0052", "0051", "0029"},
                                           {"0054", "0081", "0082", "0083"},
                                           {"0083", "0082", "0081", "0054"}};
  for (const auto& way : ways) {
    for (int seed = 1; seed <= Count(); ++seed) {
      SCOPED_TRACE(way.front() + " to " + way.back() + ", personality " + CStr(seed));
      const std::string from = "KD4410." + way.front(), to = "KD4410." + way.back();
      const auto source = RandomPersonality(from, static_cast<unsigned>(seed)).Make();
      const auto walked = SharedContent(*ProjectSchemas(), *source, to);
      const auto stepped = walked->Copy();
      const auto messenger = std::make_shared<CheckedMessenger>();
      Session session(ProjectParts(), source, messenger);
      session.ConvertToForms();
      messenger->Clear();
      session.Host().UseStore(walked);
      EXPECT_TRUE(StepOfTier(session.Host(), {source, from, walked, to}));
      const auto told = messenger->Texts();
      messenger->Clear();
      for (std::size_t i = 1; i < way.size(); ++i) {
        StepOfTier(session.Host(),
                   {i == 1 ? source : stepped, "KD4410." + way[i - 1], stepped, "KD4410." + way[i]});
      }
      EXPECT_EQ(messenger->Texts(), told);
      EXPECT_EQ(Unnamed(*walked, *stepped, Named()), "");
    }
  }
}
}  // namespace
