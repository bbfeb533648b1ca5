#include "workbench/jobs/Control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/Conversions.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/jobs/ComboList.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"

namespace {
using testing::HasSubstr;

/// The controls of a sample on its forms.
class ControlTest : public testing::Test {
 protected:
  void Open(const std::string& sample) {
    content = PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
    session.reset();
    session = std::make_unique<Session>(ProjectParts(), content, std::make_shared<ScriptedMessenger>());
    session->ConvertToForms();
  }
  Entry Enter(std::string_view uiid, RecordNr record, std::string_view typed) {
    return EnteredIn(*session, content->FieldOf(uiid), uiid, record, typed);
  }

  std::shared_ptr<Provider> content;
  std::unique_ptr<Session> session;
};

struct Accepted {
  const char* uiid;
  RecordNr record;
  std::string typed;
  const char* handedOn;
};
struct Refused {
  const char* uiid;
  RecordNr record;
  std::string typed;
  const char* why;
};

TEST_F(ControlTest, HandsOnWhatTheFieldTakesInItsOwnSpelling) {
  Open("city-fleet");
  const Accepted cases[] = {
      {"TxPower_k6k", 1, " +04 ", "4"},
      {"TxPower_k6k", 1, "-0", "0"},
      {"AutoOverBeepFrequency", 1, "1000.5", "1000.5"},
      {"AutoOverBeepFrequency", 1, " +300. ", "+300."},
      {"AutoOverBeepFrequency", 1, "460.500", "460.500"},
      {"RxFreq_k6k", 1, "460,5 MHz", "460,5 MHz"},  // left to the tier
      {"dataTotalRadioIdHex", 1, "00af", "00AF"},
      {"DTMFANISequence", 1, "12*#-abcd", "12*#-ABCD"},
      {"CWIDString", 1, "caf\u00E9 \u00FF", "caf\u00E9 \u00FF"},
      {"NetworkID", 2, "2", "2"},  // its own
      {"NetworkID", 2, "+016", "16"},
      // from lists of texts
      {"RxSignalling_k6k", 1, "C103.5", "C103.5"},
      {"RxSignalling_k6k", 1, "c103.5", "C103.5"},
      {"RxSignalling_k6k", 1, "NONE", "None"},
      {"EmChannel", 3, "7", "7"},
      {"EmChannel", 3, " 07.0 ", "7"},
      {"DTMFPresetCallSequence", 21, "*99a", "*99A"},
      // of the numbers of records
      {"ChannelNetworkID_k6k", 1, "02", "2"},
      // of names, by name or by row
      {"FunctionKey1", 1, "Monitor", "17"},
      {"FunctionKey1", 1, "scanning / nuisance delete", "31"},
      {"FunctionKey1", 1, "31", "31"},
      {"ActionParamEmergencyMode", 1, "Stealth", "1"},
      // of names with codes
      {"IOPRTS", 1, "aux_gpi2", "23"},
      {"AudioIOTapIn", 1, "R10", "10"},
      {"AudioIOTapIn", 1, "10", "10"},
  };
  for (const auto& [uiid, record, typed, handedOn] : cases) {
    const Entry entry = Enter(uiid, record, typed);
    EXPECT_EQ(entry.refusal, "") << uiid;
    EXPECT_EQ(entry.value, handedOn) << uiid;
  }
}

TEST_F(ControlTest, RefusesWhatTheFieldDoesNotTakeAndTellsWhatItTakes) {
  Open("city-fleet");
  constexpr const char* kPower = "the field takes whole numbers from 0 to 4";
  constexpr const char* kHex = "the field takes the characters 0123456789ABCDEF";
  const Refused cases[] = {
      {"TxPower_k6k", 1, "3.5", kPower},
      {"TxPower_k6k", 1, "3.0", kPower},
      {"TxPower_k6k", 1, "1e0", kPower},
      {"TxPower_k6k", 1, "&H1", kPower},
      {"TxPower_k6k", 1, "0x1", kPower},
      {"TxPower_k6k", 1, " 3 3", kPower},
      {"TxPower_k6k", 1, "+-3", kPower},
      {"TxPower_k6k", 1, "", kPower},
      {"TxPower_k6k", 1, "5", kPower},
      {"TxPower_k6k", 1, "-1", kPower},
      {"TxPower_k6k", 1, "4294967297", kPower},
      {"TxPower_k6k", 1, std::string(400, '7'), kPower},
      {"NetworkID", 1, "2.4", "the field takes whole numbers from 1 to 16"},
      {"AutoOverBeepFrequency", 1, "1e3", "the field takes plain numbers from 300 to 3000"},
      {"AutoOverBeepFrequency", 1, "&H3E8", "the field takes plain numbers from 300 to 3000"},
      {"AutoOverBeepFrequency", 1, "299.9", "the field takes plain numbers from 300 to 3000"},
      {"AutoOverBeepFrequency", 1, std::string(400, '7'), "plain numbers from 300 to 3000"},
      {"AutoOverBeepFrequency", 1, "460.51", "from 300 to 3000, with decimals: 1 at most"},
      {"FreeFormStatus", 1, "123", "the field takes at most 2 characters"},
      {"DataXon", 1, "1G", kHex},
      {"DataXon", 1, "None", kHex},
      {"DTMFANISequence", 1, "None", "the field takes the characters 0123456789ABCD*#-"},
      {"DataXon", 1, "011", "the field takes at most 2 characters"},
      {"dataTotalRadioIdHex", 1, "10000", "the field takes at most 4 characters"},
      {"CWIDString", 1, "5 \u20AC", "the radio has no character \"\u20AC\" (U+20AC)"},
      {"CWIDString", 1, "\u00FF\u0100", "the radio has no character \"\u0100\" (U+100)"},
      {"RxFreq_k6k", 1, "\U0001F600", "(U+1F600)"},
      {"CWIDString", 1, "caf\xE9", "not valid UTF-8"},
      {"TxPower_k6k", 1, "\xC3", "not valid UTF-8"},
      // from lists
      {"RxSignalling_k6k", 1, "103.5",
       "\"103.5\" is not in the list of Rx Subaudible Signalling; did you mean C103.5, "},
      {"RxSignalling_k6k", 1, "03.5", "did you mean C103.5"},
      {"TxSignalling_k6k", 1, "D999", "(kd4410 combo FILE TxSignalling_k6k 1 lists them)"},
      {"TxSignalling_k6k", 1, "", "\"\" is not in the list of Tx Subaudible Signalling (kd4410"},
      {"EmChannel", 3, "999", "is not in the list of Emergency Channel; it has 1 to 20, 31 to 33 (kd4410"},
      {"EmChannel", 3, "None", "is not in the list"},
      {"EmChannel", 3, "1e0", "is not in the list"},
      {"DTMFPresetCallSequence", 21, "*99", "did you mean *99A"},
      {"ChannelNetworkID_k6k", 1, "2.0", "it has 1 to 4"},
      {"ChannelNetworkID_k6k", 1, "None", "it has 1 to 4"},
      {"FunctionKey1", 1, "32", "is not in the list of Function Key 1"},
      {"FunctionKey1", 1, "-1", "is not in the list of Function Key 1"},
      {"FunctionKey1", 1, "Phone Patch", "did you mean Phone Patch Call Request/Release?"},
      {"ActionParamEmergencyMode", 1, "2", "it has Non Stealth, Stealth"},
      {"IOPRTS", 1, "1", "it has None, AUX_GPI1 to AUX_GPI3"},
      {"ActionParamPresetGroup", 1, "1", "is not in the list of Preset Group; it has 101, 102"},
  };
  for (const auto& [uiid, record, typed, why] : cases) {
    const Entry entry = Enter(uiid, record, typed);
    EXPECT_THAT(entry.refusal, HasSubstr(why)) << uiid << " " << typed;
    EXPECT_EQ(entry.value, "") << uiid;
  }
}

TEST_F(ControlTest, TakesTheWordOfACodeInAnyCaseOrTheCode) {
  Open("city-fleet");
  const Accepted cases[] = {
      {"TxPower_k6k", 1, "very low", "1"}, {"TxPower_k6k", 1, " HIGH ", "4"},
      {"SignallingType", 1, "none", "0"},  {"TonePeriod", 1, "33 ms", "2"},
      {"GroupTone", 1, "b", "11"},         {"GroupTone", 1, "9", "9"},  // has no word
      {"TxInhibit_k6k", 1, "ON", "1"},     {"TxInhibit_k6k", 1, "off", "0"},
      {"TxInhibit_k6k", 1, "yes", "1"},    {"TxInhibit_k6k", 1, "False", "0"},
      {"TxInhibit_k6k", 1, "1", "1"},      {"DCSTxPolarity", 1, "true", "1"},  // as on the form
      {"Band_k6k", 1, "b1", "1"},          {"Band_k6k", 1, "L3", "9"},
      {"FunctionKey1", 1, "none", "0"},  // a word of its list
  };
  for (const auto& [uiid, record, typed, handedOn] : cases) {
    const Entry entry = Enter(uiid, record, typed);
    EXPECT_EQ(entry.refusal, "") << uiid;
    EXPECT_EQ(entry.value, handedOn) << uiid << " " << typed;
  }
  const Refused refused[] = {
      {"TxPower_k6k", 1, "on", "whole numbers from 0 to 4, or Off, Very Low, Low, Medium, High"},
      {"TxPower_k6k", 1, "None", "whole numbers from 0 to 4"},
      {"TxInhibit_k6k", 1, "2", "the field takes yes or no"},
      {"TxInhibit_k6k", 1, "-1", "the field takes yes or no"},
      {"Band_k6k", 1, "H9", "from 0 to 9, or A4, B1, C0"},
      {"GroupTone", 1, "G", "from 0 to 15, or A, B, C, D, E, F"},
      {"FunctionKey1", 1, "off", "is not in the list"},
  };
  for (const auto& [uiid, record, typed, why] : refused) {
    EXPECT_THAT(Enter(uiid, record, typed).refusal, HasSubstr(why)) << uiid << " " << typed;
  }
}

TEST_F(ControlTest, TonesOfAListAreNoNumber) {
  Open("city-fleet");
  content->Set("65.DTMFChannelPresetSequenceUI", 2, "12");
  EXPECT_EQ(Enter("DTMFPresetCallSequence", 21, "12").value, "12");
  EXPECT_NE(Enter("DTMFPresetCallSequence", 21, "012").refusal, "");
}

/// Whether the list offers the value, as the forms show it.
bool Offers(const ComboList& list, const SchemaField& field, const Variant& value) {
  const bool areNames = !list.hasCodes && !std::ranges::all_of(list.items, [](const ComboItem& item) {
    return IsNumeric(Variant(item.text));
  });
  if (field.type == FieldType::Integer && areNames) return CLng(value) < std::ssize(list.items);
  return std::ranges::any_of(list.items, [&](const ComboItem& item) {
    return item.code ? SameValue(*item.code, value) : SameValue(item.text, value);
  });
}

TEST_F(ControlTest, TakesWhatIsStoredAndEachEntryOfEveryList) {
  int lists = 0;
  int stored = 0;
  for (const char* sample : kSamples) {
    Open(sample);
    for (const SchemaField& field : content->GetSchema().Fields()) {
      const RecordNr last = field.uiids.empty() ? 0 : content->Count(field.table);
      for (const RecordNr record : std::set<RecordNr>{1, 2, (last + 1) / 2, last}) {
        if (record > last || record < 1) continue;
        const auto list = ListOffered(session->Host(), *content, field.uiids.front(), record);
        if (!list) break;
        SCOPED_TRACE(std::string(sample) + " " + field.id + " " + std::to_string(record));
        ++lists;
        const Variant& now = content->Get(field, record);
        if (field.isIdentity ? LimitsOf(field).Hold(CDbl(now)) : Offers(*list, field, now)) {
          ++stored;
          const Entry entry = Enter(field.uiids.front(), record, CStr(now));
          EXPECT_TRUE(SameValue(entry.value, now)) << CStr(now) << ": " << entry.refusal;
        }
        if (field.isIdentity) continue;
        for (const ComboItem& item : list->items) {
          const Entry entry = Enter(field.uiids.front(), record, item.text);
          EXPECT_EQ(entry.refusal, "") << item.text;
          EXPECT_TRUE(Offers(*list, field, entry.value)) << item.text;
          EXPECT_TRUE(field.type == FieldType::Text || LimitsOf(field).Hold(CDbl(entry.value))) << item.text;
        }
      }
    }
  }
  EXPECT_GT(lists, 300);
  EXPECT_GT(stored, 200);
}
}  // namespace
